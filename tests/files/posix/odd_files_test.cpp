// File utilities on what is no regular file, and where no file can be opened.
#include <fcntl.h>
#include <sys/resource.h>

#include "platform/handle_files.h"
#include "support/bytes.h"
#include "support/posix/named_pipe.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

std::uint32_t ZEAPI_CALL Unexpected(char*, std::uint32_t) {
  ADD_FAILURE() << "there is no line";
  return 0;
}

// Nothing waits for a writer, or for the end of a device.
class FilePipeTest : public PipeTest<ScratchTest> {
 protected:
  void SetUp() override {
    PipeTest<ScratchTest>::SetUp();
    MakePipe("pipe.x");
    fs::create_symlink("pipe.x", "link.x");
    fs::create_symlink("/dev/zero", "zero.x");
  }

  static constexpr const char* kOddFiles[] = {"pipe.x", "link.x", "zero.x"};
};

TEST_F(FilePipeTest, ChecksumDoesNotOpenIt) {
  for (const char* name : kOddFiles) {
    std::uint16_t result = 0x1234;
    EXPECT_EQ(ZeFilChecksum(name, 0, 0, &result), ZE_OPEN_FAILED) << name;
    EXPECT_EQ(result, 0x1234) << name;
  }
}

TEST_F(FilePipeTest, ChecksumByHandleReadsWhateverIsOpen) {
  const platform::FileHandle null = platform::HandleOpen("/dev/null", platform::FileAccess::kRead);
  std::uint16_t result = 0x1234;
  EXPECT_EQ(ZeFilChecksum(nullptr, null, 0, &result), ZE_OK);
  EXPECT_EQ(result, 0);
  platform::HandleClose(null);
}

TEST_F(FilePipeTest, ModifyDoesNotOpenIt) {
  for (const char* name : kOddFiles) {
    EXPECT_EQ(ZeFilModify(name, 0, Unexpected), ZE_OPEN_FAILED) << name;
  }
  EXPECT_TRUE(fs::is_fifo("pipe.x"));
}

TEST_F(FilePipeTest, CopyOfItIsDeniedAndMakesNothing) {
  for (const char* name : kOddFiles) {
    EXPECT_EQ(ZeFilCopy(name, "copy"), ZE_ACCESS_DENIED) << name;
    EXPECT_FALSE(fs::exists("copy")) << name;
  }
}

TEST_F(FilePipeTest, CopyOfItLeavesTheFileThatIsThere) {
  WriteFile("copy", "content");
  EXPECT_EQ(ZeFilCopy("pipe.x", "copy"), ZE_ACCESS_DENIED);
  EXPECT_BYTES(ReadFile("copy"), "content");
}

TEST_F(FilePipeTest, BackupOfItIsDeniedAndMakesNothing) {
  const std::pair<const char*, const char*> rows[] = {
      {"pipe.x", "pipe.001"}, {"link.x", "link.001"}, {"zero.x", "zero.001"}};
  for (const auto& [source, backup] : rows) {
    char name[ZE_MAX_NAME + 1] = "untouched";
    EXPECT_EQ(ZeFilBackup(source, name), ZE_ACCESS_DENIED) << source;
    EXPECT_STREQ(name, backup);
    EXPECT_FALSE(fs::exists(backup)) << source;
  }
}

using BackupNameTest = ScratchTest;

TEST_F(BackupNameTest, BackupThatMayNotBeReadIsKept) {
  WriteFile("panel.cfg", "new");
  WriteFile("panel.001", "old");
  fs::permissions("panel.001", fs::perms::owner_write);
  char name[ZE_MAX_NAME + 1];
  EXPECT_EQ(ZeFilBackup("panel.cfg", name), ZE_OK);
  EXPECT_STREQ(name, "panel.002");
  fs::permissions("panel.001", fs::perms::owner_all);
  EXPECT_BYTES(ReadFile("panel.001"), "old");
}

TEST_F(BackupNameTest, LinkThatLeadsNowhereIsTaken) {
  WriteFile("panel.cfg", "new");
  fs::create_symlink("elsewhere", "panel.001");
  char name[ZE_MAX_NAME + 1];
  EXPECT_EQ(ZeFilBackup("panel.cfg", name), ZE_OK);
  EXPECT_STREQ(name, "panel.002");
  EXPECT_FALSE(fs::exists("elsewhere"));
}

TEST_F(FilePipeTest, CopyMayBeWrittenToAPipeThatIsRead) {
  WriteFile("source", "content");
  const int reader = open("pipe.x", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  EXPECT_EQ(ZeFilCopy("source", "pipe.x"), ZE_OK);
  char text[16];
  const ssize_t count = read(reader, text, sizeof(text));
  close(reader);
  ASSERT_GT(count, 0);
  EXPECT_BYTES(std::string(text, static_cast<std::size_t>(count)), "content");
}

// While it lives the process opens no further file.
class NoFurtherFile {
 public:
  NoFurtherFile() {
    getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit none = {0, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
  }
  ~NoFurtherFile() { setrlimit(RLIMIT_NOFILE, &before_); }
  NoFurtherFile(const NoFurtherFile&) = delete;
  NoFurtherFile& operator=(const NoFurtherFile&) = delete;

 private:
  rlimit before_ = {};
};

using ModifyOrderTest = ScratchTest;

TEST_F(ModifyOrderTest, TemporaryNameComesBeforeTheSourceAndTheCallbackBeforeBoth) {
  EXPECT_EQ(ZeFilModify("missing", 0, Unexpected), ZE_OPEN_FAILED);
  std::uint32_t result = ZE_OK;
  std::uint32_t withoutCallback = ZE_OK;
  {
    const NoFurtherFile none;
    result = ZeFilModify("missing", 0, Unexpected);
    withoutCallback = ZeFilModify("missing", 0, nullptr);
  }
  EXPECT_EQ(result, ZE_UNUSABLE);
  EXPECT_EQ(withoutCallback, ZE_INVALID_ARGUMENT);
}

}  // namespace
}  // namespace zeapi::testing
