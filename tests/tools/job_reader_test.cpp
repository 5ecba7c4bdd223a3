// What the job reader makes of jobs that printers understand, and of such that end too early.
#include "job/job_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "job_text.h"

using testing::ElementsAre;
using testing::IsEmpty;
using tool::test::EventsOf;
using namespace std::string_view_literals;

TEST(JobReader, FindsNothingInAnEmptyJob) { EXPECT_THAT(EventsOf(""), IsEmpty()); }

TEST(JobReader, ReadsFramingOfAStorageRequest) {
  EXPECT_THAT(
      EventsOf("\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X@PJL LFORMAT DEVICE = disk1\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n"
               "\x1B%-12345X"),
      ElementsAre("universal-exit 9", "pjl 26 @PJL ENTER LANGUAGE = PCL", "universal-exit 9",
                  "pjl 28 @PJL LFORMAT DEVICE = disk1", "universal-exit 9",
                  "pjl 25 @PJL RDYMSG DISPLAY = \"\"", "universal-exit 9"));
}

TEST(JobReader, ReadsPjlLinesThatEndWithCarriageReturnToo) {
  EXPECT_THAT(EventsOf("@PJL RESET\r\n@PJL\n@PJL INFO ID"),
              ElementsAre("pjl 12 @PJL RESET", "pjl 5 @PJL", "pjl 12 @PJL INFO ID"));
}

TEST(JobReader, EndsAPjlLineAtAnEscape) {
  EXPECT_THAT(EventsOf("@PJL RESET\x1B%-12345X"),
              ElementsAre("pjl 10 @PJL RESET", "universal-exit 9"));
}

TEST(JobReader, TakesPjlForTextWithinALine) {
  EXPECT_THAT(EventsOf("see @PJL RESET\n"), ElementsAre("text 15"));
  EXPECT_THAT(EventsOf("@PJLX\n"), ElementsAre("text 6"));
}

TEST(JobReader, FindsPjlAfterALineOfText) {
  EXPECT_THAT(EventsOf("text\n@PJL RESET\n"), ElementsAre("text 5", "pjl 11 @PJL RESET"));
}

TEST(JobReader, ReadsValuesOfPclCommands) {
  EXPECT_THAT(EventsOf("\x1B&l2X\x1B*p+130Y\x1B&l-180U\x1B(s16.66H\x1B*rB\x1B%0A\x1B(8U"),
              ElementsAre("pcl 5 &lX 2", "pcl 8 *pY +130", "pcl 8 &lU -180", "pcl 9 (sH 16.66",
                          "pcl 4 *rB", "pcl 4 %A 0", "pcl 4 (U 8"));
}

TEST(JobReader, SplitsCombinedPclCommands) {
  EXPECT_THAT(EventsOf("\x1B&l1o2a6D"),
              ElementsAre("pcl 5 &lO 1", "pcl 2 &lA 2 +", "pcl 2 &lD 6 +"));
}

TEST(JobReader, EndsACombinedCommandWhereNoPartFollows) {
  EXPECT_THAT(EventsOf("\x1B&l1o\x1B"
                       "E"),
              ElementsAre("pcl 5 &lO 1", "escape 2 E"));
  EXPECT_THAT(EventsOf("\x1B&l1o"), ElementsAre("pcl 5 &lO 1"));
}

TEST(JobReader, ReadsTwoCharacterEscapes) {
  EXPECT_THAT(EventsOf("\x1B"
                       "E\x1B"
                       "9\x1B=\x1BM"),
              ElementsAre("escape 2 E", "escape 2 9", "escape 2 =", "escape 2 M"));
}

TEST(JobReader, ReadsLettersAfterABracket) {
  EXPECT_THAT(EventsOf("\x1B[l\x01"), ElementsAre("escape 3 [l", "data 1"));
  EXPECT_THAT(EventsOf("\x1B["), ElementsAre("escape 2 ["));
}

