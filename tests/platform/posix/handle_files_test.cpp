#include "platform/handle_files.h"

#include "platform/posix/closed_input.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

using namespace platform;

class PosixHandleFilesTest : public ScratchTest {};

TEST_F(PosixHandleFilesTest, NoFileTakesThePlaceOfAStandardStream) {
  WriteFile("data", "abc");
  const ClosedInput closed;
  const FileHandle opened = HandleOpen("data", FileAccess::kRead);
  EXPECT_GT(opened, STDERR_FILENO);
  const FileHandle created = HandleCreate("new");
  EXPECT_GT(created, STDERR_FILENO);
  EXPECT_EQ(HandleWrite(created, "x", 1), 1);
  EXPECT_TRUE(HandleClose(created));
  char bytes[4] = "";
  EXPECT_EQ(HandleRead(opened, bytes, 3), 3);
  EXPECT_STREQ(bytes, "abc");
  EXPECT_TRUE(HandleClose(opened));
}

}  // namespace
}  // namespace zeapi::testing
