#include "support/ini_model.h"

#include <algorithm>
#include <sstream>

#include "zeapi.h"

namespace zeapi::testing {
namespace {

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return text;
}

bool Same(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }

std::string WithoutBlanksAtEnd(std::string text) {
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

}  // namespace

void IniModel::Load(std::string_view text, bool filtered) {
  constexpr std::size_t kPiece = 1019;
  while (!text.empty()) {
    const std::size_t newline = text.find('\n');
    const std::size_t whole = newline == text.npos ? text.size() : newline + 1;
    std::string line(text.substr(0, std::min(whole, kPiece)));
    text.remove_prefix(line.size());
    line = line.c_str();
    if (line.ends_with('\n')) line.pop_back();
    line = WithoutBlanksAtEnd(line);
    const std::size_t equals = line.find('=');
    if (line[0] != '[' && equals != line.npos) {
      line = WithoutBlanksAtEnd(line.substr(0, equals)) + line.substr(equals);
    } else if (filtered && (line.empty() || line[0] == ';')) {
      continue;
    }
    lines.push_back(line);
  }
}

IniModel::Answer IniModel::Read2(const std::string& section, const std::string& key) const {
  const std::size_t header = Header(section);
  if (header == kNone) return {ZE_SECTION_NOT_FOUND, ""};
  const std::size_t found = FindKey(header + 1, key);
  if (found == kNone) return {ZE_KEY_NOT_FOUND, ""};
  return {ZE_OK, lines[found].substr(lines[found].find('=') + 1)};
}

std::string IniModel::Read(const std::string* section, const std::string* key) {
  std::size_t at = cursor_;
  if (section != nullptr) {
    at = Header(*section);
    if (at != kNone) ++at;
  }
  std::size_t found = kNone;
  if (at != kNone) {
    if (key != nullptr) {
      found = FindKey(at, *key);
    } else if (at < lines.size() && lines[at][0] != '[') {
      found = at;
    }
  }
  cursor_ = found == kNone || found + 1 == lines.size() ? kNone : found + 1;
  if (found == kNone) return "";
  return key == nullptr ? lines[found] : lines[found].substr(lines[found].find('=') + 1);
}

void IniModel::Write(const std::string& section, const std::string& key, const std::string& value,
                     bool all) {
  const std::string line = key + "=" + value;
  const std::size_t header = Header(section);
  if (header == kNone) {
    if (!lines.empty() && !lines.back().empty()) Insert(lines.size(), "");
    Insert(lines.size(), "[" + section + "]");
    Insert(lines.size(), line);
    return;
  }
  std::size_t at = header + 1;
  for (; at < lines.size() && !lines[at].empty() && lines[at][0] != '['; ++at) {
    const std::size_t equals = lines[at].find('=');
    if (equals == kNone || !Same(lines[at].substr(0, equals), key)) continue;
    if (all && !Same(lines[at].substr(equals + 1), value)) continue;
    if (!all) lines[at] = line;
    return;
  }
  Insert(at, line);
}

void IniModel::Delete(const std::string& section, const std::string* key,
                      const std::string* value) {
  const std::size_t header = Header(section);
  if (header == kNone) return;
  if (key == nullptr) return Remove(header);
  for (std::size_t at = header + 1; at < lines.size() && lines[at][0] != '['; ++at) {
    std::vector<std::string> pieces;
    std::istringstream stream(lines[at]);
    for (std::string piece; std::getline(stream, piece, '=');) {
      if (!piece.empty()) pieces.push_back(piece);
    }
    if (pieces.empty() || !Same(pieces[0], *key)) continue;
    if (value != nullptr && (pieces.size() < 2 || !Same(pieces[1], *value))) continue;
    return Remove(at);
  }
}

std::string IniModel::Text() const {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

std::size_t IniModel::Header(const std::string& section) const {
  const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return Same(line, "[" + section + "]");
  });
  return found == lines.end() ? kNone : static_cast<std::size_t>(found - lines.begin());
}

// The next header is looked at too before it ends the search.
std::size_t IniModel::FindKey(std::size_t at, const std::string& key) const {
  for (; at < lines.size(); ++at) {
    const std::size_t equals = lines[at].find('=');
    if (equals != kNone && Same(lines[at].substr(0, equals), key)) return at;
    if (lines[at][0] == '[') break;
  }
  return kNone;
}

void IniModel::Insert(std::size_t at, const std::string& line) {
  if (cursor_ != kNone && at <= cursor_) ++cursor_;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), line);
}

void IniModel::Remove(std::size_t at) {
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
  if (cursor_ != kNone && at < cursor_) --cursor_;
  if (cursor_ == lines.size()) cursor_ = kNone;
}

}  // namespace zeapi::testing
