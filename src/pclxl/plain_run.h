// Length of a run of bytes that a filter passes on without a closer look, many bytes at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace zeapi::filter {

// Whether something may begin within `size` bytes at `at`, a multiple of 16, which another byte
// follows. Compilers make vector instructions of it.
template <std::size_t size, typename Begins>
bool MayBeginWithin(const std::uint8_t* at, Begins begins) {
  constexpr std::size_t kLanes = 16;
  std::uint8_t found[kLanes] = {};
  for (std::size_t i = 0; i < size; i += kLanes) {
    for (std::size_t k = 0; k < kLanes; ++k) {
      found[k] =
          static_cast<std::uint8_t>(found[k] | (begins(at[i + k], at[i + k + 1]) ? 0xFF : 0));
    }
  }
  std::uint64_t halves[2];
  std::memcpy(halves, found, sizeof(halves));
  return (halves[0] | halves[1]) != 0;
}

// Length of the longest start of `bytes` in which no byte may begin something. `begins(a, b)` is
// asked of each byte and the one after it, and must be free of branches; of the last byte, whose
// next is not known, `mayBegin(a)` is asked.
template <typename Begins, typename MayBegin>
std::size_t PlainRun(std::span<const std::uint8_t> bytes, Begins begins, MayBegin mayBegin) {
  constexpr std::size_t kGroup = 64;
  constexpr std::size_t kPart = 16;
  if (bytes.empty()) return 0;
  const std::uint8_t* const at = bytes.data();
  const std::size_t pairs = bytes.size() - 1;
  if (pairs > 0 && begins(at[0], at[1])) return 0;
  std::size_t i = 0;
  while (i + kGroup <= pairs && !MayBeginWithin<kGroup>(at + i, begins)) i += kGroup;
  while (i + kPart <= pairs && !MayBeginWithin<kPart>(at + i, begins)) i += kPart;
  for (; i < pairs; ++i) {
    if (begins(at[i], at[i + 1])) return i;
  }
  return mayBegin(at[pairs]) ? pairs : bytes.size();
}

}  // namespace zeapi::filter
