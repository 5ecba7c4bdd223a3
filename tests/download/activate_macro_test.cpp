#include "download/macro_case.h"

namespace zeapi::testing {
namespace {

class ActivateMacroTest : public MacroTest {
 protected:
  std::uint32_t Activate(std::uint32_t enable) {
    return ZeMacActivate(kOutput, &destination, enable);
  }
  std::uint32_t Delete() { return ZeMacDelete(kOutput, &destination); }
};

TEST_F(ActivateMacroTest, InvalidArguments) {
  const std::string name(261, 'n');
  EXPECT_EQ(ZeMacActivate(nullptr, &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacActivate(kOutput, nullptr, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacActivate(name.c_str(), &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDelete(nullptr, &destination), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDelete(kOutput, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDelete(name.c_str(), &destination), ZE_INVALID_ARGUMENT);
  for (const std::uint16_t number : {std::uint16_t{32768}, std::uint16_t{65535}}) {
    destination.resourceId = number;
    EXPECT_EQ(Activate(1), ZE_INVALID_ARGUMENT);
    EXPECT_EQ(Delete(), ZE_INVALID_ARGUMENT);
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(ActivateMacroTest, NameOf260CharactersAndLargestNumberAreAccepted) {
  const std::string name(260, 'n');
  Spooler().printer = name;
  destination.resourceId = 32767;
  EXPECT_EQ(ZeMacActivate(name.c_str(), &destination, 1), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B&f32767y4X");
}

TEST_F(ActivateMacroTest, PclOverlayOnAndOff) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  EXPECT_EQ(Activate(1), ZE_OK);
  EXPECT_BYTES(Job(), "\x1B&f12y4X");
  EXPECT_EQ(Activate(0), ZE_OK);
  EXPECT_BYTES(Job(), "\x1B&f12y5X");
  EXPECT_EQ(Activate(0x100), ZE_OK);
  EXPECT_BYTES(Job(), "\x1B&f12y4X");
}

TEST_F(ActivateMacroTest, KeepsPpdsCommandsCutToFourBytes) {
  destination.language = ZE_LANGUAGE_PPDS;
  EXPECT_EQ(Activate(1), ZE_OK);
  EXPECT_BYTES(Job(), "\x1B[l\x03");
  EXPECT_EQ(Activate(0), ZE_OK);
  EXPECT_BYTES(Job(), "\x1B[l\x01");
}

TEST_F(ActivateMacroTest, PostScriptAndPclXlSendNothing) {
  for (const std::int32_t language : {ZE_LANGUAGE_POSTSCRIPT, ZE_LANGUAGE_PCLXL}) {
    destination.language = language;
    EXPECT_EQ(Activate(1), ZE_OK);
    EXPECT_BYTES(Job(), "");
  }
}

TEST_F(ActivateMacroTest, OtherLanguagesAreJudgedAfterTheQueueIsOpen) {
  for (const std::int32_t language : {-1, 0, 1, 4, 7}) {
    destination.language = language;
    std::filesystem::remove(kOutput);
    EXPECT_EQ(Activate(1), ZE_INVALID_ARGUMENT);
    EXPECT_BYTES(Job(), "");
    EXPECT_EQ(ZeMacActivate("missing\\printer", &destination, 1), ZE_OPEN_FAILED);
    std::filesystem::remove(kOutput);
    EXPECT_EQ(Delete(), ZE_INVALID_ARGUMENT);
    EXPECT_BYTES(Job(), "");
    EXPECT_EQ(ZeMacDelete("missing\\printer", &destination), ZE_OPEN_FAILED);
  }
}

TEST_F(ActivateMacroTest, QueueThatDoesNotOpenGivesItsResult) {
  destination.bidiHandle = 1;
  EXPECT_EQ(Activate(1), ZE_UNUSABLE);
  EXPECT_EQ(Delete(), ZE_UNUSABLE);
}

TEST_F(ActivateMacroTest, KeepsFailedWritesToItself) {
  UsePrinter();
  Spooler().failingWrite = 1;
  EXPECT_EQ(Activate(1), ZE_OK);
  EXPECT_EQ(Spooler().calls.back(), "close");
  UseNewPrinter();
  Spooler().failingWrite = 1;
  EXPECT_EQ(Delete(), ZE_OK);
}

TEST_F(ActivateMacroTest, KeepsDeletionAtEightBytes) {
  const std::pair<std::uint16_t, std::string> commands[] = {
      {7, Bytes("\x1B&f7y8X\0")}, {12, "\x1B&f12y8X"},    {123, "\x1B&f123y8"},
      {1234, "\x1B&f1234y"},      {32767, "\x1B&f32767"}, {0, Bytes("\x1B&f0y8X\0")},
  };
  for (const auto& [number, command] : commands) {
    destination.resourceId = number;
    EXPECT_EQ(Delete(), ZE_OK);
    EXPECT_BYTES(Job(), command);
  }
}

TEST_F(ActivateMacroTest, DeletionOfOtherLanguages) {
  for (const std::int32_t language : {ZE_LANGUAGE_PPDS, ZE_LANGUAGE_POSTSCRIPT}) {
    destination.language = language;
    EXPECT_EQ(Delete(), ZE_OK);
    EXPECT_BYTES(Job(), "");
  }
  destination.language = ZE_LANGUAGE_PCLXL;
  EXPECT_EQ(Delete(), ZE_INVALID_ARGUMENT);
}

}  // namespace
}  // namespace zeapi::testing
