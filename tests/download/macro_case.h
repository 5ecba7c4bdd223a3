// What tests of macro jobs share.
#pragma once

#include <algorithm>
#include <string>

#include "support/job.h"

namespace zeapi::testing {

class MacroTest : public JobTest {
 protected:
  static constexpr char kInput[] = "logo.mac";
  static constexpr char kTrailer[] = "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X";

  void SetUp() override {
    JobTest::SetUp();
    WriteFile(kInput, "DATA");
    destination.language = ZE_LANGUAGE_PCL;
    destination.resourceId = 12;
    macro.macroDevice = ZE_DEVICE_RAM;
  }

  std::uint32_t Create() { return ZeMacCreate(kInput, kOutput, &destination, &macro); }
  std::uint32_t Download(std::int32_t mode, std::uint32_t wrap) {
    return ZeMacDownload(kInput, kOutput, &destination, &macro, mode, wrap);
  }

  void Name(const std::string& name) {
    std::fill(std::begin(macro.macroName), std::end(macro.macroName), '\0');
    std::copy_n(name.begin(), std::min(name.size(), sizeof(macro.macroName)), macro.macroName);
  }

  ZeMacroInfo macro = {};
};

}  // namespace zeapi::testing
