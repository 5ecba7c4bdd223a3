// Rewriting a text file by a callback that does to the lines whatever callbacks may do, compared
// with the same done to the text in memory.
//
// Input: a line of numbers (kind of file), a line of letters (what the callback does to each line
// in turn), the content of the file.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "support/text_reference.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kLineRoom = 2048;
constexpr std::uint32_t kValue = 0x89ABCDEF;

enum Kind { kFile, kMissing, kFolder, kNoPath, kKinds };

void Mangle(char operation, char* line) {
  const std::size_t length = std::strlen(line);
  switch (operation) {
    case 'e':  // empty
      line[0] = '\0';
      break;
    case 'u':  // upper case, more or less
      std::transform(line, line + length, line, [](char c) { return static_cast<char>(c & ~32); });
      break;
    case 'd':  // double
      if (2 * length < kLineRoom) {
        std::copy_n(line, length, line + length);
        line[2 * length] = '\0';
      }
      break;
    case 'f':  // fill, without a terminator
      std::memset(line, 'F', kLineRoom);
      break;
    case 'c':  // cut off the last character, which mostly is the newline
      if (length > 0) line[length - 1] = '\0';
      break;
    case 'z':  // a zero byte in the middle
      line[length / 2] = '\0';
      break;
    default:  // keep
      break;
  }
}

// The callback has no state of its own but the 32-bit value.
struct Callback {
  std::string operations;
  std::size_t calls = 0;

  char NextOperation() {
    return operations.empty() ? 'k' : operations[calls++ % operations.size()];
  }
};
Callback callback;

std::uint32_t ZEAPI_CALL OnLine(char* line, std::uint32_t value) {
  Check(value == kValue, "the callback gets the caller's value");
  Check(std::memchr(line, '\0', kLineRoom) != nullptr, "the callback gets a terminated line");
  Mangle(callback.NextOperation(), line);
  return 99;
}

std::string Rewritten(const std::string& text) {
  std::string result;
  std::vector<char> line(kLineRoom);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t newline = text.find('\n', at);
    const std::size_t whole = (newline == text.npos ? text.size() : newline + 1) - at;
    const std::size_t length = std::min(whole, kLineRoom - 1);
    std::copy_n(text.begin() + static_cast<std::ptrdiff_t>(at), length, line.begin());
    line[length] = '\0';
    Mangle(callback.NextOperation(), line.data());
    line[kLineRoom - 1] = '\0';
    result += line.data();
    at += length;
  }
  return result;
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const auto kind = static_cast<Kind>(numbers.Below(kKinds));
  const std::string operations(input.Line());
  const std::filesystem::path file = drives.Folder("c") / "Text";
  WriteWhole(file, input.Rest());

  callback = Callback{operations};
  const char* const paths[] = {"c:\\tEXT", "c:\\none", "c:\\", nullptr};
  const int descriptors = OpenDescriptors();
  const std::uint32_t code = ZeFilModify(paths[kind], kValue, OnLine);
  Check(descriptors == OpenDescriptors(), "every file is closed");
  const std::size_t calls = callback.calls;
  if (kind == kFile) {
    callback = Callback{operations};
    const std::string expected = Rewritten(TextOf(input.Rest()));
    Check(code == ZE_OK, "a text can be rewritten");
    Check(calls == callback.calls, "each line is handed to the callback once");
    Check(ReadWhole(file) == expected, "the file holds what the callback left of its lines");
  } else {
    Check(code == (paths[kind] == nullptr ? ZE_INVALID_ARGUMENT : ZE_OPEN_FAILED),
          "what is no file does not open");
    Check(calls == 0, "without a file there is no line");
  }
  Check(NamesIn(drives.Folder("tmp")).empty(), "the temporary file is removed");
  Check(NamesIn(drives.Folder("c")).size() == 1, "nothing else is written");
  Check(drives.NothingOutside(), "nothing else is written");
  return 0;
}
