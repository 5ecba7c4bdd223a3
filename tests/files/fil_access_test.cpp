#include "files/fil_access.h"

#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

using platform::SeekOrigin;

class FilAccessTest : public ScratchTest {
 protected:
  FilAccess Open(std::uint32_t mode, const char* path = "file") {
    FilAccess access;
    access.mode = mode;
    access.reserved = 7;
    FilOpen(path, &access);
    EXPECT_EQ(access.reserved, 0U);
    return access;
  }
};

struct Mode {
  std::uint32_t mode;
  bool reads;
  bool writes;
  bool empties;
};

TEST_F(FilAccessTest, ModesReadWriteAndEmptyTheFile) {
  const Mode modes[] = {{1, true, false, false}, {2, false, true, true}, {3, false, true, false},
                        {4, true, false, false}, {5, false, true, true}, {6, false, true, false},
                        {7, true, true, true},   {8, true, true, true},  {9, true, true, false},
                        {10, true, true, true},  {11, true, true, true}, {12, true, true, false}};
  for (const Mode& mode : modes) {
    WriteFile("file", "old");
    FilAccess access = Open(mode.mode);
    ASSERT_EQ(access.error, kFilGood) << mode.mode;
    EXPECT_EQ(std::filesystem::file_size("file"), mode.empties ? 0U : 3U) << mode.mode;
    char bytes[3];
    FilRead(&access, bytes, mode.empties ? 0 : 3);
    EXPECT_EQ(access.error, mode.reads ? kFilGood : kFilReadFailed) << mode.mode;
    access.error = kFilGood;
    FilWrite(&access, "x", 1);
    EXPECT_EQ(access.error, mode.writes ? kFilGood : kFilWriteFailed) << mode.mode;
    access.error = kFilGood;
    FilClose(&access);
    EXPECT_EQ(access.error, kFilGood) << mode.mode;
    EXPECT_EQ(access.handle, 0xFFFFFFFFU);
  }
}

TEST_F(FilAccessTest, MissingFileIsMadeByTheEmptyingModesOnly) {
  for (std::uint32_t mode = 1; mode <= 12; ++mode) {
    std::filesystem::remove("file");
    FilAccess access = Open(mode);
    const bool made = mode == 2 || mode == 5 || mode == 7 || mode == 8 || mode == 10 || mode == 11;
    EXPECT_EQ(access.error, made ? kFilGood : kFilOpenFailed) << mode;
    EXPECT_EQ(std::filesystem::exists("file"), made) << mode;
    if (made) FilClose(&access);
  }
}

TEST_F(FilAccessTest, OtherModesOpenNothing) {
  WriteFile("file", "old");
  for (const std::uint32_t mode : {0U, 13U, 0xFFFFFFFFU}) {
    EXPECT_EQ(Open(mode).error, kFilOpenFailed) << mode;
  }
  EXPECT_EQ(Open(2, "missing\\file").error, kFilOpenFailed);
}

TEST_F(FilAccessTest, ReadingPastTheEndIsRemembered) {
  WriteFile("file", "abcde");
  FilAccess access = Open(4);
  char bytes[10];
  EXPECT_EQ(FilRead(&access, bytes, 3), 3U);
  EXPECT_EQ(access.error, kFilGood);
  EXPECT_EQ(FilRead(&access, bytes, 3), 2U);
  EXPECT_EQ(access.error, kFilEndOfFile);
  EXPECT_EQ(FilSeek(&access, 0, SeekOrigin::kStart), 0);
  EXPECT_EQ(FilRead(&access, bytes, 5), 5U);
  EXPECT_EQ(access.error, kFilEndOfFile);  // nothing clears it
  FilClose(&access);
}

TEST_F(FilAccessTest, SeekGivesTheNewPosition) {
  WriteFile("file", "abcde");
  FilAccess access = Open(4);
  EXPECT_EQ(FilSeek(&access, 2, SeekOrigin::kStart), 2);
  EXPECT_EQ(FilSeek(&access, 1, SeekOrigin::kCurrent), 3);
  EXPECT_EQ(FilSeek(&access, -1, SeekOrigin::kEnd), 4);
  EXPECT_EQ(access.error, kFilGood);
  EXPECT_EQ(FilSeek(&access, -1, SeekOrigin::kStart), -1);
  EXPECT_EQ(access.error, kFilSeekFailed);
  FilClose(&access);
}

TEST_F(FilAccessTest, ClosedAccessorFailsEverywhere) {
  FilAccess access;
  char byte = 'x';
  EXPECT_EQ(FilRead(&access, &byte, 1), 0U);
  EXPECT_EQ(access.error, kFilReadFailed);
  EXPECT_EQ(FilWrite(&access, &byte, 1), 0U);
  EXPECT_EQ(access.error, kFilWriteFailed);
  EXPECT_EQ(FilSeek(&access, 0, SeekOrigin::kStart), -1);
  EXPECT_EQ(access.error, kFilSeekFailed);
  FilClose(&access);
  EXPECT_EQ(access.error, kFilCloseFailed);
}

}  // namespace
}  // namespace zeapi::testing
