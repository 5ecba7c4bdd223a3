// Texts by which PCL soft fonts are named.
#include "fonts/pcl_naming.h"

#include <algorithm>
#include <initializer_list>
#include <sstream>

#include "fonts/round_tenths.h"
#include "fonts/symbol_set_names.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

PclRawDescriptor Raw(const PclFontFile& font) {
  PclRawDescriptor raw;
  const std::string bytes = font.Descriptor();
  std::copy(bytes.begin(), bytes.end(), raw.begin());
  return raw;
}

PclDescriptor Parsed(const PclFontFile& font) { return ParsePclDescriptor(Raw(font)); }

ZeFontInfo Described(const PclFontFile& font, std::uint32_t format, std::uint16_t yResolution = 0) {
  ZeFontInfo info = {};
  info.format = format;
  info.yResolution = yResolution;
  DescribePclFont(Parsed(font), &info);
  return info;
}

// --- Rounding

struct Rounding {
  double value;
  std::uint32_t whole;
  std::uint32_t tenth;
};

class RoundTenthsTest : public ::testing::TestWithParam<Rounding> {};

TEST_P(RoundTenthsTest, GivesBothNumbers) {
  const Tenths tenths = RoundTenths(GetParam().value);
  EXPECT_EQ(tenths.whole, GetParam().whole);
  EXPECT_EQ(tenths.tenth, GetParam().tenth);
}

INSTANTIATE_TEST_SUITE_P(Exact, RoundTenthsTest,
                         ::testing::Values(Rounding{0, 0, 0}, Rounding{12.0, 12, 0},
                                           Rounding{10.25, 10, 3}, Rounding{10.2, 10, 2},
                                           Rounding{16.67, 17, 4294967293U},  // -3.3
                                           Rounding{0.04, 0, 0}, Rounding{0.05, 0, 1},
                                           Rounding{72000, 72000, 0}));

// A fraction of one half or more gives a negative tenth that wraps around; callers know these
// texts.
INSTANTIATE_TEST_SUITE_P(KeepsWrappedTenths, RoundTenthsTest,
                         ::testing::Values(Rounding{10.6, 11, 4294967292U},
                                           Rounding{10.5, 11, 4294967291U},
                                           Rounding{10.75, 11, 4294967294U},  // -2.5
                                           Rounding{9.96, 10, 0}));

#if defined(__i386__) || defined(__x86_64__)
// Graphics libraries leave the old floating-point unit at single precision; that must not matter.
TEST(RoundTenths, IsTheSameAtEveryPrecisionOfTheFloatingPointUnit) {
  std::uint16_t before;
  __asm__ __volatile__("fnstcw %0" : "=m"(before));
  for (const unsigned precision : {0x000U, 0x200U, 0x300U}) {
    const auto control = static_cast<std::uint16_t>((before & ~0x300U) | precision);
    __asm__ __volatile__("fldcw %0" : : "m"(control));
    volatile double value = 10.6;
    const Tenths tenths = RoundTenths(value);
    PclFontFile font;
    font.height = 53;
    const ZeFontInfo info = Described(font, 8, 90);
    __asm__ __volatile__("fldcw %0" : : "m"(before));
    EXPECT_EQ(tenths.whole, 11U);
    EXPECT_EQ(tenths.tenth, 4294967292U) << precision;
    EXPECT_STREQ(info.description, "Courier  Bd [11.4294967292 Pt.] (Roman-8)") << precision;
  }
}
#endif

// --- Symbol sets

TEST(SymbolSetCode, IsTheNumberAndTheLetter) {
  EXPECT_STREQ(SymbolSetCode(277).text, "8U");
  EXPECT_STREQ(SymbolSetCode(2).text, "0B");
  EXPECT_STREQ(SymbolSetCode(369).text, "11Q");
  EXPECT_STREQ(SymbolSetCode(0).text, "0@");
  EXPECT_STREQ(SymbolSetCode(0xFFFF).text, "2047_");
}

