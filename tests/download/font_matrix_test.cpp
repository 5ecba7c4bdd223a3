// Every format in every language, for every target and every printer.
#include "download/font_job.h"
#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

struct Target {
  std::int32_t device;
  const char* name;
};
constexpr Target kTargets[] = {{ZE_DEVICE_RAM, ""},
                               {ZE_DEVICE_FLASH1, "flash1"},
                               {ZE_DEVICE_FLASH2, "flash2"},
                               {ZE_DEVICE_DISK1, "disk1"},
                               {ZE_DEVICE_DISK2, "disk2"}};

struct Language {
  std::int32_t number;
  const char* enter;  // what a PJL job says
  char code;          // in the bracket-K selection
};
constexpr Language kLanguages[] = {
    {1, "", 0},
    {2, "@PJL ENTER LANGUAGE = PPDS\n", 1},
    {3, "@PJL ENTER LANGUAGE = POSTSCRIPT\n", 8},
    {4, "@PJL ENTER LANGUAGE = GL\n", 3},
    {5, "@PJL ENTER LANGUAGE = PCL\n", 2},
    {6, "@PJL ENTER LANGUAGE = PCL\n", 2},
};

const std::string kExitServer = Bytes(
    "%% BeginExitServer 0\n"
    "% Adobe Type 1 download\r\n\r\n"
    " serverdict begin   0   exitserver  \n"
    "%% EndExitServer\n\0");

const std::string kPfa = "%!PS\n" + kFontName;
const std::string kPfb = Segment(1, kFontName) + Segment(2, "\x01\xAB\xFF") + LastSegment();

// What goes between the beginning and the end of a job, and the job's result.
struct Payload {
  std::string bytes;
  std::uint32_t result = ZE_OK;
};

struct FontOfFormat {
  const char* path;
  std::string file;
  Payload ppds;
  Payload pclXl;
  Payload other;
};

std::string PclPayload(const std::string& file) { return "\x1B*c10D" + file + "\x1B*c5F"; }

std::string PpdsPayload(const std::string& file) {
  return Bytes("\x1B=\x04\0\x41\x0E\0\x0A") + Bytes("\x1B=") +
         Le16(static_cast<std::uint32_t>(file.size() + 8)) +
         Bytes("\x41\x01\x01\x02\x03\x12\x34\x01") + file;
}

std::vector<FontOfFormat> FontsOfEachFormat() {
  const Payload pfa = {kExitServer + kPfa + "%!\x04"};
  const Payload pfb = {kExitServer + kFontName + "01ABFF%!\x04"};
  const std::string dlf = DlfFile{}.File();
  const Payload sentDlf = {Bytes("\x1B=\x03\0\x31\x08\x0A") + dlf};
  const Payload notSent = {"", ZE_BAD_FORMAT};
  std::vector<FontOfFormat> fonts;
  const auto add = [&fonts](const char* path, const std::string& file, const Payload& ppds,
                            const Payload& pclXl, const Payload& other) {
    fonts.push_back({path, file, ppds, pclXl, other});
  };
  const auto addPcl = [&add](const char* path, std::uint8_t headerFormat, std::uint16_t size) {
    const std::string file = PclFontOf(headerFormat, size).File();
    const Payload payload = {PclPayload(file)};
    add(path, file, payload, payload, payload);
  };
  add("font.pfa", kPfa, {PpdsPayload(kPfa)}, pfa, pfa);
  add("font.pfb", kPfb, {PpdsPayload(kPfb)}, pfb, pfb);
  add("font.dlf", dlf, sentDlf, {"", ZE_OPEN_FAILED}, sentDlf);
  add("font.ttf", "any bytes", notSent, notSent, notSent);
  addPcl("format9.sfp", 0, 64);
  addPcl("format11.sfp", 5, 72);
  addPcl("format8.sfp", 20, 68);
  addPcl("format17.sfp", 10, 80);
  addPcl("format18.sfp", 11, 88);
  addPcl("format20.sfp", 15, 72);
  return fonts;
}

std::string BeginningOf(std::uint32_t flags, const Language& language, const Target& target) {
  const bool pjl = (flags & ZE_FLAG_PJL) != 0;
  const bool bracketK = (flags & ZE_FLAG_BRACKET_K) != 0;
  std::string bytes;
  if (bracketK) bytes += Bytes("\x1B[K\x03\0\x06\x31") + language.code;
  if (pjl) bytes += std::string(kUniversalExit) + language.enter;
  if (target.device == ZE_DEVICE_RAM) return bytes;
  if (pjl) {
    bytes += std::string(kUniversalExit) + "@PJL SET LDOWNLOADTARGET = " + target.name + "\n";
  }
  if (bracketK) bytes += Bytes("\x1B[K\x03\0\x06\xC0\x31");
  return bytes;
}

std::string EndOf(std::uint32_t flags, const Target& target) {
  const bool pjl = (flags & ZE_FLAG_PJL) != 0;
  std::string bytes;
  if (target.device != ZE_DEVICE_RAM) {
    if (pjl) bytes += std::string(kUniversalExit) + "@PJL SET LDOWNLOADTARGET = ram\n";
    if ((flags & ZE_FLAG_BRACKET_K) != 0) bytes += Bytes("\x1B[K\x03\0\x06\xC0\x32");
  }
  if (pjl) {
    bytes += std::string(kUniversalExit) + "@PJL RDYMSG DISPLAY = \"\"\n" + kUniversalExit;
  }
  return bytes;
}

class FontMatrixTest : public FontJobTest, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(FontMatrixTest, EveryFormatInEveryLanguageForEveryTarget) {
  destination.flags = GetParam();
  destination.ppdsFontCode = 0x0303;
  destination.ppdsFontSlot = 0x1234;
  for (const FontOfFormat& font : FontsOfEachFormat()) {
    WriteFile(font.path, font.file);
    for (const Language& language : kLanguages) {
      destination.language = language.number;
      const Payload& payload = language.number == ZE_LANGUAGE_PPDS    ? font.ppds
                               : language.number == ZE_LANGUAGE_PCLXL ? font.pclXl
                                                                      : font.other;
      for (const Target& target : kTargets) {
        SCOPED_TRACE(std::string(font.path) + ", language " + std::to_string(language.number) +
                     ", target " + std::to_string(target.device));
        EXPECT_BYTES(
            JobOf(font.path, target.device, payload.result),
            BeginningOf(GetParam(), language, target) + payload.bytes + EndOf(GetParam(), target));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EachPrinter, FontMatrixTest,
                         ::testing::Values(0U, std::uint32_t{ZE_FLAG_PJL},
                                           std::uint32_t{ZE_FLAG_BRACKET_K},
                                           std::uint32_t{ZE_FLAG_PJL | ZE_FLAG_BRACKET_K}));

}  // namespace
}  // namespace zeapi::testing
