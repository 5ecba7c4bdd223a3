// The edits that "zeapi file modify" makes, one line at a time, within the library's line buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tool {

inline constexpr std::size_t kLineBuffer = 2048;  // of ZeFilModify, terminator included

struct LineEdit {
  std::string drop;     // lines that hold this are dropped; empty: none
  std::string find;     // each occurrence is replaced; empty: none
  std::string replace;  // what it is replaced by

  std::uint32_t dropped = 0;
  std::uint32_t changed = 0;
  std::uint32_t tooLong = 0;  // lines left as they were, for want of room in the buffer
};

// Edits the zero-terminated line in a buffer of kLineBuffer bytes and counts what was done. Needs
// no memory, so that it cannot fail inside the library's callback.
void EditLine(LineEdit& edit, char* line) noexcept;

}  // namespace tool
