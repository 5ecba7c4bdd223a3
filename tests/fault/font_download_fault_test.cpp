// Font downloads under every failure of the system and of memory.
#include "fault/fault_case.h"
#include "support/byte_order.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

constexpr char kFontName[] = "/FontName /Courier\n";

class FontDownloadFaultTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    destination.flags = ZE_FLAG_PJL;
    destination.language = ZE_LANGUAGE_PCL;
    destination.resourceId = 10;
  }

  // A job that reports success is `start`, the font, and the end of the job.
  void FailEachCall(const char* path, const std::string& file, const std::string& font,
                    const char* language) {
    const std::string job = std::string(kUniversalExit) + "@PJL ENTER LANGUAGE = " + language +
                            "\n" + font + kUniversalExit + "@PJL RDYMSG DISPLAY = \"\"\n" +
                            kUniversalExit;
    FailEachInTurn(
        {[&] { WriteFile(path, file); },
         [&] { return TRIED(ZeFonDownload)(path, kOutput, &destination, ZE_DEVICE_RAM); },
         {ZE_FILE_NOT_FOUND, ZE_OPEN_FAILED, ZE_READ_FAILED, ZE_WRITE_FAILED, ZE_OUT_OF_MEMORY,
          ZE_BAD_FORMAT},
         [&] { EXPECT_BYTES(Job(), job); }});
  }

  static std::string Pfb() {
    return "\x80\x01" + Le32(sizeof(kFontName) - 1) + kFontName + "\x80\x02" + Le32(2000) +
           std::string(2000, '\xAB') + "\x80\x03";
  }
  static std::string PclFont() {
    PclFontFile font;
    font.rest = std::string(3000, 'c');
    return font.File();
  }
  static inline const std::string kExitServer = Bytes(
      "%% BeginExitServer 0\n% Adobe Type 1 download\r\n\r\n"
      " serverdict begin   0   exitserver  \n%% EndExitServer\n\0");
};

TEST_F(FontDownloadFaultTest, PclFont) {
  FailEachCall("font.sfp", PclFont(), "\x1B*c10D" + PclFont() + "\x1B*c5F", "PCL");
}

TEST_F(FontDownloadFaultTest, CheckedPclFont) {
  destination.language = ZE_LANGUAGE_PCLXL;
  FailEachCall("font.sfp", PclFont(), "\x1B*c10D" + PclFont() + "\x1B*c5F", "PCL");
}

TEST_F(FontDownloadFaultTest, ScalablePclFont) {
  PclFontFile font;
  font.headerFormat = 15;
  font.size = 72;
  font.rest = std::string(3000, 'c');
  FailEachCall("font.sfs", font.File(), "\x1B*c10D" + font.File() + "\x1B*c5F", "PCL");
}

TEST_F(FontDownloadFaultTest, TextType1Font) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  const std::string font = kFontName + std::string(3000, 'x');
  FailEachCall("font.pfa", font, kExitServer + font + "%!\x04", "POSTSCRIPT");
}

TEST_F(FontDownloadFaultTest, SegmentedType1Font) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  std::string digits;
  for (int i = 0; i < 2000; ++i) digits += "AB";
  FailEachCall("font.pfb", Pfb(), kExitServer + kFontName + digits + "%!\x04", "POSTSCRIPT");
}

TEST_F(FontDownloadFaultTest, SegmentedFontThatCannotBeReadIsNotReportedAsSent) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  WriteFile("font.pfb", Pfb());
  int ofFont = 0;
  FailEach(
      "fread", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeFonDownload)("font.pfb", kOutput, &destination, ZE_DEVICE_RAM); },
      [&](std::uint32_t result) {
        EXPECT_TRUE(result == ZE_READ_FAILED || result == ZE_BAD_FORMAT) << result;
        if (result != ZE_READ_FAILED) return;  // it was the query's
        ++ofFont;
        EXPECT_EQ(Job().find("%!\x04"), std::string::npos);
        EXPECT_EQ(Job().substr(Job().size() - 9), kUniversalExit);
      });
  EXPECT_EQ(ofFont, 6);  // a text segment and a binary one of two pieces, each header; the end
}

class PpdsDownloadFaultTest : public FontDownloadFaultTest {
 protected:
  void SetUp() override {
    FontDownloadFaultTest::SetUp();
    destination.language = ZE_LANGUAGE_PPDS;
    destination.ppdsFontCode = 256;
  }

  static inline const std::string kFont = kFontName + std::string(2030, 'x');
  static std::string Blocks() {
    return Bytes("\x1B=\x04\0\x41\x0E\0\x0A") + Bytes("\x1B=\x08\x08\x41\x01\x01\0\0\0\0\x02") +
           kFont.substr(0, 2048) + Bytes("\x1B=\x09\0\x41\x01\x01\0\0\0\0\x01") + "x";
  }
  std::uint32_t Download() {
    return TRIED(ZeFonDownload)("font.pfa", kOutput, &destination, ZE_DEVICE_RAM);
  }
};

TEST_F(PpdsDownloadFaultTest, Blocks) { FailEachCall("font.pfa", kFont, Blocks(), "PPDS"); }

TEST_F(PpdsDownloadFaultTest, KeepsPrinterFailureForABlockThatAFileRefuses) {
  WriteFile("font.pfa", kFont);
  destination.flags = 0;
  std::vector<std::uint32_t> results;
  FailEach(
      "fwrite", [] { fs::remove(kOutput); }, [&] { return Download(); },
      [&](std::uint32_t result) { results.push_back(result); });
  // The ID; two headers and two blocks.
  EXPECT_EQ(results, (std::vector<std::uint32_t>{ZE_WRITE_FAILED, ZE_PRINTER_WRITE_FAILED,
                                                 ZE_PRINTER_WRITE_FAILED, ZE_PRINTER_WRITE_FAILED,
                                                 ZE_PRINTER_WRITE_FAILED}));
  // The end of a PJL job finds the file's own failure first.
  destination.flags = ZE_FLAG_PJL;
  FailEach(
      "fwrite", [] { fs::remove(kOutput); }, [&] { return Download(); },
      [](std::uint32_t result) { EXPECT_EQ(result, ZE_WRITE_FAILED); });
}

TEST_F(PpdsDownloadFaultTest, MemoryIsAskedForBeforeTheFontIsOpened) {
  WriteFile("font.pfa", kFont);
  destination.flags = 0;
  FailEach(
      "calloc", [] { fs::remove(kOutput); }, [&] { return Download(); },
      [](std::uint32_t result) {
        EXPECT_EQ(result, ZE_OUT_OF_MEMORY);
        EXPECT_BYTES(Job(), "");
      });
}

TEST_F(FontDownloadFaultTest, FullDiskGivesWriteFailed) {
  WriteFile("font.sfp", PclFont());
  EXPECT_EQ(ZeFonDownload("font.sfp", "/dev/full", &destination, ZE_DEVICE_RAM), ZE_WRITE_FAILED);
}

}  // namespace
}  // namespace zeapi::testing
