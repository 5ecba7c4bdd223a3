// PCL soft fonts as Windows metrics.
#include "fonts/pcl_metrics.h"

#include "fonts/pcl_translation.h"
#include "support/byte_order.h"
#include "support/metrics.h"
#include "support/soft_fonts.h"

namespace zeapi::testing {
namespace {

constexpr std::uint8_t kFormats[] = {0, 5, 9, 10, 11, 12, 15, 20};
constexpr std::uint8_t kOldFormats[] = {5, 9, 12};
constexpr std::uint8_t kScalableFormats[] = {10, 11, 15};
constexpr std::uint8_t kSpacings[] = {0, 1};

class PclMetricsTest : public FontTest {
 protected:
  static std::uint32_t Convert(const std::string& file, std::uint32_t conversion = 5) {
    WriteFile("font.sfp", file);
    return ZeFonConvert("font.sfp", "out.pfm", nullptr, 0, conversion);
  }
  static MetricsView MetricsOf(const SoftFont& font, std::uint32_t conversion = 5) {
    EXPECT_EQ(Convert(font.File(), conversion), ZE_OK);
    const MetricsView view(ReadFile("out.pfm"));
    EXPECT_TRUE(view.IsWellFormed());
    return view;
  }
  static SoftFont Proportional() {
    SoftFont font(0);
    font.descriptor.spacing = 1;
    font.AddBitmap('H', 130, 35, 24, 35);
    font.AddBitmap('d', 101, 37, 20, 37);
    font.AddBitmap('p', 100, 24, 20, 34);
    font.AddBitmap('x', 98, 23, 20, 23);
    font.AddBitmap('_', 100, 0xFFF8, 25, 3);  // 8 dots below the baseline
    font.AddBitmap('-', 60, 14, 12, 4);
    font.AddBitmap(161, 131, 45, 24, 45);  // Agrave in Roman-8
    return font;
  }
};

TEST_F(PclMetricsTest, ProportionalBitmap) {
  const SoftFont font = Proportional();
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Device(), "PCL / HP LaserJet");
  EXPECT_EQ(pfm.Face(), "Courier (8U)");
  EXPECT_NE(pfm.Text(6), "");
  EXPECT_EQ(pfm.U16(66), 0x80U);
  EXPECT_EQ(pfm.U16(68), 12U);
  EXPECT_EQ(pfm.U16(70), 300U);
  EXPECT_EQ(pfm.U16(74), 40U);
  EXPECT_EQ(pfm.U16(76), 2U);
  EXPECT_EQ(pfm.U16(83), 400U);
  EXPECT_EQ(pfm.U8(85), 0U);
  EXPECT_EQ(pfm.U16(86), 0U);
  EXPECT_EQ(pfm.U16(88), 52U);
  EXPECT_EQ(pfm.U8(90), 0x31U);
  EXPECT_EQ(pfm.U16(93), 33U);
  EXPECT_EQ(pfm.U8(95), 32U);
  EXPECT_EQ(pfm.U8(96), 0xC0U);
  EXPECT_EQ(pfm.U8(97), 127U - 32);
  EXPECT_EQ(pfm.U8(98), 0U);
  EXPECT_EQ(pfm.Width(' '), 30U);  // the pitch
  EXPECT_EQ(pfm.Width('H'), 33U);
  EXPECT_EQ(pfm.Width('d'), 25U);
  EXPECT_EQ(pfm.Width('x'), 25U);
  EXPECT_EQ(pfm.Width('-'), 15U);
  EXPECT_EQ(pfm.Width(0xC0), 33U);
  EXPECT_EQ(pfm.Width(161), 0U);
  EXPECT_EQ(pfm.Width(0xC1), 0U);  // the end of the table
  EXPECT_EQ(pfm.U32(pfm.Extension() + 6), 0U);
  const std::size_t driver = pfm.DriverInfo();
  EXPECT_EQ(pfm.U16(driver), 22U);
  EXPECT_EQ(pfm.U16(driver + 2), 1U);
  EXPECT_EQ(pfm.U32(driver + 4), font.File().size() + 320);
  EXPECT_EQ(pfm.U16(driver + 12), 1U);
  EXPECT_EQ(pfm.Selection(), "\x1B(8U\x1B(s1p12.00v0s0b4099T");
  // From the boxes of the letters.
  EXPECT_EQ(pfm.ExtendedField(2), 240);
  EXPECT_EQ(pfm.ExtendedField(4), 1);
  for (const std::size_t size : {6U, 8U, 10U, 12U}) EXPECT_EQ(pfm.ExtendedField(size), 52);
  EXPECT_EQ(pfm.ExtendedField(14), 35);
  EXPECT_EQ(pfm.ExtendedField(16), 23);
  EXPECT_EQ(pfm.ExtendedField(18), 37);
  EXPECT_EQ(pfm.ExtendedField(20), 10);
  EXPECT_EQ(pfm.ExtendedField(24), -12);
  EXPECT_EQ(pfm.ExtendedField(26), 12);
  EXPECT_EQ(pfm.ExtendedField(32), 8);
  EXPECT_EQ(pfm.ExtendedField(34), 3);
  EXPECT_EQ(pfm.ExtendedField(44), 14);
  EXPECT_EQ(pfm.ExtendedField(46), 4);
}

TEST_F(PclMetricsTest, FixedPitchBitmap) {
  SoftFont font(0);
  font.descriptor.pitch = 117;
  font.descriptor.pitchExtended = 128;
  font.AddBitmap('A', 999, 30, 24, 30);
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U16(86), 29U);  // 117.5 quarter-dots
  EXPECT_EQ(pfm.U16(91), 29U);
  EXPECT_EQ(pfm.U16(93), 29U);
  EXPECT_EQ(pfm.U8(90), 0x30U);
  EXPECT_FALSE(pfm.HasWidthTable());
  EXPECT_EQ(pfm.U8(96), 'A');
  EXPECT_EQ(pfm.U8(97), 0U);  // 127 is not there: the space
  EXPECT_EQ(pfm.Selection(), "\x1B(8U\x1B(s0p12.00v10.21h0s0b4099T");
}

