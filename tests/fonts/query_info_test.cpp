// What ZeFonQueryInfo does before it looks into a file, and the kinds that it tells by name alone.
#include "fonts/query_info.h"

#include <cstring>

#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class QueryInfoTest : public FontTest {};

TEST_F(QueryInfoTest, NullPathClearsTheRecord) {
  std::memset(&info, 0xFF, sizeof(info));
  EXPECT_EQ(ZeFonQueryInfo(nullptr, &info, 0, 1), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(AllZero());
}

TEST_F(QueryInfoTest, NullRecordIsRefused) {
  Touch("font.ttf");
  EXPECT_EQ(ZeFonQueryInfo("font.ttf", nullptr, 0, 1), ZE_INVALID_ARGUMENT);
}

TEST_F(QueryInfoTest, PathsOf261CharactersAreRefusedBeforeTheyAreLookedFor) {
  EXPECT_EQ(Query(std::string(257, 'x') + ".ttf"), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(AllZero());
  EXPECT_EQ(Query(std::string(256, 'x') + ".ttf"), ZE_FILE_NOT_FOUND);
}

TEST_F(QueryInfoTest, MissingFile) {
  EXPECT_EQ(Query("font.ttf"), ZE_FILE_NOT_FOUND);
  EXPECT_TRUE(AllZero());
}

TEST_F(QueryInfoTest, ExistenceIsCheckedBeforeTheExtension) {
  EXPECT_EQ(Query("font"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Query("font.txt"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Query(""), ZE_FILE_NOT_FOUND);
}

TEST_F(QueryInfoTest, NameWithoutExtensionIsRefused) {
  Touch("font");
  EXPECT_EQ(Query("font"), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(AllZero());
}

#ifndef _WIN32  // Windows drops a dot at the end of a name
TEST_F(QueryInfoTest, NameThatEndsInItsDotIsRefused) {
  Touch("font.");
  EXPECT_EQ(Query("font."), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(AllZero());
}
#endif

class RefusedExtensionTest : public FontTest, public ::testing::WithParamInterface<const char*> {};

// A PCL soft font under each of the names would be recognised if it were looked at.
TEST_P(RefusedExtensionTest, IsRefusedUnopened) {
  const std::string path = std::string("font.") + GetParam();
  WriteFile(path, PclFontFile{}.File());
  EXPECT_EQ(Query(path), ZE_BAD_FORMAT);
  EXPECT_TRUE(AllZero());
  EXPECT_FALSE(fs::exists(DumpFile()));
}

INSTANTIATE_TEST_SUITE_P(Extensions, RefusedExtensionTest,
                         ::testing::Values("CFG", "FF", "TYP", "TXT", "ME", "BAT", "CMD", "COM",
                                           "EXE", "txt", "Exe", "txtold", "command", "me"));

TEST_F(QueryInfoTest, ExtensionIsCutToThreeCharacters) {
  WriteFile("font.readme", PclFontFile{}.File());
  EXPECT_EQ(Query("font.readme"), ZE_OK);
  EXPECT_EQ(info.format, unsigned{ZE_FONT_PCL_BITMAP});
  Touch("font.ttfold");
  EXPECT_EQ(Query("font.ttfold"), ZE_OK);
  EXPECT_EQ(info.kind, unsigned{ZE_FONT_KIND_TRUETYPE});
}

TEST_F(QueryInfoTest, ShorterExtensionsAreNotTheRefusedOnes) {
  for (const char* path : {"font.f", "font.m", "font.mex", "font.ffx"}) {
    WriteFile(path, PclFontFile{}.File());
    EXPECT_EQ(Query(path), ZE_OK) << path;
  }
}

// Keeps taking the last dot of the whole path: the folder's "V2\" is the extension.
TEST_F(QueryInfoTest, KeepsTakingTheExtensionFromAFolderWithADot) {
  fs::create_directory("FONTS.V2");
  WriteFile("FONTS.V2/COURIER", PclFontFile{}.File());
  EXPECT_EQ(Query("FONTS.V2\\COURIER"), ZE_OK);
  EXPECT_EQ(info.format, unsigned{ZE_FONT_PCL_BITMAP});
  fs::create_directory("FONTS.TTF");
  Touch("FONTS.TTF/COURIER");
  EXPECT_EQ(Query("FONTS.TTF\\COURIER"), ZE_OK);
  EXPECT_EQ(info.kind, unsigned{ZE_FONT_KIND_TRUETYPE});
}

struct MetricKind {
  const char* path;
  std::string file;
};

TEST_F(QueryInfoTest, MetricFilesAreRefusedWhenTheyAreNotIncluded) {
  const MetricKind kinds[] = {{"a.afm", "FontName Courier\n"},
                              {"a.fmf", FmfFile("Courier")},
                              {"a.pfm", PfmFile{}.File()},
                              {"a.psm", PfmFile{}.File()},
                              {"a.pbm", PfmFile{}.File()},
                              {"a.pcm", PcmFile{}.File()},
                              {"a.tfm", "x"}};
  Touch("a.pfb");
  for (const auto& [path, file] : kinds) {
    WriteFile(path, file);
    EXPECT_EQ(QueryWithoutMetricFiles(path), ZE_BAD_FORMAT) << path;
    EXPECT_TRUE(OnlyScreened()) << path;
    EXPECT_EQ(info.fileSize, file.size()) << path;
    EXPECT_EQ(Query(path), ZE_OK) << path;
  }
}

TEST_F(QueryInfoTest, OtherKindsAreNotMetricFiles) {
  WriteFile("a.pfa", "/FontName /Courier\n");
  WriteFile("a.pfb", "/FontName /Courier\n");
  WriteFile("a.dlf", DlfFile{}.File());
  WriteFile("a.sfp", PclFontFile{}.File());
  Touch("a.ttf");
  for (const char* path : {"a.pfa", "a.pfb", "a.dlf", "a.sfp", "a.ttf"}) {
    EXPECT_EQ(QueryWithoutMetricFiles(path), ZE_OK) << path;
  }
  Touch("a.fot");
  EXPECT_EQ(QueryWithoutMetricFiles("a.fot"), ZE_BAD_FORMAT);
  EXPECT_EQ(info.format, unsigned{ZE_FONT_HOST_TRUETYPE});
}

TEST_F(QueryInfoTest, Tfm) {
  WriteFile("courier.tfm", "12345");
  ASSERT_EQ(Query("courier.tfm"), ZE_OK);
  EXPECT_EQ(info.flags, 0x03U);
  EXPECT_EQ(info.kind, 2U);
  EXPECT_EQ(info.format, 22U);
  EXPECT_EQ(info.fileSize, 5U);
  EXPECT_EQ(info.printerMemory, 0U);
  EXPECT_STREQ(info.description, "courier");
  EXPECT_STREQ(info.detail, "");
  EXPECT_STREQ(info.symbolSet, "");
  EXPECT_STREQ(info.companionFile, "");
  EXPECT_STREQ(info.metricsFile, "");
  EXPECT_TRUE(info.cartridge == nullptr);
}

TEST_F(QueryInfoTest, Ttf) {
  WriteFile("Arial.TTF", "123");
  ASSERT_EQ(Query("Arial.TTF"), ZE_OK);
  EXPECT_EQ(info.flags, 0x03U);
  EXPECT_EQ(info.kind, 5U);
  EXPECT_EQ(info.format, 21U);
  EXPECT_EQ(info.fileSize, 3U);
  EXPECT_EQ(info.printerMemory, 0U);
  EXPECT_STREQ(info.description, "Arial");
}

TEST_F(QueryInfoTest, KeepsReportingFotFilesAsUnusableThoughTheRecordIsFilled) {
  WriteFile("arial.fot", "1234");
  EXPECT_EQ(Query("arial.fot"), ZE_BAD_FORMAT);
  EXPECT_EQ(info.flags, 0x03U);
  EXPECT_EQ(info.kind, 2U);
  EXPECT_EQ(info.format, 21U);
  EXPECT_EQ(info.fileSize, 4U);
  EXPECT_STREQ(info.description, "arial");
}

TEST_F(QueryInfoTest, NamedKindsAreNotOpened) {
  for (const char* path : {"folder.tfm", "folder.ttf"}) {
    fs::create_directory(path);
    EXPECT_EQ(Query(path), ZE_OK) << path;
  }
}

TEST_F(QueryInfoTest, BaseNameEndsAtItsFirstDot) {
  Touch("arial.bold.ttf");
  ASSERT_EQ(Query("arial.bold.ttf"), ZE_OK);
  EXPECT_STREQ(info.description, "arial");
}

TEST_F(QueryInfoTest, BaseNameFollowsTheLastBackslash) {
  fs::create_directories("fonts.new/sub");
  Touch("fonts.new/sub/arial.ttf");
  ASSERT_EQ(Query("fonts.new\\sub\\arial.ttf"), ZE_OK);
  EXPECT_STREQ(info.description, "arial");
}

TEST_F(QueryInfoTest, KeepsOtherSlashesInTheBaseName) {
  fs::create_directories("fonts/sub");
  Touch("fonts/sub/arial.ttf");
  ASSERT_EQ(Query("fonts/sub/arial.ttf"), ZE_OK);
  EXPECT_STREQ(info.description, "fonts/sub/arial");
  ASSERT_EQ(Query("fonts\\sub/arial.ttf"), ZE_OK);
  EXPECT_STREQ(info.description, "sub/arial");
}

TEST_F(QueryInfoTest, BaseNameStartsAnewAfterAColon) {
  WriteFile(DriveC() / "zeapi-arial.ttf", "x");
  EXPECT_EQ(Query("c:/zeapi-arial.ttf"), ZE_OK);
  EXPECT_STREQ(info.description, "/zeapi-arial");
  fs::remove(DriveC() / "zeapi-arial.ttf");
}

TEST_F(QueryInfoTest, LongBaseNameIsCutTo79Characters) {
  const std::string name(120, 'n');
  Touch(name + ".ttf");
  ASSERT_EQ(Query(name + ".ttf"), ZE_OK);
  EXPECT_EQ(info.description, name.substr(0, 79));
}

TEST_F(QueryInfoTest, RecordHasItsSize) {
  EXPECT_EQ(sizeof(ZeFontInfo), 710 + sizeof(void*));
  EXPECT_EQ(offsetof(ZeFontInfo, cartridge), 710U);
}

}  // namespace
}  // namespace zeapi::testing
