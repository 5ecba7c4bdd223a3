// Macros and demos that go to a printer's first disk, under failures.
#pragma once

#include "fault/fault_case.h"

namespace zeapi::testing {

class MacroAndDemoTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    destination.flags = ZE_FLAG_PJL;
    destination.language = ZE_LANGUAGE_PCL;
    destination.resourceId = 12;
    macro.macroDevice = ZE_DEVICE_DISK1;
    demo.device = ZE_DEVICE_DISK1;
  }

  ZeMacroInfo macro = {};
  ZeDemoInfo demo = {};
};

}  // namespace zeapi::testing
