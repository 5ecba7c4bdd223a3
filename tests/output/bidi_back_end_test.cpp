#include "output/bidi_back_end.h"

#include "support/job.h"

namespace zeapi::testing {
namespace {

using Lines = std::vector<std::string>;

class BidiTest : public JobTest {
 protected:
  void SetUp() override {
    JobTest::SetUp();
    UseBidi();
    destination.jobName = "Fonts";
    ctx.destination = &destination;
  }

  std::uint32_t Write(std::string_view text) {
    return GenQueWrite(text.data(), static_cast<std::uint32_t>(text.size()), &ctx);
  }

  GenQueContext ctx;
};

TEST_F(BidiTest, WholeJobIsTheseCalls) {
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  EXPECT_EQ(Write("hello"), 5U);
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Bidi().calls, (Lines{"load VELBCE.DLL", "BceOpen 7 9 0", "BceStartDoc 9 0",
                                 "BceWrite 7 9 0 (5) 1", "BceEndDoc 9 0", "BceClose 7 9", "free"}));
  EXPECT_BYTES(Bidi().data, "hello");
  EXPECT_EQ(LogLines(),
            (Lines{".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1050): bidi handle: use velbce",
                   ".\\ZeQue (1360): -GenQueOpen", ".\\ZeQue (1569): +GenQueWrite",
                   ".\\ZeQue (1761): -GenQueWrite", ".\\ZeQue (1391): +GenQueClose",
                   ".\\ZeQue (1394): BceEndDoc", ".\\ZeQue (1396): BceClose",
                   ".\\ZeQue (1400): free velbce.dll", ".\\ZeQue (1509): -GenQueClose"}));
}

TEST_F(BidiTest, MissingDllGivesUnusable) {
  Bidi().present = false;
  EXPECT_EQ(GenQueOpen("ignored", &ctx), ZE_UNUSABLE);
  EXPECT_EQ(Bidi().calls, Lines{"load VELBCE.DLL"});
  EXPECT_EQ(LogLines(),
            (Lines{".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1050): bidi handle: use velbce",
                   ".\\ZeQue (1194): LoadLibrary (Bce) FAILED!", ".\\ZeQue (1360): -GenQueOpen"}));
}

TEST_F(BidiTest, EachMissingEntryPointIsLoggedAndGivesUnusable) {
  const std::pair<const char*, const char*> entries[] = {
      {"BceOpen", "1059"},   {"BceClose", "1064"}, {"BceStartDoc", "1069"},
      {"BceEndDoc", "1074"}, {"BceWrite", "1079"}, {"BceGetPrtInfo", "1084"}};
  for (const auto& [name, line] : entries) {
    std::filesystem::remove(LogFile());
    Bidi().missing = {name};
    EXPECT_EQ(GenQueOpen("ignored", &ctx), ZE_UNUSABLE);
    EXPECT_EQ(LogLines()[2],
              std::string(".\\ZeQue (") + line + "): GetProcAddress (" + name + ") FAILED!");
    EXPECT_EQ(LogLines().size(), 4U);
    EXPECT_EQ(Bidi().loaded, 0) << name;
  }
}

TEST_F(BidiTest, AllEntryPointsAreLookedUpAfterAMiss) {
  Bidi().missing = {"BceOpen", "BceClose", "BceStartDoc", "BceEndDoc", "BceWrite", "BceGetPrtInfo"};
  EXPECT_EQ(GenQueOpen("ignored", &ctx), ZE_UNUSABLE);
  EXPECT_EQ(LogLines(),
            (Lines{".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1050): bidi handle: use velbce",
                   ".\\ZeQue (1059): GetProcAddress (BceOpen) FAILED!",
                   ".\\ZeQue (1064): GetProcAddress (BceClose) FAILED!",
                   ".\\ZeQue (1069): GetProcAddress (BceStartDoc) FAILED!",
                   ".\\ZeQue (1074): GetProcAddress (BceEndDoc) FAILED!",
                   ".\\ZeQue (1079): GetProcAddress (BceWrite) FAILED!",
                   ".\\ZeQue (1084): GetProcAddress (BceGetPrtInfo) FAILED!",
                   ".\\ZeQue (1360): -GenQueOpen"}));
}

TEST_F(BidiTest, PortThatDoesNotOpenGivesUnusable) {
  Bidi().failing = {"BceOpen"};
  EXPECT_EQ(GenQueOpen("ignored", &ctx), ZE_UNUSABLE);
  EXPECT_EQ(Bidi().calls, (Lines{"load VELBCE.DLL", "BceOpen 7 9 0", "free"}));
  EXPECT_EQ(LogLines()[2], ".\\ZeQue (1174): BceOpen FAILED!");
}

TEST_F(BidiTest, KeepsAnOpenPortOpenWhenTheDocumentDoesNotStart) {
  Bidi().failing = {"BceStartDoc"};
  EXPECT_EQ(GenQueOpen("ignored", &ctx), ZE_UNUSABLE);
  EXPECT_EQ(Bidi().calls, (Lines{"load VELBCE.DLL", "BceOpen 7 9 0", "BceStartDoc 9 0", "free"}));
  EXPECT_EQ(LogLines()[2], ".\\ZeQue (1153): BceStartDoc FAILED!");
}

TEST_F(BidiTest, FailedOpenLeavesNothingToClose) {
  Bidi().failing = {"BceOpen"};
  GenQueOpen("ignored", &ctx);
  const Lines calls = Bidi().calls;
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Bidi().calls, calls);
}

