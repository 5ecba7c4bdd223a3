// Macros and demos under every failure of the system and of memory, one at a time.
#include <cstring>

#include "fault/macro_and_demo_case.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

class MacroFaultTest : public MacroAndDemoTest {
 protected:
  void SetUp() override {
    MacroAndDemoTest::SetUp();
    macro.macroFlags = ZE_MACRO_FIX_UP;
  }

  // Longer than the blocks, so that reads and writes in the middle fail too.
  const std::string text = std::string(3000, 't');
};

TEST_F(MacroFaultTest, CreateFixedUp) {
  FailEachInTurn({[&] {
                    WriteFile("macro",
                              "\x1B"
                              "E" +
                                  text);
                  },
                  [&] { return TRIED(ZeMacCreate)("macro", kOutput, &destination, &macro); },
                  kFileJobCodes, [&] { EXPECT_BYTES(Job(), "\x1B&f12y0X" + text + "\x1B&f1X"); }});
}

TEST_F(MacroFaultTest, StoreOnADevice) {
  FailEachInTurn({[&] {
                    WriteFile("macro",
                              "\x1B"
                              "E" +
                                  text);
                  },
                  [&] {
                    return TRIED(ZeMacDownload)("macro", kOutput, &destination, &macro,
                                                ZE_MACRO_STORE, 29);
                  },
                  kFileJobCodes,
                  [&] {
                    EXPECT_BYTES(Job(),
                                 "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
                                 "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk1\n"
                                 "\x1B&f12y0X" +
                                     text +
                                     "\x1B&f1X\x1B&f12y10X"
                                     "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
                                     "@PJL DEFAULT LRESOURCE:\"disk1:12.p5macro\" LDESCRIPTION = "
                                     "\"MACRO\"\n"
                                     "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
                  }});
}

TEST_F(MacroFaultTest, PrintAPpdsMacroOnce) {
  destination.flags = 0;
  destination.language = ZE_LANGUAGE_PPDS;
  macro.macroFlags = 0;
  // A size that the system does not tell counts as 0: the header then says 3.
  FailEachInTurn(
      {[&] { WriteFile("macro", text); },
       [&] { return TRIED(ZeMacDownload)("macro", kOutput, &destination, &macro, 1, 29); },
       kFileJobCodes,
       [&] {
         std::string job = Job();
         if (job.size() > 3 && job[3] == 3) job[3] = static_cast<char>(3003);
         EXPECT_BYTES(job, "\x1B[l" + std::string(1, static_cast<char>(3003)) +
                               Bytes("\0\1\0\x0C") + text + "\x1B[l\x03\xFF\x0C\x1B[l\x01");
       }});
}

// Failed writes of these two are not reported, so that nothing can be said of their jobs.
TEST_F(MacroFaultTest, ActivateAndDelete) {
  FailEachInTurn({[] {}, [&] { return TRIED(ZeMacActivate)(kOutput, &destination, 1); },
                  kFileJobCodes, [] {}});
  FailEachInTurn(
      {[] {}, [&] { return TRIED(ZeMacDelete)(kOutput, &destination); }, kFileJobCodes, [] {}});
}

TEST_F(MacroFaultTest, Validate) {
  const std::set<std::uint32_t> codes = {ZE_FILE_NOT_FOUND, ZE_OPEN_FAILED,  ZE_CLOSE_FAILED,
                                         ZE_READ_FAILED,    ZE_WRITE_FAILED, ZE_OUT_OF_MEMORY};
  FailEachInTurn({[&] {
                    WriteFile("macro",
                              "\x1B"
                              "E" +
                                  text);
                    WriteFile("fixup.mac", "left by an earlier run\x1B&f1X");
                  },
                  [&] { return TRIED(ZeMacValidate)("macro", &destination, &macro); }, codes,
                  [&] { EXPECT_BYTES(ReadFile("fixup.mac"), text); }});
}

TEST_F(MacroFaultTest, NoFailureMakesABadMacroGood) {
  WriteFile("macro", text + "\x1B&f1X");
  std::uint32_t result = ZE_OK;
  EachFailure([] { WriteFile("fixup.mac", "left by an earlier run"); },
              [&] { result = TRIED(ZeMacValidate)("macro", &destination, &macro); },
              [&](const std::string&) { EXPECT_NE(result, ZE_OK); });
}

TEST_F(MacroFaultTest, DemoAsPostScriptFile) {
  demo.method = ZE_DEMO_POSTSCRIPT;
  destination.flags = 0;
  FailEachInTurn({[&] { WriteFile("demo", "AB"); },
                  [&] { return TRIED(ZeDemDownload)("demo", kOutput, &destination, &demo); },
                  kFileJobCodes,
                  [&] {
                    EXPECT_NE(Job().find("loop\n4142>\nstatusdict begin"), std::string::npos);
                    EXPECT_EQ(Job().back(), '\n');
                  }});
}

TEST_F(MacroFaultTest, DemoAsPjlFile) {
  demo.method = ZE_DEMO_PJL_FILE;
  FailEachInTurn(
      {[&] { WriteFile("demo", text); },
       [&] { return TRIED(ZeDemDownload)("demo", kOutput, &destination, &demo); }, kFileJobCodes,
       [&] {
         EXPECT_NE(Job().find("START=0 \n" + text + "@PJL END DATA\n"), std::string::npos);
         EXPECT_EQ(Job().substr(Job().size() - 9), kUniversalExit);
       }});
}

// A search has no codes: what it cannot see it does not list, and it never lists what is none.
TEST_F(MacroFaultTest, SearchesListNothingButWhatIsThere) {
  fs::create_directory("folder");
  WriteFile("folder/good", "text");
  WriteFile("folder/stop", "\x1B&f1X");
  for (const bool macros : {false, true}) {
    std::int16_t count = 0;
    ZeFoundFile* list = nullptr;
    EachFailure([&] { count = 0; },
                [&] {
                  list = macros ? TRIED(ZeMacFind)("folder", &count, ZE_LANGUAGE_PCL, 0, 0)
                                : TRIED(ZeDemFind)("folder", &count, 0, 0);
                },
                [&](const std::string& failed) {
                  for (const ZeFoundFile* file = list; file != nullptr; file = file->next) {
                    EXPECT_TRUE(!macros || std::strcmp(file->path, "folder\\good") == 0)
                        << file->path;
                  }
                  ZeFonFindFree(list);
                  if (failed.empty()) {
                    EXPECT_EQ(count, macros ? 1 : 2);
                  }
                });
  }
}

// The payload's failure ends a job properly, but a definition is not stopped that was not sent.
TEST_F(MacroFaultTest, FileThatCannotBeReadLeavesOutTheStopOfACreation) {
  macro.macroFlags = 0;
  WriteFile("macro", "text");
  FailEach(
      "fread", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeMacCreate)("macro", kOutput, &destination, &macro); },
      [](std::uint32_t result) {
        EXPECT_EQ(result, ZE_READ_FAILED);
        EXPECT_BYTES(Job(), "\x1B&f12y0X");
      });
  macro.macroFlags = ZE_MACRO_FIX_UP;
  FailEach(
      "fread", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeMacCreate)("macro", kOutput, &destination, &macro); },
      [](std::uint32_t result) { EXPECT_EQ(result, ZE_READ_FAILED); });
}

