// Type 1 outlines: names, encodings, companions.
#include "support/byte_order.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr char kPfaText[] =
    "%!PS-AdobeFont-1.0: Courier\n"
    "/FontInfo 9 dict dup begin\n"
    "/FontName /Courier def\n"
    "/Encoding StandardEncoding def\n";

// A PFB holds the same text behind a segment header, and binary data after it.
std::string Pfb(const std::string& text) {
  return "\x80\x01" + Le32(static_cast<std::uint32_t>(text.size())) + text + "\x80\x02" + Le32(4) +
         Bytes("\0/\xFF/") + "\x80\x03";
}

class QueryType1Test : public FontTest {
 protected:
  std::uint32_t QueryPfa(const std::string& text, std::uint32_t option = 0) {
    WriteFile("font.pfa", text);
    return Query("font.pfa", option);
  }
  std::uint32_t QueryPfb(const std::string& bytes, std::uint32_t option = 0) {
    WriteFile("font.pfb", bytes);
    return Query("font.pfb", option);
  }
};

TEST_F(QueryType1Test, PfaLinesAreReadIn255Characters) {
  ASSERT_EQ(QueryPfa(std::string(255, 'x') + "/FontName /Piece def\n"), ZE_OK);
  EXPECT_STREQ(info.description, "Piece");
  ASSERT_EQ(QueryPfa(std::string(510, 'x') + "/FontName /Second\n"), ZE_OK);
  EXPECT_STREQ(info.description, "Second");
  for (const std::size_t before : {1U, 254U, 256U}) {
    EXPECT_EQ(QueryPfa(std::string(before, 'x') + "/FontName /Courier\n"), ZE_BAD_FORMAT) << before;
  }
}

TEST_F(QueryType1Test, PfaFillsTheRecord) {
  const std::string text = kPfaText + std::string(10000, '0');
  ASSERT_EQ(QueryPfa(text), ZE_OK);
  EXPECT_EQ(info.flags, 0x2AU);
  EXPECT_EQ(info.kind, 3U);
  EXPECT_EQ(info.format, 2U);
  EXPECT_EQ(info.fileSize, text.size());
  EXPECT_EQ(info.printerMemory, text.size() * 5172 / 10000);
  EXPECT_STREQ(info.description, "Courier");
  EXPECT_STREQ(info.detail, "");
  EXPECT_STREQ(info.symbolSet, "");
  EXPECT_STREQ(info.companionFile, "");
  EXPECT_STREQ(info.metricsFile, "");
}

