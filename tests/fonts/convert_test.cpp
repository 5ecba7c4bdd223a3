// The dispatch of font conversions: arguments, names, result codes; what all conversions share.
#include "fonts/convert.h"

#include <functional>

#include "support/metrics.h"
#include "support/soft_fonts.h"
#include "support/tfm_file.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

const std::string kAfm =
    "StartFontMetrics 2.0\nFontName Test-Roman\nEncodingScheme AdobeStandardEncoding\n"
    "StartCharMetrics 1\nC 65 ; WX 700 ; N A ; B 0 0 700 690 ;\nEndCharMetrics\nEndFontMetrics\n";
const std::string kInf = "MSMenuName (Test)\nVPStyle (N)\n";

class ConvertTest : public FontTest {
 protected:
  static void WriteType1(const std::string& stem) {
    WriteFile(stem + ".afm", kAfm);
    WriteFile(stem + ".INF", kInf);
  }
  static std::string PclFont() {
    SoftFont font(0);
    font.AddBitmap(65, 120, 30, 24, 30);
    return font.File();
  }
  static std::string PfmInput() { return PostScriptPfm{}.File(); }
};

TEST_F(ConvertTest, NeedsAFontFileOfAtMost260Characters) {
  EXPECT_EQ(ZeFonConvert(nullptr, "out", nullptr, 0, 3), ZE_INVALID_ARGUMENT);
  const std::string longest(260, 'x');
  EXPECT_EQ(ZeFonConvert(longest.c_str(), "out", nullptr, 0, 3), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeFonConvert((longest + "x").c_str(), "out", nullptr, 0, 3), ZE_INVALID_ARGUMENT);
}

TEST_F(ConvertTest, NeedsAnOutputNameOfAtMost260Characters) {
  WriteFile("font.pfm", PfmInput());
  const std::string tooLong(261, 'x');
  EXPECT_EQ(ZeFonConvert("font.pfm", tooLong.c_str(), nullptr, 0, 3), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeFonConvert("missing.pfm", tooLong.c_str(), nullptr, 0, 3), ZE_INVALID_ARGUMENT);
}

TEST_F(ConvertTest, UnknownConversionIsToldAfterTheMissingFile) {
  WriteFile("font.pfm", PfmInput());
  for (const std::uint32_t conversion : {0U, 7U, 8U, 15U, 18U, 0xFFFFFFFFU}) {
    EXPECT_EQ(ZeFonConvert("missing.pfm", "", nullptr, 0, conversion), ZE_FILE_NOT_FOUND);
    EXPECT_EQ(ZeFonConvert("font.pfm", "", nullptr, 0, conversion), ZE_INVALID_ARGUMENT);
  }
}

TEST_F(ConvertTest, EveryConversionWantsItsFile) {
  for (const std::uint32_t conversion : {1U, 2U, 3U, 4U, 5U, 6U, 16U, 17U})
    EXPECT_EQ(ZeFonConvert("missing.x", "", &info, 2, conversion), ZE_FILE_NOT_FOUND) << conversion;
}

