#include "fonts/glue_file.h"

#include "support/scratch.h"

namespace zeapi::testing {
namespace {

class GlueFileTest : public ScratchTest {
 protected:
  static std::vector<GlueEntry> Read(std::string_view text) {
    WriteFile("GLUE.TXT", text);
    return ReadFrom("GLUE.TXT");
  }
  static std::vector<GlueEntry> ReadFrom(const char* path) {
    std::vector<GlueEntry> entries;
    GlueFile file(path);
    for (GlueEntry entry; file.Next(&entry);) entries.push_back(entry);
    return entries;
  }
  // The one font whose lines are these.
  static GlueEntry Font(const std::string& lines) {
    const auto entries = Read("[PCL fonts]\n{O}\nFONT = Name\n" + lines);
    return entries.size() == 1 ? entries[0] : GlueEntry{};
  }
  // The one cartridge that is this text.
  static GlueEntry Cartridge(const std::string& text) {
    const auto entries = Read("[Cartridge]\n" + text);
    return entries.size() == 1 ? entries[0] : GlueEntry{};
  }
};

TEST_F(GlueFileTest, MissingOrEmptyFileHasNoEntries) {
  EXPECT_TRUE(ReadFrom("missing").empty());
  EXPECT_TRUE(Read("").empty());
  EXPECT_TRUE(Read("; a comment\n\n[Cartridge]\n[PCL fonts]\n{O}\n").empty());
}

TEST_F(GlueFileTest, ReadsEachLineOfAFont) {
  const GlueEntry font = Font(
      "/symset = 8U\n/weight = 200\n/tfm = c:\\fonts\\UNI0000S.TFM\n/slant = 1\n"
      "/font file = c:\\fonts\\UNIVERS.SFP\n/resource = 12345\n");
  EXPECT_EQ(font.type, GlueType::kPclFont);
  EXPECT_STREQ(font.name, "Name");
  EXPECT_STREQ(font.symbolSet, "8U");
  EXPECT_STREQ(font.weight, " Xb");
  EXPECT_STREQ(font.metricsFile, "c:\\fonts\\UNI0000S.TFM");
  EXPECT_STREQ(font.slant, " italic");
  EXPECT_STREQ(font.fontFile, "c:\\fonts\\UNIVERS.SFP");
  EXPECT_EQ(font.printerMemory, 12345U);
}

TEST_F(GlueFileTest, FontWithoutLinesIsEmptyButForItsName) {
  const GlueEntry font = Font("");
  EXPECT_EQ(font.type, GlueType::kPclFont);
  EXPECT_STREQ(font.symbolSet, "");
  EXPECT_STREQ(font.weight, "") << "130 when no line tells";
  EXPECT_STREQ(font.slant, "");
  EXPECT_STREQ(font.fontFile, "");
  EXPECT_EQ(font.printerMemory, 0U);
}

TEST_F(GlueFileTest, WeightTextsByRange) {
  const struct {
    int first, last;
    const char* text;
  } kRanges[] = {{-5, 17, " Utn"},   {18, 34, " Xtn"},   {35, 51, " Tn"},    {52, 68, " Xl"},
                 {69, 85, " Lt"},    {86, 102, " Dl"},   {103, 119, " Sl"},  {120, 136, ""},
                 {137, 153, " Sb"},  {154, 170, " Db"},  {171, 187, " Bd"},  {188, 204, " Xb"},
                 {205, 221, " Blk"}, {222, 238, " Xbl"}, {239, 255, " UBl"}, {256, 30000, ""}};
  for (const auto& range : kRanges) {
    for (const int weight : {range.first, range.last}) {
      EXPECT_STREQ(Font("/weight = " + std::to_string(weight)).weight, range.text) << weight;
    }
  }
  EXPECT_STREQ(Font("/weight = 99999999999999999999").weight, "");
  EXPECT_STREQ(Font("/weight = -99999999999999999999").weight, " Utn");
  EXPECT_STREQ(Font("/weight = bold").weight, " Utn") << "no number is 0";
  EXPECT_STREQ(Font("/weight =").weight, "") << "no value is no line";
}

TEST_F(GlueFileTest, SlantIsItalicUnlessZero) {
  EXPECT_STREQ(Font("/slant = 0").slant, "");
  EXPECT_STREQ(Font("/slant = -12").slant, " italic");
  EXPECT_STREQ(Font("/slant = yes").slant, "");
}

TEST_F(GlueFileTest, ResourceIsTheFirstNumberBehindTheSign) {
  EXPECT_EQ(Font("/resource = 77 bytes").printerMemory, 77U);
  EXPECT_EQ(Font("/resource 5 = RAM 42, 43").printerMemory, 42U);
  EXPECT_EQ(Font("/resource = none").printerMemory, 0U);
  EXPECT_EQ(Font("/resource 99").printerMemory, 0U);
  EXPECT_EQ(Font("/resource = 99999999999999999999").printerMemory, 4294967295U);
}

TEST_F(GlueFileTest, ValueIsTheSecondItemAndTakesTheRestOfTheLine) {
  EXPECT_STREQ(Font("/font file\t=  c:\\my fonts\\a.sfp \t \r\n").fontFile, "c:\\my fonts\\a.sfp");
  EXPECT_STREQ(Font("/font file is a.sfp\n").fontFile, "a.sfp") << "the first item may be any";
  EXPECT_STREQ(Font("/font file =a.sfp\n").fontFile, "") << "one item";
}

TEST_F(GlueFileTest, CommentOrBraceEndsTheLine) {
  EXPECT_STREQ(Font("/font file = a.sfp ; the font\n").fontFile, "a.sfp");
  EXPECT_STREQ(Font("/font file = a.sfp}b\n").fontFile, "a.sfp");
  EXPECT_STREQ(Font("/font file ; = a.sfp\n").fontFile, "");
}

TEST_F(GlueFileTest, CommentOrBraceEndsTheLineOfTheMemoryToo) {
  EXPECT_EQ(Font("/resource = none ; was 4711\n").printerMemory, 0U);
  EXPECT_EQ(Font("/resource ; x = 9\n").printerMemory, 0U);
  EXPECT_EQ(Font("/resource = 12}34\n").printerMemory, 12U);
  EXPECT_EQ(Font("/resource = }12\n").printerMemory, 0U);
}

// What ends a section of cartridges, read again for each font, would take minutes here.
TEST_F(GlueFileTest, ManyFontsBehindManyCommentsOfTheCartridges) {
  std::string text = "[Cartridge]\n";
  for (int i = 0; i < 60000; ++i) text += ";\n";
  text += "[PCL fonts]\n{O}\n";
  for (int i = 0; i < 27000; ++i) text += "FONT\n";
  EXPECT_EQ(Read(text).size(), 27000U);
}

TEST_F(GlueFileTest, LinesAreTrimmedAndCommentsIgnored) {
  const auto entries = Read(
      "  [PCL fonts] \r\n;{O}\n\t{O}\r\n\r\n; /tfm\n  FONT = One\r\n"
      " ;/symset = 1U\n   /symset = 2U\x01\x02\n");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_STREQ(entries[0].name, "One");
  EXPECT_STREQ(entries[0].symbolSet, "2U");
}

TEST_F(GlueFileTest, LineBeyond99CharactersIsDropped) {
  const std::string start = "/font file = ";
  const std::string path(99 - start.size(), 'p');
  const GlueEntry font = Font(start + path + "/tfm = x\n/tfm = y\n");
  EXPECT_EQ(font.fontFile, path);
  EXPECT_STREQ(font.metricsFile, "y");
}

TEST_F(GlueFileTest, FirstOfLikeLinesCounts) {
  EXPECT_STREQ(Font("/tfm = a\n/tfm = b\n").metricsFile, "a");
}

TEST_F(GlueFileTest, TextsAreCutToTheirFields) {
  const GlueEntry font = Read("[PCL fonts]\n{O}\nFONT = " + std::string(60, 'n'))[0];
  EXPECT_EQ(std::string(font.name), std::string(49, 'n'));
  EXPECT_STREQ(Font("/symset = 1023U").symbolSet, "102");
}

TEST_F(GlueFileTest, FontEndsAtABracketABraceOrAnF) {
  for (const char* end : {"[other]", "{B}", "Fnord"}) {
    EXPECT_STREQ(Font("/tfm = a\n" + std::string(end) + "\n/symset = 8U\n").symbolSet, "") << end;
  }
}

TEST_F(GlueFileTest, FontsFollowOneAnother) {
  const auto entries = Read(
      "[PCL fonts]\nFONT = early\n{O}\nFONT = One\n/symset = 1U\nFONT = Two\n/symset = 2U\n"
      "{B}\nFONT = Three\n[End]\nFONT = late\n");
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_STREQ(entries[0].name, "One");
  EXPECT_STREQ(entries[0].symbolSet, "1U");
  EXPECT_STREQ(entries[1].symbolSet, "2U");
  EXPECT_STREQ(entries[2].name, "Three");
}

TEST_F(GlueFileTest, NoFontsWithoutTheOutlineLine) {
  EXPECT_TRUE(Read("[PCL fonts]\nFONT = One\n/font file = a\n").empty());
  EXPECT_TRUE(Read("[PCL fonts]\nFONT = One\n[more]\n{O}\nFONT = Two\n").empty());
  EXPECT_TRUE(Read("{O}\nFONT = One\n").empty());
}

TEST_F(GlueFileTest, CartridgeHasASlotAndAName) {
  const GlueEntry cartridge = Cartridge("{ CART.PCM  Forms and Bars } rest\n");
  EXPECT_EQ(cartridge.type, GlueType::kCartridge);
  EXPECT_STREQ(cartridge.fontFile, "CART.PCM");
  EXPECT_STREQ(cartridge.name, "Forms and Bars");
}

TEST_F(GlueFileTest, CartridgeWithoutANameIsNone) {
  const GlueEntry cartridge = Cartridge("{CART.PCM}\n/class = O\n");
  EXPECT_EQ(cartridge.type, GlueType::kEmpty);
  EXPECT_STREQ(cartridge.fontFile, "CART.PCM");
}

TEST_F(GlueFileTest, ClassTellsOutlineCartridges) {
  EXPECT_EQ(Cartridge("{A Name\n/class = Outline\n").type, GlueType::kOutlineCartridge);
  EXPECT_EQ(Cartridge("{A Name\n/other\n/class = O}\n").type, GlueType::kOutlineCartridge);
  EXPECT_EQ(Cartridge("{A Name\n/class = Bitmap\n/class = O\n").type, GlueType::kCartridge);
  const auto two = Read("[Cartridge]\n{A Name\n{B Name\n/class = O\n[x]\n{C Name\n");
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[0].type, GlueType::kCartridge);
  EXPECT_EQ(two[1].type, GlueType::kOutlineCartridge);
}

TEST_F(GlueFileTest, CartridgesComeBeforeFonts) {
  const auto entries = Read("[PCL fonts]\n{O}\nFONT = One\n[Cartridge]\n{A Name\n");
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].type, GlueType::kCartridge);
  EXPECT_EQ(entries[1].type, GlueType::kPclFont);
}

