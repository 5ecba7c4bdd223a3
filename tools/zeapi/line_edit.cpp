#include "line_edit.h"

#include <cstring>

namespace tool {
namespace {

// Puts `replace` for each `find` into `result`; false when that has no room.
bool Replace(const LineEdit& edit, const char* line, char (&result)[kLineBuffer]) noexcept {
  std::size_t length = 0;
  const auto append = [&](const char* text, std::size_t size) {
    if (length + size >= kLineBuffer) return false;
    std::memcpy(result + length, text, size);
    length += size;
    result[length] = '\0';
    return true;
  };
  for (;;) {
    const char* found = std::strstr(line, edit.find.c_str());
    if (found == nullptr) return append(line, std::strlen(line));
    if (!append(line, static_cast<std::size_t>(found - line)) ||
        !append(edit.replace.data(), edit.replace.size()))
      return false;
    line = found + edit.find.size();
  }
}

}  // namespace

void EditLine(LineEdit& edit, char* line) noexcept {
  if (!edit.drop.empty() && std::strstr(line, edit.drop.c_str()) != nullptr) {
    ++edit.dropped;
    line[0] = '\0';
    return;
  }
  if (edit.find.empty() || std::strstr(line, edit.find.c_str()) == nullptr) return;
  char result[kLineBuffer];
  if (!Replace(edit, line, result)) {
    ++edit.tooLong;
    return;
  }
  std::memcpy(line, result, std::strlen(result) + 1);
  ++edit.changed;
}

}  // namespace tool