TEST_F(BidiTest, RefusedWriteSetsPrinterWriteFailedAndReturnsTheDllsCount) {
  Bidi().failingWrite = 1;
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  EXPECT_EQ(Write("abc"), 0U);
  EXPECT_EQ(ctx.error, ZE_PRINTER_WRITE_FAILED);
  EXPECT_TRUE(QueueFailed(&ctx));
  EXPECT_EQ(Bidi().loaded, 0);
}

TEST_F(BidiTest, KeepsTakingAShortCountForSuccessWhenTheDllReportsNoFailure) {
  Bidi().reportedShort = 2;
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  EXPECT_EQ(Write("abc"), 1U);
  EXPECT_EQ(ctx.error, ZE_OK);
  GenQueClose(&ctx);
}

TEST_F(BidiTest, FailuresOfEndingAndClosingAreIgnored) {
  Bidi().failing = {"BceEndDoc", "BceClose"};
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Bidi().loaded, 0);
}

TEST_F(BidiTest, SecondCloseDoesNothing) {
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  const Lines calls = Bidi().calls;
  const Lines lines = LogLines();
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Bidi().calls, calls);
  EXPECT_EQ(LogLines(), lines);
}

// Two jobs must not overlap on this back end. When they do, the first close takes the DLL from both, and the
// second releases a printer that it does not have.
TEST_F(BidiTest, JobWhoseDllWasFreedByAnotherFailsWithoutCallingIt) {
  GenQueContext other;
  other.destination = &destination;
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  ASSERT_EQ(GenQueOpen("ignored", &other), ZE_OK);
  GenQueClose(&other);
  const Lines calls = Bidi().calls;
  EXPECT_EQ(Write("x"), 0U);
  EXPECT_EQ(ctx.error, ZE_PRINTER_WRITE_FAILED);
  const std::size_t logged = LogLines().size();
  EXPECT_EQ(GenQueClose(&ctx), ZE_OK);
  EXPECT_EQ(Bidi().calls, calls);
  EXPECT_EQ(Spooler().calls, (Lines{"end", "close"}));
  const Lines lines = LogLines();
  EXPECT_EQ(Lines(lines.begin() + static_cast<std::ptrdiff_t>(logged), lines.end()),
            (Lines{".\\ZeQue (1391): +GenQueClose", ".\\ZeQue (1417): EndDocPrinter",
                   ".\\ZeQue (1419): ClosePrinter", ".\\ZeQue (1509): -GenQueClose"}));
}

// --- The document-information block

TEST_F(BidiTest, DocumentInfoHoldsSizeOffsetsAndNames) {
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_BYTES(Bidi().documentInfo, Bytes("\x32\0\0\0"  // 24 + 8 + 6 + 7 + 5 = 50
                                          "\x14\0\0\0"  // computer name at 20
                                          "\x1D\0\0\0"  // user name at 29
                                          "\x24\0\0\0"  // product at 36
                                          "\x2C\0\0\0"  // job name at 44
                                          "TESTHOST\0tester\0Vantrel\0Fonts\0"));
}

