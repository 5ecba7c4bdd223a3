#include <cmath>

#include "data/data_file_case.h"
#include "support/bytes.h"
#include "support/foreign_locale.h"

namespace zeapi::testing {
namespace {

TEST_F(DataFilesTest, ReadsTheFieldsInTheirOrder) {
  EXPECT_EQ(Read("\"S_100\",\"Tray 2\",\"PCL\",\"1B266C\",\"%d\",-1,2.5,1e-1,\"P\"\n"), ZE_DAT_OK);
  EXPECT_EQ(Fields(), "S_100|Tray 2|PCL|1B266C|%d|-1|2.5|0.1|P");
}

TEST_F(DataFilesTest, SeparatorsMayBeMixed) {
  EXPECT_EQ(
      Read(
          "# comment\n\n ,;\t:\n  # another, \"S\"\n \"S_100\" ; :\t\"Tray 2\"\x01\xE9\"PCL\"\"1B\""
          "\"%d\"1, ,2.5; 0.1:\"P\" ;\t\n"),
      ZE_DAT_OK);
  EXPECT_EQ(Fields(), "S_100|Tray 2|PCL|1B|%d|1|2.5|0.1|P");
}

TEST_F(DataFilesTest, LineEndsOfBothKindsReadTheSame) {
  std::string text = "# c\n\n" + Line("A_1") + Line("A_2") + "\n" + Line("B_1");
  for (int round = 0; round < 2; ++round) {
    Open(text);
    EXPECT_EQ(First("A_2"), ZE_DAT_OK);
    EXPECT_EQ(Next(), ZE_DAT_OK);
    EXPECT_STREQ(record.szKey, "B_1");
    EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
    EXPECT_EQ(First(""), ZE_DAT_OK);
    EXPECT_STREQ(record.szKey, "A_1");
    for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += 2) {
      text.insert(at, 1, '\r');
    }
  }
}

TEST_F(DataFilesTest, LongTextsAreCutToTheirFields) {
  EXPECT_EQ(Read("\"KEY_LONG\",\"" + std::string(200, 'd') + "\",\"PCLXL6\",\"" +
                 std::string(200, 'c') + "\",\"123456\",0,0,0,\"PQ\"\n"),
            ZE_DAT_OK);
  EXPECT_EQ(Fields(), "KEY_L|" + std::string(101, 'd') + "|PCLXL|" + std::string(101, 'c') +
                          "|12345|0|0|0|P");
}

TEST_F(DataFilesTest, WhatATextLeavesOfItsFieldIsZero) {
  EXPECT_EQ(Read(Line("A_LON") + Line("A")), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_BYTES(std::string(record.szKey, 6), Bytes("A\0\0\0\0\0"));
}

TEST_F(DataFilesTest, LineFeedInATextBelongsToIt) {
  EXPECT_EQ(Read("\"K\",\"two\r\nlines # ;\",\"\",\"\",\"\",0,0,0,\"\"\n"), ZE_DAT_OK);
  EXPECT_STREQ(record.szDescr, "two\nlines # ;");
}

class DataNumberTest : public DataFilesTest {
 protected:
  int ReadNumber(const std::string& token) {
    const int result = Read("\"K\",\"\",\"\",\"\",\"\"," + token + ",0,0,\"\"\n");
    value = record.dVarRangeLo;
    return result;
  }

  double value = 0;
};

TEST_F(DataNumberTest, IsTheNearestToItsText) {
  const std::pair<const char*, double> good[] = {
      {"1", 1},
      {"-1.5", -1.5},
      {"+2", 2},
      {".5", .5},
      {"-.5", -.5},
      {"+.5", .5},
      {"5.", 5},
      {"1e3", 1000},
      {"1E-2", 0.01},
      {"1e+2", 100},
      {"0", 0},
      {"007", 7},
      {"99999999999", 99999999999.0},
      // Up to 15 characters take the short way.
      {"1234567890.123", 1234567890.123},
      {"12345678901.234", 12345678901.234},
      {"0.1234567890123", 0.1234567890123},
      {"0.12345678901234", 0.12345678901234},
      {"9007199254740993", 9007199254740993.0},
      {"999999999999999", 999999999999999.0},
      {"-1234567890.123", -1234567890.123},
      {"-123456789.12345", -123456789.12345},
      {"-0.1234567890123", -0.1234567890123},
      {".00000000000001", .00000000000001},
      {"-.00000000000003", -.00000000000003},
      {"123456789012345678901234", 123456789012345678901234.0},
      {"1.7976931348623157e308", 1.7976931348623157e308}};
  for (const auto& [token, expected] : good) {
    EXPECT_EQ(ReadNumber(token), ZE_DAT_OK) << token;
    EXPECT_EQ(value, expected) << token;
    EXPECT_EQ(std::signbit(value), token[0] == '-') << token;
  }
  EXPECT_EQ(ReadNumber("-0"), ZE_DAT_OK);
  EXPECT_TRUE(value == 0 && std::signbit(value));
}

TEST_F(DataNumberTest, TooSmallForItsFieldIsTheNearestThereToo) {
  const std::pair<const char*, double> small[] = {{"1e-310", 1e-310},
                                                  {"-1e-310", -1e-310},
                                                  {"5e-324", 5e-324},
                                                  {"3e-324", 5e-324},
                                                  {"1e-324", 0},
                                                  {"1e-400", 0},
                                                  {"+1e-400", 0},
                                                  {"-1E-400", 0},
                                                  {"12345678901234567e-999", 0},
                                                  {"1e-99999999999999999999", 0},
                                                  {"0e99999999999999999999", 0}};
  for (const auto& [token, expected] : small) {
    EXPECT_EQ(ReadNumber(token), ZE_DAT_OK) << token;
    EXPECT_EQ(value, expected) << token;
    EXPECT_EQ(std::signbit(value), token[0] == '-') << token;
  }
}

TEST_F(DataNumberTest, IsAWholeToken) {
  for (const char* token : {"1 ",      "1x",
                            "x",       "1,5x",
                            "--1",     "+-1",
                            "-",       "+",
                            ".",       "-.",
                            "e5",      "1e",
                            "1e-",     "1.2.3",
                            "0x10",    "inf",
                            "nan",     "-inf",
                            "1e999",   "-1e999",
                            "1e309",   "1\t",
                            "\"1\"",   "1e-400x",
                            "1 e-400", "1234567890123456789012345"}) {
    EXPECT_EQ(ReadNumber(token), ZE_DAT_FAILED) << token;
  }
}

TEST_F(DataFilesTest, RecordsThatAreDamagedHaveABadFormat) {
  for (const char* text :
       {"S_100,\"d\"\n", "\"S\"\n", "\"S\",\"\",\"\",\"\",\"\",0,0\n",
        "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\" x\n", "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\" # c\n",
        "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\" \"more\"\n", "5\n"}) {
    EXPECT_EQ(Read(text), ZE_DAT_FAILED) << text;
    EXPECT_EQ(Next(), ZE_DAT_NOT_FOUND) << text;
  }
}

TEST_F(DataFilesTest, RecordCutAnywhereIsNoRecord) {
  const std::string line = Line("S_100", "1B");
  for (std::size_t size = 0; size < line.size(); ++size) {
    Open(line.substr(0, size));
    const int result = First("");
    EXPECT_TRUE(result == ZE_DAT_FAILED || result == ZE_DAT_NOT_FOUND) << size;
    EXPECT_EQ(Next(), ZE_DAT_NOT_FOUND);
  }
}

TEST_F(DataFilesTest, LastLineNeedsItsLineFeed) {
  std::string line = Line("S_100");
  line.pop_back();
  EXPECT_EQ(Read(line), ZE_DAT_FAILED);
}

TEST_F(DataFilesTest, EndWithinATextEndsTheFile) {
  Open(Line("A") + "\"B\",\"never clo\nsed");
  EXPECT_EQ(First("B"), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(First("A"), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
}

TEST_F(DataFilesTest, KeyIsAPrefixInTheSameCase) {
  Open(Line("P_1") + Line("S_100", "1") + Line("S_200", "2") + Line("T_1"));
  EXPECT_EQ(First("S"), ZE_DAT_OK);
  EXPECT_STREQ(record.szCommand, "1");
  EXPECT_EQ(First("S_2"), ZE_DAT_OK);
  EXPECT_STREQ(record.szCommand, "2");
  EXPECT_EQ(First("S_200"), ZE_DAT_OK);
  EXPECT_EQ(First("s"), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(First("S_3"), ZE_DAT_NOT_FOUND);
  EXPECT_STREQ(record.szKey, "S_3");  // left alone
}

TEST_F(DataFilesTest, KeyWithoutATerminatorHasSixCharacters) {
  Open(Line("S_1000"));
  EXPECT_EQ(First("S_1000"), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(First("S_100"), ZE_DAT_OK);
}

TEST_F(DataFilesTest, NextGoesOnWhateverTheKey) {
  Open(Line("S_1") + Line("T_1") + Line("A_1"));
  EXPECT_EQ(First("S"), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "T_1");
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "A_1");
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
  EXPECT_STREQ(record.szKey, "A_1");
}

TEST_F(DataFilesTest, WithoutACurrentRecordThereIsNoNext) {
  Open(Line("S_1"));
  EXPECT_EQ(Next(), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(First("S"), ZE_DAT_OK);
  EXPECT_EQ(First("X"), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(Next(), ZE_DAT_NOT_FOUND);
}

TEST_F(DataFilesTest, BadRecordBehindTheCurrentOneEndsTheEnumeration) {
  Open(Line("A") + "bad\n" + Line("B"));
  EXPECT_EQ(First("A"), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_FAILED);
  EXPECT_EQ(Next(), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(First("B"), ZE_DAT_FAILED);
}

TEST_F(DataFilesTest, EachSearchBeginsWithTheFirstRecord) {
  Open(Line("A", "1") + Line("A", "2"));
  for (int search = 0; search < 3; ++search) {
    EXPECT_EQ(First("A"), ZE_DAT_OK);
    EXPECT_STREQ(record.szCommand, "1");
  }
  Open(Line("A") + Line("B") + Line("C"));
  EXPECT_EQ(First("B"), ZE_DAT_OK);
  EXPECT_EQ(First(""), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "A");
  EXPECT_EQ(First("C"), ZE_DAT_OK);
  EXPECT_EQ(First("B"), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "C");
}

TEST_F(DataFilesTest, SearchBehindABadRecordBeginsWithTheFirst) {
  Open(Line("A") + "\"B\",1x\n" + Line("C"));
  for (int search = 0; search < 2; ++search) {
    EXPECT_EQ(First("A"), ZE_DAT_OK);
    EXPECT_EQ(Next(), ZE_DAT_FAILED);
  }
}

TEST_F(DataFilesTest, SearchBehindOneThatFoundNothingBeginsWithTheFirstRecord) {
  Open(Line("A") + Line("B"));
  EXPECT_EQ(First("X"), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(First("A"), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "B");
}

TEST_F(DataFilesTest, CommentMayEndTheFile) {
  Open(Line("A") + "# c");
  EXPECT_EQ(First("A"), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
  EXPECT_EQ(First("B"), ZE_DAT_NOT_FOUND);
}

TEST_F(DataFilesTest, CallWithoutARecordLeavesTheCurrentOne) {
  Open(Line("A") + Line("B"));
  EXPECT_EQ(First("A"), ZE_DAT_OK);
  EXPECT_EQ(ZeDatGetFirstKey(handle, nullptr), ZE_DAT_BAD_HANDLE);
  EXPECT_EQ(ZeDatGetNextKey(handle, nullptr), ZE_DAT_BAD_HANDLE);
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "B");
}

TEST_F(DataFilesTest, OpenRefusesBadArguments) {
  WriteFile(kDataFile, Line("A"));
  EXPECT_EQ(ZeDatOpenFile(nullptr, 0, 2), ZE_DAT_INVALID);
  EXPECT_EQ(ZeDatOpenFile("", 0, 2), ZE_DAT_INVALID);
  EXPECT_EQ(ZeDatOpenFile("missing", 0, 2), ZE_DAT_INVALID);
  for (const int mode : {0, 1, 3, -1}) EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, mode), ZE_DAT_INVALID);
  EXPECT_EQ(ZeDatOpenFile(kDataFile, 0xFFFFFFFF, 2), 0);
}

TEST_F(DataFilesTest, PathHasAtMost260Characters) {
  WriteFile(kDataFile, Line("A"));
  std::string path = kDataFile;
  while (path.size() < 260) path.insert(0, "./");
  ASSERT_EQ(path.size(), 260U);
  EXPECT_EQ(ZeDatOpenFile(path.c_str(), 0, 2), 0);
  path.insert(1, "/");  // the same place
  EXPECT_EQ(ZeDatOpenFile(path.c_str(), 0, 2), ZE_DAT_INVALID);
}

TEST_F(DataFilesTest, OpenThatFailsFreesItsPlace) {
  std::filesystem::create_directory("folder");
  for (int i = 0; i < 10; ++i) EXPECT_EQ(ZeDatOpenFile("folder", 0, 2), ZE_DAT_OPEN_FAILED);
  WriteFile(kDataFile, Line("A"));
  EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, 2), 0);
}

TEST_F(DataFilesTest, FourFilesAreOpenAtOnceAndPlacesAreUsedAgain) {
  WriteFile(kDataFile, Line("A"));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, 2), i);
  EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, 2), ZE_DAT_FAILED);
  EXPECT_EQ(ZeDatCloseFile(1), ZE_DAT_OK);
  EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, 2), 1);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(ZeDatCloseFile(i), ZE_DAT_OK);
  EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, 2), 0);
}

