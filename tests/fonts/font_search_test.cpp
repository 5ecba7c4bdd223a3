#include <cstring>
#include <map>
#include <ostream>

#include "support/byte_order.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kAnyType = 26;
constexpr std::uint32_t kAnyKind = 5;

// What the progress callback was told: the font's description, or empty for a file.
struct Told {
  std::string font;
  std::uint32_t percent;
  bool operator==(const Told&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Told& told) {
  return out << '"' << told.font << "\" " << told.percent;
}
std::vector<Told> told;

void ZEAPI_CALL Tell(const ZeFontInfo* font, std::uint32_t percent) {
  told.push_back({font == nullptr ? "" : static_cast<const char*>(font->description), percent});
}

// Searches the folder "fonts".
class FontSearchTest : public FontTest {
 protected:
  using Names = std::vector<std::string>;

  void SetUp() override {
    FontTest::SetUp();
    fs::create_directory("fonts");
    told.clear();
  }
  void TearDown() override {
    ZeFonFindFree(list);
    FontTest::TearDown();
  }

  static void Write(std::string_view name, std::string_view bytes) {
    WriteFile(fs::path("fonts") / name, bytes);
  }
  // A PCL bitmap of that name.
  static std::string Bitmap(const std::string& name) {
    PclFontFile font;
    font.name = name;
    return font.File();
  }
  static std::string Scalable(const std::string& name = "Univers", std::uint8_t format = 11) {
    PclFontFile font;
    font.name = name;
    font.headerFormat = format;
    font.size = format == 10 ? 80 : format == 11 ? 88 : 72;
    font.fontType = 2;
    return font.File();
  }
  // Fonts named by their files alone.
  static void WriteTrueType(const std::string& folder, const Names& names) {
    for (const std::string& name : names) WriteFile(fs::path(folder) / (name + ".ttf"), "x");
  }
  // A GLUE.TXT with one font of this file and these further lines.
  static void WriteGlue(const std::string& file, const std::string& lines = "") {
    Write("GLUE.TXT", "[PCL fonts]\n{O}\nFONT = Name\n/font file = " + file + "\n" + lines);
  }

  // File names of the fonts listed, in the order of the list.
  Names Find(std::uint32_t type = kAnyType, std::uint32_t kind = kAnyKind, std::uint32_t option = 0,
             bool recurse = false, const char* folder = "fonts") {
    return NamesOf(ZeFonFind(folder, &count, type, kind, option, recurse ? 1 : 0));
  }
  Names FindWithProgress(bool recurse = false, std::uint32_t option = 0) {
    return NamesOf(ZeFonFind2("fonts", &count, kAnyType, kAnyKind, option, recurse ? 1 : 0, &Tell));
  }
  Names NamesOf(ZeFoundFile* first) {
    ZeFonFindFree(list);
    list = first;
    Names names;
    for (const ZeFoundFile* file = list; file != nullptr; file = file->next) {
      const std::string path = file->path;
      names.push_back(path.substr(path.find_last_of("\\/") + 1));
    }
    return names;
  }

  ZeFontInfo Font() const {
    EXPECT_TRUE(list != nullptr && list->info != nullptr);
    return *static_cast<const ZeFontInfo*>(list->info);
  }

