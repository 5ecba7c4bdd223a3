#include "base/log.h"

#include "support/scratch.h"

namespace zeapi::testing {
namespace {

class LogTest : public ScratchTest {};

TEST_F(LogTest, AppendsOneLineAnEvent) {
  ZeLog(".\\ZeQue", 946, "+GenQueOpen");
  ZeLog("other", 4294967295U, "");
#ifdef _WIN32
  EXPECT_EQ(ReadFile(LogFile()), ".\\ZeQue (946): +GenQueOpen\r\nother (4294967295): \r\n");
#else
  EXPECT_EQ(ReadFile(LogFile()), ".\\ZeQue (946): +GenQueOpen\nother (4294967295): \n");
#endif
}

TEST_F(LogTest, KeepsWhatTheFileHeld) {
  WriteFile(LogFile(), "earlier\n");
  ZeLog("m", 1, "x");
  EXPECT_EQ(LogLines(), (std::vector<std::string>{"earlier", "m (1): x"}));
}

TEST_F(LogTest, MessageIsNotAFormat) {
  ZeLog("%s", 1, "%s%n");
  EXPECT_EQ(LogLines(), std::vector<std::string>{"%s (1): %s%n"});
}

TEST_F(LogTest, UnwritableLogIsIgnored) {
  std::filesystem::create_directory(LogFile());
  ZeLog("m", 1, "x");
  EXPECT_TRUE(std::filesystem::is_directory(LogFile()));
}

}  // namespace
}  // namespace zeapi::testing
