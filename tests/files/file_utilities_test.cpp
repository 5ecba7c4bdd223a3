#include "files/file_utilities.h"

#include <chrono>
#include <cstdio>

#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class FilesTest : public ScratchTest {};

// --- ZeFilExists

TEST_F(FilesTest, NullOrEmptyPathDoesNotExist) {
  EXPECT_EQ(ZeFilExists(nullptr), 0U);
  EXPECT_EQ(ZeFilExists(""), 0U);
}

TEST_F(FilesTest, ReadableFileOrFolderExists) {
  WriteFile("file.txt", "");
  fs::create_directory("folder");
  EXPECT_EQ(ZeFilExists("file.txt"), 1U);
  EXPECT_EQ(ZeFilExists("folder"), 1U);
  EXPECT_EQ(ZeFilExists("missing"), 0U);
  EXPECT_EQ(ZeFilExists("folder\\missing"), 0U);
}

// --- ZeFilQuerySize

TEST_F(FilesTest, SizeOfAFile) {
  WriteFile("file.txt", "12345");
  EXPECT_EQ(ZeFilQuerySize("file.txt"), 5U);
  EXPECT_EQ(ZeFilQuerySize(".\\file.txt"), 5U);
}

TEST_F(FilesTest, SizeOfTheFirstMatch) {
  WriteFile("b.txt", "12");
  WriteFile("c.txt", "123");
  EXPECT_EQ(ZeFilQuerySize("*.txt"), 2U);
  EXPECT_EQ(ZeFilQuerySize("?.txt"), 2U);
  EXPECT_EQ(ZeFilQuerySize("c.*"), 3U);
}

TEST_F(FilesTest, SizeIsTheLow32BitsOfTheSize) {
  WriteFile("large", "");
  std::error_code failed;
  fs::resize_file("large", (std::uintmax_t{1} << 32) + 5, failed);
  if (failed) GTEST_SKIP() << "no file of 4 GiB here: " << failed.message();
  EXPECT_EQ(ZeFilQuerySize("large"), 5U);
}

TEST_F(FilesTest, SizeIsZeroForNothingEmptyAndFolders) {
  WriteFile("empty", "");
  fs::create_directory("folder");
  EXPECT_EQ(ZeFilQuerySize(nullptr), 0U);
  EXPECT_EQ(ZeFilQuerySize(""), 0U);
  EXPECT_EQ(ZeFilQuerySize("missing"), 0U);
  EXPECT_EQ(ZeFilQuerySize("*.missing"), 0U);
  EXPECT_EQ(ZeFilQuerySize("missing\\*"), 0U);
  EXPECT_EQ(ZeFilQuerySize("empty"), 0U);
  EXPECT_EQ(ZeFilQuerySize("folder"), 0U);
}

// --- ZeFilCopy

TEST_F(FilesTest, CopyMakesAndOverwrites) {
  WriteFile("source", "new content");
  EXPECT_EQ(ZeFilCopy("source", "copy"), ZE_OK);
  EXPECT_BYTES(ReadFile("copy"), "new content");
  WriteFile("copy", "something longer than the source is");
  EXPECT_EQ(ZeFilCopy("source", "copy"), ZE_OK);
  EXPECT_BYTES(ReadFile("copy"), "new content");
}

TEST_F(FilesTest, CopyOfALargeFileIsWhole) {
  std::string bytes;
  for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i >> 3);
  WriteFile("source", bytes);
  EXPECT_EQ(ZeFilCopy("source", "copy"), ZE_OK);
  EXPECT_EQ(ReadFile("copy"), bytes);
}

TEST_F(FilesTest, CopyKeepsTheTimeOfTheLastChange) {
  WriteFile("source", "x");
  const auto time = fs::last_write_time("source") - std::chrono::hours(100);
  fs::last_write_time("source", time);
  EXPECT_EQ(ZeFilCopy("source", "copy"), ZE_OK);
  EXPECT_EQ(fs::last_write_time("copy"), fs::last_write_time("source"));
}

TEST_F(FilesTest, CopyWithNullIsInvalid) {
  EXPECT_EQ(ZeFilCopy(nullptr, "copy"), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeFilCopy("source", nullptr), ZE_INVALID_ARGUMENT);
}

