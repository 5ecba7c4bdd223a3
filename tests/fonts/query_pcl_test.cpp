// PCL soft fonts as ZeFonQueryInfo tells them, and the diagnostic dump.
#include "fonts/pcl_font.h"

#include <algorithm>
#include <cstdlib>

#include "support/byte_order.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr char kPath[] = "font.sfp";

class QueryPclTest : public FontTest {
 protected:
  std::uint32_t QueryFont(const PclFontFile& font) {
    WriteFile(kPath, font.File());
    return Query(kPath);
  }

  static std::string Dump() {
    std::string text = ReadFile(DumpFile());
    std::erase(text, '\r');
    return text;
  }
};

TEST_F(QueryPclTest, BitmapFillsTheRecord) {
  PclFontFile font;
  font.rest = "bitmap data";
  ASSERT_EQ(QueryFont(font), ZE_OK);
  EXPECT_EQ(info.flags, 0x03U);
  EXPECT_EQ(info.kind, 3U);
  EXPECT_EQ(info.format, 9U);
  EXPECT_EQ(info.xResolution, 0);
  EXPECT_EQ(info.yResolution, 0);
  EXPECT_EQ(info.fileSize, font.File().size());
  EXPECT_EQ(info.printerMemory, font.File().size() + 320);
  EXPECT_STREQ(info.description, "Courier  Bd [12.0 Pt.] (Roman-8)");
  EXPECT_STREQ(info.detail, "Ven:1  Typ:3  Fon:?0");
  EXPECT_STREQ(info.symbolSet, "8U");
  EXPECT_STREQ(info.companionFile, "");
  EXPECT_STREQ(info.metricsFile, "");
  EXPECT_TRUE(info.cartridge == nullptr);
}

struct LayoutRow {
  std::uint8_t headerFormat;
  std::uint16_t size;
  std::uint32_t format;
  std::uint32_t flags;
  int descriptorClass;
};

class PclLayoutTest : public FontTest, public ::testing::WithParamInterface<LayoutRow> {};

TEST_P(PclLayoutTest, HasItsFormatFlagsAndClass) {
  PclFontFile font;
  font.headerFormat = GetParam().headerFormat;
  font.size = GetParam().size;
  font.rest = Be16(600) + Be16(300);
  WriteFile(kPath, font.File());
  ASSERT_EQ(Query(kPath), ZE_OK);
  EXPECT_EQ(info.format, GetParam().format);
  EXPECT_EQ(info.flags, GetParam().flags);
  EXPECT_EQ(LastPclDescriptorClass(), GetParam().descriptorClass);
}

