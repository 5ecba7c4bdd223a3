// Every export under every failure of the system and of memory, one at a time. Whatever fails: the
// result is one of the call's codes, a job that reports success is whole, nothing stays open, and
// the next call works.
#include <cstring>

#include "fault/fault_case.h"
#include "fonts/cartridge.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

std::uint32_t ZEAPI_CALL Shout(char* line, std::uint32_t) {
  line[0] = '!';
  return 0;
}

const std::set<std::uint32_t> kCopyCodes = {ZE_FILE_NOT_FOUND, ZE_ACCESS_DENIED, ZE_DISK_FULL,
                                            ZE_COPY_FAILED, ZE_OUT_OF_MEMORY};

std::set<std::uint32_t> CopyCodesAnd(const std::set<std::uint32_t>& more) {
  std::set<std::uint32_t> codes = kCopyCodes;
  codes.insert(more.begin(), more.end());
  return codes;
}

TEST_F(FaultTest, SendFileToAFile) {
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

TEST_F(FaultTest, SendStringToAPrinter) {
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

TEST_F(FaultTest, SendHexStringToTheDll) {
  FailEachInTurn({[&] { UseBidi(); },
                  [&] { return TRIED(ZeDatSendString)("4142", kOutput, &destination, 0); },
                  {ZE_OUT_OF_MEMORY},
                  [&] { EXPECT_BYTES(Bidi().data, "AB"); }});
}

TEST_F(FaultTest, ResourceToAFile) {
  FailEachInTurn({[] {}, [&] { return TRIED(ZeGenResource)(4, kOutput, &destination, 1); },
                  kFileJobCodes, [&] { EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\xC0\x50")); }});
}

TEST_F(FaultTest, Copy) {
  FailEachInTurn({[&] {
                    WriteFile("source", "content");
                    WriteFile("copy", "old");
                  },
                  [] { return TRIED(ZeFilCopy)("source", "copy"); }, kCopyCodes,
                  [] { EXPECT_BYTES(ReadFile("copy"), "content"); }});
}

TEST_F(FaultTest, CopyThatFailsLeavesNoNewFile) {
  WriteFile("source", "content");
  std::uint32_t result = ZE_OK;
  EachFailure([] { fs::remove("copy"); }, [&] { result = TRIED(ZeFilCopy)("source", "copy"); },
              [&](const std::string& failed) {
                if (failed != "unlink") {
                  EXPECT_EQ(fs::exists("copy"), result == ZE_OK);
                }
              });
}

TEST_F(FaultTest, Backup) {
  static char name[ZE_MAX_NAME + 1];
  FailEachInTurn({[&] {
                    for (const auto& entry : fs::directory_iterator(".")) fs::remove(entry);
                    WriteFile("panel.cfg", "content");
                  },
                  [] { return TRIED(ZeFilBackup)("panel.cfg", name); },
                  CopyCodesAnd({ZE_BAD_FORMAT, ZE_SHARING_VIOLATION}),
                  [] { EXPECT_BYTES(ReadFile("panel.001"), "content"); }});
}

TEST_F(FaultTest, Modify) {
  FailEachInTurn({[&] { WriteFile("text", "one\r\ntwo\r\n"); },
                  [] { return TRIED(ZeFilModify)("text", 0, Shout); },
                  CopyCodesAnd({ZE_OPEN_FAILED, ZE_CLOSE_FAILED, ZE_READ_FAILED, ZE_WRITE_FAILED,
                                ZE_UNUSABLE}),
                  [] { EXPECT_BYTES(ReadFile("text"), "!ne\n!wo\n"); }});
}

// Only the last step, the copy over the source, may leave the source changed.
TEST_F(FaultTest, ModifyThatFailsBeforeTheCopyLeavesTheFile) {
  const std::string text = "one\ntwo\n";
  const std::set<std::uint32_t> beforeCopy = {ZE_OPEN_FAILED,  ZE_CLOSE_FAILED, ZE_READ_FAILED,
                                              ZE_WRITE_FAILED, ZE_UNUSABLE,     ZE_OUT_OF_MEMORY};
  std::uint32_t result = ZE_OK;
  EachFailure([&] { WriteFile("text", text); },
              [&] { result = TRIED(ZeFilModify)("text", 0, Shout); },
              [&](const std::string&) {
                if (beforeCopy.count(result) != 0) {
                  EXPECT_EQ(ReadFile("text"), text);
                }
              });
}

TEST_F(FaultTest, MakePath) {
  static char created[ZE_MAX_NAME + 1];
  const std::string path = OnDriveC("a\\b\\c");
  FailEachInTurn({[&] { fs::remove_all(UnderDriveC("a")); },
                  [&] { return TRIED(ZeFilMakePath)(path.c_str(), created); },
                  {ZE_UNUSABLE},
                  [&] { EXPECT_TRUE(fs::is_directory(UnderDriveC("a/b/c"))); }});
}

TEST_F(FaultTest, MakePathKeepsAndListsWhatWasMadeBeforeTheFailure) {
  char created[ZE_MAX_NAME + 1];
  const std::string path = OnDriveC("a\\b\\c");
  bool stoppedHalfway = false;
  std::uint32_t result = ZE_OK;
  EachFailure([&] { fs::remove_all(UnderDriveC("a")); },
              [&] { result = TRIED(ZeFilMakePath)(path.c_str(), created); },
              [&](const std::string&) {
                if (result == ZE_OK) return;
                std::string expected;
                if (fs::exists(UnderDriveC("a"))) expected += "\\a";
                if (fs::exists(UnderDriveC("a/b"))) expected += "\\b";
                EXPECT_EQ(created, expected);
                stoppedHalfway |= expected == "\\a\\b";
              });
  EXPECT_TRUE(stoppedHalfway);
}

TEST_F(FaultTest, Checksum) {
  static std::uint16_t sum;
  FailEachInTurn({[&] { WriteFile("data", Bytes("\1\0\2\0")); },
                  [] { return TRIED(ZeFilChecksum)("data", 0, 0, &sum); },
                  {ZE_OPEN_FAILED, ZE_CLOSE_FAILED, ZE_READ_FAILED, 8},
                  [] { EXPECT_EQ(sum, 65533); }});
}

TEST_F(FaultTest, SizeAndExistenceAreZeroWhenTheSystemDoesNotTell) {
  WriteFile("file.txt", "12345");
  std::uint32_t size = 0;
  std::uint32_t exists = 0;
  EachFailure([] {},
              [&] {
                size = TRIED(ZeFilQuerySize)("*.txt");
                exists = TRIED(ZeFilExists)("file.txt");
              },
              [&](const std::string& failed) {
                EXPECT_TRUE(size == 5 || (size == 0 && !failed.empty())) << size;
                EXPECT_TRUE(exists == 1 || (exists == 0 && !failed.empty())) << exists;
              });
}

// --- Font queries. A record that reports success is whole; 27 also stands for a file that cannot
// be read, and a companion that cannot be seen counts as missing.

const std::set<std::uint32_t> kFontCodes = {ZE_FILE_NOT_FOUND, ZE_OPEN_FAILED, ZE_OUT_OF_MEMORY,
                                            ZE_BAD_FORMAT, ZE_UNSUPPORTED};

class FontFaultTest : public FaultTest {
 protected:
  void TearDown() override {
    Release();
    FaultTest::TearDown();
  }
  void FailEachQuery(
      const std::string& path, std::uint32_t option, const char* description,
      const std::function<void()>& more = [] {}) {
    FailEachInTurn(
        {[this] { Release(); },
         [this, path, option] { return TRIED(ZeFonQueryInfo)(path.c_str(), &info, option, 1); },
         kFontCodes,
         [this, description, more] {
           EXPECT_STREQ(info.description, description);
           more();
         }});
  }
  void Release() {
    FreeCartridge(info.cartridge);
    info = {};
  }

  ZeFontInfo info = {};
};

TEST_F(FontFaultTest, PclFont) {
  WriteFile("font.sfp", PclFontFile{}.File());
  FailEachQuery("font.sfp", 0, "Courier  Bd [12.0 Pt.] (Roman-8)");
}

TEST_F(FontFaultTest, Pfb) {
  WriteFile("font.pfb", "/FontName /Courier\n/Encoding 256 array\n" + std::string(20000, 'x'));
  WriteFile("font.AFM", "x");
  FailEachQuery("font.pfb", 2, "Courier", [this] {
    EXPECT_EQ(info.flags & ZE_FONT_STANDARD, 0U);
    EXPECT_STREQ(info.companionFile, "font.AFM");
  });
}

TEST_F(FontFaultTest, Pfa) {
  WriteFile("font.pfa", "%!PS\n/FontName /Courier\n");
  FailEachQuery("font.pfa", 0, "Courier");
}

TEST_F(FontFaultTest, Afm) {
  WriteFile("font.afm",
            "FontName Courier\nStartKernData\nStartKernPairs 1\nKPX A B 1\nEndFontMetrics\n");
  WriteFile("font.INF", "MSMenuName (Courier)\n");
  WriteFile("font.PFB", "x");
  FailEachQuery("font.afm", 4, "Courier", [this] {
    EXPECT_STREQ(info.detail, "Courier");
    EXPECT_STREQ(info.companionFile, "font.PFB");
  });
}

TEST_F(FontFaultTest, Dlf) {
  WriteFile("font.dlf", DlfFile{}.File());
  WriteFile("font.FMF", "x");
  FailEachQuery("font.dlf", 2, "Courier                      10.0 pitch  cp: 850 ");
}

TEST_F(FontFaultTest, Fmf) {
  WriteFile("font.fmf", FmfFile("Courier"));
  FailEachQuery("font.fmf", 0, "Courier");
}

TEST_F(FontFaultTest, Pfm) {
  WriteFile("font.pfm", PfmFile{}.File());
  FailEachQuery("font.pfm", 0, "Courier");
}

TEST_F(FontFaultTest, Pcm) {
  PcmFile cartridge;
  cartridge.entries = {PfmFile{}.File(), PfmFile{}.File()};
  WriteFile("cart.pcm", cartridge.File());
  FailEachQuery("cart.pcm", 0, "Forms Cartridge", [this] {
    ASSERT_TRUE(info.cartridge != nullptr);
    ASSERT_TRUE(info.cartridge->fonts != nullptr);
    EXPECT_TRUE(info.cartridge->fonts->next != nullptr);
  });
}

// The log is opened, written and closed for each line; each of these may fail without a trace.
TEST_F(FaultTest, LogThatFailsHalfwayChangesNothing) {
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

class MeaningTest : public FaultTest {
 protected:
  static constexpr char kTrailer[] =
      "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n@PJL RESET\n\x1B%-12345X";
};

TEST_F(MeaningTest, OutputFileThatDoesNotCloseGivesCloseFailedFromTheQueueAlone) {
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

TEST_F(MeaningTest, InputThatCannotBeReadStillEndsTheJobProperly) {
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

TEST_F(MeaningTest, BlockThatCannotBeHadStillEndsTheJobProperly) {
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

TEST_F(MeaningTest, RefusedBlockOfAFileJobStillGetsTheFirstCommandOfItsEnd) {
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

TEST_F(MeaningTest, EachFailureOfRewritingAFileHasItsCode) {
  const fs::path temporary = fs::absolute("temporary");
  setenv("TMPDIR", temporary.c_str(), 1);
  const auto prepare = [&] {
    fs::remove_all(temporary);  // where the removal itself was made to fail
    fs::create_directory(temporary);
    WriteFile("text", "one\n");
  };
  const auto call = [] { return TRIED(ZeFilModify)("text", 0, Shout); };
  const auto gives = [&](std::uint32_t code) {
    return [&, code](std::uint32_t result) {
      EXPECT_EQ(result, code);
      EXPECT_TRUE(fs::is_empty(temporary));
    };
  };
  FailEach("fputs", prepare, call, gives(ZE_WRITE_FAILED));
  FailEach("fclose", prepare, call, gives(ZE_CLOSE_FAILED));
  FailEach("calloc", prepare, call, gives(ZE_OUT_OF_MEMORY));
  FailEach("fgets", prepare, call, gives(ZE_READ_FAILED));
  FailEach("fdopen", prepare, call, gives(ZE_OPEN_FAILED));
  FailEach("fopencookie", prepare, call, gives(ZE_OPEN_FAILED));
  unsetenv("TMPDIR");
}

TEST_F(MeaningTest, SumIsStoredEvenWhenReadingOrClosingFails) {
  static std::uint16_t sum;
  const auto prepare = [] {
    WriteFile("data", Bytes("\1\0\2\0"));
    sum = 0x1234;
  };
  const auto call = [] { return TRIED(ZeFilChecksum)("data", 0, 0, &sum); };
  FailEach("close", prepare, call, [](std::uint32_t result) {
    EXPECT_EQ(result, ZE_CLOSE_FAILED);
    EXPECT_EQ(sum, 65533);
  });
  FailEach("read", prepare, call, [](std::uint32_t result) {
    EXPECT_EQ(result, ZE_READ_FAILED);
    EXPECT_TRUE(sum == 0 || sum == 65533);
  });
}

TEST_F(MeaningTest, FileThatMayNotBeReadDoesNotExist) {
  WriteFile("file", "");
  FailEach(
      "access", [] {}, [] { return TRIED(ZeFilExists)("file"); },
      [](std::uint32_t exists) { EXPECT_EQ(exists, 0U); });
}

// --- A disk that is full from some write on

TEST_F(FaultTest, FullDiskGivesWriteFailed) {
  destination.flags = ZE_FLAG_PJL;
  EXPECT_EQ(ZeDatSendString("$text", "/dev/full", &destination, 0), ZE_WRITE_FAILED);
  EXPECT_EQ(LogLines(), (FileOpenLines() +
                         std::vector<std::string>{
                             ".\\ZeQue (1569): +GenQueWrite", ".\\ZeQue (1597): fwrite",
                             ".\\ZeQue (1600): fwrite FAILED!", ".\\ZeQue (1761): -GenQueWrite"} +
                         FileCloseLines()));
}

TEST_F(FaultTest, EveryWriteOfAFileJobFailingInTurnStopsItThere) {
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
