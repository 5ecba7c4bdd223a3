// How a captured job is shown.
#include "job/job_listing.h"

#include <gtest/gtest.h>

#include <sstream>

#include "job_text.h"

namespace tool {
namespace {

using namespace std::string_view_literals;

std::string Listing(std::string_view job, bool fold = false) {
  const std::vector<std::uint8_t> bytes = test::BytesOf(job);
  std::ostringstream out;
  PrintJob(out, bytes, ReadJob(bytes), fold);
  return out.str();
}

nlohmann::ordered_json FirstEvent(std::string_view job) {
  const std::vector<std::uint8_t> bytes = test::BytesOf(job);
  return EventToJson(ReadJob(bytes).at(0), bytes);
}

TEST(JobListing, ShowsOffsetLengthAndMeaning) {
  EXPECT_EQ(Listing("\x1B%-12345X@PJL SET COPIES = 2\n\x1B&l1o2AHi\n\f\x1B*b2W\x1B\x80"),
            "  offset    bytes\n"
            "00000000        9  ESC %-12345X      universal exit\n"
            "00000009       20  @PJL SET COPIES = 2\n"
            "0000001D        5  ESC &l1O          orientation\n"
            "00000022        2      &l2A          paper size\n"
            "00000024        3  text \"Hi\\n\"\n"
            "00000027        1  FF                end of the page\n"
            "00000028        5  ESC *b2W          row of a picture\n"
            "0000002D        2    row \"\\e\\x80\"\n"
            "0000002F        0  end\n");
}

TEST(JobListing, NamesTheBracketKBlocksOfTheLibrary) {
  EXPECT_EQ(Listing("\x1B[K\x01\x00\x01\x1B[K\x03\x00\x06\x32\x08\x1B[K\x03\x00\x06\xC0\x46"
                    "\x1B[K\x01\x00\x06\x1B[K\x02\x00\x07"sv),
            "  offset    bytes\n"
            "00000000        6  ESC [K            initial conditions\n"
            "00000006        8  ESC [K            select language POSTSCRIPT, channel 2\n"
            "0000000E        8  ESC [K            format the device\n"
            "00000016        6  ESC [K            end of the job\n"
            "0000001C        6  ESC [K            bracket-K block  (the file ends 1 byte early)\n"
            "00000022        0  end\n");
}

TEST(JobListing, FoldsTheRowsOfAPicture) {
  EXPECT_EQ(Listing("\x1B*r1A\x1B*b2m2Wab\x1B*b0W\x1B*b5Y\x1B*b1Wc\x1B*rB", true),
            "  offset    bytes\n"
            "00000000        5  ESC *r1A          begin a picture\n"
            "00000005       25  ESC *b...         5 commands with 3 bytes of data: compression, "
            "row of a picture, skip rows\n"
            "0000001E        4  ESC *rB           end the picture\n"
            "00000022        0  end\n");
}

TEST(JobListing, LeavesSettingsUnfolded) {
  const std::string_view settings = "\x1B&l1O\x1B&l2A\x1B&l1X\x1B&l0S";
  EXPECT_EQ(Listing(settings, true), Listing(settings, false));
}

TEST(JobListing, LeavesTwoRowsUnfolded) {
  const std::string_view rows = "\x1B*b1Wa\x1B*b1Wb";
  EXPECT_EQ(Listing(rows, true), Listing(rows, false));
}

TEST(JobListing, CutsLongDataShort) {
  EXPECT_EQ(Listing(std::string(1000, 'x')),
            "  offset    bytes\n"
            "00000000     1000  text \"" +
                std::string(40, 'x') +
                "...\"\n"
                "000003E8        0  end\n");
}

TEST(JobListing, GivesJsonOfACommand) {
  EXPECT_EQ(FirstEvent("\x1B&l2X").dump(),
            R"({"offset":0,"length":5,"kind":"pcl","command":"ESC &l2X","value":"2",)"
            R"("continued":false,"meaning":"copies"})");
}

TEST(JobListing, GivesJsonOfData) {
  EXPECT_EQ(FirstEvent("\x80").dump(),
            R"({"offset":0,"length":1,"kind":"data","excerpt":"\\x80"})");
  EXPECT_EQ(FirstEvent("%!").dump(),
            R"({"offset":0,"length":2,"kind":"language-data","language":"POSTSCRIPT",)"
            R"("excerpt":"%!"})");
  EXPECT_EQ(FirstEvent("\x1B[K\x04\x00\x06"sv).dump(),
            R"({"offset":0,"length":6,"kind":"bracket-k","command":"ESC [K",)"
            R"("meaning":"bracket-K block","excerpt":"\\e[K\\x04\\x00\\x06","missing":3})");
}

}  // namespace
}  // namespace tool
