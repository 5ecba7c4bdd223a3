// The validation of PCL macros: its work file is the fixup, and a file that it lets pass can be
// followed by the command that stops the definition.
//
// Input: a line of numbers (whether the options count, options), the file.

#include <cstdio>
#include <filesystem>
#include <string>

#include "base/stream.h"
#include "macro_reference.h"
#include "pclxl/pcl_macro_check.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

std::uint32_t CheckOf(const std::filesystem::path& path, const std::string& content) {
  WriteWhole(path, content);
  const Stream file(std::fopen(path.c_str(), "rb"));
  return CheckPclMacroContent(file.get());
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(drives.Folder("c"));
  Input input(data, size);
  Numbers numbers(input.Line());
  ZeMacroInfo macro = {};
  macro.macroFlags = numbers.Below(2) == 0 ? 0 : ZE_MACRO_FIX_UP_LIMIT;
  macro.fixupLimit = numbers.Below(0x1000);
  const std::uint32_t options =
      macro.macroFlags == 0 ? std::uint32_t{ZE_FIXUP_DEFAULT} : macro.fixupLimit;
  WriteWhole("macro", input.Rest());

  ZeDestination destination = {};
  destination.language = ZE_LANGUAGE_PCL;
  const int descriptors = OpenDescriptors();
  const std::uint32_t result = ZeMacValidate("macro", &destination, &macro);
  Check(descriptors == OpenDescriptors(), "every file is closed");
  Check(result == ZE_OK || result == ZE_BAD_FORMAT, "a file may be stored or not");
  const std::string fixedUp = FixedUp(input.Rest(), ZE_LANGUAGE_PCL, options, nullptr);
  Check(ReadWhole("fixup.mac") == fixedUp, "the work file is the fixed-up macro");
  Check(result == CheckOf("copy", fixedUp), "nothing but the fixed-up macro counts");
  if (result == ZE_OK) {
    Check(CheckOf("copy", fixedUp + "text\x1B*b1W\x1B") == ZE_OK, "sequences may follow");
    Check(CheckOf("copy", fixedUp + "\x1B&f1X") == ZE_BAD_FORMAT, "the stop command is seen");
  }
  std::filesystem::current_path(before);
  return 0;
}