constexpr char kSymbolSetNames[] =
    "7J=DeskTop\n"
    "0N=ISO 8859-1 Latin 1\n"
    "1E=ISO  4: United Kingdom\n"
    "0U=ISO  6: ASCII\n"
    "3S=ISO 10: Swedish\n"
    "0S=ISO 11: Swedish Names\n"
    "0K=ISO 14: JIS ASCII\n"
    "0I=ISO 15: Italian\n"
    "4S=ISO 16: Portugese\n"
    "2S=ISO 17: Spanish\n"
    "1G=ISO 21: German\n"
    "0F=ISO 25: French\n"
    "2K=ISO 57: Chinese\n"
    "0D=ISO 60: Norwegian v1\n"
    "1D=ISO 61: Norwegian v2\n"
    "1F=ISO 69: French\n"
    "5S=ISO 84: Portugese\n"
    "6S=ISO 85: Spanish\n"
    "1U=Legal\n"
    "8M=Math-8\n"
    "10U=PC-8\n"
    "11U=PC-8 D/N\n"
    "9T=PC-8 Turkish\n"
    "12U=PC-850\n"
    "17U=PC-852\n"
    "10L=PS ITC Zapf Dingbats\n"
    "5M=PS Math\n"
    "10J=PS Text\n"
    "8U=Roman-8\n"
    "9U=Windows 3.0 Latin 1\n"
    "19U=Windows 3.1 Latin 1\n"
    "9E=Windows 3.1 Latin 2\n"
    "5T=Windows 3.1 Latin 5\n"
    "0G=German\n"
    "1S=Spanish\n"
    "16Q=Ink Jet\n"
    "2U=ISO  2: International Ref.\n"
    "2N=ISO 8859-2 Latin 2\n"
    "5N=ISO 8859-9 Latin 5\n"
    "11L=ITC Zapf Dingbats S100\n"
    "12L=ITC Zapf Dingbats S200\n"
    "13L=ITC Zapf Dingbats S300\n"
    "0B=Line Draw-7\n"
    "0L=Line Draw-7\n"
    "8L=Line Draw-8\n"
    "12J=MC Text\n"
    "6J=Microsoft Publishing\n"
    "15U=Pi Font\n"
    "22R=Postscript\n"
    "0E=Roman Extensions\n"
    "19M=Symbol\n"
    "13J=Ventura International\n"
    "9L=Ventura ITC Zapf Dingbats\n"
    "6M=Ventura Math\n"
    "14J=Ventura US\n"
    "19L=Windows Baltic\n"
    "9G=Windows Greek\n"
    "9R=Windows Cyrillic\n"
    "9H=Windows Hebrew\n"
    "9V=Windows Arabic\n"
    "579L=Wingdings\n";

TEST(SymbolSetName, KeepsEveryRowAsItStands) {
  std::istringstream rows(kSymbolSetNames);
  int count = 0;
  for (std::string row; std::getline(rows, row); ++count) {
    const std::size_t equals = row.find('=');
    EXPECT_EQ(SymbolSetName(row.substr(0, equals)), row.substr(equals + 1));
  }
  EXPECT_EQ(count, 61);
}

TEST(SymbolSetName, KeepsOneNameForTwoSets) {
  EXPECT_EQ(SymbolSetName("0L"), "Line Draw-7");
  EXPECT_EQ(SymbolSetName("0B"), "Line Draw-7");
}

TEST(SymbolSetName, ComparesExactly) {
  for (const char* code : {"7U", "8u", "8", "8U ", "", "08U"}) {
    EXPECT_EQ(SymbolSetName(code), "") << code;
  }
}

// --- Style

TEST(StyleSuffix, WeightCodes) {
  constexpr const char* kCodes[] = {"Ut", "Et", "Tn", "Xl", "Lt", "Dl", "Sl", "",
                                    "Sb", "Db", "Bd", "Xb", "Bk", "Ek", "Uk"};
  PclFontFile font;
  for (int weight = -128; weight < 128; ++weight) {
    font.strokeWeight = static_cast<std::int8_t>(weight);
    const char* expected = weight >= -7 && weight <= 7 ? kCodes[weight + 7] : "";
    EXPECT_STREQ(StyleSuffix(Parsed(font)).text, expected) << weight;
  }
}

TEST(StyleSuffix, PostureFollowsTheWeight) {
  PclFontFile font;
  constexpr const char* kCodes[] = {"Bd", "BdIt", "BdAl", "Bd"};
  for (std::uint16_t posture = 0; posture < 4; ++posture) {
    font.style = static_cast<std::uint16_t>(0xFFFC | posture);
    EXPECT_STREQ(StyleSuffix(Parsed(font)).text, kCodes[posture]);
  }
  font.strokeWeight = 0;
  font.style = 1;
  EXPECT_STREQ(StyleSuffix(Parsed(font)).text, "It");
}

