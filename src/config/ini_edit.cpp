#include <algorithm>

#include "base/text.h"
#include "config/ini_file.h"
#include "config/text_pieces.h"

namespace zeapi {
namespace {

std::string Joined(std::string_view key, std::string_view value) {
  std::string text;
  text.reserve(key.size() + value.size() + 1);
  return text.append(key).append(1, '=').append(value);
}

IniLine* Insert(IniFile* file, IniLine* before, std::string_view text) {
  IniLine* line = file->lines.Insert(before, text);
  file->longest = std::max(file->longest, line->length + 1);
  return line;
}

void AppendSection(IniFile* file, std::string_view section, const std::string& keyLine) {
  IniLines& lines = file->lines;
  if (!lines.last()->IsEmpty()) Insert(file, lines.last(), "");
  std::string header = "[";
  header.append(section).append(1, ']');
  file->index.SectionAppended(Insert(file, lines.last(), header));
  Insert(file, lines.last(), keyLine);
  if (keyLine[0] == '[') file->index.SectionsChanged();
}

void InsertKey(IniFile* file, IniSection* section, IniLine* before, const std::string& keyLine) {
  const IniLine* line = Insert(file, before, keyLine);
  if (line->IsHeader()) {
    file->index.SectionsChanged();
  } else {
    IniIndex::KeysChanged(section);
  }
}

// A section's first block of lines: what stands between its header and the first empty line or header.
struct FirstBlock {
  IniLine* match;  // the first line that is looked for, or null
  IniLine* last;   // the last line before it, or the header
};

template <typename Matches>
FirstBlock ScanFirstBlock(const IniSection& section, Matches matches) {
  FirstBlock block = {nullptr, section.header};
  for (IniLine* line = section.header->next;
       line != nullptr && !line->IsEmpty() && !line->IsHeader(); line = line->next) {
    if (line->HasKey() && matches(*line)) {
      block.match = line;
      break;
    }
    block.last = line;
  }
  return block;
}

// The first line of the section's first block that matches; null when there was none and a new line was put
// in.
template <typename Matches>
IniLine* FindOrInsert(IniFile* file, std::string_view section, std::string_view key,
                      std::string_view value, Matches matches) {
  file->flags |= kIniModified;
  IniSection* found = file->index.FindSection(section);
  if (found == nullptr) {
    AppendSection(file, section, Joined(key, value));
    return nullptr;
  }
  const FirstBlock block = ScanFirstBlock(*found, matches);
  if (block.match == nullptr) InsertKey(file, found, block.last, Joined(key, value));
  return block.match;
}

// Deleting looks at pieces, not at what stands before and behind the first "=": a line without
// "=" is all key, and a value ends at the next "=".
bool MatchesPieces(const IniLine& line, std::string_view key, const char* value) {
  std::string_view rest = line.view();
  std::string_view piece;
  if (!TakePiece(&rest, '=', &piece) || !SameText(piece, key)) return false;
  return value == nullptr || (TakePiece(&rest, '=', &piece) && SameText(piece, value));
}

void Remove(IniFile* file, IniLine* before) {
  if (file->cursor == before->next) file->cursor = before->next->next;
  file->lines.RemoveBehind(before);
}

void RemoveHeader(IniFile* file, const IniLine* header) {
  IniLine* before = file->lines.head();
  while (before->next != header) before = before->next;
  Remove(file, before);
  file->index.SectionsChanged();
}

}  // namespace

void IniWrite(IniFile* file, std::string_view section, std::string_view key,
              std::string_view value) {
  const auto sameKey = [&](const IniLine& line) { return SameText(line.Key(), key); };
  IniLine* match = FindOrInsert(file, section, key, value, sameKey);
  if (match != nullptr) file->lines.Rewrite(match, Joined(key, value));
}

void IniWriteAll(IniFile* file, std::string_view section, std::string_view key,
                 std::string_view value) {
  FindOrInsert(file, section, key, value, [&](const IniLine& line) {
    return SameText(line.Key(), key) && SameText(line.Value(), value);
  });
}

void IniDelete(IniFile* file, const char* section, const char* key, const char* value) {
  file->flags |= kIniModified;
  IniSection* found = file->index.FindSection(section);
  if (found == nullptr) return;
  if (key == nullptr) return RemoveHeader(file, found->header);
  for (IniLine* before = found->header; before->next != nullptr && !before->next->IsHeader();
       before = before->next) {
    if (!MatchesPieces(*before->next, key, value)) continue;
    Remove(file, before);
    IniIndex::KeysChanged(found);
    return;
  }
}

}  // namespace zeapi
