// DLF fonts and their FMF metrics.
#include "fonts/dlf_font.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class QueryDlfTest : public FontTest {
 protected:
  std::uint32_t QueryFile(const std::string& file, std::uint32_t option = 0) {
    WriteFile("font.dlf", file);
    return Query("font.dlf", option);
  }
  std::string Description(const DlfFile& font) {
    EXPECT_EQ(QueryFile(font.File()), ZE_OK);
    return info.description;
  }
};

TEST_F(QueryDlfTest, FillsTheRecord) {
  const std::string file = DlfFile{}.File() + "data";
  ASSERT_EQ(QueryFile(file), ZE_OK);
  EXPECT_EQ(info.flags, 0x0BU);
  EXPECT_EQ(info.kind, 3U);
  EXPECT_EQ(info.format, 6U);
  EXPECT_EQ(info.fileSize, file.size());
  EXPECT_EQ(info.printerMemory, file.size() + 320);
  EXPECT_STREQ(info.description, "Courier                      10.0 pitch  cp: 850 ");
  EXPECT_STREQ(info.detail, "");
  EXPECT_STREQ(info.companionFile, "");
}

TEST_F(QueryDlfTest, PlainFixedPitch) {
  DlfFile font;
  font.divisor = 5890;
  font.letter = 0x5F;
  font.codePage = 437;
  EXPECT_EQ(Description(font), "Courier                      12.2 pitch  cp: 437E");
  font.divisor = 6000;
  font.letter = 0xF0;
  EXPECT_EQ(Description(font), "Courier                      12.0 pitch  cp: 437O");
  font.letter = 0x0F;
  font.codePage = 0xFFFF;
  EXPECT_EQ(Description(font), "Courier                      12.0 pitch  cp:65535 ");
}

TEST_F(QueryDlfTest, KeepsWrappedTenths) {
  DlfFile font;
  font.divisor = 4800 - 480;  // 16.666: 17 and -3
  EXPECT_EQ(Description(font), "Courier                     17.4294967293 pitch  cp: 850 ");
  font.flags = 0;
  font.points = 1060;
  EXPECT_EQ(Description(font), "Courier                Typo  11.4294967292 point  cp: 850 ");
}

TEST_F(QueryDlfTest, PitchWithoutADivisorIsLeftEmpty) {
  DlfFile font;
  font.divisor = 0;
  EXPECT_EQ(Description(font), "Courier                           pitch  cp: 850 ");
  font.referenced = true;
  EXPECT_EQ(Description(font), "Courier                           pitch  Referenced  cp: 850 ");
}

TEST_F(QueryDlfTest, PlainProportional) {
  DlfFile font;
  font.flags = 0;
  font.letter = 0x30;
  EXPECT_EQ(Description(font), "Courier                Typo  12.0 point  cp: 850C");
  font.flags = 2;
  EXPECT_EQ(Description(font), "Courier                PS    12.0 point  cp: 850C");
  font.points = 825;
  EXPECT_EQ(Description(font), "Courier                PS     8.3 point  cp: 850C");
}

TEST_F(QueryDlfTest, ReferencedFixedPitchHasABlankForItsLetter) {
  DlfFile font;
  font.referenced = true;
  EXPECT_EQ(Description(font), "Courier                      10.0 pitch  Referenced  cp: 850 ");
}

TEST_F(QueryDlfTest, ReferencedProportional) {
  DlfFile font;
  font.referenced = true;
  font.flags = 2;
  EXPECT_EQ(Description(font), "Courier              PS     12.0 point  Referenced  cp: 850");
  font.flags = 0;
  EXPECT_EQ(Description(font), "Courier              Typo   12.0 point  Referenced  cp: 850");
}

TEST_F(QueryDlfTest, FlagsBesideTheLowestTwoMeanNothing) {
  DlfFile font;
  font.flags = 0xFD;
  EXPECT_EQ(Description(font), "Courier                      10.0 pitch  cp: 850 ");
}