TEST_F(FilesTest, CopyOfAMissingFileOrFolderIsNotFound) {
  WriteFile("source", "x");
  EXPECT_EQ(ZeFilCopy("missing", "copy"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeFilCopy("missing\\source", "copy"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeFilCopy("source", "missing\\copy"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeFilCopy("", "copy"), ZE_FILE_NOT_FOUND);
  EXPECT_FALSE(fs::exists("copy"));
}

TEST_F(FilesTest, CopyOfOrOntoAFolderIsDenied) {
  WriteFile("source", "x");
  fs::create_directory("folder");
  EXPECT_EQ(ZeFilCopy("folder", "copy"), ZE_ACCESS_DENIED);
  EXPECT_EQ(ZeFilCopy("source", "folder"), ZE_ACCESS_DENIED);
}

#ifndef _WIN32  // where a file system takes 256 characters Windows has a code of its own for them
TEST_F(FilesTest, CopyToANameThatIsTooLongIsBadFormat) {
  WriteFile("source", "x");
  EXPECT_EQ(ZeFilCopy("source", std::string(256, 'n').c_str()), ZE_BAD_FORMAT);
}
#endif

TEST_F(FilesTest, CopyOntoItselfIsASharingViolationAndLeavesTheFile) {
  WriteFile("source", "x");
  EXPECT_EQ(ZeFilCopy("source", "source"), ZE_SHARING_VIOLATION);
  EXPECT_BYTES(ReadFile("source"), "x");
}

TEST_F(FilesTest, SystemErrorsOfACopyHaveTheseCodes) {
  const std::pair<std::uint32_t, Result> codes[] = {
      {2, 2},    {3, 2},    {5, 5},    {26, 16},  {32, 31}, {36, 31}, {87, 1},  {108, 28},
      {282, 28}, {112, 20}, {206, 27}, {267, 27}, {1, 36},  {4, 36},  {80, 36}, {0xFFFFFFFF, 36}};
  for (const auto& [system, result] : codes) EXPECT_EQ(CopyErrorResult(system), result) << system;
}

// --- ZeFilBackup

class BackupTest : public ScratchTest {
 protected:
  std::uint32_t Backup(const char* source) { return ZeFilBackup(source, name); }

  char name[ZE_MAX_NAME + 1] = "untouched";
};

TEST_F(BackupTest, ReplacesTheExtensionByTheFirstFreeNumber) {
  WriteFile("panel.cfg", "content");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.001");
  EXPECT_BYTES(ReadFile("panel.001"), "content");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.002");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.003");
  EXPECT_EQ(ZeFilExists("panel.004"), 0U);
}

TEST_F(BackupTest, GapsAreFilled) {
  WriteFile("panel.cfg", "content");
  WriteFile("panel.002", "");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.001");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.003");
}

TEST_F(BackupTest, BackupStaysInTheSourcesFolder) {
  fs::create_directory("sub.dir");
  WriteFile("sub.dir/panel", "content");
  EXPECT_EQ(Backup("sub.dir\\panel"), ZE_OK);
  EXPECT_STREQ(name, "sub.dir\\panel.001");
  EXPECT_BYTES(ReadFile("sub.dir/panel.001"), "content");
  const std::string onDrive = OnDriveC("x.y.z");
  WriteFile(UnderDriveC("x.y.z"), "drive");
  EXPECT_EQ(Backup(onDrive.c_str()), ZE_OK);
  EXPECT_EQ(name, OnDriveC("x.y.001"));
}

TEST_F(BackupTest, FolderOfTheBackupsNameCountsAsTaken) {
  WriteFile("panel.cfg", "content");
  fs::create_directory("panel.001");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.002");
}

TEST_F(BackupTest, AllNumbersTakenCopiesNothing) {
  WriteFile("panel.cfg", "content");
  for (int number = 1; number <= 998; ++number) {
    char taken[16];
    std::snprintf(taken, sizeof(taken), "panel.%03d", number);
    WriteFile(taken, "");
  }
  EXPECT_EQ(Backup("panel.cfg"), ZE_NO_BACKUP_NAME);
  EXPECT_STREQ(name, "panel.998");
  EXPECT_FALSE(fs::exists("panel.999"));
  fs::remove("panel.998");
  EXPECT_EQ(Backup("panel.cfg"), ZE_OK);
  EXPECT_STREQ(name, "panel.998");
}

TEST_F(BackupTest, MissingSourceIsBadFormatAndLeavesTheBuffer) {
  for (const char* source : {"missing", "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(Backup(source), ZE_BAD_FORMAT);
    EXPECT_STREQ(name, "untouched");
  }
}

TEST_F(BackupTest, NullBufferIsInvalid) {
  WriteFile("panel.cfg", "content");
  EXPECT_EQ(ZeFilBackup("panel.cfg", nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_FALSE(fs::exists("panel.001"));
}

TEST_F(BackupTest, FolderAsSourceGivesTheCopysCodeAndKeepsTheName) {
  fs::create_directory("folder");
  EXPECT_EQ(Backup("folder"), ZE_ACCESS_DENIED);
  EXPECT_STREQ(name, "folder.001");
}

// The stem of the name and ".001" must fit the caller's buffer.
TEST_F(BackupTest, NameThatWouldNotFitIsBadFormat) {
  std::string path = "file";
  while (path.size() < 258) path.insert(0, ".\\");  // 258 characters
  WriteFile("file", "content");
  ASSERT_EQ(ZeFilExists(path.c_str()), 1U);
  EXPECT_EQ(Backup(path.c_str()), ZE_BAD_FORMAT);
  EXPECT_STREQ(name, "untouched");
}

#ifndef _WIN32  // a path of 260 characters with its backup is past what Windows opens
TEST_F(BackupTest, LongestNameFits) {
  std::string path = "file";
  while (path.size() < 256) path.insert(0, ".\\");
  WriteFile("file", "content");
  EXPECT_EQ(Backup(path.c_str()), ZE_OK);
  EXPECT_EQ(name, path + ".001");
  EXPECT_BYTES(ReadFile("file.001"), "content");
}

TEST_F(BackupTest, SourceNameOver260CharactersIsBadFormat) {
  std::string path = "a.b";
  while (path.size() < 261) path.insert(0, ".\\");
  WriteFile("a.b", "content");
  EXPECT_EQ(Backup(path.c_str()), ZE_BAD_FORMAT);
}
#endif

}  // namespace
}  // namespace zeapi::testing
