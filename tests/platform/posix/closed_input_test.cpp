// A tree that is made while standard input is closed.
#include "platform/posix/closed_input.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/local_tree.h"
#include "platform/standard_input.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

using namespace platform;

class ClosedInputTest : public ScratchTest {};

TEST_F(ClosedInputTest, NothingOfATreeTakesItsPlace) {
  const ClosedInput closed;
  LocalTree tree;
  EXPECT_TRUE(tree.Enter("made/and/entered/"));
  EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
  const FileHandle file = tree.Create("file");
  EXPECT_GT(file, STDERR_FILENO);
  EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
  EXPECT_TRUE(HandleClose(file));
}

TEST_F(ClosedInputTest, HasNoByte) {
  const ClosedInput closed;
  char byte = 'x';
  EXPECT_FALSE(StandardInputByte(&byte));
  EXPECT_EQ(byte, 'x');
}

}  // namespace
}  // namespace zeapi::testing
