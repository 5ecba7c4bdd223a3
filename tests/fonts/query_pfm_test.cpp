// Windows printer font metrics of one font and of a cartridge.
#include "fonts/cartridge.h"
#include "support/byte_order.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class QueryPfmTest : public FontTest {
 protected:
  std::uint32_t QueryFile(const PfmFile& font) {
    WriteFile("font.pfm", font.File());
    return Query("font.pfm");
  }
};

TEST_F(QueryPfmTest, FillsTheRecordUnderEachExtension) {
  for (const char* path : {"font.pfm", "font.PSM", "font.Pbm"}) {
    WriteFile(path, PfmFile{}.File());
    ASSERT_EQ(Query(path), ZE_OK) << path;
    EXPECT_EQ(info.flags, 0x2BU);
    EXPECT_EQ(info.kind, 2U);
    EXPECT_EQ(info.format, 25U);
    EXPECT_EQ(info.fileSize, 256U);
    EXPECT_EQ(info.printerMemory, 0U);
    EXPECT_STREQ(info.description, "Courier");
    EXPECT_STREQ(info.companionFile, "");
    EXPECT_STREQ(info.metricsFile, "");
    EXPECT_TRUE(info.cartridge == nullptr);
  }
}

TEST_F(QueryPfmTest, NameTellsItalicAndBold) {
  PfmFile font;
  font.italic = 255;
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier (It)");
  font.weight = 700;
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier (It) (Bd)");
  font.italic = 0;
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier (Bd)");
  font.weight = 699;
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier");
  font.weight = 0xFFFF;
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier (Bd)");
}

TEST_F(QueryPfmTest, SizeFieldMustBeTheFileSize) {
  PfmFile font;
  for (const std::int64_t size : {255, 257, 0}) {
    font.size = size;
    EXPECT_EQ(QueryFile(font), ZE_BAD_FORMAT) << size;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryPfmTest, FaceOffsetLiesBetween34And2048) {
  PfmFile font;
  font.length = 3000;
  for (const std::uint32_t offset : {0U, 34U, 2048U, 0xFFFFFFFFU}) {
    font.faceOffset = offset;
    EXPECT_EQ(QueryFile(font), ZE_BAD_FORMAT) << offset;
  }
  for (const std::uint32_t offset : {35U, 2047U}) {
    font.faceOffset = offset;
    EXPECT_EQ(QueryFile(font), ZE_OK) << offset;
    EXPECT_STREQ(info.description, "Courier");
  }
}

TEST_F(QueryPfmTest, LayoutThatSays32BytesLessHasAZeroWordAndAnyFaceOffset) {
  PfmFile font;
  font.length = 3000;
  font.size = 3000 - 32;
  font.faceOffset = 2500;
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_STREQ(info.description, "Courier");
  std::string file = font.File();
  for (const std::size_t offset : {117U, 118U}) {
    std::string other = file;
    other[offset] = 1;
    WriteFile("font.pfm", other);
    EXPECT_EQ(Query("font.pfm"), ZE_BAD_FORMAT);
  }
  font.size = 3000 - 31;
  EXPECT_EQ(QueryFile(font), ZE_BAD_FORMAT);
}

TEST_F(QueryPfmTest, FaceBehindTheBytesThatAreReadIsNone) {
  PfmFile font;
  font.length = 6000;
  font.size = 6000 - 32;
  for (const std::uint32_t offset : {4096U, 5000U, 6000U, 0xFFFFFFFFU}) {
    font.faceOffset = offset;
    EXPECT_EQ(QueryFile(font), ZE_BAD_FORMAT) << offset;
  }
  PfmFile shorter;
  for (const std::uint32_t offset : {256U, 2000U}) {
    shorter.faceOffset = offset;
    EXPECT_EQ(QueryFile(shorter), ZE_BAD_FORMAT) << offset;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryPfmTest, EmptyFaceIsNoNameEvenWithAStyle) {
  PfmFile font;
  font.face = "";
  font.italic = 1;
  EXPECT_EQ(QueryFile(font), ZE_BAD_FORMAT);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryPfmTest, LongNamesAreCutTo79Characters) {
  PfmFile font;
  font.length = 1000;
  font.weight = 700;
  font.face = std::string(76, 'f');
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_EQ(info.description, std::string(76, 'f') + " (B");
  font.face = std::string(800, 'f');
  ASSERT_EQ(QueryFile(font), ZE_OK);
  EXPECT_EQ(info.description, std::string(79, 'f'));
}

TEST_F(QueryPfmTest, FilesShorterThan256BytesAreRefused) {
  PfmFile font;
  font.length = 255;
  EXPECT_EQ(QueryFile(font), ZE_BAD_FORMAT);
}

TEST_F(QueryPfmTest, EveryBeginningIsRefused) {
  PfmFile font;
  font.length = 400;
  ExpectOfEachBeginning("font.pfm", font.File(), ZE_BAD_FORMAT);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryPfmTest, FileThatDoesNotOpenIsNotAFont) {
  for (const char* path : {"folder.pfm", "folder.pcm"}) {
    fs::create_directory(path);
    EXPECT_EQ(Query(path), ZE_BAD_FORMAT) << path;
  }
}

// --- Cartridges

class QueryPcmTest : public FontTest {
 protected:
  std::uint32_t QueryBytes(const std::string& bytes) {
    WriteFile("cart.pcm", bytes);
    return Query("cart.pcm");
  }
  std::uint32_t QueryFile(const PcmFile& cartridge) { return QueryBytes(cartridge.File()); }

  std::vector<std::string> Fonts() const {
    std::vector<std::string> names;
    if (info.cartridge == nullptr) return names;
    for (const ZeCartridgeFont* font = info.cartridge->fonts; font != nullptr; font = font->next) {
      names.push_back(font->name);
    }
    return names;
  }

  static std::string Entry(const std::string& face, std::int64_t size = -1) {
    PfmFile font;
    font.face = face;
    font.size = size;
    return font.File();
  }
};

using Names = std::vector<std::string>;

TEST_F(QueryPcmTest, FillsTheRecord) {
  PcmFile cartridge;
  cartridge.entries = {Entry("Courier")};
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(info.flags, 0x03U);
  EXPECT_EQ(info.kind, 2U);
  EXPECT_EQ(info.format, 28U);
  EXPECT_EQ(info.fileSize, 16U + 80 + 256);
  EXPECT_EQ(info.printerMemory, 0U);
  EXPECT_STREQ(info.description, "Forms Cartridge");
  ASSERT_TRUE(info.cartridge != nullptr);
  EXPECT_STREQ(info.cartridge->name, "Forms Cartridge");
  EXPECT_EQ(Fonts(), Names{"Courier"});
}

TEST_F(QueryPcmTest, FontsComeInTheOrderOfTheFileWithTheirStyles) {
  PfmFile bold;
  bold.face = "Elite";
  bold.weight = 700;
  PfmFile italic;
  italic.face = "Pica";
  italic.italic = 1;
  italic.length = 5000;
  PfmFile both;
  both.weight = 700;
  both.italic = 1;
  PcmFile cartridge;
  cartridge.entries = {bold.File(), italic.File(), both.File()};
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), (Names{"Elite (Bd)", "Pica (It)", "Courier (It) (Bd)"}));
}

