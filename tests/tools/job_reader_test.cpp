// What the job reader makes of jobs that printers understand, and of such that end too early.
#include "job/job_reader.h"

#include <gtest/gtest.h>

#include "job_text.h"

using tool::test::EventsOf;
using namespace std::string_view_literals;
using Events = std::vector<std::string>;

TEST(JobReader, FindsNothingInAnEmptyJob) { EXPECT_EQ(EventsOf(""), Events()); }

TEST(JobReader, ReadsFramingOfAStorageRequest) {
  EXPECT_EQ(EventsOf("\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
                     "\x1B%-12345X@PJL LFORMAT DEVICE = disk1\n"
                     "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n"
                     "\x1B%-12345X"),
            (Events{"universal-exit 9", "pjl 26 @PJL ENTER LANGUAGE = PCL", "universal-exit 9",
                    "pjl 28 @PJL LFORMAT DEVICE = disk1", "universal-exit 9",
                    "pjl 25 @PJL RDYMSG DISPLAY = \"\"", "universal-exit 9"}));
}

TEST(JobReader, ReadsPjlLinesThatEndWithCarriageReturnToo) {
  EXPECT_EQ(EventsOf("@PJL RESET\r\n@PJL\n@PJL INFO ID"),
            (Events{"pjl 12 @PJL RESET", "pjl 5 @PJL", "pjl 12 @PJL INFO ID"}));
}

TEST(JobReader, EndsAPjlLineAtAnEscape) {
  EXPECT_EQ(EventsOf("@PJL RESET\x1B%-12345X"), (Events{"pjl 10 @PJL RESET", "universal-exit 9"}));
}

TEST(JobReader, TakesPjlForTextWithinALine) {
  EXPECT_EQ(EventsOf("see @PJL RESET\n"), (Events{"text 15"}));
  EXPECT_EQ(EventsOf("@PJLX\n"), (Events{"text 6"}));
}

TEST(JobReader, FindsPjlAfterALineOfText) {
  EXPECT_EQ(EventsOf("text\n@PJL RESET\n"), (Events{"text 5", "pjl 11 @PJL RESET"}));
}

TEST(JobReader, ReadsValuesOfPclCommands) {
  EXPECT_EQ(EventsOf("\x1B&l2X\x1B*p+130Y\x1B&l-180U\x1B(s16.66H\x1B*rB\x1B%0A\x1B(8U"),
            (Events{"pcl 5 &lX 2", "pcl 8 *pY +130", "pcl 8 &lU -180", "pcl 9 (sH 16.66",
                    "pcl 4 *rB", "pcl 4 %A 0", "pcl 4 (U 8"}));
}

TEST(JobReader, SplitsCombinedPclCommands) {
  EXPECT_EQ(EventsOf("\x1B&l1o2a6D"), (Events{"pcl 5 &lO 1", "pcl 2 &lA 2 +", "pcl 2 &lD 6 +"}));
}

TEST(JobReader, EndsACombinedCommandWhereNoPartFollows) {
  EXPECT_EQ(EventsOf("\x1B&l1o\x1B"
                     "E"),
            (Events{"pcl 5 &lO 1", "escape 2 E"}));
  EXPECT_EQ(EventsOf("\x1B&l1o"), (Events{"pcl 5 &lO 1"}));
}

TEST(JobReader, ReadsTwoCharacterEscapes) {
  EXPECT_EQ(EventsOf("\x1B"
                     "E\x1B"
                     "9\x1B=\x1BM"),
            (Events{"escape 2 E", "escape 2 9", "escape 2 =", "escape 2 M"}));
}

TEST(JobReader, ReadsLettersAfterABracket) {
  EXPECT_EQ(EventsOf("\x1B[l\x01"), (Events{"escape 3 [l", "data 1"}));
  EXPECT_EQ(EventsOf("\x1B["), (Events{"escape 2 ["}));
}

