// Passing bytes through the macro fixup into memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/stream.h"
#include "pclxl/macro_fixup.h"
#include "support/scratch.h"

namespace zeapi::testing {

// Collects blocks.
class MemorySink final : public filter::BlockSink {
 public:
  void Take(std::span<const std::uint8_t> block) override {
    bytes.append(reinterpret_cast<const char*>(block.data()), block.size());
    blocks.push_back(block.size());
  }
  std::string bytes;
  std::vector<std::size_t> blocks;
};

class MacroFilterTest : public ScratchTest {
 protected:
  // What the filter of the language makes of the bytes.
  std::string Filtered(std::string_view input, std::int32_t language, std::uint32_t options,
                       const char* overlayHeader = nullptr) {
    WriteFile("input", input);
    const Stream file(std::fopen("input", "rb"));
    std::fseek(file.get(), 0, SEEK_END);  // it starts at the beginning by itself
    sink = MemorySink();
    EXPECT_EQ(FilterMacro(file.get(), language, options, overlayHeader, &sink), ZE_OK);
    return sink.bytes;
  }

  MemorySink sink;
};

}  // namespace zeapi::testing