TEST_F(MacroFaultTest, FileThatCannotBeReadStillEndsADownload) {
  destination.flags = 0;
  WriteFile("macro", "text");
  FailEach(
      "fread", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeMacDownload)("macro", kOutput, &destination, &macro, 1, 29); },
      [](std::uint32_t result) {
        EXPECT_EQ(result, ZE_READ_FAILED);
        const std::string job = Job();
        EXPECT_BYTES(job.substr(0, 8), "\x1B&f12y0X");
        EXPECT_BYTES(job.substr(job.size() - 23), "\x1B&f1X\x1B&f12y4X\xFF\x0C\x1B&f12y5X");
      });
}

TEST_F(MacroFaultTest, BuffersThatCannotBeHadGiveOutOfMemory) {
  WriteFile("macro", "text");
  FailEach(
      "calloc", [] { fs::remove(kOutput); },
      [&] { return TRIED(ZeMacCreate)("macro", kOutput, &destination, &macro); },
      [](std::uint32_t result) {
        EXPECT_EQ(result, ZE_OUT_OF_MEMORY);
        EXPECT_BYTES(Job(), "\x1B&f12y0X");
      });
}

// The source, the work file that cannot be made, and the work file that cannot be read again.
TEST_F(MacroFaultTest, EachFileThatDoesNotOpenGivesOpenFailed) {
  WriteFile("macro", "text");
  int failures = 0;
  FailEach(
      "open", [] {}, [&] { return TRIED(ZeMacValidate)("macro", &destination, &macro); },
      [&](std::uint32_t result) {
        EXPECT_TRUE(result == ZE_OPEN_FAILED || result == ZE_OK);
        if (result == ZE_OPEN_FAILED) ++failures;
      });
  EXPECT_EQ(failures, 3);
}

TEST_F(MacroFaultTest, MemoryThatRunsOutInTheMiddleOfAJobLeavesNoFileOpen) {
  destination.flags = 0;
  demo.method = ZE_DEMO_BRACKET_D;
  WriteFile("demo", "AB");
  FailEachInTurn({[] {}, [&] { return TRIED(ZeDemDownload)("demo", kOutput, &destination, &demo); },
                  kFileJobCodes, [&] { EXPECT_BYTES(Job().substr(Job().size() - 2), "AB"); }});
  destination.language = ZE_LANGUAGE_PCLXL;
  const std::string page = xl::Session(xl::Page(xl::Body()));
  WriteFile("page", page);
  std::set<std::uint32_t> codes = kFileJobCodes;
  codes.insert(ZE_FIXUP_FAILED);
  FailEachInTurn({[] {
                    for (const char* file : {"in.str", "temp.str", "out.str"}) fs::remove(file);
                  },
                  [&] { return TRIED(ZeMacCreate)("page", kOutput, &destination, &macro); }, codes,
                  [] {}});
}

}  // namespace
}  // namespace zeapi::testing
