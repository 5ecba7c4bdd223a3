#include <cstdlib>
#include <cstring>

#include "support/bytes.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> linesSeen;
std::uint32_t lastValue;

std::uint32_t ZEAPI_CALL Record(char* line, std::uint32_t value) {
  linesSeen.push_back(line);
  lastValue = value;
  return 99;
}

std::uint32_t ZEAPI_CALL Empty(char* line, std::uint32_t) {
  line[0] = '\0';
  return 0;
}

std::uint32_t ZEAPI_CALL DropComments(char* line, std::uint32_t) {
  if (line[0] == ';') line[0] = '\0';
  return 0;
}

std::uint32_t ZEAPI_CALL Lengthen(char* line, std::uint32_t) {
  std::strcpy(line, "a longer line\n");
  return 0;
}

std::uint32_t ZEAPI_CALL FillWithoutEnd(char* line, std::uint32_t) {
  std::memset(line, 'x', 2048);
  return 0;
}

class ModifyTest : public ScratchTest {
 protected:
  void SetUp() override {
    ScratchTest::SetUp();
    linesSeen.clear();
    temporary_ = folder() / "temporary";
    fs::create_directory(temporary_);
    const char* before = std::getenv(kVariable);
    before_ = before == nullptr ? "" : before;
    SetTemporaryFolder(temporary_.string());
  }
  // Whatever happened, the work file is gone.
  void TearDown() override {
    EXPECT_TRUE(fs::is_empty(temporary_));
    SetTemporaryFolder(before_);
    ScratchTest::TearDown();
  }

  static std::string Text() {
    std::string text = ReadFile("file.txt");
    std::erase(text, '\r');
    return text;
  }

 private:
#ifdef _WIN32
  static constexpr char kVariable[] = "TMP";
  static void SetTemporaryFolder(const std::string& path) { _putenv_s(kVariable, path.c_str()); }
#else
  static constexpr char kVariable[] = "TMPDIR";
  static void SetTemporaryFolder(const std::string& path) {
    path.empty() ? unsetenv(kVariable) : setenv(kVariable, path.c_str(), 1);
  }
#endif

  fs::path temporary_;
  std::string before_;
};

TEST_F(ModifyTest, CallbackGetsEachLineWithItsNewlineAndTheValue) {
  WriteFile("file.txt", "one\n\nthree");
  EXPECT_EQ(ZeFilModify("file.txt", 0xDEADBEEF, Record), ZE_OK);
  EXPECT_EQ(linesSeen, (std::vector<std::string>{"one\n", "\n", "three"}));
  EXPECT_EQ(lastValue, 0xDEADBEEF);
  EXPECT_BYTES(Text(), "one\n\nthree");
}

TEST_F(ModifyTest, LinesOfAWindowsFileEndInALineFeedAlone) {
  WriteFile("file.txt", "one\r\ntwo\r\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, Record), ZE_OK);
  EXPECT_EQ(linesSeen, (std::vector<std::string>{"one\n", "two\n"}));
#ifdef _WIN32
  EXPECT_BYTES(ReadFile("file.txt"), "one\r\ntwo\r\n");
#endif
}

TEST_F(ModifyTest, LinesMayBeRewrittenAndDropped) {
  WriteFile("file.txt", "a\n;b\nc\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, DropComments), ZE_OK);
  EXPECT_BYTES(Text(), "a\nc\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, Lengthen), ZE_OK);
  EXPECT_BYTES(Text(), "a longer line\na longer line\n");
}

TEST_F(ModifyTest, EmptyingEveryLineLeavesAnEmptyFile) {
  WriteFile("file.txt", "a\nb\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, Empty), ZE_OK);
  EXPECT_BYTES(Text(), "");
}

TEST_F(ModifyTest, EmptyFileStaysEmptyWithoutACall) {
  WriteFile("file.txt", "");
  EXPECT_EQ(ZeFilModify("file.txt", 0, Record), ZE_OK);
  EXPECT_TRUE(linesSeen.empty());
  EXPECT_BYTES(Text(), "");
}

TEST_F(ModifyTest, LongLinesComeInPiecesOf2047Characters) {
  WriteFile("file.txt", std::string(5000, 'x') + "\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, Record), ZE_OK);
  ASSERT_EQ(linesSeen.size(), 3U);
  EXPECT_EQ(linesSeen[0].size(), 2047U);
  EXPECT_EQ(linesSeen[1].size(), 2047U);
  EXPECT_EQ(linesSeen[2].size(), 907U);
  EXPECT_BYTES(Text(), std::string(5000, 'x') + "\n");
}

TEST_F(ModifyTest, LineThatTheCallbackLeftWithoutEndIsCutToItsBuffer) {
  WriteFile("file.txt", "a\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, FillWithoutEnd), ZE_OK);
  EXPECT_BYTES(Text(), std::string(2047, 'x'));
}

TEST_F(ModifyTest, LineThatBeginsWithAZeroByteIsDropped) {
  WriteFile("file.txt", Bytes("a\n\0lost\nb\n"));
  EXPECT_EQ(ZeFilModify("file.txt", 0, Record), ZE_OK);
  EXPECT_BYTES(Text(), "a\nb\n");
}

TEST_F(ModifyTest, SourceThatDoesNotOpenGivesOpenFailed) {
  fs::create_directory("folder");
  EXPECT_EQ(ZeFilModify("missing", 0, Record), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeFilModify("folder", 0, Record), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeFilModify("", 0, Record), ZE_OPEN_FAILED);
  EXPECT_FALSE(fs::exists("missing"));
}

// Bytes that end a text end the line and the file; what follows is lost.
TEST_F(ModifyTest, ZeroByteEndsItsLineAndTheEndOfTextTheFile) {
  WriteFile("file.txt", Bytes("ab\0cd\nef\n\x1Agh\n"));
  EXPECT_EQ(ZeFilModify("file.txt", 0, Record), ZE_OK);
  EXPECT_BYTES(Text(), "abef\n");
}

TEST_F(ModifyTest, NullPointersAreInvalid) {
  EXPECT_EQ(ZeFilModify(nullptr, 0, Record), ZE_INVALID_ARGUMENT);
  WriteFile("file.txt", "a\n");
  EXPECT_EQ(ZeFilModify("file.txt", 0, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_BYTES(Text(), "a\n");
}

}  // namespace
}  // namespace zeapi::testing