TEST(JobReader, TakesAnnouncedBytesForData) {
  EXPECT_EQ(EventsOf("\x1B*b3W\x1B"
                     "E\n\x1B"
                     "E"),
            (Events{"pcl 5 *bW 3", "payload 3 row", "escape 2 E"}));
  EXPECT_EQ(EventsOf("\x1B)s2W\x1B%"), (Events{"pcl 5 )sW 2", "payload 2 font header"}));
  EXPECT_EQ(EventsOf("\x1B(s2W\x1B%"), (Events{"pcl 5 (sW 2", "payload 2 character"}));
  EXPECT_EQ(EventsOf("\x1B&p2X\x1B\f"),
            (Events{"pcl 5 &pX 2", "payload 2 text to print as it is"}));
}

TEST(JobReader, GoesOnWithACombinedCommandAfterItsData) {
  EXPECT_EQ(EventsOf("\x1B*b2m1v\xFF"
                     "2W@P!"),
            (Events{"pcl 5 *bM 2", "pcl 2 *bV 1 +", "payload 1 plane of a row", "pcl 2 *bW 2 +",
                    "payload 2 row", "text 1"}));
}

TEST(JobReader, ExpectsNoDataForNoNegativeAndMissingValues) {
  EXPECT_EQ(EventsOf("\x1B*b0WA"), (Events{"pcl 5 *bW 0", "text 1"}));
  EXPECT_EQ(EventsOf("\x1B*b-3WA"), (Events{"pcl 6 *bW -3", "text 1"}));
  EXPECT_EQ(EventsOf("\x1B*bWA"), (Events{"pcl 4 *bW", "text 1"}));
}

TEST(JobReader, SaysHowManyBytesOfDataAreMissing) {
  EXPECT_EQ(EventsOf("\x1B*b+10Wabc"), (Events{"pcl 7 *bW +10", "payload 3 row !7"}));
}

TEST(JobReader, BoundsTheDataThatAValueAnnounces) {
  EXPECT_EQ(EventsOf("\x1B*b99999999999999999999Wab"),
            (Events{"pcl 24 *bW 99999999999999999999", "payload 2 row !4294967293"}));
}

TEST(JobReader, ReadsBracketKByItsCount) {
  EXPECT_EQ(EventsOf("\x1B[K\x01\x00\x01\x1B[K\x03\x00\x06\xC0\x46"sv),
            (Events{"bracket-k 6", "bracket-k 8"}));
  EXPECT_EQ(EventsOf(std::string("\x1B[K\x00\x01"sv) + std::string(256, '\x1B') + "A"),
            (Events{"bracket-k 261", "text 1"}));
}

TEST(JobReader, ReadsBracketKThatIsCutShort) {
  EXPECT_EQ(EventsOf("\x1B[K\x03\x00\x06"sv), (Events{"bracket-k 6 !2"}));
  EXPECT_EQ(EventsOf("\x1B[K\x03"sv), (Events{"damaged 4"}));
  EXPECT_EQ(EventsOf("\x1B[K"sv), (Events{"damaged 3"}));
}

TEST(JobReader, TakesPostScriptAndPclXlAsOneRun) {
  EXPECT_EQ(EventsOf("@PJL ENTER LANGUAGE = POSTSCRIPT\n%!\n\x1B"
                     "E\f@PJL X\n\x1B%-12345X"),
            (Events{"pjl 33 @PJL ENTER LANGUAGE = POSTSCRIPT", "language-data 13 POSTSCRIPT",
                    "universal-exit 9"}));
  EXPECT_EQ(EventsOf("@PJL enter language=pclxl \r\n\x1B"
                     "E"),
            (Events{"pjl 28 @PJL enter language=pclxl ", "language-data 2 PCLXL"}));
}

