// AFM files with their INF and PFB companions.
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class QueryAfmTest : public FontTest {
 protected:
  void SetUp() override {
    FontTest::SetUp();
    WriteFile("font.afm", "StartFontMetrics 2.0\nFontName Courier-Bold\nEndFontMetrics\n");
    Touch("font.PFB");
  }
  std::string DetailOf(const std::string& inf) {
    WriteFile("font.INF", inf);
    EXPECT_EQ(Query("font.afm", 4), ZE_OK);
    return info.detail;
  }
};

TEST_F(QueryAfmTest, FillsTheRecord) {
  WriteFile("font.INF", "MSMenuName (Courier)\nVPStyle (B)\n");
  ASSERT_EQ(Query("font.afm"), ZE_OK);
  EXPECT_EQ(info.flags, 0x0AU);
  EXPECT_EQ(info.kind, 4U);
  EXPECT_EQ(info.format, 2U);
  EXPECT_EQ(info.fileSize, fs::file_size("font.afm"));
  EXPECT_EQ(info.printerMemory, 0U);
  EXPECT_STREQ(info.description, "Courier-Bold");
  EXPECT_STREQ(info.detail, "Courier,BOLD");
  EXPECT_STREQ(info.companionFile, "font.PFB");
  EXPECT_STREQ(info.metricsFile, "");
  EXPECT_STREQ(info.symbolSet, "");
}

#ifndef _WIN32  // paths of this length do not exist there
TEST_F(QueryAfmTest, InfIsReadAndPfbIsMissingWherePathsHave260Characters) {
  std::string font;
  while (font.size() < 240) font += "folder/";
  fs::create_directories(font);
  font += std::string(256 - font.size(), 'f');
  WriteFile(font + ".afm", "StartFontMetrics 2.0\nFontName Courier-Bold\nEndFontMetrics\n");
  WriteFile(font + ".INF", "MSMenuName (Courier)\n");
  Touch(font + ".PFB");
  for (const std::uint32_t option : {0U, 2U, 4U, 5U}) {
    EXPECT_EQ(Query(font + ".afm", option), ZE_UNSUPPORTED) << option;
    EXPECT_STREQ(info.description, "Courier-Bold");
    EXPECT_STREQ(info.detail, "Courier");
    EXPECT_STREQ(info.companionFile, "");
  }
}
#endif

TEST_F(QueryAfmTest, DetailIsTheMenuNameAndItsStyle) {
  EXPECT_EQ(DetailOf("MSMenuName (Courier)\nVPStyle (B)\n"), "Courier,BOLD");
  EXPECT_EQ(DetailOf("MSMenuName (Courier)\nVPStyle (I)\n"), "Courier,ITALIC");
  EXPECT_EQ(DetailOf("VPStyle (T)\r\nMSMenuName (Courier)\r\n"), "Courier,BOLDITALIC");
}

TEST_F(QueryAfmTest, OtherStylesGiveTheMenuNameAlone) {
  for (const char* style : {"N", "b", "x", "", ")", " B"}) {
    EXPECT_EQ(DetailOf(std::string("MSMenuName (Courier)\nVPStyle (") + style + ")\n"), "Courier");
  }
  EXPECT_EQ(DetailOf("MSMenuName (Courier)\n"), "Courier");
  EXPECT_EQ(DetailOf("MSMenuName (Courier)\nVPStyle B\n"), "Courier");
}

TEST_F(QueryAfmTest, NoMenuNameNoDetail) {
  EXPECT_EQ(DetailOf("VPStyle (B)\n"), "");
  EXPECT_EQ(DetailOf("MSMenuName ()\nVPStyle (B)\n"), "");
  EXPECT_EQ(DetailOf("MSMenuName(Courier)\n"), "");
  EXPECT_EQ(DetailOf(" MSMenuName (Courier)\n"), "");
}