TEST_F(QueryType1Test, PfbFillsTheRecord) {
  const std::string bytes = Pfb(kPfaText);
  ASSERT_EQ(QueryPfb(bytes), ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
  EXPECT_EQ(info.kind, 3U);
  EXPECT_EQ(info.format, 2U);
  EXPECT_EQ(info.fileSize, bytes.size());
  EXPECT_EQ(info.printerMemory, bytes.size() * 11531 / 10000);
  EXPECT_STREQ(info.description, "Courier");
}

TEST_F(QueryType1Test, PrinterMemoryIsTruncated) {
  std::string text = "/FontName /Courier\n";
  text.resize(10000, ' ');
  ASSERT_EQ(QueryPfa(text), ZE_OK);
  EXPECT_EQ(info.printerMemory, 5172U);
  ASSERT_EQ(QueryPfb(text), ZE_OK);
  EXPECT_EQ(info.printerMemory, 11531U);
  text.resize(10001, ' ');
  ASSERT_EQ(QueryPfa(text), ZE_OK);
  EXPECT_EQ(info.printerMemory, 5172U);  // 5172.5172
  ASSERT_EQ(QueryPfb(text), ZE_OK);
  EXPECT_EQ(info.printerMemory, 11532U);  // 11532.1531
  text.resize(9999, ' ');
  ASSERT_EQ(QueryPfa(text), ZE_OK);
  EXPECT_EQ(info.printerMemory, 5171U);  // 5171.4828
}

TEST_F(QueryType1Test, FilesThatDoNotOpen) {
  for (const char* path : {"folder.pfa", "folder.pfb"}) {
    fs::create_directory(path);
    EXPECT_EQ(Query(path), ZE_OPEN_FAILED) << path;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryType1Test, FilesWithoutANameAreRefused) {
  for (const char* text :
       {"", "/FontName Courier", "/FontName/Courier", "/FontName /", "FontName /C",
        "/FontName / Courier", "/fontname /Courier", "/FontName  /Courier"}) {
    EXPECT_EQ(QueryPfa(text), ZE_BAD_FORMAT) << text;
    EXPECT_TRUE(OnlyScreened());
    EXPECT_EQ(QueryPfb(text), ZE_BAD_FORMAT) << text;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryType1Test, PfaNameBeginsItsLine) {
  EXPECT_EQ(QueryPfa("  /FontName /Courier def\n"), ZE_BAD_FORMAT);
  EXPECT_EQ(QueryPfa("dup /FontName /Courier def\n"), ZE_BAD_FORMAT);
  ASSERT_EQ(QueryPfa("dup /FontName /No def\n/FontName /Courier def\n/FontName /Late def\n"),
            ZE_OK);
  EXPECT_STREQ(info.description, "Courier");
}

TEST_F(QueryType1Test, NameEndsAtASpaceOrTheEnd) {
  for (const char* end : {"", " def", " "}) {
    const std::string text = std::string("/FontName /Courier") + end;
    ASSERT_EQ(QueryPfa(text), ZE_OK) << text;
    EXPECT_STREQ(info.description, "Courier");
    ASSERT_EQ(QueryPfb(text), ZE_OK) << text;
    EXPECT_STREQ(info.description, "Courier");
  }
}

// In a PFB file, lines are nothing of their own.
TEST_F(QueryType1Test, OtherWhiteSpaceBelongsToTheName) {
  for (const char* inside : {"\t", "\f", "\v"}) {
    const std::string name = std::string("Cour") + inside + "ier";
    ASSERT_EQ(QueryPfa("/FontName /" + name + " def"), ZE_OK);
    EXPECT_EQ(info.description, name);
    ASSERT_EQ(QueryPfb("/FontName /" + name + " def"), ZE_OK);
    EXPECT_EQ(info.description, name);
  }
  ASSERT_EQ(QueryPfb("/FontName /Courier\r\ndef x"), ZE_OK);
  EXPECT_STREQ(info.description, "Courier\r\ndef");
}

TEST_F(QueryType1Test, PfaLinesEndInAnyWay) {
  for (const char* end : {"\n", "\r\n", "\r"}) {
    ASSERT_EQ(QueryPfa(std::string("%!PS") + end + "/FontName /Courier" + end), ZE_OK);
    EXPECT_STREQ(info.description, "Courier");
  }
}

TEST_F(QueryType1Test, PfaNameWithoutEndIsCutTo79Characters) {
  ASSERT_EQ(QueryPfa("/FontName /" + std::string(100000, 'n')), ZE_OK);
  EXPECT_EQ(info.description, std::string(79, 'n'));
}

TEST_F(QueryType1Test, PfaWithoutLineEndsIsRefused) {
  EXPECT_EQ(QueryPfa(std::string(100000, 'n') + "/FontName /Courier"), ZE_BAD_FORMAT);
}

TEST_F(QueryType1Test, PfbNameStandsAnywhere) {
  ASSERT_EQ(QueryPfb("dup/FontName /Courier def"), ZE_OK);
  EXPECT_STREQ(info.description, "Courier");
}

TEST_F(QueryType1Test, PfbNameShortlyAfterAnotherSlashIsSeen) {
  ASSERT_EQ(QueryPfb("/x /y/FontName /Courier def /z"), ZE_OK);
  EXPECT_STREQ(info.description, "Courier");
  ASSERT_EQ(QueryPfb("//FontName /Courier def"), ZE_OK);
  EXPECT_STREQ(info.description, "Courier");
}

TEST_F(QueryType1Test, PfbNameIsCutByTheFortyCharactersLookedAt) {
  ASSERT_EQ(QueryPfb("/FontName /" + std::string(100, 'n')), ZE_OK);
  EXPECT_EQ(info.description, std::string(30, 'n'));
}

TEST_F(QueryType1Test, PfbIsReadToItsEndForTheName) {
  for (const std::size_t before : {8140U, 8180U, 8190U, 8191U, 8192U, 8193U, 100000U}) {
    ASSERT_EQ(QueryPfb(std::string(before, 'x') + "/FontName /Courier"), ZE_OK) << before;
    EXPECT_STREQ(info.description, "Courier");
    ASSERT_EQ(QueryPfb(std::string(before, '/') + "/FontName /Courier"), ZE_OK) << before;
    EXPECT_STREQ(info.description, "Courier");
  }
}

TEST_F(QueryType1Test, EncodingOfItsOwnClearsTheStandardFlag) {
  ASSERT_EQ(QueryPfb(Pfb("/FontName /Symbol def\n/Encoding 256 array\n0 1 255 {}\n")), ZE_OK);
  EXPECT_EQ(info.flags, 0x29U);
  ASSERT_EQ(QueryPfb(Pfb("/Encoding 256 array\n0 1 255 {}\n/FontName /Symbol def\n")), ZE_OK);
  EXPECT_EQ(info.flags, 0x29U);
  ASSERT_EQ(QueryPfb(Pfb("/FontName /Courier def\n/Encoding StandardEncoding def\n")), ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
}

TEST_F(QueryType1Test, FontWithoutAnEncodingKeepsTheStandardFlag) {
  ASSERT_EQ(QueryPfb("/FontName /Courier def"), ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
  ASSERT_EQ(QueryPfb("/FontName /Courier def /EncodingVector 1"), ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
}

TEST_F(QueryType1Test, EncodingNameMustLieWithinFortyCharacters) {
  const std::string name = "/FontName /C ";
  ASSERT_EQ(QueryPfb(name + "/Encoding" + std::string(16, ' ') + "StandardEncoding def"), ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
  ASSERT_EQ(QueryPfb(name + "/Encoding" + std::string(17, ' ') + "StandardEncoding def"), ZE_OK);
  EXPECT_EQ(info.flags, 0x29U);
}

TEST_F(QueryType1Test, NothingIsReadAfterANameAndAnEncoding) {
  ASSERT_EQ(QueryPfb("/FontName /Courier /Encoding StandardEncoding def /Encoding 256 array"),
            ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
}

TEST_F(QueryType1Test, PfaEncodingIsNotLookedAt) {
  ASSERT_EQ(QueryPfa("/FontName /Symbol def\n/Encoding 256 array\n"), ZE_OK);
  EXPECT_EQ(info.flags, 0x2AU);
}

TEST_F(QueryType1Test, EveryBeginningBeforeTheNameIsRefused) {
  ExpectOfEachBeginning("font.pfa", "%!PS\n/FontName /C", ZE_BAD_FORMAT);
  ExpectOfEachBeginning("font.pfb", "\x80\x01" + Le32(99) + "%!/PS /FontName /C", ZE_BAD_FORMAT);
}

// --- Companions

struct CompanionRow {
  const char* present;  // letters: P(FM), I(NF), A(FM)
  std::uint32_t option;
  std::uint32_t result;
  const char* companion;
  const char* metrics;
};

class Type1CompanionTest : public FontTest, public ::testing::WithParamInterface<CompanionRow> {};

TEST_P(Type1CompanionTest, AreFoundAsTheOptionAsks) {
  const CompanionRow& row = GetParam();
  for (const char* present = row.present; *present != '\0'; ++present) {
    Touch(*present == 'P' ? "font.PFM" : *present == 'I' ? "font.INF" : "font.AFM");
  }
  WriteFile("font.pfa", kPfaText);
  WriteFile("font.pfb", Pfb(kPfaText));
  for (const char* path : {"font.pfa", "font.pfb"}) {
    EXPECT_EQ(Query(path, row.option), row.result) << path;
    EXPECT_STREQ(info.companionFile, row.companion);
    EXPECT_STREQ(info.metricsFile, row.metrics);
    EXPECT_STREQ(info.description, "Courier");  // filled whatever is missing
    EXPECT_EQ(info.kind, 3U);
    EXPECT_NE(info.printerMemory, 0U);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Options, Type1CompanionTest,
    ::testing::Values(
        // 4: the PFM, or the INF and the AFM
        CompanionRow{"", 4, 32, "", ""}, CompanionRow{"P", 4, 0, "", "font.PFM"},
        CompanionRow{"PIA", 4, 0, "", "font.PFM"}, CompanionRow{"I", 4, 32, "", ""},
        CompanionRow{"A", 4, 32, "", ""}, CompanionRow{"IA", 4, 0, "font.AFM", "font.PFM"},
        // 5: the same, nothing is missed
        CompanionRow{"", 5, 0, "", ""}, CompanionRow{"P", 5, 0, "", "font.PFM"},
        CompanionRow{"PIA", 5, 0, "", "font.PFM"}, CompanionRow{"I", 5, 0, "", ""},
        CompanionRow{"A", 5, 0, "", ""}, CompanionRow{"IA", 5, 0, "font.AFM", "font.PFM"},
        // 2: the AFM
        CompanionRow{"", 2, 32, "", ""}, CompanionRow{"PI", 2, 32, "", ""},
        CompanionRow{"A", 2, 0, "font.AFM", "font.PFM"},
        CompanionRow{"PIA", 2, 0, "font.AFM", "font.PFM"},
        // any other: none
        CompanionRow{"PIA", 0, 0, "", ""}, CompanionRow{"PIA", 1, 0, "", ""},
        CompanionRow{"PIA", 3, 0, "", ""}, CompanionRow{"PIA", 6, 0, "", ""},
        CompanionRow{"", 0xFFFFFFFF, 0, "", ""}));

TEST_F(QueryType1Test, CompanionsStandBesideTheFont) {
  fs::create_directory("fonts.old");
  WriteFile("fonts.old/font.pfa", kPfaText);
  Touch("fonts.old/font.AFM");
  ASSERT_EQ(Query("fonts.old\\font.pfa", 2), ZE_OK);
  EXPECT_STREQ(info.companionFile, "fonts.old\\font.AFM");
  EXPECT_STREQ(info.metricsFile, "fonts.old\\font.PFM");
}

#ifndef _WIN32  // paths of this length do not exist there
TEST_F(QueryType1Test, CompanionWhosePathDoesNotFitCountsAsMissing) {
  std::string folder;
  while (folder.size() < 200) folder += "folder/";
  fs::create_directories(folder);
  const auto font = [&](std::size_t length) {
    return folder + std::string(length - folder.size() - 4, 'f');
  };
  for (const std::size_t length : {259U, 260U}) {
    const std::string base = font(length);
    WriteFile(base + ".pfa", kPfaText);
    Touch(base + ".AFM");
    EXPECT_EQ(Query(base + ".pfa", 2), length == 259 ? 0U : 32U);
    EXPECT_EQ(info.companionFile, length == 259 ? base + ".AFM" : "");
  }
}
#endif

}  // namespace
}  // namespace zeapi::testing
