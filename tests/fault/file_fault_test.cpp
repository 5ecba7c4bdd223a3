// File utilities under every failure of the system and of memory, one at a time, and what each
// failure means.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

#include "fault/fault_case.h"

namespace zeapi::testing {
namespace {

std::uint32_t ZEAPI_CALL Shout(char* line, std::uint32_t) {
  line[0] = '!';
  return 0;
}

const std::set<std::uint32_t> kCopyCodes = {ZE_FILE_NOT_FOUND, ZE_ACCESS_DENIED, ZE_DISK_FULL,
                                            ZE_COPY_FAILED, ZE_OUT_OF_MEMORY};

std::set<std::uint32_t> CopyCodesAnd(const std::set<std::uint32_t>& more) {
  std::set<std::uint32_t> codes = kCopyCodes;
  codes.insert(more.begin(), more.end());
  return codes;
}

// Temporary files, which stay where their removal fails, are made in the test's folder.
class FileFaultTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    if (const char* before = std::getenv("TMPDIR")) before_ = before;
    setenv("TMPDIR", folder().c_str(), 1);
  }
  void TearDown() override {
    before_.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", before_.c_str(), 1);
    FaultTest::TearDown();
  }

 private:
  std::string before_;
};

TEST_F(FileFaultTest, Copy) {
  FailEachInTurn({[&] {
                    WriteFile("source", "content");
                    WriteFile("copy", "old");
                  },
                  [] { return TRIED(ZeFilCopy)("source", "copy"); }, kCopyCodes,
                  [] { EXPECT_BYTES(ReadFile("copy"), "content"); }});
}

TEST_F(FileFaultTest, CopyThatFailsLeavesNoNewFile) {
  WriteFile("source", "content");
  std::uint32_t result = ZE_OK;
  EachFailure([] { fs::remove("copy"); }, [&] { result = TRIED(ZeFilCopy)("source", "copy"); },
              [&](const std::string& failed) {
                if (failed != "unlink") {
                  EXPECT_EQ(fs::exists("copy"), result == ZE_OK);
                }
              });
}

TEST_F(FileFaultTest, Backup) {
  static char name[ZE_MAX_NAME + 1];
  FailEachInTurn({[&] {
                    for (const auto& entry : fs::directory_iterator(".")) fs::remove(entry);
                    WriteFile("panel.cfg", "content");
                  },
                  [] { return TRIED(ZeFilBackup)("panel.cfg", name); },
                  CopyCodesAnd({ZE_BAD_FORMAT, ZE_SHARING_VIOLATION}),
                  [] { EXPECT_BYTES(ReadFile("panel.001"), "content"); }});
}

TEST_F(FileFaultTest, Modify) {
  FailEachInTurn({[&] { WriteFile("text", "one\r\ntwo\r\n"); },
                  [] { return TRIED(ZeFilModify)("text", 0, Shout); },
                  CopyCodesAnd({ZE_OPEN_FAILED, ZE_CLOSE_FAILED, ZE_READ_FAILED, ZE_WRITE_FAILED,
                                ZE_UNUSABLE}),
                  [] { EXPECT_BYTES(ReadFile("text"), "!ne\n!wo\n"); }});
}

// Only the last step, the copy over the source, may leave the source changed.
TEST_F(FileFaultTest, ModifyThatFailsBeforeTheCopyLeavesTheFile) {
  const std::string text = "one\ntwo\n";
  const std::set<std::uint32_t> beforeCopy = {ZE_OPEN_FAILED,  ZE_CLOSE_FAILED, ZE_READ_FAILED,
                                              ZE_WRITE_FAILED, ZE_UNUSABLE,     ZE_OUT_OF_MEMORY};
  std::uint32_t result = ZE_OK;
  EachFailure([&] { WriteFile("text", text); },
              [&] { result = TRIED(ZeFilModify)("text", 0, Shout); },
              [&](const std::string&) {
                if (beforeCopy.count(result) != 0) {
                  EXPECT_EQ(ReadFile("text"), text);
                }
              });
}

TEST_F(FileFaultTest, MakePath) {
  static char created[ZE_MAX_NAME + 1];
  const std::string path = OnDriveC("a\\b\\c");
  FailEachInTurn({[&] { fs::remove_all(UnderDriveC("a")); },
                  [&] { return TRIED(ZeFilMakePath)(path.c_str(), created); },
                  {ZE_UNUSABLE},
                  [&] { EXPECT_TRUE(fs::is_directory(UnderDriveC("a/b/c"))); }});
}

