// Where filters of macros put their blocks in tests: memory.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pclxl/macro_fixup.h"

namespace zeapi::testing {

// Remembers what it was given, block by block.
class BlockCollector final : public filter::FilterSink {
 public:
  void Take(std::span<const std::uint8_t> block) override {
    bytes.append(block.begin(), block.end());
    sizes.push_back(block.size());
  }
  std::string bytes;
  std::vector<std::size_t> sizes;
};

}  // namespace zeapi::testing