TEST_F(ConvertTest, DefaultNamesReplaceTheExtension) {
  WriteType1("one");
  ASSERT_EQ(ZeFonConvert("one.afm", nullptr, nullptr, 0, 1), ZE_OK);
  EXPECT_TRUE(fs::exists("one.PFM"));
  EXPECT_FALSE(fs::exists("one.PSM"));
  WriteType1("two");
  ASSERT_EQ(ZeFonConvert("two.afm", "", nullptr, 0, 2), ZE_OK);
  EXPECT_TRUE(fs::exists("two.PFM"));
  EXPECT_TRUE(fs::exists("two.PSM"));
  WriteFile("three.pfm", PfmInput());
  ASSERT_EQ(ZeFonConvert("three.pfm", nullptr, nullptr, 0, 3), ZE_OK);
  EXPECT_TRUE(fs::exists("three.AFM"));
  WriteFile("four.dlf", DlfFile{}.File());
  ASSERT_EQ(ZeFonConvert("four.dlf", "", nullptr, 0, 4), ZE_OK);
  EXPECT_TRUE(fs::exists("four.PBM"));
  WriteFile("five.sfp", PclFont());
  ASSERT_EQ(ZeFonConvert("five.sfp", nullptr, nullptr, 0, 5), ZE_OK);
  EXPECT_TRUE(fs::exists("five.PFM"));
  WriteFile("seventeen.sfp", PclFont());
  ASSERT_EQ(ZeFonConvert("seventeen.sfp", "", nullptr, 0, 17), ZE_OK);
  EXPECT_TRUE(fs::exists("seventeen.PFM"));
  for (const char* font : {"six.sfp", "sixteen.sfp"}) {
    WriteFile(font, PclFont());
    WriteFile("metrics.tfm", TfmFile{}.File());
    ASSERT_EQ(Query(font), ZE_OK);
    SetMetricsFile("metrics.tfm");
    ASSERT_EQ(ZeFonConvert(font, "", &info, 4, font == std::string("six.sfp") ? 6 : 16), ZE_OK);
  }
  EXPECT_TRUE(fs::exists("six.PFM"));
  EXPECT_TRUE(fs::exists("sixteen.PFM"));
}

TEST_F(ConvertTest, DefaultNameOfAFileWithoutADotIsLengthened) {
  WriteFile("font", PclFont());
  ASSERT_EQ(ZeFonConvert("font", "", nullptr, 0, 5), ZE_OK);
  EXPECT_TRUE(fs::exists("fontPFM"));
  WriteFile("type1", kAfm);
  WriteFile("type1INF", kInf);
  ASSERT_EQ(ZeFonConvert("type1", nullptr, nullptr, 0, 2), ZE_OK);
  EXPECT_TRUE(fs::exists("type1PFM"));
  EXPECT_TRUE(fs::exists("type1PSM"));
  fs::create_directory("out");
  ASSERT_EQ(ZeFonConvert("type1", "out", nullptr, 0, 2), ZE_OK);
  EXPECT_TRUE(fs::exists("out/type1PFM"));
  EXPECT_TRUE(fs::exists("out/type1PSM"));
}

TEST_F(ConvertTest, GivenNameIsTakenAsItIs) {
  WriteType1("font");
  ASSERT_EQ(ZeFonConvert("font.afm", "out.xyz", nullptr, 0, 1), ZE_OK);
  EXPECT_TRUE(fs::exists("out.xyz"));
  WriteFile("font.sfp", PclFont());
  ASSERT_EQ(ZeFonConvert("font.sfp", "plain", nullptr, 0, 5), ZE_OK);
  EXPECT_TRUE(fs::is_regular_file("plain"));
}

TEST_F(ConvertTest, Type1NameWithoutADotIsAFolder) {
  fs::create_directories("in/deep");
  fs::create_directory("out");
  WriteType1("in/deep/font");
  ASSERT_EQ(ZeFonConvert("in\\deep\\font.afm", "out", nullptr, 0, 1), ZE_OK);
  EXPECT_TRUE(fs::exists("out/font.PFM"));
  ASSERT_EQ(ZeFonConvert("in/deep/font.afm", "in\\", nullptr, 0, 2), ZE_OK);
  EXPECT_TRUE(fs::exists("in/font.PFM"));
  EXPECT_TRUE(fs::exists("in/font.PSM"));
  EXPECT_EQ(ZeFonConvert("in/deep/font.afm", "missing", nullptr, 0, 1), ZE_OPEN_FAILED);
}

// A dot anywhere in the name makes it one of a file.
TEST_F(ConvertTest, KeepsTakingADottedFolderForAFile) {
  fs::create_directory("out.dir");
  WriteType1("font");
  EXPECT_EQ(ZeFonConvert("font.afm", "out.dir", nullptr, 0, 1), ZE_OPEN_FAILED);
}

