// Passing bytes through the macro fixup into memory.
#pragma once

#include <string>
#include <string_view>

#include "base/stream.h"
#include "pclxl/block_collector.h"
#include "pclxl/macro_fixup.h"
#include "support/scratch.h"

namespace zeapi::testing {

class MacroFilterTest : public ScratchTest {
 protected:
  // What the filter of the language makes of the bytes.
  std::string Filtered(std::string_view input, std::int32_t language, std::uint32_t options,
                       const char* overlayHeader = nullptr) {
    WriteFile("input", input);
    const Stream file(std::fopen("input", "rb"));
    std::fseek(file.get(), 0, SEEK_END);  // it starts at the beginning by itself
    sink = BlockCollector();
    EXPECT_EQ(FilterMacro(file.get(), language, options, overlayHeader, &sink), ZE_OK);
    return sink.bytes;
  }

  BlockCollector sink;
};

}  // namespace zeapi::testing
