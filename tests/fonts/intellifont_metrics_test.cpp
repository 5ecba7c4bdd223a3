// Intellifont metrics as Windows metrics.
#include "fonts/intellifont_metrics.h"

#include <cstring>

#include "support/metrics.h"
#include "support/soft_fonts.h"
#include "support/tfm_file.h"

namespace zeapi::testing {
namespace {

class IntellifontTest : public FontTest {
 protected:
  void SetUp() override {
    FontTest::SetUp();
    SoftFont font(10);
    font.descriptor.name = "Univers";
    WriteFile("font.sfp", font.File());
    ASSERT_EQ(Query("font.sfp"), ZE_OK);
    SetMetricsFile("font.tfm");
  }
  std::uint32_t Convert(const std::string& file, std::uint32_t conversion = 6) {
    WriteFile("font.tfm", file);
    return ZeFonConvert("font.sfp", "out.pfm", &info, 4, conversion);
  }
  MetricsView MetricsOf(const TfmFile& font, std::uint32_t conversion = 6) {
    EXPECT_EQ(Convert(font.File(), conversion), ZE_OK);
    const MetricsView view(ReadFile("out.pfm"));
    EXPECT_TRUE(view.IsWellFormed());
    return view;
  }
};

TEST_F(IntellifontTest, DescribesTheFontInItsSymbolSet) {
  for (const bool bigEndian : {false, true}) {
    TfmFile font;
    font.bigEndian = bigEndian;
    font.slant = 1250;
    const MetricsView pfm = MetricsOf(font);
    EXPECT_EQ(pfm.Device(), "PCL5 / HP LaserJet III");
    EXPECT_EQ(pfm.Face(), "Univers");
    EXPECT_EQ(pfm.Selection(), "\x1B(8U\x1B(s1p1s0b4148T\x1B(s#HEIGHTV");
    EXPECT_EQ(pfm.U8(80), 1U);
    EXPECT_EQ(pfm.U16(83), 400U);
    EXPECT_EQ(pfm.U8(90), 0x21U);
    EXPECT_EQ(pfm.U8(95), 32U);
    EXPECT_EQ(pfm.U8(96), 0xC0U);
    EXPECT_EQ(pfm.Extent('A'), 6000U);
    EXPECT_EQ(pfm.Extent('a'), 5000U);
    EXPECT_EQ(pfm.Extent(0xC0), 6001U);
    EXPECT_EQ(pfm.Extent(' '), 2500U);
    EXPECT_EQ(pfm.Width('A'), 34U);
    EXPECT_EQ(pfm.U32(pfm.DriverInfo() + 4), info.printerMemory);
    EXPECT_EQ(pfm.U16(pfm.DriverInfo() + 12), 1U);
    EXPECT_EQ(pfm.Pairs(), (std::vector<PostScriptPfm::Pair>{{'A', 'a', -300}}));
    EXPECT_EQ(pfm.ExtendedField(12), 8782);
    EXPECT_EQ(pfm.ExtendedField(14), 6100);
    EXPECT_EQ(pfm.ExtendedField(16), 4400);
    EXPECT_EQ(pfm.ExtendedField(18), 6500);
    EXPECT_EQ(pfm.ExtendedField(20), 2000);
    EXPECT_EQ(pfm.ExtendedField(22), 125);
    EXPECT_EQ(pfm.ExtendedField(32), 900);
    EXPECT_EQ(pfm.ExtendedField(34), 400);
  }
}

TEST_F(IntellifontTest, WithoutTheSymbolSetTheSymbolsCount) {
  TfmFile font;
  font.symbolSet = "0U";
  MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Selection(), "\x1B(8U\x1B(s1p0s0b4148T\x1B(s#HEIGHTV");
  EXPECT_EQ(pfm.U16(pfm.DriverInfo() + 12), 1U);
  EXPECT_EQ(pfm.Extent('A'), 6000U);
  EXPECT_EQ(pfm.Extent(0xC0), 6001U);
  font.symbolType = 2;
  font.symbols = {'B', 0x2022, 0xE9};
  pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Extent('B'), 6000U);
  EXPECT_EQ(pfm.Extent(0x95), 5000U);
  EXPECT_EQ(pfm.Extent(0xE9), 6001U);
  font.symbols = {'B', 'B', 0xE9};  // of rows with the same symbol the first
  EXPECT_EQ(MetricsOf(font).Extent('B'), 6000U);
  font.symbols = {0x4E00, 0x4E01, 0x4E02};
  EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT);
}