TEST(JobReader, TakesAnnouncedBytesForData) {
  EXPECT_THAT(EventsOf("\x1B*b3W\x1B"
                       "E\n\x1B"
                       "E"),
              ElementsAre("pcl 5 *bW 3", "payload 3 row", "escape 2 E"));
  EXPECT_THAT(EventsOf("\x1B)s2W\x1B%"), ElementsAre("pcl 5 )sW 2", "payload 2 font header"));
  EXPECT_THAT(EventsOf("\x1B(s2W\x1B%"), ElementsAre("pcl 5 (sW 2", "payload 2 character"));
  EXPECT_THAT(EventsOf("\x1B&p2X\x1B\f"),
              ElementsAre("pcl 5 &pX 2", "payload 2 text to print as it is"));
}

TEST(JobReader, GoesOnWithACombinedCommandAfterItsData) {
  EXPECT_THAT(EventsOf("\x1B*b2m1v\xFF"
                       "2W@P!"),
              ElementsAre("pcl 5 *bM 2", "pcl 2 *bV 1 +", "payload 1 plane of a row",
                          "pcl 2 *bW 2 +", "payload 2 row", "text 1"));
}

TEST(JobReader, ExpectsNoDataForNoNegativeAndMissingValues) {
  EXPECT_THAT(EventsOf("\x1B*b0WA"), ElementsAre("pcl 5 *bW 0", "text 1"));
  EXPECT_THAT(EventsOf("\x1B*b-3WA"), ElementsAre("pcl 6 *bW -3", "text 1"));
  EXPECT_THAT(EventsOf("\x1B*bWA"), ElementsAre("pcl 4 *bW", "text 1"));
}

TEST(JobReader, SaysHowManyBytesOfDataAreMissing) {
  EXPECT_THAT(EventsOf("\x1B*b+10Wabc"), ElementsAre("pcl 7 *bW +10", "payload 3 row !7"));
}

TEST(JobReader, BoundsTheDataThatAValueAnnounces) {
  EXPECT_THAT(EventsOf("\x1B*b99999999999999999999Wab"),
              ElementsAre("pcl 24 *bW 99999999999999999999", "payload 2 row !4294967293"));
}

TEST(JobReader, ReadsBracketKByItsCount) {
  EXPECT_THAT(EventsOf("\x1B[K\x01\x00\x01\x1B[K\x03\x00\x06\xC0\x46"sv),
              ElementsAre("bracket-k 6", "bracket-k 8"));
  EXPECT_THAT(EventsOf(std::string("\x1B[K\x00\x01"sv) + std::string(256, '\x1B') + "A"),
              ElementsAre("bracket-k 261", "text 1"));
}

TEST(JobReader, ReadsBracketKThatIsCutShort) {
  EXPECT_THAT(EventsOf("\x1B[K\x03\x00\x06"sv), ElementsAre("bracket-k 6 !2"));
  EXPECT_THAT(EventsOf("\x1B[K\x03"sv), ElementsAre("damaged 4"));
  EXPECT_THAT(EventsOf("\x1B[K"sv), ElementsAre("damaged 3"));
}

TEST(JobReader, TakesPostScriptAndPclXlAsOneRun) {
  EXPECT_THAT(EventsOf("@PJL ENTER LANGUAGE = POSTSCRIPT\n%!\n\x1B"
                       "E\f@PJL X\n\x1B%-12345X"),
              ElementsAre("pjl 33 @PJL ENTER LANGUAGE = POSTSCRIPT", "language-data 13 POSTSCRIPT",
                          "universal-exit 9"));
  EXPECT_THAT(EventsOf("@PJL enter language=pclxl \r\n\x1B"
                       "E"),
              ElementsAre("pjl 28 @PJL enter language=pclxl ", "language-data 2 PCLXL"));
}