  std::uint16_t count = 0;
  ZeFoundFile* list = nullptr;
};

// --- Arguments

TEST_F(FontSearchTest, BadArgumentsGiveNothingAndLeaveTheCountAlone) {
  WriteTrueType("fonts", {"a"});
  count = 7;
  const std::string tooLong(261, 'd');
  EXPECT_EQ(ZeFonFind(nullptr, &count, 26, 5, 0, 0), nullptr);
  EXPECT_EQ(ZeFonFind(tooLong.c_str(), &count, 26, 5, 0, 0), nullptr);
  for (const auto& [type, kind] : std::map<std::uint32_t, std::uint32_t>{{0, 5}, {29, 5}}) {
    EXPECT_EQ(ZeFonFind("fonts", &count, type, kind, 0, 0), nullptr);
  }
  EXPECT_EQ(ZeFonFind("fonts", &count, 26, 0, 0, 0), nullptr);
  EXPECT_EQ(ZeFonFind("fonts", &count, 26, 7, 0, 0), nullptr);
  EXPECT_EQ(ZeFonFind2("fonts", &count, 26, 7, 0, 0, &Tell), nullptr);
  EXPECT_EQ(ZeFonFind("fonts", nullptr, 26, 5, 0, 0), nullptr);
  EXPECT_EQ(count, 7);
  EXPECT_TRUE(told.empty());
}

TEST_F(FontSearchTest, MissingOrEmptyFolderGivesNothingAndCountsZero) {
  count = 7;
  EXPECT_TRUE(Find().empty());
  EXPECT_EQ(count, 0);
  count = 7;
  EXPECT_TRUE(Find(kAnyType, kAnyKind, 0, true, "missing").empty());
  EXPECT_EQ(count, 0);
}

TEST_F(FontSearchTest, FolderOf260CharactersIsSearched) {
  count = 7;
  EXPECT_TRUE(Find(kAnyType, kAnyKind, 0, false, std::string(260, 'd').c_str()).empty());
  EXPECT_EQ(count, 0);
}

// --- The list

TEST_F(FontSearchTest, NodeTellsTheFont) {
  Write("courier.sfp", Bitmap("Courier"));
  ASSERT_EQ(Find(), Names{"courier.sfp"});
  EXPECT_EQ(count, 1);
  EXPECT_STREQ(list->path, "fonts\\courier.sfp");
  EXPECT_EQ(+list->kind, 1U);
  EXPECT_EQ(list->rootLength, 0);
  EXPECT_EQ(+list->size, Bitmap("Courier").size());
  ASSERT_EQ(Query("fonts\\courier.sfp"), ZE_OK);
  EXPECT_EQ(std::memcmp(list->info, &info, sizeof(info)), 0) << "the record of a query";
}

TEST_F(FontSearchTest, LastFoundComesFirst) {
  WriteTrueType("fonts", {"a", "b", "c"});
  EXPECT_EQ(Find(), (Names{"c.ttf", "b.ttf", "a.ttf"}));
  EXPECT_EQ(count, 3);
}

TEST_F(FontSearchTest, SeparatorAtTheEndIsNotDoubled) {
  WriteTrueType("fonts", {"a"});
  for (const char* folder : {"fonts\\", "fonts/"}) {
    Find(kAnyType, kAnyKind, 0, false, folder);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(std::string(list->path), folder + std::string("a.ttf"));
  }
}

TEST_F(FontSearchTest, OtherFilesAndDotNamesAreSkipped) {
  WriteTrueType("fonts", {"a", ".b"});
  Write("readme.txt", Bitmap("Text"));
  Write("picture.jpg", "no font");
  Write("noextension", Bitmap("None"));
  Write("old.fot", "x");
  Write("alone.afm", "FontName Alone\nEndFontMetrics\n");  // its outline is missing
  EXPECT_EQ(Find(), Names{"a.ttf"});
  EXPECT_EQ(count, 1);
}

TEST_F(FontSearchTest, PathThatDoesNotFitANodeIsSkipped) {
  const std::string folder = "fonts/" + std::string(100, 'f') + "/" + std::string(100, 'g');
  fs::create_directories(folder);
  const std::size_t room = 259 - folder.size() - std::string("\\.ttf").size();
  WriteTrueType(folder, {std::string(room, 'a'), std::string(room + 1, 'b')});
  EXPECT_EQ(Find(kAnyType, kAnyKind, 0, false, folder.c_str()),
            Names{std::string(room, 'a') + ".ttf"});
}

TEST_F(FontSearchTest, CartridgeBelongsToTheList) {
  PcmFile cartridge;
  cartridge.entries = {PfmFile{}.File()};
  Write("cart.pcm", cartridge.File());
  Write("again.pcm", cartridge.File());  // the same description: its cartridge is released at once
  ASSERT_EQ(Find(), Names{"again.pcm"});
  ASSERT_TRUE(Font().cartridge != nullptr);
  EXPECT_STREQ(Font().cartridge->fonts->name, "Courier");
}

// --- Equal descriptions

TEST_F(FontSearchTest, EqualDescriptionsGiveOneFont) {
  Write("a.sfp", Bitmap("Courier"));
  Write("b.sfp", Bitmap("Courier"));
  Write("c.sfp", Bitmap("courier"));
  EXPECT_EQ(Find(), (Names{"c.sfp", "a.sfp"})) << "case tells them apart";
  EXPECT_EQ(count, 2);
}

TEST_F(FontSearchTest, FilteredFontDoesNotHideAnEqualOne) {
  Write("a.pfa", "%!PS\n/FontName /Same\n");
  WriteTrueType("fonts", {"Same"});
  EXPECT_EQ(Find(21), Names{"Same.ttf"});
}

// --- Limits

TEST_F(FontSearchTest, StopsAtTheLimit) {
  WriteTrueType("fonts", {"a", "b", "c"});
  count = 2;
  EXPECT_EQ(Find(), (Names{"b.ttf", "a.ttf"}));
  EXPECT_EQ(count, 2);
}

TEST_F(FontSearchTest, LimitCountsFontsNotFiles) {
  Write("a.jpg", "x");
  Write("b.sfp", Bitmap("Same"));
  Write("c.sfp", Bitmap("Same"));
  WriteTrueType("fonts", {"d", "e"});
  count = 2;
  EXPECT_EQ(Find(), (Names{"d.ttf", "b.sfp"}));
}

TEST_F(FontSearchTest, GlueMeetsTheLimitFirst) {
  WriteTrueType("fonts", {"a"});
  fs::create_directory("other");
  WriteFile("other/one.sfp", Bitmap("One"));
  WriteGlue("other\\one.sfp");
  count = 1;
  EXPECT_EQ(Find(), Names{"one.sfp"});
  EXPECT_EQ(count, 1);
  count = 0;
  EXPECT_EQ(Find(), (Names{"a.ttf", "one.sfp"}));
}

// --- Folders within

TEST_F(FontSearchTest, FoldersWithinAreLeftAlone) {
  fs::create_directory("fonts/sub.ttf");
  WriteTrueType("fonts/sub.ttf", {"inner"});
  EXPECT_TRUE(Find().empty());
  EXPECT_EQ(count, 0);
}

TEST_F(FontSearchTest, KeepsFontsOfFoldersWithinOutOfTheList) {
  fs::create_directories("fonts/m/deep");
  WriteTrueType("fonts", {"a", "z"});
  WriteTrueType("fonts/m", {"b", "c"});
  WriteTrueType("fonts/m/deep", {"d", "e"});
  EXPECT_EQ(Find(kAnyType, kAnyKind, 0, true), (Names{"z.ttf", "a.ttf"}));
  EXPECT_EQ(count, 2) << "one in m, whose limit was the count before it, and one after it";
}

TEST_F(FontSearchTest, KeepsTheCountOfTheLastSearchWithin) {
  fs::create_directories("fonts/a");
  fs::create_directories("fonts/n");
  WriteTrueType("fonts", {"m", "z"});
  WriteTrueType("fonts/a", {"1", "2", "3"});
  EXPECT_EQ(Find(kAnyType, kAnyKind, 0, true), (Names{"z.ttf", "m.ttf"}));
  EXPECT_EQ(count, 1) << "3 in a, 4 with m, 0 in n, 1 with z";
}

TEST_F(FontSearchTest, CountOfASearchWithinCanPassTheLimit) {
  fs::create_directories("fonts/a");
  WriteTrueType("fonts", {"m", "z"});
  WriteTrueType("fonts/a", {"1", "2", "3"});
  count = 2;
  EXPECT_EQ(Find(kAnyType, kAnyKind, 0, true), Names{"m.ttf"});
  EXPECT_EQ(count, 4);
}

TEST_F(FontSearchTest, SearchWithinReadsItsOwnGlueAndKnowsNoDescriptionsOfTheOuter) {
  fs::create_directories("fonts/b");
  WriteTrueType("fonts", {"a"});
  WriteTrueType("fonts/b", {"a"});
  WriteFile("fonts/b/GLUE.TXT", "[Cartridge]\n{fonts\\b\\cart.pcm Name}\n");
  PcmFile cartridge;
  WriteFile("fonts/b/cart.pcm", cartridge.File());
  count = 30;
  Find(kAnyType, kAnyKind, 0, true);
  EXPECT_EQ(count, 1) << "the limit within was 1, and the cartridge met it";
}

#ifndef _WIN32
TEST_F(FontSearchTest, LinkedFoldersAreNotEntered) {
  fs::create_directory_symlink(".", "fonts/loop");
  WriteTrueType("fonts", {"a"});
  EXPECT_EQ(FindWithProgress(true), Names{"a.ttf"});
  EXPECT_EQ(told, (std::vector<Told>{{"", 100}, {"a", 100}}));
}
#endif

// --- Filters

TEST_F(FontSearchTest, TypeFilters) {
  Write("f02.pfa", "%!PS\n/FontName /Two\n");
  Write("f06.dlf", DlfFile{}.File());
  PclFontFile resolution;
  resolution.headerFormat = 20;
  resolution.size = 68;
  resolution.rest = Be16(600) + Be16(600);
  resolution.name = "Eight";
  Write("f08.sfp", resolution.File());
  Write("f09.sfp", Bitmap("Nine"));
  PclFontFile old;
  old.headerFormat = 5;
  old.size = 72;
  old.name = "Eleven";
  Write("f11.sfp", old.File());
  Write("f17.sfp", Scalable("Seventeen", 10));
  Write("f18.sfp", Scalable("Eighteen", 11));
  Write("f20.sfp", Scalable("Twenty", 15));
  Write("f21.ttf", "x");
  Write("f22.tfm", "x");
  Write("f23.fmf", FmfFile("Twentythree"));
  Write("f25.pfm", PfmFile{}.File());
  Write("f28.pcm", PcmFile{}.File());

  const std::map<std::uint32_t, Names> kWanted = {
      {10, {"20", "18", "17", "11", "09", "08"}},
      {12, {"17", "11"}},
      {14, {"17", "09"}},
      {16, {"20", "18", "17", "09", "08"}},
      {26, {"28", "25", "23", "22", "21", "20", "18", "17", "11", "09", "08", "06", "02"}},
      {27, {"28", "25", "20", "18", "17", "09", "08"}},
      {2, {"02"}},
      {6, {"06"}},
      {8, {"08"}},
      {9, {"09"}},
      {11, {"11"}},
      {17, {"17"}},
      {18, {"18"}},
      {20, {"20"}},
      {21, {"21"}},
      {22, {"22"}},
      {23, {"23"}},
      {25, {"25"}},
      {28, {"28"}},
  };
  for (std::uint32_t type = 1; type <= 28; ++type) {
    Names formats;
    count = 0;
    for (const std::string& name : Find(type)) formats.push_back(name.substr(1, 2));
    const auto wanted = kWanted.find(type);
    EXPECT_EQ(formats, wanted == kWanted.end() ? Names{} : wanted->second) << "type " << type;
    EXPECT_EQ(count, formats.size());
  }
}

TEST_F(FontSearchTest, KindFilters) {
  Write("k2.tfm", "x");
  Write("k3.sfp", Bitmap("Three"));
  Write("k4.afm", "FontName Four\nEndFontMetrics\n");
  Write("k4.pfb", "no name");
  Write("k5.ttf", "x");
  const Names kWanted[] = {{}, {"k2.tfm"}, {"k3.sfp"}, {"k4.afm"}};
  for (std::uint32_t kind = 1; kind <= 4; ++kind) {
    count = 0;
    EXPECT_EQ(Find(kAnyType, kind), kWanted[kind - 1]) << "kind " << kind;
  }
  for (const std::uint32_t kind : {5U, 6U}) {
    count = 0;
    EXPECT_EQ(Find(kAnyType, kind).size(), 4U) << "kind " << kind;
  }
}

// A PFM that names a device.
std::string MetricsFor(const std::string& device, std::size_t length = 256) {
  PfmFile file;
  file.length = length;
  std::string bytes = file.File();
  const std::size_t place = length - device.size() - 1;
  bytes.replace(101, 4, Le32(static_cast<std::uint32_t>(place)));
  return bytes.replace(place, device.size(), device);
}

TEST_F(FontSearchTest, WindowsTypeLeavesOutPostScriptMetrics) {
  for (const char* device : {"PostScript", "Postscript"}) {
    Write("a.pfm", MetricsFor(device));
    EXPECT_TRUE(Find(27).empty()) << device;
    Write("a.pfm", MetricsFor(device, 9000));
    EXPECT_TRUE(Find(27).empty()) << device << " far behind";
  }
  EXPECT_EQ(Find(25), Names{"a.pfm"});
  for (const char* device : {"postscript", "PostScripts", "PCL", ""}) {
    Write("a.pfm", MetricsFor(device));
    count = 0;
    EXPECT_EQ(Find(27), Names{"a.pfm"}) << device;
  }
}

TEST_F(FontSearchTest, WindowsTypeLeavesOutMetricsWithAnSfsFile) {
  Write("a.pfm", PfmFile{}.File());
  Write("a.SFS", "x");
  Write("b.sfp", Bitmap("Nine"));
  Write("b.SFS", Bitmap("Nine"));
  EXPECT_EQ(Find(27), Names{"b.sfp"}) << "metrics alone";
  count = 0;
  EXPECT_EQ(Find(25), Names{"a.pfm"});
}

// A PCL font whose first bytes also are the size field of Windows metrics.
TEST_F(FontSearchTest, WindowsTypeLooksAtWhatAFileReadsAs) {
  std::string font = PclFontFile{}.File();
  font.replace(3, 2, std::string("\x01\0", 2));  // 's' 01 00: with "W" behind
  font.insert(5, std::string(1, '\0'));
  font.resize(0x173);  // its size as the field says: 73 01 00 00
  font.replace(101, 8, Le32(300) + Le32(200));
  font.replace(200, 5, std::string("Face\0", 5));
  font.replace(300, 11, std::string("PostScript\0", 11));
  Write("a.sfp", font);
  EXPECT_EQ(Find(9), Names{"a.sfp"});
  count = 0;
  EXPECT_TRUE(Find(27).empty());
}

TEST_F(FontSearchTest, OptionDecidesAboutCompanions) {
  Write("a.dlf", DlfFile{}.File());
  EXPECT_EQ(Find(6, kAnyKind, 0), Names{"a.dlf"});
  count = 0;
  EXPECT_TRUE(Find(6, kAnyKind, 2).empty()) << "its FMF is missing";
}

// A query that asks for an INF in vain and does not mind leaves the record empty, which no kind and
// no format of its own fits.
TEST_F(FontSearchTest, AfmWithoutItsInfIsListedUndescribedForOption5) {
  Write("a.afm", "FontName Alone\nEndFontMetrics\n");
  Write("a.PFB", "no name");
  ASSERT_EQ(Find(kAnyType, kAnyKind, 5), Names{"a.afm"});
  EXPECT_EQ(count, 1);
  EXPECT_EQ(+list->size, fs::file_size("fonts/a.afm"));
  EXPECT_STREQ(Font().description, "");
  EXPECT_STREQ(Font().companionFile, "");
  EXPECT_EQ(Font().kind, 0U);
  EXPECT_EQ(Font().format, 0U);
  EXPECT_TRUE(Find(2, kAnyKind, 5).empty()) << "a type 1 font";
  EXPECT_TRUE(Find(kAnyType, 4, 5).empty()) << "metrics of one";
  EXPECT_TRUE(Find(kAnyType, kAnyKind, 4).empty());
  ASSERT_EQ(Find(kAnyType, kAnyKind, 0), Names{"a.afm"});
  EXPECT_STREQ(Font().description, "Alone");
  Write("a.INF", "MSMenuName (Menu)\n");
  count = 0;
  ASSERT_EQ(Find(2, 4, 5), Names{"a.afm"});
  EXPECT_STREQ(Font().description, "Alone");
  EXPECT_STREQ(Font().detail, "Menu");
}

TEST_F(FontSearchTest, KeepsOneOfTheFontsWithoutADescription) {
  Write("a.afm", "FontName One\nEndFontMetrics\n");
  Write("b.afm", "FontName Two\nEndFontMetrics\n");
  EXPECT_EQ(Find(kAnyType, kAnyKind, 5), Names{"a.afm"}) << "no description twice";
  EXPECT_EQ(count, 1);
}

// --- Metrics of scalable PCL fonts

class ScalableSearchTest : public FontSearchTest, public ::testing::WithParamInterface<int> {
 protected:
  std::string File() const { return Scalable("Univers", static_cast<std::uint8_t>(GetParam())); }
};

TEST_P(ScalableSearchTest, MetricsHaveTheFirstThreeCharactersOfTheFont) {
  Write("ABCDEFGH.SFP", File());
  Write("ABC0000S.TFM", "x");
  for (const std::uint32_t option : {0U, 2U, 4U}) {
    count = 0;
    ASSERT_EQ(Find(10, kAnyKind, option), Names{"ABCDEFGH.SFP"});
    EXPECT_STREQ(Font().metricsFile, "fonts\\ABC0000S.TFM");
    EXPECT_STREQ(Font().companionFile, "fonts\\ABC0000S.TFM");
  }
}

TEST_P(ScalableSearchTest, WithoutMetricsTheOptionDecides) {
  Write("ABCDEFGH.SFP", File());
  ASSERT_EQ(Find(10, kAnyKind, 0), Names{"ABCDEFGH.SFP"});
  EXPECT_STREQ(Font().metricsFile, "");
  count = 0;
  EXPECT_EQ(Find(10, kAnyKind, 5).size(), 1U);
  EXPECT_TRUE(Find(10, kAnyKind, 2).empty());
  EXPECT_TRUE(Find(10, kAnyKind, 4).empty());
  Write("ABCDEFGH.PFM", "x");
  EXPECT_TRUE(Find(10, kAnyKind, 2).empty());
  ASSERT_EQ(Find(10, kAnyKind, 4), Names{"ABCDEFGH.SFP"});
  EXPECT_STREQ(Font().metricsFile, "fonts\\ABCDEFGH.PFM");
  EXPECT_STREQ(Font().companionFile, "");
}

INSTANTIATE_TEST_SUITE_P(HeaderFormats, ScalableSearchTest, ::testing::Values(10, 11, 15));

TEST_F(FontSearchTest, ShortFontNameLendsItsDotToTheMetrics) {
  Write("AB.SFP", Scalable());
  Write("AB.0000S.TFM", "x");
  ASSERT_EQ(Find(10), Names{"AB.SFP"});
  EXPECT_STREQ(Font().metricsFile, "fonts\\AB.0000S.TFM");
}

TEST_F(FontSearchTest, BitmapsHaveNoMetrics) {
  Write("ABCDEFGH.SFP", Bitmap("Courier"));
  Write("ABC0000S.TFM", "x");
  ASSERT_EQ(Find(10, kAnyKind, 2), Names{"ABCDEFGH.SFP"});
  EXPECT_STREQ(Font().metricsFile, "");
}

// Companions are found whatever the case of their names, and of several the first.
TEST_F(FontSearchTest, CompanionsAreFoundInAnyCase) {
  Write("Four.afm", "FontName Four\nEndFontMetrics\n");
  Write("fOUR.pFb", "no name");
  Write("abcdef.sfp", Scalable());
  Write("Abc0000s.tfm", "x");
  ASSERT_EQ(Find(2), Names{"Four.afm"});
  EXPECT_STREQ(Font().companionFile, "fonts\\Four.PFB");
  count = 0;
  ASSERT_EQ(Find(18, kAnyKind, 2), Names{"abcdef.sfp"});
  EXPECT_STREQ(Font().metricsFile, "fonts\\abc0000S.TFM");
}

// --- GLUE.TXT

TEST_F(FontSearchTest, GlueTellsSymbolSetMemoryAndMetrics) {
  fs::create_directory("other");
  WriteFile("other/uni.sfp", Scalable());
  WriteFile("other/uni.tfm", "x");
  WriteGlue("other\\uni.sfp", "/symset = 8U\n/resource = 4711\n/tfm = other\\uni.tfm\n");
  ASSERT_EQ(Find(18, kAnyKind, 2), Names{"uni.sfp"});
  EXPECT_STREQ(list->path, "other\\uni.sfp");
  EXPECT_STREQ(Font().symbolSet, "8U");
  EXPECT_EQ(Font().printerMemory, 4711U);
  EXPECT_STREQ(Font().metricsFile, "other\\uni.tfm");
  EXPECT_STREQ(Font().companionFile, "other\\uni.tfm");
}

TEST_F(FontSearchTest, GlueWithoutMetricsLeavesItToTheOption) {
  fs::create_directory("other");
  WriteFile("other/unix.sfp", Scalable());
  WriteFile("other/uni0000S.TFM", "x");  // not looked for
  WriteGlue("other\\unix.sfp", "/tfm = other\\missing.tfm\n");
  EXPECT_TRUE(Find(18, kAnyKind, 2).empty());
  EXPECT_TRUE(Find(18, kAnyKind, 4).empty());
  ASSERT_EQ(Find(18, kAnyKind, 0), Names{"unix.sfp"});
  EXPECT_STREQ(Font().metricsFile, "");
  EXPECT_EQ(Font().printerMemory, 0U);
  WriteFile("other/unix.PFM", "x");
  count = 0;
  ASSERT_EQ(Find(18, kAnyKind, 4), Names{"unix.sfp"});
  EXPECT_STREQ(Font().metricsFile, "other\\unix.PFM");
}

TEST_F(FontSearchTest, GlueDoesNotChangeBitmaps) {
  fs::create_directory("other");
  WriteFile("other/bitmap.sfp", Bitmap("Courier"));
  WriteGlue("other\\bitmap.sfp", "/symset = 1E\n/resource = 1\n");
  ASSERT_EQ(Find(9, kAnyKind, 2).size(), 0U) << "not read for a search of type 9";
  ASSERT_EQ(Find(10, kAnyKind, 2), Names{"bitmap.sfp"});
  EXPECT_STREQ(Font().symbolSet, "8U");
  EXPECT_EQ(Font().printerMemory, Font().fileSize + 320);
}

TEST_F(FontSearchTest, GlueComesFirstAndItsFontIsNotListedAgain) {
  Write("b.sfp", Bitmap("Two"));
  Write("a.sfp", Bitmap("One"));
  WriteGlue("fonts\\b.sfp");
  EXPECT_EQ(Find(), (Names{"a.sfp", "b.sfp"}));
}

TEST_F(FontSearchTest, GlueIsReadForTheseTypesOnly) {
  fs::create_directory("other");
  WriteFile("other/cart.pcm", PcmFile{}.File());
  WriteFile("other/scalable.sfp", Scalable("Seventeen", 10));
  WriteFile("other/eighteen.sfp", Scalable("Eighteen", 11));
  WriteFile("other/twenty.sfp", Scalable("Twenty", 15));
  WriteFile("other/nine.sfp", Bitmap("Nine"));
  std::string glue = "[Cartridge]\n{other\\cart.pcm Name\n[PCL fonts]\n{O}\n";
  for (const char* name : {"scalable", "eighteen", "twenty", "nine"}) {
    glue += "FONT = x\n/font file = other\\" + std::string(name) + ".sfp\n";
  }
  Write("GLUE.TXT", glue);
  const std::map<std::uint32_t, std::size_t> kListed = {{10, 4}, {12, 1}, {14, 2}, {16, 4}, {17, 1},
                                                        {18, 1}, {20, 1}, {26, 5}, {27, 5}};
  for (std::uint32_t type = 1; type <= 28; ++type) {
    count = 0;
    const auto listed = kListed.find(type);
    EXPECT_EQ(Find(type).size(), listed == kListed.end() ? 0 : listed->second) << type;
  }
}

TEST_F(FontSearchTest, GlueEntriesThatLeadNowhereAreSkipped) {
  Write("GLUE.TXT",
        "[Cartridge]\n{missing.pcm Name\n[PCL fonts]\n{O}\nFONT = x\nFONT = y\n"
        "/font file = fonts\\GLUE.TXT\nFONT = z\n/font file = fonts\\a.sfp\n");
  Write("a.sfp", Bitmap("One"));
  EXPECT_EQ(Find(), Names{"a.sfp"});
}

TEST_F(FontSearchTest, GlueWorksWhereNothingElseIs) {
  fs::create_directory("other");
  WriteFile("other/one.sfp", Bitmap("One"));
  WriteGlue("other\\one.sfp");
  EXPECT_EQ(Find(), Names{"one.sfp"});
}

// --- Progress

TEST_F(FontSearchTest, ProgressTellsFilesAndFonts) {
  WriteTrueType("fonts", {"a", "c"});
  Write("b.jpg", "x");
  WriteTrueType("fonts", {".hidden"});
  EXPECT_EQ(FindWithProgress(), (Names{"c.ttf", "a.ttf"}));
  EXPECT_EQ(told, (std::vector<Told>{{"", 33}, {"a", 33}, {"", 66}, {"", 100}, {"c", 100}}));
}

TEST_F(FontSearchTest, ProgressMayBeNull) {
  WriteTrueType("fonts", {"a"});
  EXPECT_EQ(NamesOf(ZeFonFind2("fonts", &count, kAnyType, kAnyKind, 0, 0, nullptr)),
            Names{"a.ttf"});
}

TEST_F(FontSearchTest, ProgressIsNotToldOfAFontThatIsNotListed) {
  Write("a.sfp", Bitmap("Same"));
  Write("b.sfp", Bitmap("Same"));
  FindWithProgress();
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[2], (Told{"", 100}));
}

