#include "platform/handle_files.h"

#include <unistd.h>

#include "support/scratch.h"

namespace zeapi::testing {
namespace {

using namespace platform;

// Daemons run with their standard streams closed.
class ClosedInput {
 public:
  ClosedInput() : kept_(dup(STDIN_FILENO)) { close(STDIN_FILENO); }
  ~ClosedInput() {
    dup2(kept_, STDIN_FILENO);
    close(kept_);
  }
  ClosedInput(const ClosedInput&) = delete;
  ClosedInput& operator=(const ClosedInput&) = delete;

 private:
  int kept_;
};

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