TEST_F(ConvertTest, SecondDeviceTakesItsNameFromTheFirst) {
  WriteType1("font");
  ASSERT_EQ(ZeFonConvert("font.afm", "out.xyz", nullptr, 0, 2), ZE_OK);
  EXPECT_TRUE(fs::exists("out.PFM"));
  EXPECT_TRUE(fs::exists("out.PSM"));
  EXPECT_FALSE(fs::exists("out.xyz"));
}

TEST_F(ConvertTest, Type1NeedsItsInf) {
  WriteFile("font.afm", kAfm);
  EXPECT_EQ(ZeFonConvert("font.afm", "", nullptr, 0, 1), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeFonConvert("font.afm", "", nullptr, 0, 2), ZE_FILE_NOT_FOUND);
  fs::create_directory("font.INF");
  EXPECT_EQ(ZeFonConvert("font.afm", "", nullptr, 0, 1), ZE_OPEN_FAILED);
  fs::create_directory("folder.afm");
  WriteFile("folder.INF", kInf);
  EXPECT_EQ(ZeFonConvert("folder.afm", "", nullptr, 0, 1), ZE_OPEN_FAILED);
}

TEST_F(ConvertTest, OutputThatCannotBeCreatedGivesThree) {
  fs::create_directory("out.dir");
  WriteType1("font");
  WriteFile("font.pfm", PfmInput());
  WriteFile("font.dlf", DlfFile{}.File());
  WriteFile("font.sfp", PclFont());
  WriteFile("metrics.tfm", TfmFile{}.File());
  ASSERT_EQ(Query("font.sfp"), ZE_OK);
  SetMetricsFile("metrics.tfm");
  for (const std::uint32_t conversion : {1U, 3U, 4U, 5U, 6U, 16U, 17U}) {
    const char* font = conversion == 1   ? "font.afm"
                       : conversion == 3 ? "font.pfm"
                       : conversion == 4 ? "font.dlf"
                                         : "font.sfp";
    EXPECT_EQ(ZeFonConvert(font, "out.dir", &info, 4, conversion), ZE_OPEN_FAILED) << conversion;
    EXPECT_EQ(ZeFonConvert(font, "no.dir/out.x", &info, 4, conversion), ZE_OPEN_FAILED);
  }
}

TEST_F(ConvertTest, RefusedInputLeavesTheOutputAlone) {
  WriteFile("out.x", "before");
  WriteFile("bad.afm", "no metrics");
  WriteFile("bad.INF", "");
  WriteFile("bad.bin", std::string(300, 'x'));
  ASSERT_EQ(ZeFonConvert("bad.afm", "out.x", nullptr, 0, 1), ZE_BAD_FORMAT);
  for (const std::uint32_t conversion : {3U, 4U, 5U, 17U}) {
    EXPECT_EQ(ZeFonConvert("bad.bin", "out.x", nullptr, 0, conversion), ZE_BAD_FORMAT);
    EXPECT_EQ(ReadFile("out.x"), "before");
  }
}

TEST_F(ConvertTest, FolderIsNoFont) {
  fs::create_directory("folder");
  EXPECT_EQ(ZeFonConvert("folder", "", nullptr, 0, 3), ZE_BAD_FORMAT);
  EXPECT_EQ(ZeFonConvert("folder", "", nullptr, 0, 4), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeFonConvert("folder", "", nullptr, 0, 5), ZE_OPEN_FAILED);
}

TEST_F(ConvertTest, MayReplaceItsOwnInput) {
  WriteFile("font.x", PfmInput());
  ASSERT_EQ(ZeFonConvert("font.x", "font.x", nullptr, 0, 3), ZE_OK);
  EXPECT_TRUE(ReadFile("font.x").starts_with("StartFontMetrics"));
}

TEST_F(ConvertTest, LogsNothing) {
  WriteFile("font.pfm", PfmInput());
  ASSERT_EQ(ZeFonConvert("font.pfm", "", nullptr, 0, 3), ZE_OK);
  EXPECT_EQ(ZeFonConvert("font.pfm", "", nullptr, 0, 5), ZE_BAD_FORMAT);
  EXPECT_TRUE(LogLines().empty());
}

}  // namespace
}  // namespace zeapi::testing
