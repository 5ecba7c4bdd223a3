#include "output/ZeQue.h"

#include <iterator>
#include <limits>

#include "support/job.h"

namespace zeapi::testing {
namespace {

using Lines = std::vector<std::string>;

class QueueTest : public JobTest {
 protected:
  void SetUp() override {
    JobTest::SetUp();
    ctx.destination = &destination;
  }

  std::uint32_t Write(std::string_view text) {
    return GenQueWrite(text.data(), static_cast<std::uint32_t>(text.size()), &ctx);
  }

  GenQueContext ctx;
};

// --- Choosing the back end

TEST_F(QueueTest, NameThatIsNoPrinterOpensAsFile) {
  EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(ctx.backEnd, QueueBackEnd::kFile);
  EXPECT_EQ(LogLines(), FileOpenLines());
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
}

TEST_F(QueueTest, NameThatIsNeitherPrinterNorWritablePathGivesOpenFailed) {
  EXPECT_EQ(GenQueOpen("no-such-folder\\job.prn", &ctx), ZE_OPEN_FAILED);
  EXPECT_EQ(LogLines(), FileOpenLines());
  EXPECT_EQ(ctx.backEnd, QueueBackEnd::kClosed);
}

TEST_F(QueueTest, FolderGivesOpenFailed) {
  std::filesystem::create_directory("folder");
  EXPECT_EQ(GenQueOpen("folder", &ctx), ZE_OPEN_FAILED);
}

TEST_F(QueueTest, EmptyNameGivesOpenFailed) { EXPECT_EQ(GenQueOpen("", &ctx), ZE_OPEN_FAILED); }

TEST_F(QueueTest, PrinterOfThatNameIsUsedBeforeAnyFile) {
  UsePrinter();
  EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(ctx.backEnd, QueueBackEnd::kSpooler);
  EXPECT_EQ(LogLines(),
            (Lines{".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1201): Attempt to use Win32 Printer",
                   ".\\ZeQue (1360): -GenQueOpen"}));
  EXPECT_FALSE(std::filesystem::exists(kOutput));
  EXPECT_TRUE(Bidi().calls.empty());
}

TEST_F(QueueTest, DocumentThatDoesNotStartClosesThePrinterAndFallsBackToTheFile) {
  UsePrinter();
  Spooler().startsDocument = false;
  EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(ctx.backEnd, QueueBackEnd::kFile);
  EXPECT_EQ(Spooler().calls, (Lines{"open job.prn", "start Vantrel Job", "close"}));
  EXPECT_EQ(
      LogLines(),
      (Lines{".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1201): Attempt to use Win32 Printer",
             ".\\ZeQue (1217): StartDocPrinter FAILED!", ".\\ZeQue (1228): OpenPrinter FAILED!",
             ".\\ZeQue (1232): Default: use file i/o", ".\\ZeQue (1360): -GenQueOpen"}));
  GenQueClose(&ctx);
}

TEST_F(QueueTest, BidiHandleSelectsTheDllAndNothingElseIsTried) {
  destination.bidiHandle = 9;
  UsePrinter();
  EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_UNUSABLE);
  EXPECT_TRUE(Spooler().calls.empty());
  EXPECT_FALSE(std::filesystem::exists(kOutput));
}

TEST_F(QueueTest, OpeningClearsWhatAnEarlierJobLeft) {
  ctx.error = ZE_WRITE_FAILED;
  ctx.spare = 5;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(ctx.error, ZE_OK);
  EXPECT_EQ(ctx.spare, 0U);
  GenQueClose(&ctx);
}

// --- The file back end

TEST_F(QueueTest, ReplaceModeReplacesAndAppendModeAppends) {
  for (const auto& [mode, expected] :
       {std::pair(kReplaceFile, "one"), {kReplaceFile, "one"}, {kAppendFile, "oneone"}}) {
    ctx.fileMode = mode;
    ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
    EXPECT_EQ(Write("one"), 3U);
    EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
    EXPECT_BYTES(Job(), expected);
  }
}

TEST_F(QueueTest, FileHoldsEverythingWrittenSoFar) {
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  Write("first\n");
  EXPECT_BYTES(Job(), "first\n");
  Write("second\n");
  EXPECT_BYTES(Job(), "first\nsecond\n");
  GenQueClose(&ctx);
}

TEST_F(QueueTest, FileJobLogsEveryStep) {
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  Write("x");
  GenQueClose(&ctx);
  EXPECT_EQ(LogLines(), FileOpenLines() + FileWriteLines() + FileCloseLines());
}

TEST_F(QueueTest, FileModesAreTheTableOfStreamModes) {
  const char* const modes[] = {"",   "r",  "w",  "a",   "rb",  "wb",  "ab",
                               "r+", "w+", "a+", "rb+", "wb+", "ab+", ""};
  for (std::size_t i = 0; i < std::size(modes); ++i) {
    EXPECT_STREQ(StreamMode(static_cast<std::int32_t>(i)), modes[i]) << i;
  }
}

TEST_F(QueueTest, FileModeOutsideTheTableOpensNothing) {
  for (const std::int32_t mode : {-1, 0, 13, 14, std::numeric_limits<std::int32_t>::max()}) {
    ctx.fileMode = mode;
    EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OPEN_FAILED) << mode;
  }
}