TEST_F(QueryPcmTest, CartridgeWithoutFonts) {
  ASSERT_EQ(QueryFile({}), ZE_OK);
  ASSERT_TRUE(info.cartridge != nullptr);
  EXPECT_EQ(info.cartridge->fonts, nullptr);
}

TEST_F(QueryPcmTest, EntryWhoseFaceOffsetIsOutOfRangeIsSkipped) {
  PcmFile cartridge;
  for (const std::uint32_t offset : {0U, 34U, 2048U, 0xFFFFFFFFU}) {
    PfmFile odd;
    odd.faceOffset = offset;
    odd.length = 2200;
    if (offset == 0) odd.face = "";  // would stand on the size
    cartridge.entries = {Entry("First"), odd.File(), Entry("Last")};
    ASSERT_EQ(QueryFile(cartridge), ZE_OK);
    EXPECT_EQ(Fonts(), (Names{"First", "Last"})) << offset;
  }
  for (const std::uint32_t offset : {35U, 2047U}) {
    PfmFile good;
    good.faceOffset = offset;
    good.length = 2200;
    cartridge.entries = {good.File()};
    ASSERT_EQ(QueryFile(cartridge), ZE_OK);
    EXPECT_EQ(Fonts(), Names{"Courier"}) << offset;
  }
}

TEST_F(QueryPcmTest, EntryWithoutAFaceIsSkipped) {
  PcmFile cartridge;
  cartridge.entries = {Entry(""), Entry("Last")};
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), Names{"Last"});
}

// The entries' own size fields are not compared with anything but the end.
TEST_F(QueryPcmTest, SizeThatCannotBeEndsTheList) {
  PcmFile cartridge;
  for (const std::int64_t size : {std::int64_t{0}, std::int64_t{513}, std::int64_t{0xFFFFFFFF}}) {
    cartridge.entries = {Entry("First"), Entry("Lying", size), Entry("Never seen")};
    ASSERT_EQ(QueryFile(cartridge), ZE_OK);
    EXPECT_EQ(Fonts(), (Names{"First", "Lying"})) << size;
  }
}

