#include "output/plain_file_queue.h"

#include <cstring>

#include "support/job.h"

namespace zeapi::testing {
namespace {

class PlainFileQueueTest : public JobTest {};

TEST_F(PlainFileQueueTest, WritesAreThoseOfTheQueueAndOpeningAndClosingAreSilent) {
  PlainFileQueue queue;
  ASSERT_EQ(queue.Open("work.str"), ZE_OK);
  EXPECT_EQ(GenQueWrite("data", 4, queue.context()), 4U);
  EXPECT_EQ(queue.Close(), ZE_OK);
  EXPECT_BYTES(ReadFile("work.str"), "data");
  EXPECT_EQ(LogLines(), FileWriteLines());
}

TEST_F(PlainFileQueueTest, PrinterOfThatNameIsNotAsked) {
  Spooler().printer = "work.str";
  PlainFileQueue queue;
  ASSERT_EQ(queue.Open("work.str"), ZE_OK);
  GenQueWrite("data", 4, queue.context());
  EXPECT_EQ(queue.Close(), ZE_OK);
  EXPECT_TRUE(Spooler().calls.empty());
  EXPECT_BYTES(ReadFile("work.str"), "data");
}

TEST_F(PlainFileQueueTest, FileIsMadeAnew) {
  WriteFile("work.str", "much older content");
  PlainFileQueue queue;
  ASSERT_EQ(queue.Open("work.str"), ZE_OK);
  EXPECT_EQ(queue.Close(), ZE_OK);
  EXPECT_BYTES(ReadFile("work.str"), "");
}

TEST_F(PlainFileQueueTest, FolderOfThatNameGivesOpenFailed) {
  std::filesystem::create_directory("work.str");
  PlainFileQueue queue;
  EXPECT_EQ(queue.Open("work.str"), ZE_OPEN_FAILED);
  EXPECT_EQ(queue.Close(), ZE_OK);
}

TEST_F(PlainFileQueueTest, ClosedQueueTakesNothingAndClosesAgain) {
  PlainFileQueue queue;
  ASSERT_EQ(queue.Open("work.str"), ZE_OK);
  EXPECT_EQ(queue.Close(), ZE_OK);
  EXPECT_EQ(GenQueWrite("data", 4, queue.context()), 0U);
  EXPECT_EQ(queue.Close(), ZE_OK);
  EXPECT_BYTES(ReadFile("work.str"), "");
}

TEST_F(PlainFileQueueTest, EndOfScopeClosesTheFile) {
  {
    PlainFileQueue queue;
    ASSERT_EQ(queue.Open("work.str"), ZE_OK);
    GenQueWrite("data", 4, queue.context());
  }
  EXPECT_BYTES(ReadFile("work.str"), "data");
}

TEST_F(PlainFileQueueTest, DestinationIsZeroButForTheLanguage) {
  PlainFileQueue queue;
  const ZeDestination zero = {};
  EXPECT_EQ(std::memcmp(queue.context()->destination, &zero, sizeof zero), 0);
  queue.SetLanguage(ZE_LANGUAGE_PCLXL);
  EXPECT_EQ(queue.context()->destination->language, ZE_LANGUAGE_PCLXL);
}

}  // namespace
}  // namespace zeapi::testing