TEST_F(QueryDlfTest, NameLengthIsTheLengthFieldLess36) {
  DlfFile font;
  font.name = "ABCDEFGHIJKLMNOPQRSTUVWX";
  font.length = 36 + 5;
  EXPECT_EQ(Description(font), "ABCDE                        10.0 pitch  cp: 850 ");
  font.length = 36 + 24;
  EXPECT_EQ(Description(font), "ABCDEFGHIJKLMNOPQRSTUVWX     10.0 pitch  cp: 850 ");
  font.length = 36;
  EXPECT_EQ(Description(font), "                             10.0 pitch  cp: 850 ");
}

TEST_F(QueryDlfTest, LengthThatCannotBeMeans24Characters) {
  DlfFile font;
  font.name = "ABCDEFGHIJKLMNOPQRSTUVWX";
  for (const int length : {0, 35, 36 + 25, 0xFFFF}) {
    font.length = static_cast<std::uint16_t>(length);
    EXPECT_EQ(Description(font), "ABCDEFGHIJKLMNOPQRSTUVWX     10.0 pitch  cp: 850 ") << length;
  }
}

TEST_F(QueryDlfTest, ProportionalNamesAreCut) {
  DlfFile font;
  font.name = "ABCDEFGHIJKLMNOPQRSTUVWX";
  font.flags = 2;
  EXPECT_EQ(Description(font), "ABCDEFGHIJKLMNOPQRSTUV PS    12.0 point  cp: 850 ");
  font.referenced = true;
  EXPECT_EQ(Description(font), "ABCDEFGHIJKLMNOPQRST PS     12.0 point  Referenced  cp: 850");
}

TEST_F(QueryDlfTest, ControlCharactersInTheNameBecomeBlanks) {
  DlfFile font;
  font.name = Bytes("A\0B\x1F\x7F\x80");
  font.length = 36 + 6;
  EXPECT_EQ(Description(font), "A B \x7F\x80                       10.0 pitch  cp: 850 ");
}

TEST_F(QueryDlfTest, LongestDescriptionFitsItsField) {
  DlfFile font;
  font.referenced = true;
  font.name = "ABCDEFGHIJKLMNOPQRSTUVWX";
  font.flags = 0;
  font.points = 0xFFFFFFFF;  // 42949672.95
  font.codePage = 0xFFFF;
  EXPECT_EQ(Description(font), "ABCDEFGHIJKLMNOPQRST Typo  42949673.0 point  Referenced  cp:65535");
  font.points = 0xFFFFFFFF - 45;  // .5
  EXPECT_EQ(Description(font),
            "ABCDEFGHIJKLMNOPQRST Typo  42949673.4294967291 point  Referenced  cp:65535");
}

TEST_F(QueryDlfTest, DescriptionIsCutToItsRoom) {
  WriteFile("font.dlf", DlfFile{}.File());
  std::FILE* file = std::fopen("font.dlf", "rb");
  ASSERT_NE(file, nullptr);
  char text[9];
  DescribeDlfFont(file, text, sizeof(text));
  std::fclose(file);
  EXPECT_STREQ(text, "Courier ");
}

TEST_F(QueryDlfTest, OtherFilesAreRefused) {
  const std::string file = DlfFile{}.File();
  for (const std::size_t damaged : {0U, 1U, 4U, 5U, 6U}) {
    std::string other = file;
    other[damaged] = 'x';
    EXPECT_EQ(QueryFile(other), ZE_BAD_FORMAT) << damaged;
    EXPECT_TRUE(OnlyScreened());
  }
}

TEST_F(QueryDlfTest, FirstByteOfTheRecordGoesWithTheVariant) {
  DlfFile font;
  std::string plain = font.File();
  plain[6] = 1;
  EXPECT_EQ(QueryFile(plain), ZE_BAD_FORMAT);
  font.referenced = true;
  std::string referenced = font.File();
  referenced[6] = 0;
  EXPECT_EQ(QueryFile(referenced), ZE_BAD_FORMAT);
}