TEST_F(QueryPcmTest, ShortEntriesAreStepsToTheNext) {
  PfmFile stub;
  stub.length = 64;
  PcmFile cartridge;
  cartridge.entries = {Entry("First"), stub.File().substr(0, 64), Entry("Last")};
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), (Names{"First", "Last"}));
}

TEST_F(QueryPcmTest, ListEndsAtItsEndOffset) {
  PcmFile cartridge;
  cartridge.entries = {Entry("First"), Entry("Second")};
  cartridge.end = 16 + 80 + 256;
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), Names{"First"});
  cartridge.end = 0;
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), Names{});
}

TEST_F(QueryPcmTest, EndOffsetBehindTheFileDoesNoHarm) {
  PcmFile cartridge;
  cartridge.entries = {Entry("First"), Entry("Second")};
  cartridge.end = 0xFFFFFFFF;
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), (Names{"First", "Second"}));
}

TEST_F(QueryPcmTest, FirstEntryBehindTheFileIsNone) {
  std::string file = PcmFile{}.File();
  file.replace(4, 4, Le32(0xFFFFFFFF));
  file.replace(12, 4, Le32(0xFFFFFF00));
  ASSERT_EQ(QueryBytes(file), ZE_OK);
  EXPECT_EQ(Fonts(), Names{});
}

// Each entry leads to the one 109 bytes on; the chain is as long as the file allows and no longer.
TEST_F(QueryPcmTest, OverlappingEntriesEnd) {
  PfmFile link;
  link.length = 109;
  link.faceOffset = 40;
  PcmFile cartridge;
  for (int i = 0; i < 1000; ++i) cartridge.entries.push_back(link.File());
  cartridge.end = 0xFFFFFFFF;
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts().size(), 1000U);
}

TEST_F(QueryPcmTest, ListOfAHostileFileIsBounded) {
  PfmFile link;
  link.length = 109;
  link.faceOffset = 40;
  PcmFile cartridge;
  cartridge.entries = std::vector<std::string>(1100, link.File());
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts().size(), 1024U);
}

TEST_F(QueryPcmTest, FaceIsCutTo80Characters) {
  PfmFile font;
  font.length = 1000;
  font.face = std::string(300, 'f');
  font.italic = 1;
  font.weight = 700;
  PcmFile cartridge;
  cartridge.entries = {font.File()};
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(Fonts(), Names{std::string(80, 'f') + " (It) (Bd)"});
}

TEST_F(QueryPcmTest, NameWithoutEndIsCutTo79Characters) {
  PcmFile cartridge;
  cartridge.name = std::string(80, 'c');
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  EXPECT_EQ(info.description, std::string(79, 'c'));
  EXPECT_EQ(info.cartridge->name, std::string(79, 'c'));
}

TEST_F(QueryPcmTest, EmptyNameIsRefused) {
  PcmFile cartridge;
  cartridge.name = "";
  cartridge.entries = {Entry("Courier")};
  EXPECT_EQ(QueryFile(cartridge), ZE_BAD_FORMAT);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryPcmTest, NameBehindTheFileIsRefused) {
  std::string file = PcmFile{}.File();
  for (const std::uint32_t offset : {17U, 96U, 100000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    file.replace(8, 4, Le32(offset));
    EXPECT_EQ(QueryBytes(file), ZE_BAD_FORMAT) << offset;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryPcmTest, BeginningsThatEndBeforeTheNameDoesAreRefused) {
  ExpectOfEachBeginning("cart.pcm", PcmFile{}.File(), ZE_BAD_FORMAT);
}

TEST_F(QueryPcmTest, BeginningsThatEndAmongTheFontsHaveTheFontsBefore) {
  PcmFile cartridge;
  cartridge.entries = {Entry("First"), Entry("Second")};
  const std::string file = cartridge.File();
  for (std::size_t length = 96; length < file.size(); ++length) {
    ASSERT_EQ(QueryBytes(file.substr(0, length)), ZE_OK) << length;
    const Names names = Fonts();
    // The first font's face stands 200 bytes into its entry.
    const std::size_t faceEnd = 96 + 200;
    ASSERT_EQ(names.empty(), length <= faceEnd) << length;
    if (!names.empty()) {
      ASSERT_EQ(names[0], std::string("First").substr(0, length - faceEnd));
    }
    ASSERT_LE(names.size(), 2U);
  }
}

TEST_F(QueryPcmTest, ReleaseFunctionTakesTheWholeStructure) {
  PcmFile cartridge;
  cartridge.entries = {Entry("First"), Entry("Second")};
  ASSERT_EQ(QueryFile(cartridge), ZE_OK);
  FreeCartridge(info.cartridge);  // the leak check of the test run sees the rest
  info.cartridge = nullptr;
  FreeCartridge(nullptr);
}

}  // namespace
}  // namespace zeapi::testing
