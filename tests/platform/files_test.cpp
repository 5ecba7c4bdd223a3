// The seam's promises about files, on whatever host this runs.
#include "platform/files.h"

#include <algorithm>
#include <fstream>

#include "base/stream.h"
#include "platform/find.h"
#include "platform/handle_files.h"
#include "support/bytes.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;
using namespace platform;

class PlatformFilesTest : public ScratchTest {
 protected:
  // What a stream opened for reading text gives.
  static std::string ReadText(const char* path) {
    const Stream stream(OpenStream(path, "r"));
    EXPECT_NE(stream, nullptr);
    std::string text;
    for (int c = std::fgetc(stream.get()); c != EOF; c = std::fgetc(stream.get())) {
      text += static_cast<char>(c);
    }
    EXPECT_EQ(std::ferror(stream.get()), 0);
    return text;
  }
  static std::string AsText(std::string_view bytes) {
    WriteFile("text", bytes);
    return ReadText("text");
  }
};

TEST_F(PlatformFilesTest, SeparatorsAndCaseOfPathsAreThoseOfWindows) {
  fs::create_directories("Folder/Sub");
  WriteFile("Folder/Sub/File.TXT", "content");
  for (const char* path : {"Folder\\Sub\\File.TXT", "Folder/Sub/File.TXT", "folder\\SUB/file.txt",
                           ".\\FOLDER\\sub\\FILE.txt"}) {
    EXPECT_TRUE(PathExists(path)) << path;
    EXPECT_TRUE(PathReadable(path)) << path;
    EXPECT_EQ(ReadText(path), "content") << path;
  }
}

TEST_F(PlatformFilesTest, DrivePathsAreOnTheDrive) {
  WriteFile(UnderDriveC("x.txt"), "on drive C");
  EXPECT_EQ(ReadText(OnDriveC("x.txt").c_str()), "on drive C");
  std::string upper = OnDriveC("X.TXT");
  upper[0] = 'C';
  EXPECT_EQ(ReadText(upper.c_str()), "on drive C");
}

