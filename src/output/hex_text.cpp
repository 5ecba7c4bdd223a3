#include "output/hex_text.h"

#include <cstring>

namespace zeapi {
namespace {

constexpr std::uint8_t Digit(std::uint8_t nibble) {
  return static_cast<std::uint8_t>(nibble + '0' + (nibble > 9 ? 'A' - '9' - 1 : 0));
}

constexpr std::uint8_t HighDigit(std::uint8_t byte) {
  return Digit(static_cast<std::uint8_t>(byte >> 4));
}

constexpr std::uint8_t LowDigit(std::uint8_t byte) {
  return Digit(static_cast<std::uint8_t>(byte & 0x0F));
}

// Bytes that are expanded at a time, by loops that compilers turn into vector instructions; of
// shorter ones they make a long row of single steps instead.
constexpr std::size_t kGroup = 64;

void ExpandGroup(const std::uint8_t* bytes, std::uint8_t* digits) {
  std::uint8_t high[kGroup];
  std::uint8_t low[kGroup];
  for (std::size_t i = 0; i < kGroup; ++i) {
    high[i] = HighDigit(bytes[i]);
    low[i] = LowDigit(bytes[i]);
  }
  for (std::size_t i = 0; i < kGroup; ++i) {
    digits[2 * i] = high[i];
    digits[2 * i + 1] = low[i];
  }
}

}  // namespace

// From the end to the start, so that no byte is overwritten before it was read.
void ExpandToHex(std::uint8_t* block, std::size_t count) {
  while (count % kGroup != 0) {
    --count;
    const std::uint8_t byte = block[count];
    block[2 * count] = HighDigit(byte);
    block[2 * count + 1] = LowDigit(byte);
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