TEST_F(QueryDlfTest, EveryBeginningThatEndsBeforeTheNameIsRefused) {
  DlfFile font;
  ExpectOfEachBeginning("font.dlf", font.File().substr(0, 6 + 34), ZE_BAD_FORMAT);
  font.referenced = true;
  ExpectOfEachBeginning("font.dlf", font.File().substr(0, 6 + 14), ZE_BAD_FORMAT);
}

TEST_F(QueryDlfTest, NameThatIsCutShortIsTakenAsFarAsItGoes) {
  const DlfFile font;
  ASSERT_EQ(QueryFile(font.File().substr(0, 6 + 34 + 3)), ZE_OK);
  EXPECT_STREQ(info.description, "Cou                          10.0 pitch  cp: 850 ");
  ASSERT_EQ(QueryFile(font.File().substr(0, 6 + 34)), ZE_OK);
  EXPECT_STREQ(info.description, "                             10.0 pitch  cp: 850 ");
}

TEST_F(QueryDlfTest, FileThatDoesNotOpen) {
  fs::create_directory("folder.dlf");
  EXPECT_EQ(Query("folder.dlf"), ZE_OPEN_FAILED);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryDlfTest, Option2NeedsTheFmf) {
  EXPECT_EQ(QueryFile(DlfFile{}.File(), 2), ZE_UNSUPPORTED);
  EXPECT_EQ(info.format, 6U);
  EXPECT_STRNE(info.description, "");
  EXPECT_STREQ(info.companionFile, "");
  Touch("font.FMF");
  EXPECT_EQ(QueryFile(DlfFile{}.File(), 2), ZE_OK);
  EXPECT_STREQ(info.companionFile, "font.FMF");
  EXPECT_STREQ(info.metricsFile, "");
}

TEST_F(QueryDlfTest, OtherOptionsDoNotLookForTheFmf) {
  for (const std::uint32_t option : {0U, 4U, 5U}) {
    EXPECT_EQ(QueryFile(DlfFile{}.File(), option), ZE_OK);
    EXPECT_STREQ(info.companionFile, "");
  }
}

// --- FMF

class QueryFmfTest : public FontTest {
 protected:
  std::uint32_t QueryFile(const std::string& file) {
    WriteFile("font.fmf", file);
    return Query("font.fmf");
  }
};

TEST_F(QueryFmfTest, FillsTheRecord) {
  ASSERT_EQ(QueryFile(FmfFile("Courier 10") + "rest"), ZE_OK);
  EXPECT_EQ(info.flags, 0x2BU);
  EXPECT_EQ(info.kind, 2U);
  EXPECT_EQ(info.format, 23U);
  EXPECT_EQ(info.fileSize, 188U);
  EXPECT_EQ(info.printerMemory, 0U);
  EXPECT_STREQ(info.description, "Courier 10");
}

TEST_F(QueryFmfTest, NamesItsDlfWhetherThereIsOneOrNot) {
  ASSERT_EQ(QueryFile(FmfFile("Courier")), ZE_OK);
  EXPECT_STREQ(info.companionFile, "font.DLF");
  EXPECT_STREQ(info.metricsFile, "font.DLF");
}

TEST_F(QueryFmfTest, EmptyNameIsRefused) {
  EXPECT_EQ(QueryFile(FmfFile("")), ZE_BAD_FORMAT);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryFmfTest, EveryBeginningIsRefused) {
  ExpectOfEachBeginning("font.fmf", FmfFile("Courier"), ZE_BAD_FORMAT);
  EXPECT_TRUE(OnlyScreened());
}

TEST_F(QueryFmfTest, NameWithoutEndIsCutTo79Characters) {
  ASSERT_EQ(QueryFile(FmfFile(std::string(132, 'n')) + std::string(500, 'n')), ZE_OK);
  EXPECT_EQ(info.description, std::string(79, 'n'));
}

TEST_F(QueryFmfTest, FileThatDoesNotOpen) {
  fs::create_directory("folder.fmf");
  EXPECT_EQ(Query("folder.fmf"), ZE_OPEN_FAILED);
}

}  // namespace
}  // namespace zeapi::testing