TEST_F(IntellifontTest, RecordWithoutASymbolSetMeansWindows) {
  info.symbolSet[0] = '\0';
  EXPECT_EQ(MetricsOf(TfmFile{}).Selection(), "\x1B(9U\x1B(s1p0s0b4148T\x1B(s#HEIGHTV");
}

TEST_F(IntellifontTest, SymbolSetGivesCharacterSetAndFaceSuffix) {
  TfmFile font;
  font.typeface = "Univers Condensed Medium Italic";
  for (const char* inFile : {"0B", "8U"}) {
    std::strcpy(info.symbolSet, "0B");
    font.symbolSet = inFile;
    const MetricsView pfm = MetricsOf(font);
    EXPECT_EQ(pfm.Face(), "Univers Condensed Me (LineDraw)");
    EXPECT_EQ(pfm.U8(85), 0xB6U);
    EXPECT_EQ(pfm.U16(pfm.DriverInfo() + 12), 16U);
    EXPECT_EQ(pfm.Selection(), "\x1B(0B\x1B(s1p0s0b4148T\x1B(s#HEIGHTV");
  }
  std::strcpy(info.symbolSet, "8U");
  EXPECT_EQ(MetricsOf(font).Face(), "Univers Condensed Medium Italic");
}

TEST_F(IntellifontTest, VendorsAreNamed) {
  for (const char* vendor : {"VGC", "ITC", "LSC", "L&C"}) {
    TfmFile font;
    font.source = vendor;
    EXPECT_EQ(MetricsOf(font).Face(), std::string(vendor) + " Univers");
    font.typeface = std::string("Bookman ") + vendor;
    EXPECT_EQ(MetricsOf(font).Face(), std::string("Bookman ") + vendor);
  }
}

TEST_F(IntellifontTest, WeightsAndPitch) {
  TfmFile font;
  for (const auto& [weight, windows] :
       {std::pair<std::uint8_t, unsigned>{0, 100}, {120, 400}, {171, 700}, {255, 900}}) {
    font.strokeWeight = weight;
    EXPECT_EQ(MetricsOf(font).U16(83), windows) << int{weight};
  }
  font.without = {411};
  EXPECT_EQ(MetricsOf(font).U16(83), 400U);
  font.without.clear();
  font.spacing = 5000;
  font.strokeWeight = 171;
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U8(90), 0x30U);
  EXPECT_EQ(pfm.Selection(), "\x1B(8U\x1B(s0p0s3b4148T\x1B(s#HEIGHTV");
  EXPECT_FALSE(pfm.HasWidthTable());
}

TEST_F(IntellifontTest, StoredNameIsThatOfThePclFont) {
  const MetricsView plain = MetricsOf(TfmFile{}, 6);
  const MetricsView named = MetricsOf(TfmFile{}, 16);
  const std::size_t end = named.U32(named.DriverInfo() + 8) + named.Selection().size() + 1;
  EXPECT_EQ(named.Text(end), "Univers8U       ");
  EXPECT_EQ(named.Text(end + 17), "8U");
  EXPECT_EQ(named.U32(2), plain.U32(2) + 17 + 3);
}