TEST_F(PlatformFilesTest, ExistingFileIsOverwrittenWhateverTheCaseOfItsName) {
  WriteFile("File.txt", "old");
  Stream(OpenStream("FILE.TXT", "wb"));
  EXPECT_EQ(fs::file_size("File.txt"), 0U);
  EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

TEST_F(PlatformFilesTest, NothingOpensWithoutAModeOrAPath) {
  WriteFile("file", "x");
  EXPECT_EQ(OpenStream("file", ""), nullptr);
  EXPECT_EQ(OpenStream("", "rb"), nullptr);
  EXPECT_EQ(OpenStream(nullptr, "rb"), nullptr);
  EXPECT_EQ(OpenStream("missing", "rb"), nullptr);
  EXPECT_EQ(OpenStream("missing", "r"), nullptr);
}

TEST_F(PlatformFilesTest, FoldersDoNotOpen) {
  fs::create_directory("folder");
  for (const char* mode : {"r", "rb", "w", "wb", "ab", "rb+"}) {
    EXPECT_EQ(OpenStream("folder", mode), nullptr) << mode;
  }
}

TEST_F(PlatformFilesTest, TextReadsCrLfAsLineFeedAndALoneCrAsItIs) {
  EXPECT_BYTES(AsText("a\r\nb\nc\rd\r\r\ne\r"), "a\nb\nc\rd\r\ne\r");
  EXPECT_BYTES(AsText(""), "");
  EXPECT_BYTES(AsText("\r"), "\r");
  EXPECT_BYTES(AsText("\r\n"), "\n");
}

TEST_F(PlatformFilesTest, TextEndsAtCtrlZ) {
  EXPECT_BYTES(AsText("before\x1A"
                      "after"),
               "before");
  EXPECT_BYTES(AsText("\x1A"), "");
}

TEST_F(PlatformFilesTest, CrLfAcrossBlockBordersIsOneLineFeed) {
  for (std::size_t length = 4090; length < 4100; ++length) {
    const std::string line(length, 'x');
    EXPECT_EQ(AsText(line + "\r\n" + line + "\r\n"), line + "\n" + line + "\n") << length;
  }
}

TEST_F(PlatformFilesTest, TextCanBeRewound) {
  WriteFile("text", "one\r\ntwo\r\n");
  const Stream stream(OpenStream("text", "r"));
  char line[16];
  for (int pass = 0; pass < 2; ++pass) {
    ASSERT_NE(std::fgets(line, sizeof(line), stream.get()), nullptr);
    EXPECT_STREQ(line, "one\n");
    std::rewind(stream.get());
  }
}

TEST_F(PlatformFilesTest, BinaryReadsEveryByte) {
  const std::string bytes = Bytes(
      "a\r\nb\x1A"
      "c\0d");
  WriteFile("binary", bytes);
  const Stream stream(OpenStream("binary", "rb"));
  char buffer[32];
  EXPECT_EQ(std::fread(buffer, 1, sizeof(buffer), stream.get()), bytes.size());
  EXPECT_BYTES(std::string(buffer, bytes.size()), bytes);
}

TEST_F(PlatformFilesTest, KindsOfPaths) {
  WriteFile("file", "");
  fs::create_directory("folder");
  EXPECT_EQ(QueryPath("file"), PathKind::kRegularFile);
  EXPECT_EQ(QueryPath("folder"), PathKind::kFolder);
  EXPECT_EQ(QueryPath("missing"), PathKind::kMissing);
  EXPECT_EQ(QueryPath(""), PathKind::kMissing);
  EXPECT_EQ(QueryPath(nullptr), PathKind::kMissing);
}

#ifdef _WIN32
TEST_F(PlatformFilesTest, DevicesAndPipesAreNoFilesByTheirNames) {
  fs::create_directory("folder");
  for (const char* path : {"NUL", "nul", "folder\\nul", "c:\\con", "COM1", "\\\\.\\pipe\\printer",
                           "\\\\server\\PIPE\\printer", "\\\\.\\NUL"}) {
    EXPECT_EQ(QueryPath(path), PathKind::kOther) << path;
    EXPECT_FALSE(SameFile(path, path)) << path;
    EXPECT_EQ(CopyOver(path, "copy"), 5U) << path;
  }
  EXPECT_FALSE(fs::exists("copy"));
  WriteFile("console", "");
  EXPECT_EQ(QueryPath("console"), PathKind::kRegularFile);
  EXPECT_EQ(QueryPath("\\\\server\\pipes\\printer"), PathKind::kMissing);
}

TEST_F(PlatformFilesTest, WritingNothingInAFileCutsNothingOff) {
  WriteFile("file", "content");
  const FileHandle file = HandleOpen("file", FileAccess::kWrite);
  EXPECT_EQ(HandleSeek(file, 3, SeekOrigin::kStart), 3);
  EXPECT_EQ(HandleWrite(file, "", 0), 0);
  EXPECT_TRUE(HandleClose(file));
  EXPECT_EQ(ReadFile("file"), "content");
}
#endif

TEST_F(PlatformFilesTest, OneFileByTwoPaths) {
  WriteFile("file", "");
  WriteFile("other", "");
  EXPECT_TRUE(SameFile("file", ".\\FILE"));
  EXPECT_FALSE(SameFile("file", "other"));
  EXPECT_FALSE(SameFile("file", "missing"));
  EXPECT_FALSE(SameFile("missing", "file"));
  EXPECT_FALSE(SameFile("", ""));
}

TEST_F(PlatformFilesTest, DirectoryIsMadeOnce) {
  EXPECT_TRUE(MakeDirectory("made"));
  EXPECT_FALSE(MakeDirectory("made"));
  EXPECT_FALSE(MakeDirectory("missing\\made"));
  EXPECT_FALSE(MakeDirectory(""));
}

TEST_F(PlatformFilesTest, RemovingAFile) {
  WriteFile("file", "");
  EXPECT_TRUE(RemoveFile("file"));
  EXPECT_FALSE(fs::exists("file"));
  EXPECT_FALSE(RemoveFile("file"));
}

TEST_F(PlatformFilesTest, TemporaryNamesFitTheirBuffersAndCanBeOpened) {
  char name[ZE_MAX_NAME + 1];
  ASSERT_TRUE(TemporaryName("\\", "tmpfil", name, sizeof(name)));
  EXPECT_NE(std::string(name).find("tmp"), std::string::npos);
  EXPECT_TRUE(PathExists(name)) << "nobody else gets it";
  char second[ZE_MAX_NAME + 1];
  ASSERT_TRUE(TemporaryName("\\", "tmpfil", second, sizeof(second)));
  EXPECT_STRNE(second, name);
  RemoveFile(second);
  Stream(OpenStream(name, "w"));
  EXPECT_TRUE(RemoveFile(name));
  char tooSmall[4];
  EXPECT_FALSE(TemporaryName("\\", "tmpfil", tooSmall, sizeof(tooSmall)));
}

// --- Files behind handles

TEST_F(PlatformFilesTest, HandlesReadWriteAndSeek) {
  FileHandle file = HandleCreate("data");
  ASSERT_NE(file, kNoFileHandle);
  EXPECT_EQ(HandleWrite(file, "abcdef", 6), 6);
  EXPECT_TRUE(HandleClose(file));
  file = HandleOpen("DATA", FileAccess::kReadWrite);
  char bytes[8] = "";
  EXPECT_EQ(HandleSeek(file, 2, SeekOrigin::kStart), 2);
  EXPECT_EQ(HandleRead(file, bytes, 2), 2);
  EXPECT_STREQ(bytes, "cd");
  EXPECT_EQ(HandleSeek(file, -1, SeekOrigin::kCurrent), 3);
  EXPECT_EQ(HandleWrite(file, "X", 1), 1);
  EXPECT_EQ(HandleSeek(file, 0, SeekOrigin::kEnd), 6);
  EXPECT_EQ(HandleRead(file, bytes, 8), 0);
  EXPECT_EQ(HandleSeek(file, -1, SeekOrigin::kStart), -1);
  EXPECT_TRUE(HandleClose(file));
  EXPECT_EQ(ReadFile("data"), "abcXef");
}

TEST_F(PlatformFilesTest, HandlesOfNoFileFail) {
  EXPECT_EQ(HandleOpen("missing", FileAccess::kRead), kNoFileHandle);
  EXPECT_EQ(HandleOpen("", FileAccess::kRead), kNoFileHandle);
  EXPECT_EQ(HandleCreate("missing\\file"), kNoFileHandle);
  fs::create_directory("folder");
  EXPECT_EQ(HandleOpen("folder", FileAccess::kRead), kNoFileHandle);
  char byte = 0;
  EXPECT_EQ(HandleRead(kNoFileHandle, &byte, 1), -1);
  EXPECT_EQ(HandleWrite(kNoFileHandle, &byte, 1), -1);
  EXPECT_EQ(HandleSeek(kNoFileHandle, 0, SeekOrigin::kStart), -1);
  EXPECT_FALSE(HandleClose(kNoFileHandle));
}

// --- Searching

std::vector<std::string> Found(const char* pattern) {
  std::vector<std::string> names;
  DirectorySearch search(pattern);
  for (FoundEntry entry; search.Next(&entry);) names.push_back(entry.name);
  return names;
}

TEST_F(PlatformFilesTest, SearchFindsWhatThePatternMatches) {
  WriteFile("b.txt", "12");
  WriteFile("A.TXT", "1");
  WriteFile("c", "");
  fs::create_directory("dir.txt");
  using Names = std::vector<std::string>;
  Names found = Found("*.txt");
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (Names{"A.TXT", "b.txt", "dir.txt"}));
  EXPECT_EQ(Found("c"), Names{"c"});
  EXPECT_EQ(Found("?"), (Names{".", "c"}));
  EXPECT_EQ(Found("*.*").size(), 6U);  // with "." and ".."
  EXPECT_EQ(Found("*.missing"), Names{});
  EXPECT_EQ(Found("missing"), Names{});
  EXPECT_EQ(Found("missing\\*"), Names{});
  EXPECT_EQ(Found("dir.txt\\"), Names{});
  EXPECT_EQ(Found(""), Names{});
}

TEST_F(PlatformFilesTest, SearchTellsSizesAndAttributes) {
  WriteFile("file", "12345");
  fs::create_directory("folder");
  FoundEntry entry;
  EXPECT_TRUE(DirectorySearch("file").Next(&entry));
  EXPECT_EQ(entry.size, 5U);
  EXPECT_EQ(entry.attributes & 17U, 0U);
  EXPECT_TRUE(DirectorySearch("folder").Next(&entry));
  EXPECT_EQ(entry.size, 0U);
  EXPECT_EQ(entry.attributes, 16U);
  EXPECT_FALSE(DirectorySearch("missing").Next(&entry));
  EXPECT_EQ(entry.name, "folder");  // left alone
}

TEST_F(PlatformFilesTest, SearchTellsReadOnlyFiles) {
  WriteFile("file", "");
  fs::permissions("file", fs::perms::owner_read);
  FoundEntry entry;
  EXPECT_TRUE(DirectorySearch("file").Next(&entry));
  EXPECT_EQ(entry.attributes & 1U, 1U);
  fs::permissions("file", fs::perms::owner_all);
}

}  // namespace
}  // namespace zeapi::testing
