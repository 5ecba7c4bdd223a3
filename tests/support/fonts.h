// Font files made to measure, and what tests that query them share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/bytes.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {

// A PCL soft font: ESC ")s", digits, "W", the descriptor and what follows it. By default a bold
// 12-point Roman-8 bitmap of header format 0 named Courier.
struct PclFontFile {
  std::string digits = "64";
  std::uint16_t size = 64;
  std::uint8_t headerFormat = 0;
  std::uint8_t fontType = 1;
  std::uint16_t style = 0;
  std::uint8_t spacing = 0;
  std::uint16_t symbolSet = 277;
  std::uint16_t pitch = 120;
  std::uint16_t height = 200;
  std::int8_t strokeWeight = 3;
  std::uint16_t typeface = 4099;
  std::uint8_t pitchExtended = 0;
  std::uint8_t heightExtended = 0;
  std::uint8_t vendorLetter = 0;
  std::uint32_t fontNumber = 0;
  std::string name = "Courier";  // padded with zeros
  std::string rest;              // behind the 64 bytes

  std::string Descriptor() const;  // the 64 bytes
  std::string File() const;
};

// Windows metrics of one font.
struct PfmFile {
  std::string face = "Courier";
  std::uint8_t italic = 0;
  std::uint16_t weight = 400;
  std::uint32_t faceOffset = 200;
  std::size_t length = 256;  // of the file
  std::int64_t size = -1;    // what it says; -1: the truth

  std::string File() const;
};

// A cartridge of such metrics: 16 bytes of header, the name (80 bytes), the entries.
struct PcmFile {
  std::string name = "Forms Cartridge";
  std::vector<std::string> entries;
  std::int64_t end = -1;  // end offset of the entries; -1: the truth

  std::string File() const;
};

// A DLF font: ESC "=", the length field, "1", the variant and the record.
struct DlfFile {
  bool referenced = false;
  std::uint16_t length = 36 + 24;
  std::uint8_t flags = 1;  // bit 0 fixed pitch, bit 1 PS
  std::uint16_t codePage = 850;
  std::uint32_t points = 1200;   // times 100
  std::uint32_t divisor = 7200;  // of 72000
  std::uint8_t letter = 0;       // byte 30
  std::string name = "Courier";  // padded with blanks to 24

  std::string File() const;
};

std::string FmfFile(std::string_view name);

class FontTest : public ScratchTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Queries with a record full of rubbish; metric files are included.
  std::uint32_t Query(const std::string& path, std::uint32_t option = 0);
  std::uint32_t QueryWithoutMetricFiles(const std::string& path);

  // What the record of a refused file looks like: the screen was passed and the size is known.
  ::testing::AssertionResult OnlyScreened() const;
  ::testing::AssertionResult AllZero() const;

  // Queries each beginning of a file under its name and wants `expected` of each.
  void ExpectOfEachBeginning(const std::string& path, const std::string& file,
                             std::uint32_t expected, std::uint32_t option = 0);

  static std::filesystem::path DumpFile() { return DriveC() / "apifonts.txt"; }
  // The record's path of a metrics file.
  void SetMetricsFile(std::string_view path);
  // "font.afm" of one character, with the file that tells the style.
  static void WriteAfmWithInf();
  static void Touch(const std::string& path) { WriteFile(path, "x"); }

  ZeFontInfo info = {};

 private:
  std::uint32_t QueryInto(const std::string& path, std::uint32_t option, std::uint32_t include);
  void FreeCartridgeByHand();
};

}  // namespace zeapi::testing
