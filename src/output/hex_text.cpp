#include "output/hex_text.h"

#include <cstring>

namespace zeapi {
namespace {

constexpr std::uint8_t Digit(unsigned nibble) {
  return static_cast<std::uint8_t>(nibble < 10 ? '0' + nibble : 'A' - 10 + nibble);
}

// Bytes that are expanded at a time: a length that compilers turn into a few vector instructions.
constexpr std::size_t kGroup = 16;

void ExpandGroup(const std::uint8_t* bytes, std::uint8_t* digits) {
  for (std::size_t i = 0; i < kGroup; ++i) {
    digits[2 * i] = Digit(bytes[i] >> 4);
    digits[2 * i + 1] = Digit(bytes[i] & 0x0F);
  }
}

}  // namespace

// From the end to the start, so that no byte is overwritten before it was read.
void ExpandToHex(std::uint8_t* block, std::size_t count) {
  while (count % kGroup != 0) {
    --count;
    const unsigned byte = block[count];
    block[2 * count] = Digit(byte >> 4);
    block[2 * count + 1] = Digit(byte & 0x0F);
  }
  while (count > 0) {
    count -= kGroup;
    std::uint8_t bytes[kGroup];
    std::uint8_t digits[2 * kGroup];
    std::memcpy(bytes, block + count, kGroup);
    ExpandGroup(bytes, digits);
    std::memcpy(block + 2 * count, digits, sizeof(digits));
  }
}

int HexDigitValue(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  return -1;
}

}  // namespace zeapi
