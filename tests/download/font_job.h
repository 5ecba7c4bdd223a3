// What the tests of font downloads share: a font file of each format, and the download itself.
#pragma once

#include "support/byte_order.h"
#include "support/fonts.h"
#include "support/job.h"

namespace zeapi::testing {

using Calls = std::vector<std::string>;

// A segment of a PFB.
inline std::string Segment(char type, const std::string& body) {
  return '\x80' + std::string(1, type) + Le32(static_cast<std::uint32_t>(body.size())) + body;
}
inline std::string LastSegment() { return "\x80\x03"; }

inline PclFontFile PclFontOf(std::uint8_t headerFormat, std::uint16_t size) {
  PclFontFile font;
  font.headerFormat = headerFormat;
  font.size = size;
  font.digits = std::to_string(size);
  font.rest = std::string(size - 64U, '\x01') + "CHARACTERS";
  return font;
}

// "/FontName" in a text segment makes a file with the extension PFB a font.
inline const std::string kFontName = "/FontName /Courier\n";

class FontJobTest : public JobTest {
 protected:
  void SetUp() override {
    JobTest::SetUp();
    destination.language = ZE_LANGUAGE_PCL;
    destination.resourceId = 10;
  }

  std::uint32_t Download(const std::string& font, std::int32_t target = ZE_DEVICE_RAM) {
    return ZeFonDownload(font.c_str(), kOutput, &destination, target);
  }

  // Downloads into a job of its own.
  std::string JobOf(const std::string& font, std::int32_t target = ZE_DEVICE_RAM,
                    std::uint32_t expected = ZE_OK) {
    std::filesystem::remove(kOutput);
    EXPECT_EQ(Download(font, target), expected);
    return Job();
  }

  static constexpr char kBitmap[] = "font.sfp";
  static std::string WriteBitmap() {
    const std::string file = PclFontOf(0, 64).File();
    WriteFile(kBitmap, file);
    return file;
  }
};

}  // namespace zeapi::testing
