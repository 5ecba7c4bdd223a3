// The checksum of a file, compared with one that is made two bytes at a time.
//
// Input: a line of numbers (way of calling, skip, how often the content is repeated), the content.

#include <fcntl.h>
#include <unistd.h>

#include <string>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

// Beyond 65536 words, where the numbers of words begin again.
constexpr std::size_t kLargest = 300000;
constexpr std::uint16_t kUntouched = 0xA55A;

enum Way { kPath, kHandle, kHandleAndEmptyPath, kNothing, kMissingFile, kClosedHandle, kWays };

// Reads two bytes at a time into one word; the last, lone byte replaces the low half of the word
// before.
std::uint16_t ChecksumByWords(std::string_view content, std::uint16_t skip) {
  std::uint16_t sum = 0;
  std::uint16_t counter = 0;
  std::uint16_t word = 0;
  for (std::size_t i = 0; i < content.size(); i += 2) {
    const auto low = static_cast<unsigned char>(content[i]);
    if (i + 1 < content.size()) {
      const auto high = static_cast<unsigned char>(content[i + 1]);
      word = static_cast<std::uint16_t>(low | high << 8);
    } else {
      word = static_cast<std::uint16_t>((word & 0xFF00) | low);
    }
    ++counter;
    if (skip == 0 || skip != counter) sum = static_cast<std::uint16_t>(sum - word);
  }
  return sum;
}

std::string Repeated(std::string_view content, std::int64_t times) {
  std::string whole;
  while (times-- > 0 && whole.size() + content.size() <= kLargest && !content.empty())
    whole.append(content);
  return whole;
}

bool IsOpen(int handle) { return fcntl(handle, F_GETFD) >= 0; }

struct Outcome {
  std::uint32_t code;
  std::uint16_t sum = kUntouched;
};

Outcome Call(const char* path, int handle, std::uint32_t skip) {
  Outcome outcome;
  outcome.code = ZeFilChecksum(path, handle, skip, &outcome.sum);
  return outcome;
}

// Calls through a handle whose position is somewhere in the file.
Outcome CallByHandle(const std::string& file, const char* path, std::uint32_t skip) {
  const int handle = open(file.c_str(), O_RDONLY);
  lseek(handle, 5, SEEK_SET);
  const Outcome outcome = Call(path, handle, skip);
  Check(IsOpen(handle) == (path == nullptr), "an empty path closes the handle, no path keeps it");
  if (path == nullptr) close(handle);
  return outcome;
}

Outcome CallAs(Way way, const std::string& file, std::uint32_t skip) {
  switch (way) {
    case kPath:
      return Call("c:\\SUM", 0, skip);
    case kHandle:
      return CallByHandle(file, nullptr, skip);
    case kHandleAndEmptyPath:
      return CallByHandle(file, "", skip);
    case kMissingFile:
      return Call("c:\\none", 0, skip);
    case kClosedHandle:
      return Call(nullptr, -1, skip);
    default:
      return Call(nullptr, 0, skip);
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const auto way = static_cast<Way>(numbers.Below(kWays));
  const auto skip = static_cast<std::uint32_t>(numbers.Next());
  const std::string content = Repeated(input.Rest(), numbers.Next());
  const std::string file = drives.Folder("c") / "Sum";
  WriteWhole(file, content);

  const int descriptors = OpenDescriptors();
  const Outcome outcome = CallAs(way, file, skip);
  Check(descriptors == OpenDescriptors(), "every file is closed");
  switch (way) {
    case kNothing:
      Check(outcome.code == ZE_INVALID_ARGUMENT, "no path and no handle is an invalid argument");
      Check(outcome.sum == kUntouched, "an invalid argument leaves the result alone");
      break;
    case kMissingFile:
      Check(outcome.code == ZE_OPEN_FAILED, "a missing file does not open");
      Check(outcome.sum == kUntouched, "a file that does not open leaves the result alone");
      break;
    case kClosedHandle:
      Check(outcome.code == ZE_READ_FAILED, "a closed handle cannot be read");
      break;
    default:
      Check(outcome.code == ZE_OK, "a file that can be read has a checksum");
      Check(outcome.sum == ChecksumByWords(content, static_cast<std::uint16_t>(skip)),
            "the checksum is that of the words");
      break;
  }
  return 0;
}