TEST_F(QueryAfmTest, LongTextsAreCutTo79Characters) {
  const std::string name(200, 'n');
  WriteFile("font.afm", "FontName " + name + "\n");
  EXPECT_EQ(DetailOf("MSMenuName (" + name + ")\nVPStyle (T)\n"), name.substr(0, 79));
  EXPECT_EQ(info.description, name.substr(0, 79));
  EXPECT_EQ(DetailOf("MSMenuName (" + name.substr(0, 75) + ")\nVPStyle (T)\n"),
            name.substr(0, 75) + ",BOL");
}

TEST_F(QueryAfmTest, MissingInfIsNamedByTheOption) {
  EXPECT_EQ(Query("font.afm", 4), ZE_UNSUPPORTED);
  EXPECT_TRUE(OnlyScreened());
  EXPECT_EQ(Query("font.afm", 5), ZE_OK);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryAfmTest, OtherOptionsNeedNoInf) {
  for (const std::uint32_t option : {0U, 1U, 2U, 3U, 6U}) {
    EXPECT_EQ(Query("font.afm", option), ZE_OK) << option;
    EXPECT_STREQ(info.description, "Courier-Bold");
    EXPECT_STREQ(info.detail, "");
  }
}

TEST_F(QueryAfmTest, InfIsLookedForBeforeTheAfmIsOpened) {
  fs::create_directory("folder.afm");
  EXPECT_EQ(Query("folder.afm", 4), ZE_UNSUPPORTED);
  EXPECT_EQ(Query("folder.afm", 5), ZE_OK);
  EXPECT_EQ(Query("folder.afm"), ZE_OPEN_FAILED);
  Touch("folder.INF");
  EXPECT_EQ(Query("folder.afm", 4), ZE_OPEN_FAILED);
  EXPECT_EQ(Query("folder.afm", 5), ZE_OPEN_FAILED);
}

TEST_F(QueryAfmTest, InfThatDoesNotOpen) {
  fs::create_directory("font.INF");
  EXPECT_EQ(Query("font.afm", 4), ZE_OPEN_FAILED);
  EXPECT_TRUE(OnlyScreened());
  EXPECT_EQ(Query("font.afm", 5), ZE_OK);
  EXPECT_TRUE(OnlyScreened());
  EXPECT_EQ(Query("font.afm", 2), ZE_OK);
  EXPECT_STREQ(info.description, "Courier-Bold");
}

TEST_F(QueryAfmTest, AfmWithoutANameIsRefused) {
  for (const char* text : {"", "StartFontMetrics 2.0\nEndFontMetrics\n", "FontName\n",
                           "EndFontMetrics\nFontName Late\n"}) {
    WriteFile("font.afm", text);
    EXPECT_EQ(Query("font.afm"), ZE_BAD_FORMAT) << text;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryAfmTest, MissingPfbIsAlwaysReportedAndTheRecordFilled) {
  fs::remove("font.PFB");
  WriteFile("font.INF", "MSMenuName (Courier)\n");
  for (const std::uint32_t option : {0U, 2U, 4U, 5U}) {
    EXPECT_EQ(Query("font.afm", option), ZE_UNSUPPORTED) << option;
    EXPECT_EQ(info.flags, 0x0AU);
    EXPECT_EQ(info.kind, 4U);
    EXPECT_EQ(info.format, 2U);
    EXPECT_STREQ(info.description, "Courier-Bold");
    EXPECT_STREQ(info.detail, "Courier");
    EXPECT_STREQ(info.companionFile, "");
  }
}

TEST_F(QueryAfmTest, EveryBeginningBeforeTheNameIsRefused) {
  ExpectOfEachBeginning("font.afm", "StartFontMetrics 2.0\nFontName C", ZE_BAD_FORMAT);
}

TEST_F(QueryAfmTest, EveryBeginningOfAnInfIsRead) {
  const std::string inf = "MSMenuName (Courier)\nVPStyle (B)\n";
  for (std::size_t length = 0; length <= inf.size(); ++length) {
    const std::string detail = DetailOf(inf.substr(0, length));
    EXPECT_EQ(detail, length < 20 ? "" : length < 31 ? "Courier" : "Courier,BOLD") << length;
  }
}

}  // namespace
}  // namespace zeapi::testing