TEST_F(FileFaultTest, MakePathKeepsAndListsWhatWasMadeBeforeTheFailure) {
  char created[ZE_MAX_NAME + 1];
  const std::string path = OnDriveC("a\\b\\c");
  bool stoppedHalfway = false;
  std::uint32_t result = ZE_OK;
  EachFailure([&] { fs::remove_all(UnderDriveC("a")); },
              [&] { result = TRIED(ZeFilMakePath)(path.c_str(), created); },
              [&](const std::string&) {
                if (result == ZE_OK) return;
                std::string expected;
                if (fs::exists(UnderDriveC("a"))) expected += "\\a";
                if (fs::exists(UnderDriveC("a/b"))) expected += "\\b";
                EXPECT_EQ(created, expected);
                stoppedHalfway |= expected == "\\a\\b";
              });
  EXPECT_TRUE(stoppedHalfway);
}

TEST_F(FileFaultTest, Checksum) {
  static std::uint16_t sum;
  FailEachInTurn({[&] { WriteFile("data", Bytes("\1\0\2\0")); },
                  [] { return TRIED(ZeFilChecksum)("data", 0, 0, &sum); },
                  {ZE_OPEN_FAILED, ZE_CLOSE_FAILED, ZE_READ_FAILED},
                  [] { EXPECT_EQ(sum, 65533); }});
}

TEST_F(FileFaultTest, SizeAndExistenceAreZeroWhenTheSystemDoesNotTell) {
  WriteFile("file.txt", "12345");
  std::uint32_t size = 0;
  std::uint32_t exists = 0;
  EachFailure([] {},
              [&] {
                size = TRIED(ZeFilQuerySize)("*.txt");
                exists = TRIED(ZeFilExists)("file.txt");
              },
              [&](const std::string& failed) {
                EXPECT_TRUE(size == 5 || (size == 0 && !failed.empty())) << size;
                EXPECT_TRUE(exists == 1 || (exists == 0 && !failed.empty())) << exists;
              });
}

// --- What each failure means, not only that it has a code

TEST_F(FileFaultTest, EachFailureOfRewritingAFileHasItsCode) {
  const fs::path temporary = fs::absolute("temporary");
  setenv("TMPDIR", temporary.c_str(), 1);
  const auto prepare = [&] {
    fs::remove_all(temporary);  // where the removal itself was made to fail
    fs::create_directory(temporary);
    WriteFile("text", "one\n");
  };
  const auto call = [] { return TRIED(ZeFilModify)("text", 0, Shout); };
  const auto gives = [&](std::uint32_t code) {
    return [&, code](std::uint32_t result) {
      EXPECT_EQ(result, code);
      EXPECT_TRUE(fs::is_empty(temporary));
    };
  };
  FailEach("fputs", prepare, call, gives(ZE_WRITE_FAILED));
  FailEach("fclose", prepare, call, gives(ZE_CLOSE_FAILED));
  FailEach("calloc", prepare, call, gives(ZE_OUT_OF_MEMORY));
  FailEach("fgets", prepare, call, gives(ZE_READ_FAILED));
  FailEach("fdopen", prepare, call, gives(ZE_OPEN_FAILED));
  FailEach("fopencookie", prepare, call, gives(ZE_OPEN_FAILED));
}

TEST_F(FileFaultTest, SumIsStoredEvenWhenReadingOrClosingFails) {
  static std::uint16_t sum;
  const auto prepare = [] {
    WriteFile("data", Bytes("\1\0\2\0"));
    sum = 0x1234;
  };
  const auto call = [] { return TRIED(ZeFilChecksum)("data", 0, 0, &sum); };
  FailEach("close", prepare, call, [](std::uint32_t result) {
    EXPECT_EQ(result, ZE_CLOSE_FAILED);
    EXPECT_EQ(sum, 65533);
  });
  FailEach("read", prepare, call, [](std::uint32_t result) {
    EXPECT_EQ(result, ZE_READ_FAILED);
    EXPECT_TRUE(sum == 0 || sum == 65533);
  });
}

TEST_F(FileFaultTest, FileThatMayNotBeReadDoesNotExist) {
  WriteFile("file", "");
  FailEach(
      "access", [] {}, [] { return TRIED(ZeFilExists)("file"); },
      [](std::uint32_t exists) { EXPECT_EQ(exists, 0U); });
}

}  // namespace
}  // namespace zeapi::testing