TEST_F(GlueFileTest, EveryBeginningIsReadAsFarAsItGoes) {
  const std::string text =
      "; fonts\r\n[Cartridge]\r\n{c:\\a.pcm First}\r\n/class = O\r\n{c:\\b.pcm Second}\r\n"
      "[PCL fonts]\r\n{O}\r\nFONT = One\r\n/symset = 8U\r\n/weight = 188\r\n"
      "/tfm = c:\\one.tfm\r\n/slant = 1\r\n/font file = c:\\one.sfp\r\n/resource = 4711\r\n"
      "FONT = Two\r\n/font file = c:\\two.sfp\r\n";
  ASSERT_EQ(Read(text).size(), 4U);
  std::size_t before = 0;
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const auto entries = Read(text.substr(0, length));
    EXPECT_GE(entries.size(), before) << length;
    EXPECT_LE(entries.size(), before + 1) << length;
    before = entries.size();
  }
  EXPECT_EQ(before, 4U);
}

TEST_F(GlueFileTest, FileOfAnUnlikelySizeIsIgnored) {
  std::string text = "[Cartridge]\n{A Name\n";
  text.resize(256 << 10, 'x');
  EXPECT_EQ(Read(text).size(), 1U);
  text += 'x';
  EXPECT_TRUE(Read(text).empty());
}

}  // namespace
}  // namespace zeapi::testing
