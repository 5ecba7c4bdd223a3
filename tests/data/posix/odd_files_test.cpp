// Data files that are no regular files.
#include "support/posix/named_pipe.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

// Nothing waits for a writer.
using DataPipeTest = PipeTest<ScratchTest>;

TEST_F(DataPipeTest, IsADataFileThatDoesNotOpen) {
  MakePipe("data.txt");
  ZeDatRecord record = {};
  ZeDatCounts counts;
  for (const char* path : {"data.txt", "/dev/null"}) {
    EXPECT_EQ(ZeDatOpenFile(path, 0, ZE_DAT_READ), ZE_DAT_OPEN_FAILED);
    EXPECT_EQ(ZeDatQueryCount(path, reinterpret_cast<char*>(&record), ZE_DAT_READ),
              ZE_DAT_OPEN_FAILED);
    EXPECT_EQ(ZeDatQueryCounts(path, &counts, ZE_DAT_READ), ZE_DAT_OPEN_FAILED);
  }
}

TEST_F(DataPipeTest, ListingPassesItOver) {
  MakePipe("a.cfg");
  WriteFile("b", "#!B\n");
  fs::create_symlink("b", "c.cfg");
  std::uint16_t count = 0;
  ZeDatFileInfo* list = ZeDatQueryFiles("", ZE_DAT_CONFIGURATION_FILES, &count);
  EXPECT_EQ(count, 1);
  ASSERT_NE(list, nullptr);
  EXPECT_STREQ(list->path, ".\\c.cfg");
  ZeDatQueryFilesFree(list);
}

TEST_F(DataPipeTest, MoreFilesThanTheCountCanTell) {
  fs::create_directory("many");
  WriteFile("one", "#!Description\n");
  for (int i = 0; i <= 65536; ++i) {
    ASSERT_EQ(symlink("../one", ("many/" + std::to_string(i) + ".cfg").c_str()), 0);
  }
  std::uint16_t count = 0;
  ZeDatFileInfo* list = ZeDatQueryFiles("many", ZE_DAT_CONFIGURATION_FILES, &count);
  EXPECT_EQ(count, 65535);
  ZeDatQueryFilesFree(list);
}

}  // namespace
}  // namespace zeapi::testing