TEST_F(PclMetricsTest, FixedPitchOfNothingHasAWidthTable) {
  SoftFont font(0);
  font.descriptor.pitch = 0;
  font.AddBitmap('A', 999, 30, 24, 30);
  const MetricsView pfm = MetricsOf(font);
  EXPECT_TRUE(pfm.HasWidthTable());
  EXPECT_EQ(pfm.Width('A'), 0U);
}

TEST_F(PclMetricsTest, ResolutionOfItsOwn) {
  SoftFont font(20);
  font.header = Be16(600) + Be16(600);
  font.descriptor.spacing = 1;
  font.descriptor.height = 400;
  font.AddBitmap('A', 240, 60, 48, 60);
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U16(68), 12U);
  EXPECT_EQ(pfm.U16(70), 600U);
  EXPECT_EQ(pfm.U16(72), 600U);
  EXPECT_EQ(pfm.Width('A'), 60U);
}

TEST_F(PclMetricsTest, OldFormatsAreAsWideAsTheirPitch) {
  for (const std::uint8_t format : kOldFormats) {
    for (const std::uint8_t spacing : kSpacings) {
      SoftFont font(format);
      font.descriptor.spacing = spacing;
      font.AddOld('A', format);
      font.AddOld('B', format);
      const MetricsView pfm = MetricsOf(font);
      EXPECT_EQ(pfm.U16(93), 30U);
      EXPECT_EQ(pfm.U8(96), 'B');
      EXPECT_EQ(pfm.HasWidthTable(), spacing == 1);
      if (spacing == 1) {
        EXPECT_EQ(pfm.Width('A'), 30U);
      }
    }
  }
}

TEST_F(PclMetricsTest, BoundIntellifont) {
  SoftFont font(10);
  font.descriptor.spacing = 1;
  font.descriptor.pitch = 2196;
  font.Set16(6, 6587);
  font.Set16(10, 8782);
  font.Set16(20, 4100);
  font.Set16(42, 6000);
  font.AddOutline('A', -100, 6000);
  font.AddCompound(161, 5000);
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Extent('A'), 6100U);
  EXPECT_EQ(pfm.Extent(0xC0), 5000U);
  EXPECT_EQ(pfm.Extent(' '), 2196U);
  EXPECT_EQ(pfm.ExtendedField(12), 8782);
  EXPECT_LT(pfm.ExtendedField(8), pfm.ExtendedField(10));
  EXPECT_EQ(pfm.ExtendedField(14), 6000);
  EXPECT_EQ(pfm.ExtendedField(16), 4100);
  EXPECT_EQ(pfm.ExtendedField(20), 8782 - 6587);
  // What the font is at 12 points, 50 dots.
  EXPECT_EQ(pfm.U16(68), 12U);
  EXPECT_EQ(pfm.U16(74), 38U);
  EXPECT_EQ(pfm.U16(88), 50U);
  EXPECT_EQ(pfm.Width('A'), 35U);
  EXPECT_EQ(pfm.U16(93), 35U);
}