TEST(JobReader, ListsTheCopiesThatFollowTheLanguage) {
  EXPECT_THAT(EventsOf("@PJL ENTER LANGUAGE = POSTSCRIPT\n@PJL SET COPIES = 2\n%!"),
              ElementsAre("pjl 33 @PJL ENTER LANGUAGE = POSTSCRIPT", "pjl 20 @PJL SET COPIES = 2",
                          "language-data 2 POSTSCRIPT"));
}

TEST(JobReader, KnowsLanguagesByTheirFirstBytes) {
  EXPECT_THAT(EventsOf("%!PS\x1B"), ElementsAre("language-data 5 POSTSCRIPT"));
  EXPECT_THAT(EventsOf("\x1B%-12345X) HP-PCL XL;1;1;\n\x1B"),
              ElementsAre("universal-exit 9", "language-data 18 PCLXL"));
  EXPECT_THAT(EventsOf("\x1B"
                       "E%!PS"),
              ElementsAre("escape 2 E", "text 4"));
}

TEST(JobReader, ReadsCommandsOfPclAndPpds) {
  EXPECT_THAT(EventsOf("@PJL ENTER LANGUAGE = PPDS\n\x1B[K\x01\x00\x06"sv),
              ElementsAre("pjl 27 @PJL ENTER LANGUAGE = PPDS", "bracket-k 6"));
}

TEST(JobReader, ForgetsTheLanguageAtTheUniversalExit) {
  EXPECT_THAT(EventsOf("@PJL ENTER LANGUAGE = GL\n\x1B%-12345X\x1B"
                       "E"),
              ElementsAre("pjl 25 @PJL ENTER LANGUAGE = GL", "universal-exit 9", "escape 2 E"));
}

TEST(JobReader, TakesAFileThatPjlAnnouncesAsData) {
  EXPECT_THAT(EventsOf("@PJL LWRITEFILE DEVICE=flash1 FILENAME=\"a.demo\" START=0 \n"
                       "\x1B"
                       "E@PJL RESET\n@PJL END DATA\n"),
              ElementsAre("pjl 57 @PJL LWRITEFILE DEVICE=flash1 FILENAME=\"a.demo\" START=0 ",
                          "payload 13 file", "pjl 14 @PJL END DATA"));
  EXPECT_THAT(EventsOf("@PJL LOPENDEMOFILE NAME=\"a\"\n\x1B"
                       "E\x1BM@PJL LCLOSEDEMOFILE\n"),
              ElementsAre("pjl 28 @PJL LOPENDEMOFILE NAME=\"a\"", "payload 2 file", "escape 2 M",
                          "pjl 20 @PJL LCLOSEDEMOFILE"));
  EXPECT_THAT(EventsOf("@PJL LOPENDEMOFILE NAME=\"a\"\nabc"),
              ElementsAre("pjl 28 @PJL LOPENDEMOFILE NAME=\"a\"", "payload 3 file"));
}

TEST(JobReader, TellsTextFormFeedsAndDataApart) {
  EXPECT_THAT(EventsOf("One\r\n\ttwo\f\xFF\xFE"), ElementsAre("text 9", "form-feed 1", "data 2"));
}

TEST(JobReader, ListsBrokenCommandsAsDamaged) {
  EXPECT_THAT(EventsOf("\x1B"), ElementsAre("damaged 1"));
  EXPECT_THAT(EventsOf("\x1B\x1B"
                       "E"),
              ElementsAre("damaged 1", "escape 2 E"));
  EXPECT_THAT(EventsOf("\x1B&"), ElementsAre("damaged 2"));
  EXPECT_THAT(EventsOf("\x1B&l12\x1B"
                       "E"),
              ElementsAre("damaged 5", "escape 2 E"));
  EXPECT_THAT(EventsOf("\x1B&l1x2\n"), ElementsAre("pcl 5 &lX 1", "damaged 1", "text 1"));
  EXPECT_THAT(EventsOf("\x1B&l" + std::string(40, '1') + "X"), ElementsAre("damaged 35", "text 9"));
}
