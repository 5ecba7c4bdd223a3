// Type 1 metrics as Windows metrics.
#include "fonts/type1_metrics.h"

#include "support/metrics.h"

namespace zeapi::testing {
namespace {

struct Type1 {
  std::string header = "EncodingScheme AdobeStandardEncoding\n";
  std::string characters =
      "C 32 ; WX 250 ; N space ; B 0 0 0 0 ;\nC 72 ; WX 722 ; N H ; B 0 0 700 662 ;\n"
      "C 100 ; WX 500 ; N d ; B 27 -10 491 683 ;\nC 112 ; WX 500 ; N p ; B 5 -217 470 460 ;\n"
      "C 120 ; WX 500 ; N x ; B 17 0 479 450 ;\nC 183 ; WX 350 ; N bullet ; B 0 0 9 9 ;\n";
  std::string kerning;
  std::string inf = "MSMenuName (Test Family)\nVPStyle (N)\nSerif true\n";

  std::string File() const {
    return "StartFontMetrics 2.0\nFontName Test-Roman\nFontBBox -168 -218 1000 898\n" + header +
           "StartCharMetrics 6\n" + characters +
           "EndCharMetrics\nStartKernData\nStartKernPairs 9\n" + kerning +
           "EndKernPairs\nEndKernData\nEndFontMetrics\n";
  }
};

class Type1MetricsTest : public FontTest {
 protected:
  static std::uint32_t Convert(const Type1& font, std::uint32_t conversion = 1) {
    WriteFile("font.afm", font.File());
    WriteFile("font.INF", font.inf);
    return ZeFonConvert("font.afm", "out.PFM", nullptr, 0, conversion);
  }
  static MetricsView MetricsOf(const Type1& font) {
    EXPECT_EQ(Convert(font), ZE_OK);
    const MetricsView view(ReadFile("out.PFM"));
    EXPECT_TRUE(view.IsWellFormed());
    return view;
  }
  static MetricsView SecondOf(const Type1& font) {
    EXPECT_EQ(Convert(font, 2), ZE_OK);
    const MetricsView view(ReadFile("out.PSM"));
    EXPECT_TRUE(view.IsWellFormed());
    return view;
  }
};

TEST_F(Type1MetricsTest, HeaderTellsTheFont) {
  Type1 font;
  font.header += "ItalicAngle -15.5\nWeight Bold\n";
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U16(0), 0x100U);
  EXPECT_EQ(pfm.U8(65), 0U);  // the copyright is terminated
  EXPECT_NE(pfm.Text(6), "");
  EXPECT_EQ(pfm.U16(66), 0x81U);
  EXPECT_EQ(pfm.U16(68), 10U);
  EXPECT_EQ(pfm.U16(70), 300U);
  EXPECT_EQ(pfm.U16(72), 300U);
  EXPECT_EQ(pfm.U16(74), 898U);
  EXPECT_EQ(pfm.U16(76), 116U);  // 898 + 218 - 1000
  EXPECT_EQ(pfm.U16(78), 196U);
  EXPECT_EQ(pfm.U8(80), 1U);
  EXPECT_EQ(pfm.U16(83), 700U);
  EXPECT_EQ(pfm.U8(85), 0U);
  EXPECT_EQ(pfm.U16(86), 0U);
  EXPECT_EQ(pfm.U8(90), 0x11U);
  EXPECT_EQ(pfm.U16(91), (250U + 722 + 500 * 3 + 350) / 6);
  EXPECT_EQ(pfm.U16(93), 722U);
  EXPECT_EQ(pfm.U8(95), 32U);
  EXPECT_EQ(pfm.U8(96), 255U);
  EXPECT_EQ(pfm.U8(97), 149U - 32);  // the bullet
  EXPECT_EQ(pfm.U8(98), 0U);
  EXPECT_EQ(pfm.Device(), "PostScript");
  EXPECT_EQ(pfm.Face(), "Test Family");
  EXPECT_EQ(pfm.Text(pfm.DriverInfo()), "Test-Roman");
  EXPECT_EQ(pfm.Extent(72), 722U);
  EXPECT_EQ(pfm.Extent(149), 350U);
  EXPECT_EQ(pfm.Extent(65), 0U);
}

TEST_F(Type1MetricsTest, FaceIsCutToWhatWindowsTakes) {
  Type1 font;
  font.inf = "MSMenuName (A Menu Name That Is Longer Than Windows Likes)\n";
  EXPECT_EQ(MetricsOf(font).Face(), "A Menu Name That Is Longer Than");
  EXPECT_EQ(SecondOf(font).Face(), "A Menu Name That Is Longer Than");
}

TEST_F(Type1MetricsTest, ExtendedMetricsTellTheLetters) {
  Type1 font;
  font.header += "ItalicAngle -15.5\nUnderlinePosition -100\nUnderlineThickness 50\n";
  const MetricsView pfm = MetricsOf(font);
  const int expected[] = {240, 0,   1000, 3,  1000, 1000, 662, 450, 683, 217, 155, -500, 250,
                          500, 500, 75,   50, 37,   75,   25,  25,  500, 100, 0,   0};
  for (std::size_t i = 0; i < std::size(expected); ++i)
    EXPECT_EQ(pfm.ExtendedField(2 + 2 * i), expected[i]) << "offset " << 2 + 2 * i;
}

TEST_F(Type1MetricsTest, KeysStandInForLetters) {
  Type1 font;
  font.header += "CapHeight 711\nAscender 699\nDescender -212\nXHeight 444\n";
  EXPECT_EQ(MetricsOf(font).ExtendedField(14), 711);
  font.characters = "C 65 ; WX 700 ; N A ; B 0 0 9 9 ;\n";
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.ExtendedField(14), 711);
  EXPECT_EQ(pfm.ExtendedField(16), 0);  // XHeight is not read
  EXPECT_EQ(pfm.ExtendedField(18), 699);
  EXPECT_EQ(pfm.ExtendedField(20), 212);
  EXPECT_EQ(pfm.U8(97), 0U);  // no bullet
}