TEST(StyleSuffix, NameThatSaysItalicNeedsNoPosture) {
  PclFontFile font;
  font.style = 1;
  font.name = "Courier Italic";
  EXPECT_STREQ(StyleSuffix(Parsed(font)).text, "Bd");
  font.name = "0123456789Italic";
  EXPECT_STREQ(StyleSuffix(Parsed(font)).text, "Bd");
  font.name = std::string("Cour\0Italic", 11);
  EXPECT_STREQ(StyleSuffix(Parsed(font)).text, "Bd");
  font.name = "Courier italic";
  EXPECT_STREQ(StyleSuffix(Parsed(font)).text, "BdIt");
  font.style = 2;
  font.name = "Courier Italic";
  EXPECT_STREQ(StyleSuffix(Parsed(font)).text, "BdAl");
}

// --- Description

TEST(DescribePclFont, BoldBitmap) {
  EXPECT_STREQ(Described({}, 9).description, "Courier  Bd [12.0 Pt.] (Roman-8)");
}

TEST(DescribePclFont, BitmapNameIsCutTo13CharactersAndNotTrimmed) {
  PclFontFile font;
  font.name = "Letter Gothic 12";
  EXPECT_STREQ(Described(font, 9).description, "Letter Gothic  Bd [12.0 Pt.] (Roman-8)");
  font.name = "Pica            ";
  EXPECT_STREQ(Described(font, 9).description, "Pica           Bd [12.0 Pt.] (Roman-8)");
  font.name = "";
  EXPECT_STREQ(Described(font, 9).description, "  Bd [12.0 Pt.] (Roman-8)");
}

TEST(DescribePclFont, SuffixTakesFourColumns) {
  PclFontFile font;
  font.strokeWeight = 0;
  EXPECT_STREQ(Described(font, 9).description, "Courier     [12.0 Pt.] (Roman-8)");
  font.strokeWeight = 3;
  font.style = 1;
  EXPECT_STREQ(Described(font, 9).description, "CourierBdIt [12.0 Pt.] (Roman-8)");
}

TEST(DescribePclFont, PointSizes) {
  PclFontFile font;
  font.height = 100;
  EXPECT_STREQ(Described(font, 9).description, "Courier  Bd [ 6.0 Pt.] (Roman-8)");
  EXPECT_STREQ(Described(font, 11).description, "Courier  Bd [ 6.0 Pt.] (Roman-8)");
  EXPECT_STREQ(Described(font, 8, 600).description, "Courier  Bd [ 3.0 Pt.] (Roman-8)");
  EXPECT_STREQ(Described(font, 9, 600).description, "Courier  Bd [ 6.0 Pt.] (Roman-8)");
  font.height = 137;  // 8.22
  EXPECT_STREQ(Described(font, 9).description, "Courier  Bd [ 8.2 Pt.] (Roman-8)");
  font.height = 0;
  EXPECT_STREQ(Described(font, 9).description, "Courier  Bd [ 0.0 Pt.] (Roman-8)");
}

TEST(DescribePclFont, LargestBitmapIsDescribedWhole) {
  PclFontFile font;
  font.name = "Letter Gothic 12";
  font.style = 1;
  font.height = 0xFFFF;
  font.symbolSet = 2 * 32 + 21;  // 2U, the longest name
  font.typeface = 0;
  EXPECT_STREQ(Described(font, 9).description,
               "Letter GothicBdIt [3932.1 Pt.] (ISO  2: International Ref.) *TF:0");
  EXPECT_STREQ(Described(font, 8, 1).description,
               "Letter GothicBdIt [1179630.0 Pt.] (ISO  2: International Ref.)");
}

TEST(DescribePclFont, ScalableNameIsPaddedTo17Characters) {
  PclFontFile font;
  font.name = "CG Times";
  for (const std::uint32_t format : {17U, 18U, 20U}) {
    EXPECT_STREQ(Described(font, format).description, "CG Times          [Outline]  (Roman-8)");
  }
  font.name = "0123456789abcdef";
  EXPECT_STREQ(Described(font, 17).description, "0123456789abcdef  [Outline]  (Roman-8)");
  font.name = Bytes("CG\0Times");
  EXPECT_STREQ(Described(font, 17).description, "CG Times          [Outline]  (Roman-8)");
}