// Only this size goes with the format.
TEST_P(PclLayoutTest, IsRefusedWithTheSizeOfNoFormat) {
  PclFontFile font;
  font.headerFormat = GetParam().headerFormat;
  font.rest = Be16(600) + Be16(300);
  for (const int change : {-1, 1, 256}) {
    font.size = static_cast<std::uint16_t>(GetParam().size + change);
    WriteFile(kPath, font.File());
    EXPECT_EQ(Query(kPath), ZE_BAD_FORMAT) << font.size;
    EXPECT_TRUE(OnlyScreened());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, PclLayoutTest,
    ::testing::Values(LayoutRow{0, 64, 9, 0x03, 0}, LayoutRow{5, 72, 11, 0x03, 1},
                      LayoutRow{5, 74, 11, 0x03, 1}, LayoutRow{5, 92, 11, 0x03, 1},
                      LayoutRow{9, 72, 11, 0x03, 2}, LayoutRow{9, 74, 11, 0x03, 2},
                      LayoutRow{9, 92, 11, 0x03, 2}, LayoutRow{12, 72, 11, 0x03, 2},
                      LayoutRow{12, 74, 11, 0x03, 2}, LayoutRow{12, 92, 11, 0x03, 2},
                      LayoutRow{10, 80, 17, 0x2B, 4}, LayoutRow{11, 88, 18, 0x2B, 4},
                      LayoutRow{15, 72, 20, 0x2B, 4}, LayoutRow{20, 68, 8, 0x03, 4}));

TEST_F(QueryPclTest, SizeOfAnotherFormatIsRefused) {
  PclFontFile font;
  font.size = 80;
  EXPECT_EQ(QueryFont(font), ZE_BAD_FORMAT);
  font.headerFormat = 10;
  font.size = 64;
  EXPECT_EQ(QueryFont(font), ZE_BAD_FORMAT);
}

TEST_F(QueryPclTest, UnknownHeaderFormatsAreRefused) {
  PclFontFile font;
  for (const int format : {1, 6, 7, 13, 16, 255}) {
    font.headerFormat = static_cast<std::uint8_t>(format);
    EXPECT_EQ(QueryFont(font), ZE_BAD_FORMAT) << format;
  }
}

TEST_F(QueryPclTest, FontTypes) {
  PclFontFile font;
  for (int type = 0; type < 256; ++type) {
    font.fontType = static_cast<std::uint8_t>(type);
    const bool known = type <= 2 || type == 10 || type == 11;
    EXPECT_EQ(QueryFont(font), known ? ZE_OK : ZE_BAD_FORMAT) << type;
    if (!known) {
      EXPECT_TRUE(OnlyScreened());
    }
  }
}

TEST_F(QueryPclTest, LastParseLeavesItsClassEvenWhenTheFontTypeIsUnknown) {
  PclFontFile font;
  ASSERT_EQ(QueryFont(font), ZE_OK);
  font.headerFormat = 15;
  font.size = 72;
  font.fontType = 9;
  EXPECT_EQ(QueryFont(font), ZE_BAD_FORMAT);
  EXPECT_EQ(LastPclDescriptorClass(), 4);
}

TEST_F(QueryPclTest, BitZeroOfTheSpacingIsAFlag) {
  PclFontFile font;
  for (int spacing = 0; spacing < 4; ++spacing) {
    font.spacing = static_cast<std::uint8_t>(spacing);
    ASSERT_EQ(QueryFont(font), ZE_OK);
    EXPECT_EQ(info.flags, (spacing & 1) != 0 ? 0x07U : 0x03U) << spacing;
  }
}

TEST_F(QueryPclTest, ResolutionsStandBehindTheDescriptor) {
  PclFontFile font;
  font.headerFormat = 20;
  font.size = 68;
  font.rest = Be16(600) + Be16(1200);
  font.height = 800;
  ASSERT_EQ(QueryFont(font), ZE_OK);
  EXPECT_EQ(info.xResolution, 600);
  EXPECT_EQ(info.yResolution, 1200);
  EXPECT_STREQ(info.description, "Courier  Bd [12.0 Pt.] (Roman-8)");
}

TEST_F(QueryPclTest, KeepsTheWrappedTenthOfA10Point6Font) {
  PclFontFile font;
  font.headerFormat = 20;
  font.size = 68;
  font.rest = Be16(90) + Be16(90);
  font.height = 53;  // 53 * 18 / 90 = 10.6
  ASSERT_EQ(QueryFont(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier  Bd [11.4294967292 Pt.] (Roman-8)");
}

TEST_F(QueryPclTest, ResolutionThatIsMissingOrZeroIsRefused) {
  PclFontFile font;
  font.headerFormat = 20;
  font.size = 68;
  for (const std::string& rest :
       {std::string(), Be16(300), Be16(300) + "\1", Be16(300) + Be16(0)}) {
    font.rest = rest;
    EXPECT_EQ(QueryFont(font), ZE_BAD_FORMAT) << rest.size();
    EXPECT_TRUE(OnlyScreened());
  }
  font.rest = Be16(0) + Be16(300);
  EXPECT_EQ(QueryFont(font), ZE_OK);
}

TEST_F(QueryPclTest, WMustComeWithinSixCharacters) {
  PclFontFile font;
  for (const char* digits : {"", "6", "64", "12345"}) {
    font.digits = digits;
    EXPECT_EQ(QueryFont(font), ZE_OK) << digits;
  }
  for (const char* digits : {"123456", "1234567", "12345678901234567890"}) {
    font.digits = digits;
    EXPECT_EQ(QueryFont(font), ZE_BAD_FORMAT) << digits;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryPclTest, DigitsAreNotLookedAt) {
  PclFontFile font;
  font.digits = "wx\xFF";
  EXPECT_EQ(QueryFont(font), ZE_OK);
}

TEST_F(QueryPclTest, OtherBeginningsAreRefusedWithoutADump) {
  const std::string file = PclFontFile{}.File();
  for (std::size_t i = 0; i < 3; ++i) {
    std::string other = file;
    other[i] = 'x';
    WriteFile(kPath, other);
    EXPECT_EQ(Query(kPath), ZE_BAD_FORMAT);
    EXPECT_TRUE(OnlyScreened());
  }
  EXPECT_FALSE(fs::exists(DumpFile()));
}

TEST_F(QueryPclTest, FileThatDoesNotOpenIsNotAFont) {
  fs::create_directory("folder.sfp");
  EXPECT_EQ(Query("folder.sfp"), ZE_BAD_FORMAT);
}

TEST_F(QueryPclTest, EveryBeginningOfAFontIsRefused) {
  ExpectOfEachBeginning(kPath, PclFontFile{}.File(), ZE_BAD_FORMAT);
  PclFontFile resolution;
  resolution.headerFormat = 20;
  resolution.size = 68;
  resolution.rest = Be16(300) + Be16(300);
  ExpectOfEachBeginning(kPath, resolution.File(), ZE_BAD_FORMAT);
}

// --- The dump

TEST_F(QueryPclTest, DumpListsTheRawDescriptor) {
  std::string descriptor;
  for (int i = 0; i < 64; ++i) descriptor += static_cast<char>('!' + i);
  WriteFile(kPath, "\x1B)s64W" + descriptor);
  EXPECT_EQ(Query(kPath), ZE_BAD_FORMAT);
  // The bytes are 0x21 to 0x60, so byte n of the descriptor is 0x21 + n. Words have the byte that
  // comes first as their low one: bytes 0 and 1 read 0x2221.
  EXPECT_BYTES(Dump(),
               "usFontDescSize:        8737\n"           // 0x2221
               "ubDescFormat:          #\n"              //
               "ubFontType:            $\n"              //
               "Style.uiPosture:               1\n"      // 0x2625 = 0 01001 10001 001 01
               "Style.uiWidth:                 1\n"      //
               "Style.uiStructur:              17\n"     //
               "Style.uiReserved:              9\n"      //
               "Style.uiUnused:                0\n"      //
               "usBaseline:            10279\n"          // 0x2827
               "usCellWidth:           10793\n"          // 0x2A29
               "usCellHeight:          11307\n"          // 0x2C2B
               "ubOrientation:         -\n"              //
               "ubSpacing:                     .\n"      //
               "usSymbolSet:           12335\n"          // 0x302F
               "usPitch:                       12849\n"  // 0x3231
               "usHeight:                      13363\n"  // 0x3433
               "usXHeight:                     13877\n"  // 0x3635
               "bWidthType:            7\n"              //
               "ubStyleLSB:            8\n"              //
               "bStrokeWeight:         9\n"              //
               "usTypeface.uiNumber:   314\n"            // 0x3B3A = 0 0111 01 100111010
               "usTypeface.uiVersion:  1\n"              //
               "usTypeface.uiVendor:   7\n"              //
               "usTypeface.uiUnused:   0\n"              //
               "ubSerifStyle:          <\n"              //
               "ubQuality:                     =\n"      //
               "bPlacement:            >\n"              //
               "bUnderlineDistance:?\n"                  //
               "ubUnderlineHeight:     @\n"              //
               "usLineSpacing:         16961\n"          // 0x4241
               "usTextWidth:           17475\n"          // 0x4443
               "usFirstCode:           17989\n"          // 0x4645
               "usLastCode:            18503\n"          // 0x4847
               "ubPitchExtended:       I\n"              //
               "ubHeightExtended:      J\n"              //
               "usCapHeight:           19531\n"          // 0x4C4B
               "FontNumber.uiVendor:   77\n"             // 0x4D
               "FontNumber.uiNumber:   5132112\n"        // 0x4E4F50
               "szFontName:            QRSTUVWXYZ[\\]^_`\n");
}

TEST_F(QueryPclTest, DumpHasEveryBitOfItsFields) {
  WriteFile(kPath, "\x1B)s64W" + std::string(64, '\xFF'));
  EXPECT_EQ(Query(kPath), ZE_BAD_FORMAT);
  const std::string dump = Dump();
  for (const char* line :
       {"usFontDescSize:        65535\n", "Style.uiPosture:               3\n",
        "Style.uiWidth:                 7\n", "Style.uiStructur:              31\n",
        "Style.uiReserved:              31\n", "Style.uiUnused:                1\n",
        "usTypeface.uiNumber:   511\n", "usTypeface.uiVersion:  3\n", "usTypeface.uiVendor:   15\n",
        "usTypeface.uiUnused:   1\n", "FontNumber.uiVendor:   127\n",
        "FontNumber.uiNumber:   16777215\n"}) {
    EXPECT_NE(dump.find(line), std::string::npos) << line;
  }
}

TEST_F(QueryPclTest, DumpIsWrittenForADescriptorThatIsCutShort) {
  WriteFile(kPath, Bytes("\x1B)s64W\0\x40"));
  EXPECT_EQ(Query(kPath), ZE_BAD_FORMAT);
  const std::string dump = Dump();
  EXPECT_EQ(dump.substr(0, dump.find('\n')), "usFontDescSize:        16384");
  EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), 39);
}

TEST_F(QueryPclTest, DumpShowsTheNameUpToItsFirstZeroByte) {
  PclFontFile font;
  font.name = Bytes("Line\0Printer");
  ASSERT_EQ(QueryFont(font), ZE_OK);
  EXPECT_TRUE(Dump().ends_with("szFontName:            Line\n"));
}

TEST_F(QueryPclTest, EveryParseRewritesTheDump) {
  WriteFile(DumpFile(), std::string(5000, 'x'));
  PclFontFile font;
  ASSERT_EQ(QueryFont(font), ZE_OK);
  const std::string first = Dump();
  EXPECT_LT(first.size(), 2000U);
  font.name = "Elite";
  ASSERT_EQ(QueryFont(font), ZE_OK);
  EXPECT_NE(Dump(), first);
}

TEST_F(QueryPclTest, DumpThatCannotBeCreatedIsLeftOut) {
  fs::create_directory(DumpFile());
  EXPECT_EQ(QueryFont(PclFontFile{}), ZE_OK);
  fs::remove(DumpFile());
#ifndef _WIN32
  unsetenv("ZEAPI_DRIVES");
  EXPECT_EQ(QueryFont(PclFontFile{}), ZE_OK);
  setenv("ZEAPI_DRIVES", (folder() / "drives").c_str(), 1);
  EXPECT_FALSE(fs::exists(DumpFile()));
#endif
}

}  // namespace
}  // namespace zeapi::testing