TEST_F(PclMetricsTest, UnboundIntellifontHasNumbersOfTheSymbolList) {
  SoftFont font(11);
  font.descriptor.fontType = 10;
  font.descriptor.spacing = 1;
  font.descriptor.pitch = 2196;
  font.AddOutline(34, 0, 6000);  // A
  font.AddOutline(32, 0, 4000);  // the question mark, not the space
  font.AddOutline(99, 0, 6001);  // Agrave
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Extent('A'), 6000U);
  EXPECT_EQ(pfm.Extent('?'), 4000U);
  EXPECT_EQ(pfm.Extent(0xC0), 6001U);
  EXPECT_EQ(pfm.Extent(' '), 2196U);
  EXPECT_EQ(pfm.Extent('"'), 0U);
}

TEST_F(PclMetricsTest, TrueTypeWidthsComeFromTheHeader) {
  SoftFont font(15);
  font.descriptor.spacing = 1;
  font.descriptor.pitch = 569;
  font.AddGlyph('A', 1);
  font.AddGlyph('B', 2);
  font.AddGlyph('C', 77);  // beyond the table: as the last
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Extent('A'), 1024U);
  EXPECT_EQ(pfm.Extent('B'), 2048U);
  EXPECT_EQ(pfm.Extent('C'), 2048U);
  EXPECT_EQ(pfm.Extent(' '), 569U);
  EXPECT_EQ(pfm.Width('A'), 25U);
  EXPECT_EQ(pfm.ExtendedField(12), 2048);
}

TEST_F(PclMetricsTest, UnboundTrueTypeHasUnicodes) {
  SoftFont font(15);
  font.descriptor.fontType = 11;
  font.descriptor.spacing = 1;
  font.AddGlyph(0x2022, 1);
  font.AddGlyph(0xE9, 2);
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Extent(0x95), 1024U);
  EXPECT_EQ(pfm.Extent(0xE9), 2048U);
}

struct FaceRow {
  std::uint16_t symbolSet;
  unsigned characterSet;
  unsigned translationClass;
  const char* face;
};

TEST_F(PclMetricsTest, SymbolSetGivesCharacterSetClassAndFace) {
  for (const FaceRow& row :
       {FaceRow{2, 0xB6, 16, "Courier (LineDraw)"}, FaceRow{14, 0, 18, "Courier (0N)"},
        FaceRow{21, 0, 4, "Courier (0U)"}, FaceRow{53, 0xB9, 16, "Courier (US Legal)"},
        FaceRow{145, 0xB7, 16, "Courier (PC Line)"}, FaceRow{269, 0xB4, 17, "Courier (Math8)"},
        FaceRow{277, 0, 1, "Courier (8U)"}, FaceRow{369, 0, 18, "Courier (11Q)"},
        FaceRow{501, 0xB5, 17, "Courier (PI Font)"}, FaceRow{529, 0xBA, 19, "Courier (16Q)"},
        FaceRow{309, 0, 17, "Courier (9U)"}}) {
    SoftFont font(0);
    font.descriptor.symbolSet = row.symbolSet;
    font.AddBitmap('A', 120, 30, 24, 30);
    const MetricsView pfm = MetricsOf(font);
    EXPECT_EQ(pfm.U8(85), row.characterSet) << row.face;
    EXPECT_EQ(pfm.U16(pfm.DriverInfo() + 12), row.translationClass) << row.face;
    EXPECT_EQ(pfm.Face(), row.face);
  }
}

TEST_F(PclMetricsTest, OtherSymbolSetsGoByTheFontType) {
  for (const auto& [fontType, translationClass] :
       {std::pair<std::uint8_t, unsigned>{0, 16}, {1, 17}, {2, 17}}) {
    SoftFont font(0);
    font.descriptor.fontType = fontType;
    font.descriptor.symbolSet = 309;
    font.AddBitmap('A', 120, 30, 24, 30);
    const MetricsView pfm = MetricsOf(font);
    EXPECT_EQ(pfm.U16(pfm.DriverInfo() + 12), translationClass) << int{fontType};
  }
}

