// Macros where the current folder takes no work files.
#include "download/macro_case.h"
#include "support/pclxl.h"
#include "support/posix/read_only.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class ReadOnlyFolderTest : public MacroTest {
 protected:
  void SetUp() override {
    MacroTest::SetUp();
    UsePrinter();
  }
  void UsePclXl() {
    destination.language = ZE_LANGUAGE_PCLXL;
    macro.macroFlags = ZE_MACRO_FIX_UP;
    WriteFile(kInput, xl::Session(xl::Page(xl::Body())));
  }
  // One that everybody may write, although nobody may make or remove files beside it.
  static void LeaveWorkFile(const std::string& name) {
    WriteFile(name, "of an earlier run");
    fs::permissions(name, fs::perms::all);
  }
};

TEST_F(ReadOnlyFolderTest, CheckOfAMacroGivesOpenFailed) {
  {
    const ReadOnly folder({"."});
    if (!folder.Binds()) GTEST_SKIP() << kUnbound;
    EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OPEN_FAILED);
  }
  EXPECT_FALSE(fs::exists("fixup.mac"));
  EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OK) << "where it may";
}

TEST_F(ReadOnlyFolderTest, SearchForMacrosFindsNone) {
  fs::create_directory("macros");
  WriteFile("macros/a", "text");
  std::int16_t count = 9;
  {
    const ReadOnly folder({"."});
    if (!folder.Binds()) GTEST_SKIP() << kUnbound;
    EXPECT_EQ(ZeMacFind("macros", &count, ZE_LANGUAGE_PCL, 0, 0), nullptr);
  }
  EXPECT_EQ(count, 0);
}

TEST_F(ReadOnlyFolderTest, CheckOfAPclXlMacroGivesOpenFailed) {
  UsePclXl();
  {
    const ReadOnly folder({"."});
    if (!folder.Binds()) GTEST_SKIP() << kUnbound;
    EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OPEN_FAILED);
  }
  EXPECT_FALSE(fs::exists("fixup.str"));
  LeaveWorkFile("fixup.str");
  {
    const ReadOnly folder({"."});
    EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OPEN_FAILED) << "in.str";
  }
  EXPECT_BYTES(ReadFile("fixup.str"), "");
  EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OK) << "where it may";
}

TEST_F(ReadOnlyFolderTest, FixupOfAPclXlMacroGivesOpenFailedAndSendsNothing) {
  UsePclXl();
  {
    const ReadOnly folder({"."});
    if (!folder.Binds()) GTEST_SKIP() << kUnbound;
    EXPECT_EQ(Create(), ZE_OPEN_FAILED);
  }
  EXPECT_EQ(Spooler().data, "");
  EXPECT_EQ(Spooler().calls.back(), "close");
  EXPECT_FALSE(fs::exists("in.str"));
}

// Only the input of the fixup has a code of its own.
TEST_F(ReadOnlyFolderTest, OtherWorkFilesOfTheFixupGiveFixupFailed) {
  UsePclXl();
  for (const char* file : {"in.str", "out.str"}) {  // so far the fixup gets
    LeaveWorkFile(file);
    const ReadOnly folder({"."});
    if (!folder.Binds()) GTEST_SKIP() << kUnbound;
    EXPECT_EQ(Create(), ZE_FIXUP_FAILED) << file;
    EXPECT_EQ(Spooler().data, "");
  }
  LeaveWorkFile("temp.str");
  {
    const ReadOnly folder({"."});
    EXPECT_EQ(Create(), ZE_OK) << "they need not be made";
  }
  EXPECT_BYTES(Spooler().data, xl::Stored("LOGO.MAC", xl::Body(), false));
}

// The macro that needs none is sent.
TEST_F(ReadOnlyFolderTest, MacroAsItIsNeedsNoWorkFile) {
  const ReadOnly folder({"."});
  if (!folder.Binds()) GTEST_SKIP() << kUnbound;
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B&f12y0XDATA\x1B&f1X");
}

// No printer of that name: the job would be a file.
TEST_F(ReadOnlyFolderTest, JobThatWouldBeAFileThereGivesOpenFailed) {
  const ReadOnly folder({"."});
  if (!folder.Binds()) GTEST_SKIP() << kUnbound;
  EXPECT_EQ(ZeMacCreate(kInput, "other.prn", &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeMacDownload(kInput, "other.prn", &destination, &macro, ZE_MACRO_STORE, 29),
            ZE_OPEN_FAILED);
  ZeDemoInfo demo = {};
  demo.method = ZE_DEMO_BRACKET_D;
  demo.device = ZE_DEVICE_FLASH1;
  EXPECT_EQ(ZeDemDownload(kInput, "other.prn", &destination, &demo), ZE_OPEN_FAILED);
}

}  // namespace
}  // namespace zeapi::testing
