// Copying within the window faster than byte by byte.
//
// These copy whole words and so write up to kCopySlack bytes past the copy, which they then restore:
// in a window that goes round those are its oldest bytes and may still be referred to.
#pragma once

#include <cstdint>
#include <cstring>

#include "base/little_endian.h"

namespace zeapi {

inline constexpr std::size_t kCopySlack = 16;

struct CopyWord {
  std::uint8_t bytes[kCopySlack];
};

// Bytes that repeat every 1 to 7: each step writes eight of them and goes on by whole repetitions.
inline void RepeatPattern(std::uint8_t* to, std::size_t distance, const std::uint8_t* end) {
  std::uint64_t pattern = LoadLe64(to - distance) & ((std::uint64_t{1} << 8 * distance) - 1);
  for (std::size_t filled = distance; filled < 8; filled *= 2) pattern |= pattern << 8 * filled;
  std::uint8_t word[8];
  for (int i = 0; i < 8; ++i) word[i] = static_cast<std::uint8_t>(pattern >> 8 * i);
  const std::size_t step = 8 - 8 % distance;
  do {
    std::memcpy(to, word, sizeof(word));
    to += step;
  } while (to < end);
}

// `from` may be ahead of `to` by any distance, and behind it by kCopySlack or more.
inline void CopyWords(std::uint8_t* to, const std::uint8_t* from, const std::uint8_t* end) {
  do {
    CopyWord word;
    std::memcpy(&word, from, kCopySlack);
    std::memcpy(to, &word, kCopySlack);
    to += kCopySlack;
    from += kCopySlack;
  } while (to < end);
}

// Copies `length` bytes (not none) from `distance` back to `to`. There must be kCopySlack bytes of
// window behind them.
inline void CopyMatch(std::uint8_t* to, std::size_t distance, std::size_t length) {
  std::uint8_t* const end = to + length;
  CopyWord behind;
  std::memcpy(&behind, end, kCopySlack);
  if (distance >= kCopySlack) {
    CopyWords(to, to - distance, end);
  } else if (distance >= 8) {
    const std::uint8_t* from = to - distance;
    do {
      std::memcpy(to, from, 8);
      to += 8;
      from += 8;
    } while (to < end);
  } else {
    RepeatPattern(to, distance, end);
  }
  std::memcpy(end, &behind, kCopySlack);
}

// The same in a window of `size` bytes for a distance that leads round its start.
inline void CopyRound(std::uint8_t* bytes, std::size_t size, std::size_t position,
                      std::size_t distance, std::size_t length) {
  std::size_t from = position + size - distance;
  if (from + length + kCopySlack <= size) {
    std::uint8_t* const end = bytes + position + length;
    CopyWord behind;
    std::memcpy(&behind, end, kCopySlack);
    CopyWords(bytes + position, bytes + from, end);
    std::memcpy(end, &behind, kCopySlack);
    return;
  }
  for (; length > 0; --length) {
    bytes[position++] = bytes[from++];
    if (from == size) from = 0;
  }
}

}  // namespace zeapi