// With a table of widths the extension begins behind it, not where the way back looks for it: two
// widths make an offset that leads out of the file.
TEST_F(PclMetricsTest, KeepsRefusingTheWayBackFromAProportionalFont) {
  SoftFont font(0);
  font.descriptor.spacing = 1;
  for (unsigned code = 33; code < 127; ++code) font.AddBitmap(code, 100, 30, 20, 30);
  EXPECT_TRUE(MetricsOf(font).HasWidthTable());
  EXPECT_EQ(ZeFonConvert("out.pfm", "back.afm", nullptr, 0, 3), ZE_BAD_FORMAT);
}

TEST_F(PclMetricsTest, FaceOfANamelessTypefaceIsTheFontsName) {
  SoftFont font(0);
  font.descriptor.typeface = 28;
  font.descriptor.name = "My Own Font  ";
  font.AddBitmap('A', 120, 30, 24, 30);
  EXPECT_EQ(MetricsOf(font).Face(), "My Own Font (8U)");
  EXPECT_EQ(MetricsOf(font).U8(90), 0U);
}

TEST_F(PclMetricsTest, FaceIsCutToWhatWindowsTakes) {
  SoftFont font(0);
  font.descriptor.typeface = 138;  // "Symbol A Mono Sans Serif"
  font.descriptor.symbolSet = 53;
  font.AddBitmap('A', 120, 30, 24, 30);
  EXPECT_EQ(MetricsOf(font).Face(), "Symbol A Mono Sans S (US Legal)");
}

TEST_F(PclMetricsTest, StyleAndWeight) {
  SoftFont font(0);
  font.descriptor.style = 1;
  font.descriptor.strokeWeight = 3;
  font.Set8(12, 1);
  font.AddBitmap('A', 120, 30, 24, 30);
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.U8(80), 1U);
  EXPECT_EQ(pfm.U16(83), 700U);
  EXPECT_EQ(pfm.ExtendedField(4), 2);
}

TEST_F(PclMetricsTest, StoredNameAndSymbolSetFollowTheSelection) {
  SoftFont font = Proportional();
  const MetricsView plain = MetricsOf(font, 5);
  const MetricsView named = MetricsOf(font, 17);
  const std::size_t end = named.U32(named.DriverInfo() + 8) + named.Selection().size() + 1;
  EXPECT_EQ(named.Selection(), plain.Selection());
  // The height of the name is read with its bytes exchanged.
  EXPECT_EQ(named.Text(end), "Courier32008U   ");
  EXPECT_EQ(named.Text(end + 17), "8U");
  EXPECT_EQ(named.U32(2), plain.U32(2) + 17 + 3);
}

TEST_F(PclMetricsTest, CommandsMayBeJoinedAndStrayTextStandsBetween) {
  SoftFont font(0);
  font.descriptor.spacing = 1;
  font.AddRaw(
      "\r\nstray text \x1B*c1d65E\x1B"
      "E\x1B&p3X\x1B*c");
  font.AddBlock(Bytes("\4\0\16\1\0\0\0\2\0\36\0\10\0\1\0\100") + "\x1B");
  font.AddRaw("\x1B*c66e5F");
  font.AddBlock(Bytes("\4\0\16\1\0\0\0\2\0\36\0\10\0\1\0\140") + "\x1B");
  const MetricsView pfm = MetricsOf(font);
  EXPECT_EQ(pfm.Width('A'), 16U);
  EXPECT_EQ(pfm.Width('B'), 24U);
}

TEST_F(PclMetricsTest, ContinuationBlocksHaveNoMeasures) {
  SoftFont font(0);
  font.descriptor.spacing = 1;
  font.AddBitmap('A', 100, 30, 24, 30);
  font.AddBlock(Bytes("\4\1") + "more of the bits");
  EXPECT_EQ(MetricsOf(font).Width('A'), 25U);
}

TEST_F(PclMetricsTest, EndsWhereTheNextFontBegins) {
  SoftFont font(0);
  font.AddBitmap('A', 100, 30, 24, 30);
  SoftFont second(0);
  second.AddBitmap('Z', 100, 30, 24, 30);
  font.AddRaw(second.File());
  EXPECT_EQ(MetricsOf(font).U8(96), 'A');
}