TEST_F(Type1MetricsTest, InfTellsStyleAndFamily) {
  struct Row {
    const char* inf;
    unsigned italic;
    unsigned weight;
    unsigned family;
  };
  for (const Row& row : {Row{"VPStyle (N)\nSerif true\n", 0, 400, 0x11},
                         Row{"VPStyle (B)\nSerif false\n", 0, 700, 0x21},
                         Row{"VPStyle (I)\nPi true\n", 1, 400, 0x51},
                         Row{"VPStyle (T)\n", 1, 700, 0x21}, Row{"VPStyle (X)\n", 0, 400, 0x21}}) {
    Type1 font;
    font.inf = row.inf;
    const MetricsView pfm = MetricsOf(font);
    EXPECT_EQ(pfm.U8(80), row.italic) << row.inf;
    EXPECT_EQ(pfm.U16(83), row.weight) << row.inf;
    EXPECT_EQ(pfm.U8(90), row.family) << row.inf;
    EXPECT_EQ(pfm.Face(), "Test");  // of the font's name, without a menu name
  }
}

TEST_F(Type1MetricsTest, FixedPitchClearsTheBit) {
  Type1 font;
  font.header += "IsFixedPitch true\n";
  EXPECT_EQ(MetricsOf(font).U8(90), 0x30U);
}

TEST_F(Type1MetricsTest, LightWeighs250) {
  Type1 font;
  font.header += "Weight Light\n";
  EXPECT_EQ(MetricsOf(font).U16(83), 250U);
}

TEST_F(Type1MetricsTest, PairsAreSortedBySecondThenFirst) {
  Type1 font;
  font.kerning = "KPX x d 3\nKPX H x -1\nKPX d d 2\nKPX H nothere 9\nKPX p p 0\nKPX H d 4\n";
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Pairs(), (std::vector<PostScriptPfm::Pair>{
                             {'H', 'd', 4}, {'d', 'd', 2}, {'x', 'd', 3}, {'H', 'x', -1}}));
  EXPECT_EQ(pfm.ExtendedField(48), 4);
  font.kerning = "";
  EXPECT_EQ(MetricsOf(font).U32(131), 0U);
}

TEST_F(Type1MetricsTest, OwnEncodingKeepsItsCodes) {
  Type1 font;
  font.header = "EncodingScheme FontSpecific\n";
  font.characters =
      "C 3 ; WX 700 ; N H ; B 0 0 9 650 ;\nC 200 ; WX 300 ; N ff ; B 0 0 9 9 ;\n"
      "C -1 ; WX 400 ; N x ; B 0 0 9 9 ;\n";
  font.kerning = "KPX H ff -7\nKPX ff x 9\n";
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U8(85), 2U);
  EXPECT_EQ(pfm.U8(95), 3U);
  EXPECT_EQ(pfm.U8(96), 200U);
  EXPECT_EQ(pfm.U8(97), 29U);
  EXPECT_EQ(pfm.U8(98), 29U);  // the blank, less the first code
  EXPECT_EQ(pfm.Extent(3), 700U);
  EXPECT_EQ(pfm.Extent(200), 300U);
  EXPECT_EQ(pfm.Extent(72), 0U);
  EXPECT_EQ(pfm.Pairs(), (std::vector<PostScriptPfm::Pair>{{3, 200, -7}}));
}

TEST_F(Type1MetricsTest, WithoutAnEncodingTheGlyphNamesCount) {
  Type1 font;
  font.header = "";
  EXPECT_EQ(MetricsOf(font).U8(85), 0U);
}

