// Typefaces, symbol sets and weights as Windows metrics name them.
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <sstream>
#include <string>

#include "fonts/typeface_table.h"
#include "fonts/windows_metrics_codes.h"

namespace zeapi::testing {
namespace {

constexpr char kTypefaces[] =
    "0=M,LinePrinter\n"
    "1=M,Pica\n"
    "2=M,Elite\n"
    "3=M,Courier\n"
    "4=W,Helv\n"
    "5=R,Tms Rmn\n"
    "6=M,Letter Gothic\n"
    "7=S,Script\n"
    "8=M,Prestige Elite\n"
    "9=R,Caslon\n"
    "10=M,Orator\n"
    "11=M,Presentations\n"
    "12=W,Helv Condensed\n"
    "13=R,Serifa\n"
    "14=W,Futura\n"
    "15=R,Palatino\n"
    "16=R,ITC Souvenir\n"
    "17=W,Optima\n"
    "18=R,ITC Garamond\n"
    "19=D,Cooper Black\n"
    "20=S,Coronet\n"
    "21=D,Broadway\n"
    "22=R,Bodoni Condensed\n"
    "23=R,Century Schoolbook\n"
    "24=D,University Roman\n"
    "25=W,Helv Outline\n"
    "26=W,Futura Condensed\n"
    "27=R,ITC Korinna\n"
    "29=D,Cloister Black\n"
    "30=R,ITC Galliard\n"
    "31=W,ITC Avant Garde\n"
    "32=S,Brush Script\n"
    "33=W,Blippo\n"
    "34=D,Hobo\n"
    "35=R,Windsor\n"
    "36=W,Helv Compressed\n"
    "37=W,Helv Extra Comp\n"
    "38=W,Peignot\n"
    "39=R,Baskerville\n"
    "40=R,ITC Garamond Cond\n"
    "41=W,News Gothic\n"
    "42=R,Goudy\n"
    "43=S,ITC Zapf Chancery\n"
    "44=R,Clarendon\n"
    "45=D,ITC Zapf Dingbats\n"
    "46=R,Bitstream Cooper\n"
    "47=R,ITC Bookman\n"
    "51=W,Gill Sans\n"
    "52=W,Univers\n"
    "53=R,Bodoni\n"
    "54=R,Rockwell\n"
    "55=R,Melior\n"
    "56=R,ITC Tiffany\n"
    "57=R,ITC Clearface\n"
    "58=D,Amelia\n"
    "59=S,Park Avenue\n"
    "60=D,Handel Gothic\n"
    "61=D,Dom Casual\n"
    "62=R,ITC Benguiat\n"
    "63=R,ITC Cheltenham\n"
    "64=R,Century Expanded\n"
    "65=W,Franklin Gothic\n"
    "66=W,Franklin Gothic Condensed\n"
    "67=W,Franklin Gothic Ex Cond\n"
    "68=R,Plantin\n"
    "69=R,Trump Mediaeval\n"
    "70=D,Futura Black\n"
    "73=W,Uncial\n"
    "78=R,ITC Lubalin Graph\n"
    "79=W,Eurostile\n"
    "85=W,Univers Cond\n"
    "136=R,Bitstream Charter\n"
    "137=R,Symbol A Prop Serif\n"
    "138=M,Symbol A Mono Sans Serif\n"
    "139=R,Bitstream Amerigo\n";

TEST(TypefaceFace, KeepsEveryEntryAndNoOther) {
  const std::map<char, FontFamily> families = {{'D', kFamilyDecorative},
                                               {'M', kFamilyModern},
                                               {'R', kFamilyRoman},
                                               {'S', kFamilyScript},
                                               {'W', kFamilySwiss}};
  std::map<unsigned, std::string> entries;
  std::istringstream rows(kTypefaces);
  for (std::string row; std::getline(rows, row);) {
    const std::size_t equals = row.find('=');
    entries[static_cast<unsigned>(std::stoi(row))] = row.substr(equals + 1);
  }
  EXPECT_EQ(entries.size(), 75U);
  for (unsigned number = 0; number < 512; ++number) {
    char face[64] = "rubbish";
    const FontFamily family = TypefaceFace(number, face, sizeof(face));
    const auto entry = entries.find(number);
    EXPECT_EQ(face, entry == entries.end() ? "" : entry->second.substr(2)) << number;
    EXPECT_EQ(family, entry == entries.end() ? kFamilyDontCare : families.at(entry->second[0]))
        << number;
  }
}

TEST(TypefaceFace, FamiliesAreThoseOfWindows) {
  char face[32];
  EXPECT_EQ(int{TypefaceFace(19, face, sizeof(face))}, 0x50);
  EXPECT_EQ(int{TypefaceFace(3, face, sizeof(face))}, 0x30);
  EXPECT_EQ(int{TypefaceFace(5, face, sizeof(face))}, 0x10);
  EXPECT_EQ(int{TypefaceFace(20, face, sizeof(face))}, 0x40);
  EXPECT_EQ(int{TypefaceFace(4, face, sizeof(face))}, 0x20);
}

TEST(TypefaceFace, NumberWithoutAnEntryHasNoNameAndNoFamily) {
  for (const unsigned number : {28U, 140U, 511U}) {
    char face[8] = "rubbish";
    EXPECT_EQ(TypefaceFace(number, face, sizeof(face)), kFamilyDontCare);
    EXPECT_STREQ(face, "");
  }
}

TEST(TypefaceFace, FaceIsCutToTheBuffer) {
  char face[8];
  EXPECT_EQ(TypefaceFace(0, face, sizeof(face)), kFamilyModern);
  EXPECT_STREQ(face, "LinePri");
  char one[1] = {'x'};
  TypefaceFace(0, one, sizeof(one));
  EXPECT_EQ(one[0], '\0');
}

struct SymbolSetRow {
  std::uint16_t value;
  int characterSet;
  int translationClass;
  const char* suffix;
};

class WindowsSymbolSetTest : public ::testing::TestWithParam<SymbolSetRow> {};

TEST_P(WindowsSymbolSetTest, IsTheSameForEveryFontType) {
  for (const std::uint8_t fontType : std::initializer_list<std::uint8_t>{0, 1, 2}) {
    const WindowsSymbolSet set = WindowsSymbolSetOf(GetParam().value, fontType);
    EXPECT_EQ(set.characterSet, GetParam().characterSet);
    EXPECT_EQ(set.translationClass, GetParam().translationClass);
    EXPECT_STREQ(set.faceSuffix, GetParam().suffix);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WindowsSymbolSetTest,
    ::testing::Values(SymbolSetRow{2, 0xB6, 16, "(LineDraw)"}, SymbolSetRow{14, 0, 18, ""},
                      SymbolSetRow{21, 0, 4, ""}, SymbolSetRow{53, 0xB9, 16, "(US Legal)"},
                      SymbolSetRow{145, 0xB7, 16, "(PC Line)"},
                      SymbolSetRow{269, 0xB4, 17, "(Math8)"}, SymbolSetRow{277, 0, 1, ""},
                      SymbolSetRow{369, 0, 18, ""}, SymbolSetRow{501, 0xB5, 17, "(PI Font)"},
                      SymbolSetRow{529, 0xBA, 19, ""}));

TEST(WindowsSymbolSet, OthersGoByTheFontType) {
  for (const std::uint16_t value : std::initializer_list<std::uint16_t>{0, 1, 276, 278, 0xFFFF}) {
    EXPECT_EQ(WindowsSymbolSetOf(value, 0).translationClass, 16);
    EXPECT_EQ(WindowsSymbolSetOf(value, 1).translationClass, 17);
    EXPECT_EQ(WindowsSymbolSetOf(value, 10).translationClass, 17);
    EXPECT_EQ(WindowsSymbolSetOf(value, 0).characterSet, 0);
    EXPECT_STREQ(WindowsSymbolSetOf(value, 0).faceSuffix, "");
  }
}

TEST(WindowsWeight, FollowsTheStrokeWeight) {
  constexpr int kWeights[] = {100, 100, 200, 200, 300, 300, 400, 400,
                              500, 600, 700, 700, 800, 800, 900};
  for (int stroke = -128; stroke < 128; ++stroke) {
    const int expected = stroke >= -7 && stroke <= 7 ? kWeights[stroke + 7] : 0;
    EXPECT_EQ(WindowsWeight(static_cast<std::int8_t>(stroke)), expected) << stroke;
  }
}

}  // namespace
}  // namespace zeapi::testing
