// Conversions of font metrics. One target for all: what it checks is the same for each, and Windows
// metrics that one converter writes are the next one's input.
//
// Input: a line of numbers (index of the conversion, a number of its own), the bytes of the font.
// Conversions 1 and 2: the number is the size of the INF file with which the bytes begin. Conversions
// 6 and 16: it chooses the symbol set, and the bytes are the metrics.

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::uint32_t kConversions[] = {1, 2, 3, 4, 5, 6, 16, 17};
constexpr std::size_t kLargestOutput = 300000;  // 65535 pairs and what else there may be

// A PCL font for conversion 16, which takes its name from the descriptor.
std::string PclFont() {
  std::string font("\x1B)s64W\0\x40\0\1", 10);
  font.resize(6 + 64);
  return font.replace(6 + 48, 4, "Name");
}

std::uint32_t U32At(const std::string& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes.at(offset + i));
  return value;
}

void CheckMetrics(const std::string& bytes) {
  Check(bytes.size() >= 256 && bytes.size() < kLargestOutput, "metrics have a sensible size");
  Check(U32At(bytes, 2) == bytes.size(), "metrics say how long they are");
  const std::uint32_t face = U32At(bytes, 105);
  Check(face > 34 && face < 2048, "the face name is where readers look for it");
  ZeFontInfo info;
  Check(ZeFonQueryInfo("c:\\out.pfm", &info, 0, 1) == ZE_OK, "metrics can be queried");
}

bool IsOneOf(std::uint32_t result, std::initializer_list<std::uint32_t> codes) {
  return std::find(codes.begin(), codes.end(), result) != codes.end();
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const std::uint32_t conversion = kConversions[numbers.Below(std::size(kConversions))];
  const unsigned number = numbers.Below(1U << 20);
  std::string_view font = input.Rest();
  const auto folder = drives.Folder("c");
  for (const char* name : {"out.pfm", "out.PFM", "out.PSM", "back.afm"})
    std::filesystem::remove(folder / name);

  ZeFontInfo info = {};
  info.printerMemory = number;
  if (conversion <= 2) {
    const std::string_view inf = font.substr(0, number);
    WriteWhole(folder / "font.INF", inf);
    font.remove_prefix(inf.size());
  } else if (conversion == 6 || conversion == 16) {
    constexpr std::string_view kSets[] = {"", "8U", "9U", "0U", "19U"};
    const std::string_view set = kSets[number % std::size(kSets)];
    std::copy(set.begin(), set.end(), info.symbolSet);
    constexpr std::string_view kPath = "c:\\font.tfm";
    std::copy(kPath.begin(), kPath.end(), info.companionFile);
    WriteWhole(folder / "font.tfm", font);
  }
  static const std::string pclFont = PclFont();
  WriteWhole(folder / "font.x", conversion == 16 ? pclFont : font);

  const int descriptors = OpenDescriptors();
  const std::uint32_t result = ZeFonConvert("c:\\font.x", "c:\\out.pfm", &info, 2, conversion);
  Check(descriptors == OpenDescriptors(), "every file is closed");
  Check(IsOneOf(result, {ZE_OK, ZE_BAD_FORMAT}), "a font is converted or refused");
  const char* output = conversion == 2 ? "out.PFM" : "out.pfm";
  const std::string bytes = ReadWhole(folder / output);
  if (result != ZE_OK) {
    Check(bytes.empty(), "nothing is written of a font that is refused");
    return 0;
  }
  if (conversion == 3) {
    Check(bytes.starts_with("StartFontMetrics 2.0\n"), "an AFM file begins so");
    Check(bytes.ends_with("EndFontMetrics\n"), "an AFM file ends so");
  } else if (conversion != 4 || !bytes.empty()) {
    if (conversion == 2) {
      WriteWhole(folder / "out.pfm", ReadWhole(folder / "out.PSM"));
      CheckMetrics(ReadWhole(folder / "out.pfm"));
      WriteWhole(folder / "out.pfm", bytes);
    }
    CheckMetrics(bytes);
    if (conversion <= 2) {
      Check(ZeFonConvert("c:\\out.pfm", "c:\\back.afm", nullptr, 0, 3) == ZE_OK,
            "PostScript metrics can be turned back");
    }
  }
  return 0;
}