TEST_F(IntellifontTest, OptionsSayWhereTheMetricsAre) {
  WriteFile("font.tfm", TfmFile{}.File());
  for (const std::uint32_t conversion : {6U, 16U}) {
    EXPECT_EQ(ZeFonConvert("font.sfp", "", nullptr, 4, conversion), ZE_INVALID_ARGUMENT);
    for (const std::uint32_t option : {0U, 1U, 3U, 5U, 0xFFFFFFFFU})
      EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, option, conversion), ZE_INVALID_ARGUMENT);
    EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, 4, conversion), ZE_OK);
    // No companion there.
    EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, 2, conversion), ZE_BAD_FORMAT);
  }
  std::swap(info.companionFile, info.metricsFile);
  EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, 2, 6), ZE_OK);
  EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, 4, 6), ZE_BAD_FORMAT);
}

// Only conversion 16 looks into the PCL font.
TEST_F(IntellifontTest, PclFontMatters) {
  WriteFile("font.sfp", "not a font");
  EXPECT_EQ(Convert(TfmFile{}.File(), 6), ZE_OK);
  EXPECT_EQ(Convert(TfmFile{}.File(), 16), ZE_OPEN_FAILED);
  WriteFile("font.sfp", "\x1B)s80W not a descriptor");
  EXPECT_EQ(Convert(TfmFile{}.File(), 16), ZE_BAD_FORMAT);
}

TEST_F(IntellifontTest, PclFontIsReadBeforeTheMetrics) {
  WriteFile("font.sfp", "not a font");
  EXPECT_EQ(Convert("not metrics", 16), ZE_OPEN_FAILED);
  EXPECT_EQ(Convert("not metrics", 6), ZE_BAD_FORMAT);
}

TEST_F(IntellifontTest, StoredNameWithTheMetricsInTheCompanion) {
  WriteFile("font.tfm", TfmFile{}.File());
  std::swap(info.companionFile, info.metricsFile);
  EXPECT_EQ(ZeFonConvert("font.sfp", "out.pfm", &info, 2, 16), ZE_OK);
  EXPECT_NE(ReadFile("out.pfm").find("Univers8U       "), std::string::npos);
}

// The 65536th row would have the number that means none.
TEST_F(IntellifontTest, RefusesMoreRowsThanItCanNumber) {
  for (const auto rows : {&TfmFile::escapements, &TfmFile::symbols}) {
    TfmFile font;
    (font.*rows).resize(65535);
    EXPECT_EQ(Convert(font.File()), ZE_OK);
    (font.*rows).resize(65536);
    EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT);
  }
}

TEST_F(IntellifontTest, UnterminatedFieldsOfTheRecordEndWithThem) {
  WriteFile("font.tfm", TfmFile{}.File());
  std::fill(std::begin(info.symbolSet), std::end(info.symbolSet), 'x');
  std::fill(std::begin(info.companionFile), std::end(info.companionFile), 'x');
  EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, 4, 6), ZE_OK);
  EXPECT_EQ(ZeFonConvert("font.sfp", "", &info, 2, 6), ZE_BAD_FORMAT);
}

TEST_F(IntellifontTest, RefusesMetricsWithoutWhatIsNeeded) {
  for (const std::vector<std::uint16_t>& tags : {std::vector<std::uint16_t>{408}, {417}, {433}}) {
    TfmFile font;
    font.without = tags;
    EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT) << tags[0];
  }
  TfmFile font;
  font.without = {403, 404};
  EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT);
  font.without = {400, 411, 412, 413, 418, 421, 423, 424, 425, 426, 427, 428, 429, 430, 439, 442};
  EXPECT_EQ(Convert(font.File()), ZE_OK);
}

TEST_F(IntellifontTest, RefusesEveryBeginningAndEveryDamagedByte) {
  const std::string file = TfmFile{}.File();
  for (std::size_t length = 0; length < file.size(); ++length)
    ASSERT_EQ(Convert(file.substr(0, length)), ZE_BAD_FORMAT) << length;
  // Whatever a byte says, the answer is one of two.
  for (std::size_t at = 0; at < file.size(); ++at) {
    std::string damaged = file;
    damaged[at] = static_cast<char>(~damaged[at]);
    const std::uint32_t result = Convert(damaged);
    ASSERT_TRUE(result == ZE_OK || result == ZE_BAD_FORMAT) << at << ": " << result;
  }
}

}  // namespace
}  // namespace zeapi::testing