TEST(JobReader, ListsTheCopiesThatFollowTheLanguage) {
  EXPECT_EQ(EventsOf("@PJL ENTER LANGUAGE = POSTSCRIPT\n@PJL SET COPIES = 2\n%!"),
            (Events{"pjl 33 @PJL ENTER LANGUAGE = POSTSCRIPT", "pjl 20 @PJL SET COPIES = 2",
                    "language-data 2 POSTSCRIPT"}));
}

TEST(JobReader, KnowsLanguagesByTheirFirstBytes) {
  EXPECT_EQ(EventsOf("%!PS\x1B"), (Events{"language-data 5 POSTSCRIPT"}));
  EXPECT_EQ(EventsOf("\x1B%-12345X) HP-PCL XL;1;1;\n\x1B"),
            (Events{"universal-exit 9", "language-data 18 PCLXL"}));
  EXPECT_EQ(EventsOf("\x1B"
                     "E%!PS"),
            (Events{"escape 2 E", "text 4"}));
}

TEST(JobReader, ReadsCommandsOfPclAndPpds) {
  EXPECT_EQ(EventsOf("@PJL ENTER LANGUAGE = PPDS\n\x1B[K\x01\x00\x06"sv),
            (Events{"pjl 27 @PJL ENTER LANGUAGE = PPDS", "bracket-k 6"}));
}

TEST(JobReader, ForgetsTheLanguageAtTheUniversalExit) {
  EXPECT_EQ(EventsOf("@PJL ENTER LANGUAGE = GL\n\x1B%-12345X\x1B"
                     "E"),
            (Events{"pjl 25 @PJL ENTER LANGUAGE = GL", "universal-exit 9", "escape 2 E"}));
}

TEST(JobReader, TakesAFileThatPjlAnnouncesAsData) {
  EXPECT_EQ(EventsOf("@PJL LWRITEFILE DEVICE=flash1 FILENAME=\"a.demo\" START=0 \n"
                     "\x1B"
                     "E@PJL RESET\n@PJL END DATA\n"),
            (Events{"pjl 57 @PJL LWRITEFILE DEVICE=flash1 FILENAME=\"a.demo\" START=0 ",
                    "payload 13 file", "pjl 14 @PJL END DATA"}));
  EXPECT_EQ(EventsOf("@PJL LOPENDEMOFILE NAME=\"a\"\n\x1B"
                     "E\x1BM@PJL LCLOSEDEMOFILE\n"),
            (Events{"pjl 28 @PJL LOPENDEMOFILE NAME=\"a\"", "payload 2 file", "escape 2 M",
                    "pjl 20 @PJL LCLOSEDEMOFILE"}));
  EXPECT_EQ(EventsOf("@PJL LOPENDEMOFILE NAME=\"a\"\nabc"),
            (Events{"pjl 28 @PJL LOPENDEMOFILE NAME=\"a\"", "payload 3 file"}));
}

TEST(JobReader, TellsTextFormFeedsAndDataApart) {
  EXPECT_EQ(EventsOf("One\r\n\ttwo\f\xFF\xFE"), (Events{"text 9", "form-feed 1", "data 2"}));
}

TEST(JobReader, ListsBrokenCommandsAsDamaged) {
  EXPECT_EQ(EventsOf("\x1B"), (Events{"damaged 1"}));
  EXPECT_EQ(EventsOf("\x1B\x1B"
                     "E"),
            (Events{"damaged 1", "escape 2 E"}));
  EXPECT_EQ(EventsOf("\x1B&"), (Events{"damaged 2"}));
  EXPECT_EQ(EventsOf("\x1B&l12\x1B"
                     "E"),
            (Events{"damaged 5", "escape 2 E"}));
  EXPECT_EQ(EventsOf("\x1B&l1x2\n"), (Events{"pcl 5 &lX 1", "damaged 1", "text 1"}));
  EXPECT_EQ(EventsOf("\x1B&l" + std::string(40, '1') + "X"), (Events{"damaged 35", "text 9"}));
}
