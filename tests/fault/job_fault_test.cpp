// Jobs of data and resources, and the queue below them, under every failure of the system and of
// memory, one at a time; what each failure means; and a disk that is full from some write on.
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "fault/fault_case.h"

namespace zeapi::testing {
namespace {

class JobFaultTest : public FaultTest {
 protected:
  static constexpr char kTrailer[] =
      "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n@PJL RESET\n\x1B%-12345X";
};

TEST_F(JobFaultTest, SendFileToAFile) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Letter";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 2;
  const std::string data(3000, 'd');
  FailEachInTurn({[&] { WriteFile("input", data); },
                  [&] { return TRIED(ZeDatSendFile)("input", kOutput, &destination, 0); },
                  kFileJobCodes,
                  [&] {
                    EXPECT_BYTES(Job(),
                                 "\x1B%-12345X@PJL RDYMSG DISPLAY = \"Letter\"\n"
                                 "@PJL ENTER LANGUAGE = PCL\n@PJL SET COPIES = 2\n" +
                                     data +
                                     "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n@PJL RESET\n"
                                     "\x1B%-12345X");
                  }});
}

TEST_F(JobFaultTest, SendStringToAPrinter) {
  destination.flags = ZE_FLAG_PJL;
  FailEachInTurn({[&] { UsePrinter(); },
                  [&] { return TRIED(ZeDatSendString)("$text", kOutput, &destination, 0); },
                  {ZE_OUT_OF_MEMORY},
                  [&] {
                    EXPECT_BYTES(Spooler().data,
                                 "\x1B%-12345Xtext\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n"
                                 "\x1B%-12345X");
                  }});
}

TEST_F(JobFaultTest, SendHexStringToTheDll) {
  FailEachInTurn({[&] { UseBidi(); },
                  [&] { return TRIED(ZeDatSendString)("4142", kOutput, &destination, 0); },
                  {ZE_OUT_OF_MEMORY},
                  [&] { EXPECT_BYTES(Bidi().data, "AB"); }});
}

TEST_F(JobFaultTest, ResourceToAFile) {
  FailEachInTurn({[] {}, [&] { return TRIED(ZeGenResource)(4, kOutput, &destination, 1); },
                  kFileJobCodes, [&] { EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\xC0\x50")); }});
}

// The log is opened, written and closed for each line; each of these may fail without a trace.
TEST_F(JobFaultTest, LogThatFailsHalfwayChangesNothing) {
  ASSERT_EQ(ZeGenResource(4, kOutput, &destination, 1), ZE_OK);
  const std::string whole = Job();
  int harmless = 0;
  std::uint32_t result = ZE_OK;
  EachFailure([] { fs::remove(kOutput); },
              [&] { result = TRIED(ZeGenResource)(4, kOutput, &destination, 1); },
              [&](const std::string&) {
                if (result != ZE_OK) return;
                ++harmless;
                EXPECT_BYTES(Job(), whole);
              });
  EXPECT_GT(harmless, 20);
}

// --- What each failure means, not only that it has a code

TEST_F(JobFaultTest, OutputFileThatDoesNotCloseGivesCloseFailedFromTheQueueAlone) {
  int queueFailures = 0;
  FailEach(
      "fclose", [] { fs::remove(LogFile()); },
      [&] {
        GenQueContext ctx;
        ctx.destination = &destination;
        const Result opened = GenQueOpen(kOutput, &ctx);
        return opened != ZE_OK ? opened : GenQueClose(&ctx);
      },
      [&](std::uint32_t result) {
        if (result == ZE_OK) return;  // it was the log's
        ++queueFailures;
        EXPECT_EQ(result, ZE_CLOSE_FAILED);
        EXPECT_EQ(LogLines(), (FileOpenLines() + FileCloseLines()));
      });
  EXPECT_EQ(queueFailures, 1);
  // The jobs do not ask how the file closed.
  FailEach(
      "fclose", [] {}, [&] { return TRIED(ZeDatSendString)("$text", kOutput, &destination, 0); },
      [](std::uint32_t result) { EXPECT_EQ(result, ZE_OK); });
}

TEST_F(JobFaultTest, DocumentOfTheDllWithoutMemoryIsNotStarted) {
  FailEach(
      "calloc",
      [&] {
        fs::remove(LogFile());
        ResetBidi();
        UseBidi();
      },
      [&] {
        GenQueContext ctx;
        ctx.destination = &destination;
        const Result opened = GenQueOpen(kOutput, &ctx);
        return opened != ZE_OK ? opened : GenQueClose(&ctx);
      },
      [](std::uint32_t result) {
        using Lines = std::vector<std::string>;
        EXPECT_EQ(result, ZE_OUT_OF_MEMORY);
        EXPECT_EQ(Bidi().calls, (Lines{"load VELBCE.DLL", "BceOpen 7 9 0", "free"}));
        EXPECT_EQ(Bidi().loaded, 0);
        EXPECT_EQ(LogLines(),
                  (Lines{".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1050): bidi handle: use velbce",
                         ".\\ZeQue (1360): -GenQueOpen"}));
      });
}

TEST_F(JobFaultTest, InputThatCannotBeReadStillEndsTheJobProperly) {
  WriteFile("input", "DATA");
  destination.flags = ZE_FLAG_PJL;
  FailEach(
      "fread", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeDatSendFile)("input", kOutput, &destination, 0); },
      [](std::uint32_t result) {
        EXPECT_EQ(result, ZE_READ_FAILED);
        EXPECT_BYTES(Job(), std::string(kUniversalExit) + kTrailer);
      });
}

TEST_F(JobFaultTest, BlockThatCannotBeHadStillEndsTheJobProperly) {
  WriteFile("input", "DATA");
  destination.flags = ZE_FLAG_PJL;
  FailEach(
      "calloc", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeDatSendFile)("input", kOutput, &destination, 0); },
      [](std::uint32_t result) {
        EXPECT_EQ(result, ZE_OUT_OF_MEMORY);
        EXPECT_BYTES(Job(), std::string(kUniversalExit) + kTrailer);
      });
}

