// Random calls on random files, beside a model that knows nothing but the lines: every answer and the written
// file must be the same.
#include <algorithm>
#include <random>
#include <sstream>

#include "support/bytes.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return text;
}

bool Same(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }

// The rules once more, by reading a list of lines from its beginning for each call.
class Model {
 public:
  std::vector<std::string> lines;

  std::string Read2(const std::string& section, const std::string& key) const {
    const std::size_t header = Header(section);
    if (header == kNone) return "<45>";
    const std::size_t found = FindKey(header + 1, key);
    return found == kNone ? "<41>" : lines[found].substr(lines[found].find('=') + 1);
  }

  // Null section and key as null pointers, like the call.
  std::string Read(const std::string* section, const std::string* key) {
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

  void Write(const std::string& section, const std::string& key, const std::string& value,
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
      if (equals == std::string::npos || !Same(lines[at].substr(0, equals), key)) continue;
      if (all && !Same(lines[at].substr(equals + 1), value)) continue;
      if (!all) lines[at] = line;
      return;
    }
    Insert(at, line);
  }

  void Delete(const std::string& section, const std::string* key, const std::string* value) {
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

 private:
  static constexpr std::size_t kNone = std::string::npos;

  std::size_t Header(const std::string& section) const {
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
      return Same(line, "[" + section + "]");
    });
    return found == lines.end() ? kNone : static_cast<std::size_t>(found - lines.begin());
  }

  std::size_t FindKey(std::size_t at, const std::string& key) const {
    for (; at < lines.size(); ++at) {
      const std::size_t equals = lines[at].find('=');
      if (equals != std::string::npos && Same(lines[at].substr(0, equals), key)) return at;
      if (lines[at][0] == '[') break;
    }
    return kNone;
  }

  void Insert(std::size_t at, const std::string& line) {
    // A line put in front of the cursor moves it; one put right where it stands stays behind it.
    if (cursor_ != kNone && at <= cursor_) ++cursor_;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), line);
  }

  void Remove(std::size_t at) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
    if (cursor_ != kNone && at < cursor_) --cursor_;
    if (cursor_ == lines.size()) cursor_ = kNone;
  }

  std::size_t cursor_ = kNone;
};

class IniModelTest : public IniTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  void SetUp() override {
    IniTest::SetUp();
    random_.seed(GetParam());
  }

  std::size_t Below(std::size_t limit) { return random_() % limit; }

  // Few names, so that calls meet; some that make odd lines.
  std::string Section() { return Pick({"a", "A", "b", "c", "x=1", "", "k]", "none"}); }
  std::string Key() { return Pick({"k", "K", "l", "m", "[x", "[b", "", "k=2", "[x]"}); }
  std::string ValueText() { return Pick({"1", "2", "v", "V", "1]", "", "x=y", "a longer value"}); }

  std::string Line() {
    switch (Below(8)) {
      case 0:
      case 1:
        return "[" + Section() + "]";
      case 2:
        return "";
      case 3:
        return Key();
      case 4:
        return "==" + Key() + "==" + ValueText();
      default:
        return Key() + "=" + ValueText();
    }
  }

  void CheckOneCall() {
    const std::string section = Section();
    const std::string key = Key();
    const std::string value = ValueText();
    const bool noSection = Below(2) == 0;
    const bool noKey = Below(4) == 0;
    switch (Below(8)) {
      case 0:
        EXPECT_EQ(ZeIniWrite(handle, section.c_str(), key.c_str(), value.c_str()), 1U);
        model_.Write(section, key, value, false);
        break;
      case 1:
        EXPECT_EQ(ZeIniWriteAll(handle, section.c_str(), key.c_str(), value.c_str()), 1U);
        model_.Write(section, key, value, true);
        break;
      case 2:
        EXPECT_EQ(ZeIniDelete(handle, section.c_str(), noKey ? nullptr : key.c_str(),
                              noSection ? nullptr : value.c_str()),
                  1U);
        model_.Delete(section, noKey ? nullptr : &key, noSection ? nullptr : &value);
        break;
      case 3:
      case 4:
        EXPECT_EQ(
            ZeIniRead(handle, noSection ? nullptr : section.c_str(), noKey ? nullptr : key.c_str()),
            model_.Read(noSection ? nullptr : &section, noKey ? nullptr : &key));
        break;
      default:
        EXPECT_EQ(Value(section.c_str(), key.c_str()), model_.Read2(section, key));
    }
  }

  Model model_;

 private:
  std::string Pick(std::initializer_list<const char*> choices) {
    return *(choices.begin() + Below(choices.size()));
  }

  std::mt19937 random_;
};

TEST_P(IniModelTest, AnswersAndFileAreThoseOfTheModel) {
  std::string text;
  for (std::size_t count = Below(40); count > 0; --count) {
    model_.lines.push_back(Line());
    text += model_.lines.back() + "\n";
  }
  Open(text);
  for (int call = 0; call < 300 && !HasFailure(); ++call) CheckOneCall();
  ZeIniDelete(handle, "there is no such section", nullptr, nullptr);
  std::string expected;
  for (const std::string& line : model_.lines) expected += line + "\n";
  EXPECT_BYTES(Written(), expected);
}

INSTANTIATE_TEST_SUITE_P(Seeds, IniModelTest, ::testing::Range(0U, 50U));

}  // namespace
}  // namespace zeapi::testing
