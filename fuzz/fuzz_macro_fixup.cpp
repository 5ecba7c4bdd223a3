// The macro fixup in every language and with every option, compared with a plain rendering of its
// rules.
//
// Input: a line of numbers (language, options, whether there is an overlay line), the file.

#include <cstdio>
#include <string>
#include <vector>

#include "base/stream.h"
#include "macro_reference.h"
#include "pclxl/macro_fixup.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"

namespace zeapi::fuzz {
namespace {

class MemorySink final : public filter::FilterSink {
 public:
  void Take(std::span<const std::uint8_t> block) override {
    Check(block.size() <= 1024 && !block.empty(), "blocks have at most 1024 bytes");
    Check(bytes.size() % 1024 == 0, "every block but the last is full");
    bytes.append(reinterpret_cast<const char*>(block.data()), block.size());
  }
  std::string bytes;
};

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const auto language = static_cast<std::int32_t>(numbers.Below(8));
  const std::uint32_t options = numbers.Below(0x1000);
  const char* overlay = numbers.Below(2) == 0 ? nullptr : "%%Velquist Overlay: NAME\n";
  const std::filesystem::path path = drives.Folder("c") / "file";
  WriteWhole(path, input.Rest());

  const zeapi::Stream file(std::fopen(path.c_str(), "rb"));
  MemorySink sink;
  const zeapi::Result result = zeapi::FilterMacro(file.get(), language, options, overlay, &sink);
  Check(result == ZE_OK, "every file can be fixed up");
  Check(sink.bytes == FixedUp(input.Rest(), language, options, overlay),
        "the fixup follows its rules");
  return 0;
}