TEST_F(JobFaultTest, RefusedBlockOfAFileJobStillGetsTheFirstCommandOfItsEnd) {
  WriteFile("input", "DATA");
  std::vector<std::string> jobs;
  const auto collect = [&](std::uint32_t result) {
    EXPECT_EQ(result, ZE_WRITE_FAILED);
    jobs.push_back(Job());
  };
  const auto send = [&] { return TRIED(ZeDatSendFile)("input", kOutput, &destination, 0); };
  destination.flags = ZE_FLAG_PJL;
  FailEach(
      "fwrite", [] { fs::remove(kOutput); }, send, collect);
  ASSERT_EQ(jobs.size(), 6U);  // exit; data; exit, ready message, reset, exit
  EXPECT_BYTES(jobs[1], std::string(kUniversalExit) + kUniversalExit);
  jobs.clear();
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PPDS;
  const auto collectAny = [&](std::uint32_t) { jobs.push_back(Job()); };
  FailEach(
      "fwrite", [] { fs::remove(kOutput); }, send, collectAny);
  ASSERT_EQ(jobs.size(), 3U);
  EXPECT_BYTES(jobs[1], Bytes("\x1B[K\x03\0\x06\x31\x01"
                              "\x1B[K\x01\0\x06"));
}

// --- A disk that is full from some write on

TEST_F(JobFaultTest, FullDiskGivesWriteFailed) {
  destination.flags = ZE_FLAG_PJL;
  EXPECT_EQ(ZeDatSendString("$text", "/dev/full", &destination, 0), ZE_WRITE_FAILED);
  EXPECT_EQ(LogLines(), (FileOpenLines() +
                         std::vector<std::string>{
                             ".\\ZeQue (1569): +GenQueWrite", ".\\ZeQue (1597): fwrite",
                             ".\\ZeQue (1600): fwrite FAILED!", ".\\ZeQue (1761): -GenQueWrite"} +
                         FileCloseLines()));
}

TEST_F(JobFaultTest, EveryWriteOfAFileJobFailingInTurnStopsItThere) {
  WriteFile("input", std::string(5000, 'd'));
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Letter";
  for (const char* function : {"fwrite", "fflush"}) {
    int failures = 0;
    FailEach(
        function, [] { fs::remove(LogFile()); },
        [&] { return TRIED(ZeDatSendFile)("input", kOutput, &destination, 0); },
        [&](std::uint32_t result) {
          ++failures;
          EXPECT_EQ(result, ZE_WRITE_FAILED);
          const std::vector<std::string> lines = LogLines();
          EXPECT_EQ(std::count(lines.begin(), lines.end(), ".\\ZeQue (1600): fwrite FAILED!"), 1);
          EXPECT_EQ(lines.back(), ".\\ZeQue (1509): -GenQueClose");
        });
    EXPECT_EQ(failures, 9) << function;  // 2 of the header, 3 blocks, 4 of the trailer
  }
}

}  // namespace
}  // namespace zeapi::testing