TEST_F(QueueTest, FileThatTakesNothingSetsWriteFailed) {
  WriteFile(kOutput, "");
  ctx.fileMode = 4;  // for reading only
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(Write("x"), 0U);
  EXPECT_EQ(ctx.error, ZE_WRITE_FAILED);
  EXPECT_EQ(LogLines(),
            (FileOpenLines() + Lines{".\\ZeQue (1569): +GenQueWrite", ".\\ZeQue (1597): fwrite",
                                     ".\\ZeQue (1600): fwrite FAILED!",
                                     ".\\ZeQue (1761): -GenQueWrite"}));
  GenQueClose(&ctx);
}

// --- The spooler back end

TEST_F(QueueTest, SpoolerGetsOneCallAWriteAndTheJobName) {
  UsePrinter();
  destination.jobName = "Report";
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(Write("ab"), 2U);
  EXPECT_EQ(Write("cde"), 3U);
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Spooler().calls,
            (Lines{"open job.prn", "start Report", "write 2", "write 3", "end", "close"}));
  EXPECT_BYTES(Spooler().data, "abcde");
  const Lines lines = LogLines();
  EXPECT_EQ(Lines(lines.begin() + 3, lines.end()),
            (Lines{".\\ZeQue (1569): +GenQueWrite", ".\\ZeQue (1584): WritePrinter",
                   ".\\ZeQue (1761): -GenQueWrite", ".\\ZeQue (1569): +GenQueWrite",
                   ".\\ZeQue (1584): WritePrinter", ".\\ZeQue (1761): -GenQueWrite",
                   ".\\ZeQue (1391): +GenQueClose", ".\\ZeQue (1417): EndDocPrinter",
                   ".\\ZeQue (1419): ClosePrinter", ".\\ZeQue (1509): -GenQueClose"}));
}

TEST_F(QueueTest, NullJobNameGivesTheSpoolerTheDefaultDocumentName) {
  UsePrinter();
  destination.jobName = nullptr;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_EQ(Spooler().calls[1], "start Vantrel Job");
}

TEST_F(QueueTest, EmptyJobNameIsUsedAsItIs) {
  UsePrinter();
  destination.jobName = "";
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_EQ(Spooler().calls[1], "start ");
}

