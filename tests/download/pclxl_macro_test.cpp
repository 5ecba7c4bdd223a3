// PCL XL macros through the exported calls: what is stored is a stream made of the file's one page.
#include "download/macro_case.h"
#include "support/pclxl.h"
#if !defined(_WIN32)
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr char kTarget[] = "@PJL SET LDOWNLOADTARGET = ram\n";
constexpr char kEnter[] = "@PJL ENTER LANGUAGE = PCLXL\n";

class PclXlMacroTest : public MacroTest {
 protected:
  void SetUp() override {
    MacroTest::SetUp();
    WriteFile(kInput, "\x1B%-12345X@PJL COMMENT\n" + xl::Session(xl::Page(xl::Body())));
    destination.language = ZE_LANGUAGE_PCLXL;
    macro.macroFlags = ZE_MACRO_FIX_UP;
  }
  static std::string Stream(const std::string& name, bool execute) {
    return xl::Stored(name, xl::Body(), execute);
  }

  static constexpr const char* kWorkFiles[] = {"in.str", "temp.str", "out.str", "fixup.str"};
};

TEST_F(PclXlMacroTest, PrintedOnceTheStreamIsExecuted) {
  Name("Logo");
  ASSERT_EQ(Download(ZE_MACRO_PRINT_ONCE, 0), ZE_OK);
  EXPECT_BYTES(ReadFile(kOutput), kEnter + Stream("Logo", true));
}

TEST_F(PclXlMacroTest, StoredTheStreamIsNotExecuted) {
  Name("Logo");
  ASSERT_EQ(Download(ZE_MACRO_STORE, 0), ZE_OK);
  EXPECT_BYTES(ReadFile(kOutput), kTarget + (kEnter + Stream("Logo", false)));
}

TEST_F(PclXlMacroTest, SentRawTheFileStaysAsItIs) {
  ASSERT_EQ(Download(ZE_MACRO_RAW, 0), ZE_OK);
  EXPECT_BYTES(ReadFile(kOutput), kTarget + (kEnter + ReadFile(kInput)));
}

TEST_F(PclXlMacroTest, CreatedItIsTheStreamAlone) {
  Name("Logo");
  ASSERT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(ReadFile(kOutput), Stream("Logo", false));
}

TEST_F(PclXlMacroTest, WithoutANameTheFileNames) {
  ASSERT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(ReadFile(kOutput), Stream("LOGO.MAC", false));
}

TEST_F(PclXlMacroTest, ALimitAsksForTheFixupToo) {
  macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT;
  ASSERT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(ReadFile(kOutput), Stream("LOGO.MAC", false));
}

TEST_F(PclXlMacroTest, ARefusedWriteEndsTheJob) {
  UseNewPrinter();
  ASSERT_EQ(Create(), ZE_OK);
  const int writes = Spooler().writes;
  ASSERT_GT(writes, 0);
  for (int failing = 1; failing <= writes; ++failing) {
    UseNewPrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Create(), ZE_PRINTER_WRITE_FAILED) << failing;
  }
}

TEST_F(PclXlMacroTest, CheckedWithFixupItLeavesTheStreamInAFile) {
  Name("Logo");
  EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OK);
  EXPECT_BYTES(ReadFile("fixup.str"), Stream("Logo", false));
  EXPECT_TRUE(NothingSent());
}

