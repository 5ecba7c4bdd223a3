#include "pclxl/stream_name.h"

#include <algorithm>

#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

constexpr std::size_t kMostRead = 499;
constexpr std::size_t kAfterName = 2;  // the identifier of the attribute

// The array's tag, 0xC8, as a signed character. No byte from 0 to 255 equals it.
constexpr int kSignedArrayTag = int{kXlUbyteArray} - 256;

}  // namespace

bool XlNameBeforeBeginStream(std::span<const std::uint8_t> bytes, int arrayTag,
                             XlStreamName* name) {
  const std::size_t end = bytes.size() - 1;  // of BeginStream
  for (std::size_t i = end; i-- > 0;) {
    if (int{bytes[i]} != arrayTag) continue;
    // The tag, the type of the count, the count, the name, the identifier.
    if (i + 2 >= end || bytes[i + 1] != kXlUbyte) return false;
    const std::size_t length = bytes[i + 2];
    if (i + 3 + length + kAfterName != end) return false;
    const std::size_t kept = std::min(length, name->size() - 1);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(i) + 3, kept, name->begin());
    (*name)[kept] = '\0';
    return true;
  }
  return false;
}

bool XlFindStreamName(std::FILE* file, XlStreamName* name) {
  std::array<std::uint8_t, kMostRead> bytes;
  std::size_t size = 0;
  while (size < bytes.size()) {
    const int byte = std::getc(file);
    if (byte == EOF) return false;
    bytes[size++] = static_cast<std::uint8_t>(byte);
    if (byte == kXlBeginStream)
      return XlNameBeforeBeginStream(std::span(bytes).first(size), kSignedArrayTag, name);
  }
  return false;
}

}  // namespace zeapi