TEST(DescribePclFont, UnboundFontsHaveNoSymbolSet) {
  PclFontFile font;
  for (const std::uint8_t type : std::initializer_list<std::uint8_t>{10, 11}) {
    font.fontType = type;
    ZeFontInfo info = Described(font, 18);
    EXPECT_STREQ(info.description, "Courier           [Outline]  (unbound)");
    EXPECT_STREQ(info.symbolSet, "");
    EXPECT_STREQ(Described(font, 9).description, "Courier  Bd [12.0 Pt.] (unbound)");
  }
}

TEST(DescribePclFont, SymbolSetWithoutANameShowsItsCode) {
  PclFontFile font;
  font.symbolSet = 7 * 32 + 21;
  const ZeFontInfo info = Described(font, 9);
  EXPECT_STREQ(info.description, "Courier  Bd [12.0 Pt.] (7U)");
  EXPECT_STREQ(info.symbolSet, "7U");
}

TEST(DescribePclFont, BitmapWithoutATypefaceIsMarked) {
  PclFontFile font;
  font.typeface = 0xFE00;  // the number is in bits 0 to 8
  for (const std::uint32_t format : {9U, 13U, 15U}) {
    EXPECT_STREQ(Described(font, format).description, "Courier  Bd [12.0 Pt.] (Roman-8) *TF:0");
  }
  EXPECT_STREQ(Described(font, 8, 300).description, "Courier  Bd [12.0 Pt.] (Roman-8)");
  EXPECT_STREQ(Described(font, 11).description, "Courier  Bd [12.0 Pt.] (Roman-8)");
  EXPECT_STREQ(Described(font, 17).description, "Courier           [Outline]  (Roman-8)");
  font.typeface = 0x0100;
  EXPECT_STREQ(Described(font, 9).description, "Courier  Bd [12.0 Pt.] (Roman-8)");
}

TEST(DescribePclFont, LinePrinterIsNotMarked) {
  PclFontFile font;
  font.typeface = 0;
  font.name = "Line Printer";
  EXPECT_STREQ(Described(font, 9).description, "Line Printer  Bd [12.0 Pt.] (Roman-8)");
  font.name = "Line Printer 2";
  EXPECT_STREQ(Described(font, 9).description, "Line Printer   Bd [12.0 Pt.] (Roman-8)");
  font.name = "Line printer";
  EXPECT_STREQ(Described(font, 9).description, "Line printer  Bd [12.0 Pt.] (Roman-8) *TF:0");
  font.name = "LinePrinter";
  EXPECT_STREQ(Described(font, 9).description, "LinePrinter  Bd [12.0 Pt.] (Roman-8) *TF:0");
}

TEST(DescribePclFont, DetailNamesVendorTypefaceAndNumber) {
  PclFontFile font;
  font.typeface = 0x5ABC;
  font.vendorLetter = 'M';
  font.fontNumber = 0x123456;
  EXPECT_STREQ(Described(font, 9).detail, "Ven:5  Typ:2748  Fon:M1193046");
  EXPECT_STREQ(Described(font, 20).detail, "Ven:5  Typ:2748  Fon:M1193046");
  font.typeface = 0xFFFF;
  font.vendorLetter = 0x80 | 'B';  // the top bit says that the font was converted
  font.fontNumber = 0xFFFFFF;
  EXPECT_STREQ(Described(font, 9).detail, "Ven:15  Typ:4095  Fon:B16777215");
  font.vendorLetter = 0x80;
  font.fontNumber = 0;
  EXPECT_STREQ(Described(font, 9).detail, "Ven:15  Typ:4095  Fon:?0");
}

// --- Short names

TEST(ShortFontName, BitmapHasHeightStyleAndSymbolSet) {
  PclFontFile font;
  font.height = 0x00C8;  // exchanged 0xC800, shifted 3200
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "Courier3200Bd8U ");
}

TEST(ShortFontName, KeepsTheExchangedHeight) {
  PclFontFile font;
  font.name = "Pica";
  font.strokeWeight = 0;
  font.height = 0x3412;
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "Pica2918U       ");  // 0x1234 >> 4 = 291
}

TEST(ShortFontName, ScalableFontHasTheSymbolSetAlone) {
  PclFontFile font;
  font.name = "CG Times        ";
  for (const std::uint8_t format : std::initializer_list<std::uint8_t>{10, 11, 15}) {
    font.headerFormat = format;
    EXPECT_STREQ(ShortFontName(Raw(font)).text, "CG Times8U      ");
  }
  font.headerFormat = 20;
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "CG Times3200Bd8U");
}

