// What is no regular file, where data would be read and where work files would be written.
#include "download/macro_case.h"
#include "support/job.h"
#include "support/pclxl.h"
#include "support/posix/named_pipe.h"

namespace zeapi::testing {
namespace {

// Nothing waits for a writer, or sends a device that never ends.
using DataPipeJobTest = PipeTest<JobTest>;

TEST_F(DataPipeJobTest, DoesNotOpenAndNothingIsSent) {
  MakePipe("pipe");
  std::filesystem::create_symlink("pipe", "link");
  for (const std::string name : {"pipe", "link", "/dev/zero"}) {
    EXPECT_EQ(ZeDatSendFile(name.c_str(), kOutput, &destination, 0), ZE_OPEN_FAILED) << name;
    EXPECT_EQ(ZeDatSendString(("%" + name).c_str(), kOutput, &destination, 0), ZE_OPEN_FAILED)
        << name;
  }
  EXPECT_TRUE(NothingSent());
}

using WorkFilePipeTest = PipeTest<MacroTest>;

TEST_F(WorkFilePipeTest, WorkFileOfTheCheckThatIsAPipeDoesNotOpen) {
  MakePipe("fixup.mac");
  EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), ZE_OPEN_FAILED);
}

TEST_F(WorkFilePipeTest, WorkFileOfThePclXlFixupThatIsAPipeDoesNotOpen) {
  destination.language = ZE_LANGUAGE_PCLXL;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  WriteFile(kInput, xl::Session(xl::Page(xl::Body())));
  const std::pair<const char*, std::uint32_t> rows[] = {{"in.str", ZE_OPEN_FAILED},
                                                        {"temp.str", ZE_FIXUP_FAILED},
                                                        {"out.str", ZE_FIXUP_FAILED},
                                                        {"fixup.str", ZE_OPEN_FAILED}};
  for (const auto& [name, result] : rows) {
    MakePipe(name);
    EXPECT_EQ(ZeMacValidate(kInput, &destination, &macro), result) << name;
    std::filesystem::remove(name);
  }
}

TEST_F(WorkFilePipeTest, LogThatIsAPipeHasNoLines) {
  std::filesystem::create_directories(LogFile().parent_path());
  MakePipe(LogFile());
  EXPECT_EQ(Create(), ZE_OK);
  std::filesystem::remove(LogFile());
}

}  // namespace
}  // namespace zeapi::testing