TEST_F(PclXlMacroTest, WorkFilesAreNoMacros) {
  const std::string job = ReadFile(kInput);
  for (const char* name : kWorkFiles) {
    WriteFile(name, job);
    EXPECT_EQ(ZeMacCreate(name, kOutput, &destination, &macro), ZE_OPEN_FAILED) << name;
    for (const std::int32_t mode : {ZE_MACRO_PRINT_ONCE, ZE_MACRO_STORE}) {
      EXPECT_EQ(ZeMacDownload(name, kOutput, &destination, &macro, mode, 0), ZE_OPEN_FAILED)
          << name;
    }
    EXPECT_EQ(ZeMacValidate(name, &destination, &macro), ZE_OPEN_FAILED) << name;
    EXPECT_BYTES(ReadFile(name), job);
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(PclXlMacroTest, WorkFileAsMacroLeavesTheOutputAsItIs) {
  destination.flags = ZE_FLAG_PJL;
  macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT;
  WriteFile("in.str", ReadFile(kInput));
  WriteFile(kOutput, "an earlier job");
  EXPECT_EQ(ZeMacCreate("in.str", kOutput, &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeMacDownload("in.str", kOutput, &destination, &macro, ZE_MACRO_STORE, 0),
            ZE_OPEN_FAILED);
  EXPECT_BYTES(ReadFile(kOutput), "an earlier job");
  EXPECT_EQ(macro.macroFlags, std::uint32_t{ZE_MACRO_FIX_UP_LIMIT | ZE_MACRO_FIX_UP});
}

TEST_F(PclXlMacroTest, WorkFilesAreRefusedAfterTheChecksOfTheFileAndBeforeTheQueue) {
  EXPECT_EQ(ZeMacCreate("in.str", kOutput, &destination, &macro), ZE_FILE_NOT_FOUND);
  WriteFile("in.str", "x");
  destination.bidiHandle = 1;
  EXPECT_EQ(ZeMacCreate("in.str", kOutput, &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_EQ(Create(), ZE_UNUSABLE);
}

TEST_F(PclXlMacroTest, SentRawWorkFilesAreMacrosAndPrinters) {
  const std::string job = ReadFile(kInput);
  for (const char* name : kWorkFiles) {
    for (const std::uint32_t flags : {ZE_MACRO_FIX_UP, ZE_MACRO_FIX_UP_LIMIT}) {
      macro.macroFlags = flags;
      WriteFile(name, job);
      EXPECT_EQ(ZeMacDownload(name, kOutput, &destination, &macro, ZE_MACRO_RAW, 0), ZE_OK) << name;
      EXPECT_BYTES(ReadFile(kOutput), kTarget + (kEnter + job));
      EXPECT_EQ(ZeMacDownload(kInput, name, &destination, &macro, ZE_MACRO_RAW, 0), ZE_OK) << name;
      EXPECT_BYTES(ReadFile(name), kTarget + (kEnter + job));
    }
  }
}

TEST_F(PclXlMacroTest, WorkFilesAreNoPrintersWithTheFixup) {
  for (const char* name : kWorkFiles) {
    EXPECT_EQ(ZeMacCreate(kInput, name, &destination, &macro), ZE_OPEN_FAILED) << name;
    EXPECT_EQ(ZeMacDownload(kInput, name, &destination, &macro, ZE_MACRO_PRINT_ONCE, 0),
              ZE_OPEN_FAILED)
        << name;
  }
  macro.macroFlags = 0;
  EXPECT_EQ(ZeMacCreate(kInput, "out.str", &destination, &macro), ZE_OK);
  EXPECT_BYTES(ReadFile("out.str"), ReadFile(kInput));
}

#if !defined(_WIN32)
// Nobody writes to it: the library would wait for ever.
TEST_F(PclXlMacroTest, NamedPipesAreNotOpened) {
  alarm(120);
  fs::create_directory("folder");
  ASSERT_EQ(mkfifo("folder/pipe", 0600), 0);
  std::int16_t count = 0;
  EXPECT_EQ(ZeMacFind("folder", &count, 5, 0, 0), nullptr);
  EXPECT_EQ(ZeMacValidate("folder/pipe", &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeMacCreate("folder/pipe", kOutput, &destination, &macro), ZE_OPEN_FAILED);
  ZeDemoInfo demo = {};
  demo.method = ZE_DEMO_PJL_FILE;
  demo.device = ZE_DEVICE_DISK1;
  EXPECT_EQ(ZeDemDownload("folder/pipe", kOutput, &destination, &demo), ZE_OPEN_FAILED);
  alarm(0);
}
#endif

}  // namespace
}  // namespace zeapi::testing
