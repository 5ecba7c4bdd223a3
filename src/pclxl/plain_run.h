// Length of a run of bytes that a filter passes on without a closer look, many bytes at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi::filter {

// Length of the longest start of `bytes` in which no byte may begin something. `begins(a, b)` is
// asked of each byte and the one after it, and must be free of branches; of the last byte, whose
// next is not known, `mayBegin(a)` is asked.
template <typename Begins, typename MayBegin>
std::size_t PlainRun(std::span<const std::uint8_t> bytes, Begins begins, MayBegin mayBegin) {
  constexpr std::size_t kGroup = 32;
  const std::uint8_t* const at = bytes.data();
  const std::size_t size = bytes.size();
  if (size == 0) return 0;
  const std::size_t pairs = size - 1;
  std::size_t i = 0;
  // Compilers make vector instructions of a whole group.
  for (; i + kGroup <= pairs; i += kGroup) {
    std::uint8_t found = 0;
    for (std::size_t k = 0; k < kGroup; ++k) {
      found = static_cast<std::uint8_t>(found | begins(at[i + k], at[i + k + 1]));
    }
    if (found != 0) break;
  }
  for (; i < pairs; ++i) {
    if (begins(at[i], at[i + 1]) != 0) return i;
  }
  return mayBegin(at[pairs]) ? pairs : size;
}

}  // namespace zeapi::filter