TEST_F(QueueTest, RefusedSpoolerWriteClosesThePrinterAtOnceAndSetsPrinterWriteFailed) {
  UsePrinter();
  Spooler().failingWrite = 1;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(Write("abc"), 2U);
  EXPECT_EQ(ctx.error, ZE_PRINTER_WRITE_FAILED);
  EXPECT_EQ(Spooler().calls.back(), "close");
  const Lines lines = LogLines();
  EXPECT_EQ(Lines(lines.begin() + 3, lines.end()),
            (Lines{".\\ZeQue (1569): +GenQueWrite", ".\\ZeQue (1584): WritePrinter",
                   ".\\ZeQue (1590): WritePrinter FAILED!", ".\\ZeQue (1761): -GenQueWrite"}));
  GenQueClose(&ctx);
}

TEST_F(QueueTest, KeepsReleasingThePrinterOnceMoreAfterARefusedWrite) {
  UsePrinter();
  Spooler().failingWrite = 1;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  Write("abc");
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Spooler().calls,
            (Lines{"open job.prn", "start Vantrel Job", "write 3", "close", "end", "close"}));
}

TEST_F(QueueTest, RefusedSpoolerWriteIsShownOnTheConsole) {
  UsePrinter();
  Spooler().failingWrite = 1;
  Spooler().shortBy = 2;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  Write("abc");
  EXPECT_BYTES(Host().console, "\nWritePrinter FAILED! 77 abc 3 1 \nGetLastError: 1234\n");
  GenQueClose(&ctx);
}

TEST_F(QueueTest, ConsoleTextShowsDataToItsFirstZeroByteAndNeverBeyondItsEnd) {
  UsePrinter();
  Spooler().failingWrite = 1;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  const std::vector<char> unterminated(3, 'x');  // a reader past its end is caught by the sanitizer
  GenQueWrite(unterminated.data(), 3, &ctx);
  Spooler().failingWrite = 2;
  Write(std::string_view("a%s%n\0b", 7));
  EXPECT_BYTES(Host().console,
               "\nWritePrinter FAILED! 77 xxx 3 2 \nGetLastError: 1234\n"
               "\nWritePrinter FAILED! 77 a%s%n 7 6 \nGetLastError: 1234\n");
  GenQueClose(&ctx);
}

TEST_F(QueueTest, WritingGoesOnAfterAFailure) {
  UsePrinter();
  Spooler().failingWrite = 1;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  Write("a");
  EXPECT_EQ(Write("b"), 1U);
  EXPECT_EQ(ctx.error, ZE_PRINTER_WRITE_FAILED);
  EXPECT_BYTES(Spooler().data, "b");
  GenQueClose(&ctx);
}

// --- QueueFailed, and closing

TEST_F(QueueTest, HealthyQueueHasNotFailed) {
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_FALSE(QueueFailed(&ctx));
  EXPECT_EQ(ctx.backEnd, QueueBackEnd::kFile);
  GenQueClose(&ctx);
}

TEST_F(QueueTest, FailedQueueIsClosedByTheQuestion) {
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  ctx.error = ZE_WRITE_FAILED;
  EXPECT_TRUE(QueueFailed(&ctx));
  EXPECT_EQ(ctx.backEnd, QueueBackEnd::kClosed);
  EXPECT_TRUE(QueueFailed(&ctx));
  EXPECT_EQ(LogLines(), FileOpenLines() + FileCloseLines());
}

TEST_F(QueueTest, SecondCloseDoesNothing) {
  for (const bool printer : {false, true}) {
    if (printer) UsePrinter();
    ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
    EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
    const Lines lines = LogLines();
    const Lines calls = Spooler().calls;
    EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
    EXPECT_EQ(LogLines(), lines);
    EXPECT_EQ(Spooler().calls, calls);
  }
}

TEST_F(QueueTest, ClosedQueueTakesNothing) {
  EXPECT_EQ(Write("x"), 0U);
  EXPECT_EQ(ctx.error, ZE_OK);
  EXPECT_TRUE(LogLines().empty());
}

}  // namespace
}  // namespace zeapi::testing