TEST_F(PclMetricsTest, RefusesAFontWithoutCharacters) {
  EXPECT_EQ(Convert(SoftFont(0).File()), ZE_BAD_FORMAT);
  SoftFont font(0);
  font.descriptor.symbolSet = 21;  // ASCII
  font.AddBitmap(200, 100, 30, 24, 30);
  EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT);
}

TEST_F(PclMetricsTest, RefusesAHeaderThatItsCommandCutsShort) {
  SoftFont font(20);
  font.AddBitmap('A', 100, 30, 24, 30);
  std::string file = font.File();
  ASSERT_EQ(file.substr(0, 6), "\x1B)s68W");
  EXPECT_EQ(Convert(file), ZE_OK);
  EXPECT_EQ(Convert(file.replace(3, 2, "67")), ZE_BAD_FORMAT);
  EXPECT_EQ(Convert(file.replace(3, 2, "6x")), ZE_BAD_FORMAT);
}

TEST_F(PclMetricsTest, RefusesScalableFontsWithoutTheirNumbers) {
  for (const std::uint8_t format : kScalableFormats) {
    SoftFont font(format);
    font.header.replace(0, 2, Be16(0));
    font.AddOutline('A', 0, 100);
    EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT) << int{format};
  }
  SoftFont font(15);
  font.header += "GT" + Be16(2) + "xx" + Be16(0xFFFF) + Be16(0) + Bytes("\0\0");
  font.AddGlyph('A', 0);
  EXPECT_EQ(Convert(font.File()), ZE_BAD_FORMAT);
}

// Whole until the last character's block is; shorter files lack it.
TEST_F(PclMetricsTest, RefusesEveryBeginningUpToTheFirstCharacter) {
  for (const std::uint8_t format : kFormats) {
    SoftFont font(format);
    if (format == 15) {
      font.AddGlyph('A', 1);
    } else if (format == 10 || format == 11) {
      font.AddOutline('A', 0, 500);
    } else if (format == 0 || format == 20) {
      font.AddBitmap('A', 100, 2, 8, 2);
    } else {
      font.AddOld('A', format);
    }
    const std::string file = font.File();
    ASSERT_EQ(Convert(file), ZE_OK) << int{format};
    for (std::size_t length = 0; length < file.size(); ++length)
      ASSERT_EQ(Convert(file.substr(0, length)), ZE_BAD_FORMAT) << int{format} << " " << length;
  }
}

TEST_F(PclMetricsTest, CharactersThatReachOutOfTheirBlockAreRefused) {
  SoftFont bitmap(0);
  bitmap.AddRaw("\x1B*c65E");
  bitmap.AddBlock(Bytes("\4\0\16\1\0\0\0\2\0\36\0\10\0\1\0"));
  EXPECT_EQ(Convert(bitmap.File()), ZE_BAD_FORMAT);
  SoftFont outline(10);
  outline.AddRaw("\x1B*c65E");
  outline.AddBlock(Bytes("\12\0\2\3\0\36\177\377\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"));
  EXPECT_EQ(Convert(outline.File()), ZE_BAD_FORMAT);
  SoftFont glyph(15);
  glyph.AddRaw("\x1B*c65E");
  glyph.AddBlock(Bytes("\17\0\377\17\0\4\0\1\0\0"));
  EXPECT_EQ(Convert(glyph.File()), ZE_BAD_FORMAT);
}

TEST_F(PclMetricsTest, NumbersOfCharacters) {
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kRoman8, 0xE9), 0xC5);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kRoman8, 0xA9), -1);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kRoman8, 'A'), 'A');
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kRoman8, 127), -1);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kAscii, 126), 126);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kAscii, 128), -1);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kLatin1, 0xE9), 0xE9);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kLatin1, 0x95), -1);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kSevenBit, 3), 3);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kSevenBit, 128), -1);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kEightBit, 255), 255);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kMasterSymbolList, 'A'), 34);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kMasterSymbolList, ' '), -1);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kUnicode, 0x99), 0x2122);
  EXPECT_EQ(NumberOfCharacter(CharacterNumbers::kUnicode, 0x81), -1);
  EXPECT_EQ(NumbersOfFont(10, 17), CharacterNumbers::kMasterSymbolList);
  EXPECT_EQ(NumbersOfFont(11, 1), CharacterNumbers::kUnicode);
  EXPECT_EQ(NumbersOfFont(1, 19), CharacterNumbers::kEightBit);
}

}  // namespace
}  // namespace zeapi::testing
