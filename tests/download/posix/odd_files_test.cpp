// Data that would be sent from what is no regular file.
#include "support/job.h"
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

}  // namespace
}  // namespace zeapi::testing
