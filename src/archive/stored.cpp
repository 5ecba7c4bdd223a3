#include "archive/stored.h"

#include <algorithm>

namespace zeapi {

std::uint64_t CopyStored(BlockSource& source, std::uint64_t size, std::span<std::uint8_t> buffer,
                         BlockSink& sink) {
  std::uint64_t left = size;
  std::size_t held = 0;
  while (left > 0) {
    auto block = source.Next();
    if (block.empty()) break;
    block = block.first(static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), left)));
    left -= block.size();
    while (!block.empty()) {
      const std::size_t part = std::min(block.size(), buffer.size() - held);
      std::copy_n(block.begin(), part, buffer.begin() + static_cast<std::ptrdiff_t>(held));
      block = block.subspan(part);
      held += part;
      if (held < buffer.size()) continue;
      if (!sink.Write(buffer)) return size - left;
      held = 0;
    }
  }
  if (held > 0) sink.Write(buffer.first(held));
  return size - left;
}

}  // namespace zeapi