TEST_F(BidiTest, NamesThatTheSystemDoesNotTellAreEmpty) {
  Host().known = false;
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_BYTES(Bidi().documentInfo, Bytes("\x24\0\0\0\x14\0\0\0\x15\0\0\0\x16\0\0\0\x1E\0\0\0"
                                          "\0\0Vantrel\0Fonts\0"));
}

TEST_F(BidiTest, NamesTooLongForTheirBuffersAreEmpty) {
  Host().computer = std::string(16, 'C');
  Host().user = std::string(80, 'u');
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_EQ(Bidi().documentInfo.size(), 36U);
  Host().computer.pop_back();
  Host().user.pop_back();
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_EQ(Bidi().documentInfo.size(), 36U + 15 + 79);
}

TEST_F(BidiTest, NullJobNameCountsAsEmpty) {
  destination.jobName = nullptr;
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_BYTES(Bidi().documentInfo.substr(36), Bytes("Vantrel\0\0"));
}

// --- The type of a connection

class ConnectionTest : public BidiTest {
 protected:
  std::uint32_t Classify(unsigned byte92, unsigned byte93) {
    Bidi().printerInfo[92] = static_cast<std::uint8_t>(byte92);
    Bidi().printerInfo[93] = static_cast<std::uint8_t>(byte93);
    return ZeNetGetType(3);
  }
};

TEST_F(ConnectionTest, FirstBitThatIsSetDecides) {
  EXPECT_EQ(Classify(0x00, 0x00), 0U);
  EXPECT_EQ(Classify(0x02, 0x00), 2U);
  EXPECT_EQ(Classify(0x06, 0x00), 4U);
  EXPECT_EQ(Classify(0x26, 0x00), 32U);
  EXPECT_EQ(Classify(0xD9, 0xF7), 0U);
}

TEST_F(ConnectionTest, Bit3OfByte93OutranksByte92) {
  for (unsigned byte92 = 0; byte92 < 256; ++byte92) EXPECT_EQ(Classify(byte92, 0x08), 2048U);
}

TEST_F(ConnectionTest, LoadsAndFreesTheDllForItself) {
  Classify(0x02, 0x00);
  EXPECT_EQ(Bidi().calls, (Lines{"load VELBCE.DLL", "BceGetPrtInfo 3 0", "free"}));
  EXPECT_TRUE(Bidi().infoWasZero);
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(ConnectionTest, ResultOfTheDllIsIgnored) {
  Bidi().failing = {"BceGetPrtInfo"};
  EXPECT_EQ(Classify(0x04, 0x00), 4U);
}

TEST_F(ConnectionTest, MissingDllGivesZero) {
  Bidi().present = false;
  EXPECT_EQ(Classify(0x02, 0x08), 0U);
}

TEST_F(ConnectionTest, MissingEntryPointGivesZeroAndFreesTheDll) {
  Bidi().missing = {"BceGetPrtInfo"};
  EXPECT_EQ(Classify(0x02, 0x08), 0U);
  EXPECT_EQ(Bidi().loaded, 0);
}

TEST_F(ConnectionTest, EachCallLoadsAnew) {
  Classify(0x02, 0x00);
  Classify(0x02, 0x00);
  EXPECT_EQ(Bidi().calls, (Lines{"load VELBCE.DLL", "BceGetPrtInfo 3 0", "free", "load VELBCE.DLL",
                                 "BceGetPrtInfo 3 0", "free"}));
}

TEST_F(ConnectionTest, EntryPointOfAJobIsForgottenWhenTheJobEndsOrFailsToOpen) {
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  GenQueClose(&ctx);
  for (const char* failing : {"", "BceOpen", "BceStartDoc"}) {
    Bidi().failing = {failing};
    GenQueOpen("ignored", &ctx);
    GenQueClose(&ctx);
    Bidi().failing.clear();
    Bidi().calls.clear();
    Classify(0x02, 0x00);
    EXPECT_EQ(Bidi().calls.front(), "load VELBCE.DLL") << failing;
  }
}

TEST_F(ConnectionTest, OpenJobsLibraryIsUsedAndLeftAlone) {
  ASSERT_EQ(GenQueOpen("ignored", &ctx), ZE_OK);
  EXPECT_EQ(Classify(0x20, 0x00), 32U);
  EXPECT_EQ(Bidi().loaded, 1);
  EXPECT_EQ(Write("x"), 1U);
  GenQueClose(&ctx);
  EXPECT_EQ(Bidi().loaded, 0);
}

}  // namespace
}  // namespace zeapi::testing