TEST_F(FontSearchTest, ProgressIsNotToldOfAFontWithoutADescription) {
  Write("a.afm", "FontName Alone\nEndFontMetrics\n");
  WriteTrueType("fonts", {"b"});
  EXPECT_EQ(FindWithProgress(false, 5), (Names{"b.ttf", "a.afm"}));
  EXPECT_EQ(told, (std::vector<Told>{{"", 50}, {"", 100}, {"b", 100}}));
}

TEST_F(FontSearchTest, ProgressCountsFoldersWithin) {
  fs::create_directories("fonts/m/deep");
  WriteTrueType("fonts", {"a", "z"});
  WriteTrueType("fonts/m", {"b"});
  Write("m/deep/x.jpg", "x");
  FindWithProgress(true);
  EXPECT_EQ(told,
            (std::vector<Told>{{"", 25}, {"a", 25}, {"", 50}, {"b", 50}, {"", 75}, {"z", 75}}))
      << "the limit within was met before the folder below";
  told.clear();
  FindWithProgress(false);
  EXPECT_EQ(told, (std::vector<Told>{{"", 50}, {"a", 50}, {"", 100}, {"z", 100}}));
}

TEST_F(FontSearchTest, ProgressOfGlueFontsIsZero) {
  fs::create_directory("other");
  WriteFile("other/one.sfp", Bitmap("One"));
  WriteGlue("other\\one.sfp");
  FindWithProgress();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[0].percent, 0U);
  EXPECT_NE(told[0].font, "");
  EXPECT_EQ(told[1], (Told{"", 100})) << "GLUE.TXT itself";
}

}  // namespace
}  // namespace zeapi::testing