// A font may end anywhere behind its first character; what is made of it is whole all the same.
TEST_F(Type1MetricsTest, EveryBeginningIsRefusedOrGivesWholeMetrics) {
  Type1 font;
  font.kerning = "KPX H d -40\nKPX d H -20\n";
  const std::string file = font.File();
  const std::size_t first = file.find("C 72 ;");  // the first glyph that the set has at its code
  WriteFile("font.INF", font.inf);
  std::size_t refused = 0;
  for (std::size_t length = 0; length <= file.size(); ++length) {
    WriteFile("font.afm", file.substr(0, length));
    const std::uint32_t result = ZeFonConvert("font.afm", "out.PFM", nullptr, 0, 2);
    if (result != ZE_OK) {
      ASSERT_EQ(result, ZE_BAD_FORMAT) << length;
      ++refused;
      ASSERT_LE(length, first) << "behind the first character";
      continue;
    }
    ASSERT_TRUE(MetricsView(ReadFile("out.PFM")).IsWellFormed()) << length;
    ASSERT_TRUE(MetricsView(ReadFile("out.PSM")).IsWellFormed()) << length;
  }
  EXPECT_GT(refused, 60U) << "up to the characters";
}

TEST_F(Type1MetricsTest, EveryBeginningOfAnInfGivesWholeMetrics) {
  const std::string inf = "MSMenuName (Test)\nVPStyle (T)\nSerif true\nPi false\n";
  for (std::size_t length = 0; length <= inf.size(); ++length) {
    Type1 font;
    font.inf = inf.substr(0, length);
    MetricsOf(font);
  }
}

TEST_F(Type1MetricsTest, CharactersOfNoWidth) {
  Type1 font;
  font.characters = "C 32 ; WX 0 ; N space ;\nC 65 ; WX 0 ; N A ;\n";
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U16(91), 0U);
  EXPECT_EQ(pfm.U16(93), 0U);
  EXPECT_EQ(pfm.Extent(65), 0U);
  SecondOf(font);
}

TEST_F(Type1MetricsTest, RefusesAFontWithoutANameOrCharacters) {
  Type1 font;
  font.characters = "C -1 ; WX 400 ; N nothing ;\n";
  EXPECT_EQ(Convert(font), ZE_BAD_FORMAT);
  WriteFile("font.afm", "StartFontMetrics 2.0\nC 65 ; WX 1 ; N A ;\nEndFontMetrics\n");
  EXPECT_EQ(ZeFonConvert("font.afm", "out.PFM", nullptr, 0, 1), ZE_BAD_FORMAT);
}

TEST_F(Type1MetricsTest, SecondDeviceSelectsTheFontInTheWindowsSet) {
  Type1 font;
  font.inf += "PCLTypefaceID 24580\nPCLStyle 1\nPCLStrokeWeight -3\n";
  font.kerning = "KPX H x -1\n";
  const MetricsView psm = SecondOf(font);
  EXPECT_EQ(psm.Device(), "PCL5 / HP LaserJet III");
  EXPECT_EQ(psm.Face(), "Test Family");
  EXPECT_EQ(psm.Selection(), "\x1B(9U\x1B(s1p1s-3b24580T\x1B(s#HEIGHTV");
  EXPECT_EQ(psm.U16(psm.DriverInfo()), 22U);
  EXPECT_EQ(psm.U16(psm.DriverInfo() + 2), 1U);
  EXPECT_EQ(psm.U16(psm.DriverInfo() + 12), 17U);
  EXPECT_EQ(psm.U16(66), 0x80U);
  EXPECT_EQ(psm.U16(68), 12U);
  EXPECT_EQ(psm.U16(74), 45U);  // 898 thousandths of 50 dots
  EXPECT_EQ(psm.U16(86), 0U);
  EXPECT_EQ(psm.U16(88), 56U);
  EXPECT_EQ(psm.Width('H'), 36U);
  EXPECT_EQ(psm.Extent('H'), 722U);
  EXPECT_EQ(psm.U16(93), 36U);
  EXPECT_EQ(psm.ExtendedField(12), 1000);
  EXPECT_LT(psm.ExtendedField(8), psm.ExtendedField(10));
  EXPECT_EQ(psm.Pairs(), (std::vector<PostScriptPfm::Pair>{{'H', 'x', -1}}));
  EXPECT_BYTES(ReadFile("out.PFM"), [&] {
    Convert(font);
    return ReadFile("out.PFM");
  }());
}

TEST_F(Type1MetricsTest, SecondDeviceHasOneWidthForAFixedPitchFont) {
  Type1 font;
  font.header += "IsFixedPitch true\n";
  font.characters = "C 65 ; WX 600 ; N A ; B 0 0 9 9 ;\n";
  const MetricsView psm = SecondOf(font);
  EXPECT_EQ(psm.U16(86), 30U);
  EXPECT_FALSE(psm.HasWidthTable());
  EXPECT_EQ(psm.Selection(), "\x1B(9U\x1B(s0p0s0b0T\x1B(s#HEIGHTV");
}

TEST_F(Type1MetricsTest, MeasuresAreLimited) {
  Type1 font;
  font.header += "FontBBox 0 -40000 0 -5\nUnderlinePosition -40000\nItalicAngle 9999\n";
  font.characters = "C 65 ; WX -5 ; N A ; B 0 0 9 9 ;\nC 66 ; WX 1 ; N B ;\n";
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U16(74), 0U);
  EXPECT_EQ(pfm.Extent(65), 0U);
  EXPECT_EQ(pfm.ExtendedField(22), -32768);
  EXPECT_EQ(pfm.ExtendedField(32), 32767);
}

}  // namespace
}  // namespace zeapi::testing
