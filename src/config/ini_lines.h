// The lines of an INI file in memory: a list that is loaded once, then read and edited.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace zeapi {

struct IniLine {
  char* text;  // zero-terminated, without a newline
  IniLine* next;
  std::uint32_t length;
  bool ownsText;  // the text is a block of its own
  bool ownsSelf;  // the line is a block of its own

  std::string_view view() const { return {text, length}; }
  bool IsEmpty() const { return length == 0; }
  bool IsHeader() const { return text[0] == '['; }
  bool HasKey() const { return view().find('=') != std::string_view::npos; }
  // What stands before the first "=", and what follows it. Only for lines that have one.
  std::string_view Key() const { return view().substr(0, view().find('=')); }
  char* Value() const { return text + Key().size() + 1; }
};

// The first line with a key, from `line` up to and including the next header, that `matches`. Null when there
// is none.
template <typename Matches>
IniLine* FindKeyLine(IniLine* line, Matches matches) {
  for (; line != nullptr; line = line->next) {
    if (line->HasKey() && matches(line)) return line;
    if (line->IsHeader()) break;
  }
  return nullptr;
}

class IniLines {
 public:
  IniLines() = default;
  ~IniLines();
  IniLines(const IniLines&) = delete;
  IniLines& operator=(const IniLines&) = delete;

  // The list begins with an empty line that is not part of the file.
  IniLine* head() { return &head_; }
  IniLine* first() const { return head_.next; }
  IniLine* last() { return last_; }

  // Appends a line of the file. Lines that come so are kept close together until the list ends.
  void Load(std::string_view text);

  // Puts a new line behind `before`.
  IniLine* Insert(IniLine* before, std::string_view text);

  // Removes the line behind `before`.
  void RemoveBehind(IniLine* before);

  // Gives a line another text; in its place where the old one had as much room.
  void Rewrite(IniLine* line, std::string_view text);

 private:
  void* Reserve(std::size_t size);
  void Link(IniLine* before, IniLine* line);
  static void Release(IniLine* line);

  char noText_[1] = {};
  IniLine head_ = {noText_, nullptr, 0, false, false};
  IniLine* last_ = &head_;
  bool mustRelease_ = false;                     // some line or text is a block of its own
  std::vector<std::unique_ptr<char[]>> blocks_;  // loaded lines, each followed by its text
  std::size_t blockSize_ = 0;                    // of the last block
  std::size_t used_ = 0;                         // bytes of it
};

}  // namespace zeapi