TEST(ShortFontName, DropsPunctuationFromTheLeftAsFarAsNeeded) {
  PclFontFile font;
  font.headerFormat = 10;
  font.name = "A B,C.D:E;F GHIJ";  // 18 with the symbol set
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "ABC.D:E;F GHIJ8U");
}

TEST(ShortFontName, ThenDropsVowels) {
  PclFontFile font;
  font.headerFormat = 10;
  font.name = "BaeiouyCDEFGHIJK";
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "BiouyCDEFGHIJK8U");
  font.name = "Ba CaeDFGHJKLMNP";  // one blank and one vowel
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "BCaeDFGHJKLMNP8U");
}

TEST(ShortFontName, ThenIsCut) {
  PclFontFile font;
  font.name = "ABCDEFGHJKLMNPQR";
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "ABCDEFGHJKLMNPQR");
  font.name = "AEIOUYABCDEFGHIJ";  // capital vowels stay
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "AEIOUYABCDEFGHIJ");
}

TEST(ShortFontName, EndsAtAZeroByteAndKeepsInnerBlanks) {
  PclFontFile font;
  font.headerFormat = 10;
  font.name = Bytes("A B  \0xyz");
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "A B8U           ");
  font.name = "                ";
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "8U              ");
}

TEST(ShortFontName, LongestPossibleParts) {
  PclFontFile font;
  font.name = "abcdefghijklmnop";
  font.height = 0xFFFF;
  font.style = 1;
  font.symbolSet = 0xFFFF;
  EXPECT_STREQ(ShortFontName(Raw(font)).text, "bcdfghjklmnp4095");
}

// --- Selection

TEST(PclSelectionString, FixedPitch) {
  PclFontFile font;
  font.strokeWeight = 0;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s0p12.00v10.00h0s0b4099T");
}

TEST(PclSelectionString, ProportionalFontsHaveNoPitch) {
  PclFontFile font;
  font.spacing = 1;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s1p12.00v0s3b4099T");
  font.spacing = 2;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s2p12.00v0s3b4099T");
}

TEST(PclSelectionString, StyleWordWeightAndTypeface) {
  PclFontFile font;
  font.spacing = 1;
  font.style = 0x1234;
  font.strokeWeight = -7;
  font.typeface = 0xFEDC;
  font.symbolSet = 19 * 32 + 21;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(19U\x1B(s1p12.00v4660s-7b65244T");
}

TEST(PclSelectionString, HundredthsOfTheSizeAreRaisedToTheNextTen) {
  PclFontFile font;
  font.spacing = 1;
  font.height = 141;  // 8.46
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s1p8.50v0s3b4099T");
  font.height = 175;  // 10.50 stays
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s1p10.50v0s3b4099T");
  font.height = 166;
  font.heightExtended = 170;  // 9.99
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s1p9.100v0s3b4099T");
}

TEST(PclSelectionString, KeepsThreeDigitsFor12Point95) {
  PclFontFile font;
  font.spacing = 1;
  font.height = 215;
  font.heightExtended = 214;  // 55254 * 72 / 3072 = 1295
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s1p12.100v0s3b4099T");
}

TEST(PclSelectionString, PitchUsesItsExtendedByte) {
  PclFontFile font;
  font.pitch = 70;
  font.pitchExtended = 150;  // 17 characters an inch
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s0p12.00v17.00h0s3b4099T");
  font.pitch = 71;
  font.pitchExtended = 0;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s0p12.00v16.90h0s3b4099T");
}

TEST(PclSelectionString, FontWithoutAPitchSelectsNone) {
  PclFontFile font;
  font.pitch = 0;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text, "\x1B(8U\x1B(s0p12.00v0s3b4099T");
}

TEST(PclSelectionString, LargestValues) {
  PclFontFile font;
  font.symbolSet = 0xFFFF;
  font.height = 0xFFFF;
  font.heightExtended = 0xFF;
  font.pitch = 0;
  font.pitchExtended = 1;
  font.style = 0xFFFF;
  font.strokeWeight = -128;
  font.typeface = 0xFFFF;
  EXPECT_BYTES(PclSelectionString(Parsed(font)).text,
               "\x1B(2047_\x1B(s0p3932.20v307200.00h65535s-128b65535T");
}

}  // namespace
}  // namespace zeapi::testing
