// Counting the records of a printer data file.
#include "data/data_file_case.h"

namespace zeapi::testing {
namespace {

class DataCountTest : public DataFilesTest {
 protected:
  int Count(std::string_view key) {
    std::memset(&record, 0, sizeof(record));
    std::memcpy(record.szKey, key.data(), key.size());
    return ZeDatQueryCount(kDataFile, reinterpret_cast<char*>(&record), ZE_DAT_READ);
  }
};

TEST_F(DataCountTest, CountsTheRunBehindTheFirstMatch) {
  WriteFile(kDataFile, Line("A") + Line("S_1") + Line("S_2") + Line("T_1") + Line("S_3"));
  EXPECT_EQ(Count("S"), 2);
  EXPECT_STREQ(record.szKey, "T_1");  // the last record that was read
  EXPECT_EQ(Count("T"), 1);
  EXPECT_EQ(Count("X"), 0);
  EXPECT_EQ(Count(""), 5);
}

TEST_F(DataCountTest, FiveCharactersOfTheKeyCount) {
  WriteFile(kDataFile, Line("S_100") + Line("S_100") + Line("S_101"));
  EXPECT_EQ(Count("S_100"), 2);
  EXPECT_EQ(Count("S_1000"), 0);
}

TEST_F(DataCountTest, BadRecordEndsTheCount) {
  WriteFile(kDataFile, Line("S") + Line("S") + "bad\n" + Line("S"));
  EXPECT_EQ(Count("S"), 2);
}

TEST_F(DataCountTest, FailuresHaveTheirCodes) {
  EXPECT_EQ(Count("S"), ZE_DAT_OPEN_FAILED);
  EXPECT_EQ(ZeDatQueryCount(kDataFile, nullptr, 2), ZE_DAT_BAD_HANDLE);
  WriteFile(kDataFile, Line("S"));
  EXPECT_EQ(ZeDatQueryCount(kDataFile, reinterpret_cast<char*>(&record), 1), ZE_DAT_OPEN_FAILED);
  for (int i = 0; i < 4; ++i) ZeDatOpenFile(kDataFile, 0, 2);
  EXPECT_EQ(Count("S"), ZE_DAT_OPEN_FAILED);
}

TEST_F(DataCountTest, NumberHas16Bits) {
  std::string text;
  for (int i = 0; i < 40000; ++i) text += Line("S");
  WriteFile(kDataFile, text);
  EXPECT_EQ(static_cast<std::uint16_t>(Count("S")), 40000);
}

TEST_F(DataCountTest, NumbersBeginAgainBehind16Bits) {
  std::string text;
  for (int i = 0; i < 65537; ++i) text += "\"SA\" \"\" \"\" \"\" \"\" 0;0;0;\"\"\n";
  WriteFile(kDataFile, text);
  EXPECT_EQ(Count("SA"), 1);
  ZeDatCounts counts;
  EXPECT_EQ(ZeDatQueryCounts(kDataFile, &counts, ZE_DAT_READ), ZE_DAT_OK);
  EXPECT_EQ(counts.first[4], 1);
  EXPECT_EQ(counts.second[0], 1);
}

// Only the key of a record that is counted by its letter is kept.
class DataLettersTest : public DataFilesTest {
 protected:
  // How many records begin with "A", "S" and "T".
  static std::vector<int> Letters() {
    ZeDatCounts counts;
    EXPECT_EQ(ZeDatQueryCounts(kDataFile, &counts, ZE_DAT_READ), ZE_DAT_OK);
    return {counts.first[0], counts.first[4], counts.first[5]};
  }
  static std::vector<int> Letters(std::string_view text) {
    WriteFile(kDataFile, text);
    return Letters();
  }
};

TEST_F(DataLettersTest, BadRecordEndsTheCountWhereverItIsBad) {
  for (const std::string bad :
       {"S\",\"\",\"\",\"\",\"\",0,0,0,\"\"\n", "\"S\",d\",\"\",\"\",\"\",0,0,0,\"\"\n",
        "\"S\",\"\",\"\",\"\",0,0,0,\"\"\n", "\"S\",\"\",\"\",\"\",\"\",1x,0,0,\"\"\n",
        "\"S\",\"\",\"\",\"\",\"\",0,1x,0,\"\"\n", "\"S\",\"\",\"\",\"\",\"\",0,0,1x,\"\"\n",
        "\"S\",\"\",\"\",\"\",\"\",0,0,\"\"\n", "\"S\",\"\",\"\",\"\",\"\",0,0,0\n",
        "\"S\",\"\",\"\",\"\",\"\",0,0,0,x\n", "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\" x\n",
        "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\",\"\"\n", "\"S\",\"\",\"\",\"never closed\n",
        "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\n", "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\""}) {
    EXPECT_EQ(Letters(Line("A") + bad + Line("T")), (std::vector{1, 0, 0})) << bad;
    EXPECT_EQ(Letters(Line("A") + bad), (std::vector{1, 0, 0})) << bad << " at the end";
  }
}

TEST_F(DataLettersTest, GoodRecordsAreCountedAcrossTheReadingBlocks) {
  for (const std::string line :
       {"\"S_100\",\"Tray 2\",\"PCLXL\",\"1B266C\",\"%03d\",-12345.678,2.5e17,-625E-3,\"P\"\n",
        "\"S\",\"two\nlines\",\"longer than PCLXL\",\"\",\"\" 123456789012345,0;-.5:\"PQ\"\n",
        "\"S\"\"\"\"\"\"\"\"\"000000000000000000000001,1234567890123456;1,\"\"\n"}) {
    Slide(line, [] { EXPECT_EQ(Letters(), (std::vector{0, 1, 1})); });
  }
}

TEST_F(DataLettersTest, BadRecordEndsTheCountAcrossTheReadingBlocks) {
  for (const std::string number :
       {"1.2.3", "12-", "--12", "12x", "12 3", "0000000000000000000000001"}) {
    Slide("\"S\",\"\",\"\",\"\",\"\",0," + number + ",0,\"\"\n", [] {
      EXPECT_EQ(Letters(), (std::vector{0, 0, 0}));
    });
  }
  for (const std::string line : {"\"S\",\"\",\"\",\"\",\"\",123,456,\"\"\n",
                                 "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\" \"more\"\n"}) {
    Slide(line, [] { EXPECT_EQ(Letters(), (std::vector{0, 0, 0})); });
  }
}

TEST_F(DataCountTest, CountsByLetters) {
  WriteFile(kDataFile, Line("A1") + Line("aa") + Line("F") + Line("G") + Line("P_S") + Line("SA") +
                           Line("sf") + Line("ST") + Line("S_") + Line("S") + Line("T") +
                           Line("X") + Line(""));
  ZeDatCounts counts;
  std::memset(&counts, 0xEE, sizeof(counts));
  EXPECT_EQ(ZeDatQueryCounts(kDataFile, &counts, ZE_DAT_READ), ZE_DAT_OK);
  EXPECT_EQ(std::vector<int>(counts.first, counts.first + 6), (std::vector<int>{2, 1, 1, 1, 5, 1}));
  EXPECT_EQ(std::vector<int>(counts.second, counts.second + 6),
            (std::vector<int>{1, 1, 0, 0, 0, 1}));
}

TEST_F(DataCountTest, CountsFailuresHaveTheirCodes) {
  ZeDatCounts counts;
  std::memset(&counts, 0xEE, sizeof(counts));
  EXPECT_EQ(ZeDatQueryCounts(kDataFile, &counts, 2), ZE_DAT_OPEN_FAILED);
  EXPECT_EQ(counts.first[0], 0xEEEE);
  WriteFile(kDataFile, "");
  EXPECT_EQ(ZeDatQueryCounts(kDataFile, &counts, 1), ZE_DAT_OPEN_FAILED);
  EXPECT_EQ(ZeDatQueryCounts(kDataFile, nullptr, 2), ZE_DAT_BAD_HANDLE);
  EXPECT_EQ(ZeDatQueryCounts(kDataFile, &counts, 2), ZE_DAT_OK);
  EXPECT_EQ(counts.first[0], 0);
  EXPECT_EQ(counts.second[5], 0);
}

}  // namespace
}  // namespace zeapi::testing