TEST_F(DataFilesTest, ArgumentsAreLookedAtBeforePlacesAndPlacesBeforeTheFileIsOpened) {
  std::filesystem::create_directory("folder");
  WriteFile(kDataFile, Line("A"));
  for (int i = 0; i < 4; ++i) ZeDatOpenFile(kDataFile, 0, 2);
  EXPECT_EQ(ZeDatOpenFile("missing", 0, 2), ZE_DAT_INVALID);
  EXPECT_EQ(ZeDatOpenFile(kDataFile, 0, 1), ZE_DAT_INVALID);
  EXPECT_EQ(ZeDatOpenFile(nullptr, 0, 2), ZE_DAT_INVALID);
  EXPECT_EQ(ZeDatOpenFile("folder", 0, 2), ZE_DAT_FAILED);
}

TEST_F(DataFilesTest, HandlesThatAreNotOpenAreRefused) {
  Open(Line("A"));
  for (const int bad : {-1, -32768, 1, 3, 4, 32767}) {
    EXPECT_EQ(ZeDatGetFirstKey(bad, &record), ZE_DAT_BAD_HANDLE) << bad;
    EXPECT_EQ(ZeDatGetNextKey(bad, &record), ZE_DAT_BAD_HANDLE) << bad;
  }
  EXPECT_EQ(ZeDatGetFirstKey(handle, nullptr), ZE_DAT_BAD_HANDLE);
  EXPECT_EQ(ZeDatGetNextKey(handle, nullptr), ZE_DAT_BAD_HANDLE);
  EXPECT_EQ(ZeDatCloseFile(-1), ZE_DAT_FAILED);
  EXPECT_EQ(ZeDatCloseFile(4), ZE_DAT_FAILED);
  EXPECT_EQ(ZeDatCloseFile(3), ZE_DAT_BAD_HANDLE);
  EXPECT_EQ(ZeDatCloseFile(0x10000 + handle), ZE_DAT_OK);  // 16 bits count
  EXPECT_EQ(ZeDatCloseFile(handle), ZE_DAT_BAD_HANDLE);
}

TEST_F(DataFilesTest, HandlesHaveTheirOwnPlaceInAFile) {
  Open(Line("A") + Line("B"));
  const int other = ZeDatOpenFile(kDataFile, 0, 2);
  EXPECT_EQ(First("A"), ZE_DAT_OK);
  ZeDatRecord second = {};
  EXPECT_EQ(ZeDatGetNextKey(other, &second), ZE_DAT_NOT_FOUND);
  EXPECT_EQ(ZeDatGetFirstKey(other, &second), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_OK);
  EXPECT_STREQ(record.szKey, "B");
  EXPECT_STREQ(second.szKey, "A");
}

TEST_F(DataFilesTest, SeparatorsInPlentyAreNoRecord) {
  EXPECT_EQ(Read(std::string(65536, ';') + Line("A")), ZE_DAT_OK);
  EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
  EXPECT_EQ(Read(std::string(65536, '\0')), ZE_DAT_NOT_FOUND);
}

TEST_F(DataFilesTest, RecordsAcrossTheReadingBlocksAreWhole) {
  Slide("\"S_100\",\"Tray 2\",\"PCLXL\",\"1B266C\",\"%03d\",-12345.678,2.5e17,-625E-3,\"P\"\n",
        [&] {
          EXPECT_EQ(First(""), ZE_DAT_OK);
          EXPECT_EQ(Fields(), "S_100|Tray 2|PCLXL|1B266C|%03d|-12345.7|2.5e+17|-0.625|P");
          const double low = record.dVarRangeLo;
          EXPECT_EQ(low, -12345.678);
          EXPECT_EQ(Next(), ZE_DAT_OK);
          EXPECT_STREQ(record.szKey, "T");
          EXPECT_EQ(Next(), ZE_DAT_END_OF_FILE);
        });
}

TEST_F(DataFilesTest, LocaleOfTheHostProgramChangesNothing) {
  const ForeignLocale turkish(folder());
  ASSERT_TRUE(turkish.InForce());
  EXPECT_EQ(Read("\xE9 \"\xE9i\",\"\",\"\",\"\",\"\",1.5,2,3,\"\"\n"), ZE_DAT_OK);
  const double low = record.dVarRangeLo;
  EXPECT_EQ(low, 1.5);
  EXPECT_STREQ(record.szKey, "\xE9i");
}

}  // namespace
}  // namespace zeapi::testing
