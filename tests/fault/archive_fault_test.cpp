// Extraction under every failure of the system and of memory, one at a time. Whatever fails: the
// result is one of the call's codes, a call that reports success has made every file whole, nothing
// stays open, and the next call works.
#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "archive/archive_case.h"
#include "archive/implode_encoder.h"
#include "archive/reduce_encoder.h"
#include "archive/shrink_encoder.h"
#include "fault/each_failure.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class ArchiveFaultTest : public ArchiveTest {
 protected:
  void SetUp() override {
    ArchiveTest::SetUp();
    Random random(61);
    const std::string plain(3000, 'p');
    ZipArchive archive;
    archive.members = {
        {"d/stored", plain},
        {"d/shrunk", plain, 1, Shrink(plain, {}, random)},
        {"reduced", plain, 3, Reduce(plain, 2, {}, random)},
        {"imploded", plain, 6, Implode(plain, {false, false}, TreeShape::kFlat, random)},
        {"deflated", "abc", 8, Bytes("\x4B\x4C\x4A\x06\0")}};
    names_ = {"d/stored", "d/shrunk", "reduced", "imploded", "deflated"};
    WriteFile(kArchive, archive.Bytes());
  }

  static std::uint32_t ZEAPI_CALL Ignore(const char*, std::uint32_t, std::uint32_t) { return 0; }

  void Clean() const {
    for (const std::string& name : names_) fs::remove(name);
    fs::remove("d");
    WriteFile("reduced", "old");
  }

  // "reduced" is there before.
  static bool IsNew(const std::string& name) { return fs::exists(name) && ReadFile(name) != "old"; }

  // Files that are there, and whether all of them have their whole content.
  bool Whole() const {
    for (const std::string& name : names_) {
      if (!fs::exists(name) || fs::file_size(name) != (name == "deflated" ? 3 : 3000)) return false;
    }
    return true;
  }

  // `check` hears of each failure: what failed and the result.
  void FailEach(ZeZipProgress told,
                const std::function<void(const std::string&, std::uint32_t)>& check) {
    std::uint32_t result = ZE_OK;
    int points = 0;
    EachFailure([this] { Clean(); }, [&] { result = TRIED(ZeZipExplode)(kArchive, nullptr, told); },
                [&](const std::string& failed) {
                  if (failed.empty()) {
                    EXPECT_EQ(result, ZE_OK);
                    EXPECT_TRUE(Whole());
                  } else {
                    ++points;
                    check(failed, result);
                  }
                });
    EXPECT_GT(points, 30);
  }

  std::vector<std::string> names_;
};

TEST_F(ArchiveFaultTest, EachFailureHasItsCode) {
  const std::map<std::string, std::set<std::uint32_t>> codes = {
      {"new", {ZE_OUT_OF_MEMORY}},
      {"calloc", {ZE_OUT_OF_MEMORY}},
      {"stat", {ZE_FILE_NOT_FOUND}},
      {"lstat", {ZE_OK}},  // looked up as written
      {"open", {ZE_OPEN_FAILED}},
      {"fstat", {ZE_OK, ZE_SHARING_VIOLATION}},  // of the archive, or of a new file
      {"lseek", {ZE_OPEN_FAILED, ZE_BAD_FORMAT, ZE_UNEXPECTED_END}},
      {"read", {ZE_BAD_FORMAT, ZE_UNEXPECTED_END}},
      {"openat", {ZE_BAD_FORMAT, ZE_SHARING_VIOLATION}},
      {"mkdirat", {ZE_BAD_FORMAT}},
      {"ftruncate", {ZE_SHARING_VIOLATION}},
      {"write", {ZE_DISK_FULL}},
      {"close", {ZE_OK, ZE_DISK_FULL}},
      {"utimensat", {ZE_OK}},
  };
  std::set<std::string> seen;
  FailEach(nullptr, [&](const std::string& failed, std::uint32_t result) {
    seen.insert(failed);
    const auto expected = codes.find(failed);
    ASSERT_NE(expected, codes.end());
    EXPECT_EQ(expected->second.count(result), 1U) << result;
    EXPECT_TRUE(result != ZE_OK || Whole());
  });
  for (const char* function : {"new", "calloc", "open", "lseek", "read", "openat", "mkdirat",
                               "ftruncate", "write", "close", "utimensat"})
    EXPECT_EQ(seen.count(function), 1U) << function;
}

TEST_F(ArchiveFaultTest, WithACallbackTheSame) {
  FailEach(Ignore, [&](const std::string&, std::uint32_t result) {
    EXPECT_TRUE(result != ZE_OK || Whole());
  });
}

TEST_F(ArchiveFaultTest, DecoderWithoutMemoryEndsThePassBeforeACallback) {
  int decoders = 0;
  FailEach(Ignore, [&](const std::string& failed, std::uint32_t result) {
    // Their memory is asked for when the file is there.
    if (failed != "new" || !fs::exists("imploded") || fs::file_size("imploded") != 0) return;
    ++decoders;
    EXPECT_EQ(result, ZE_OUT_OF_MEMORY);
    EXPECT_FALSE(fs::exists("deflated"));
  });
  EXPECT_EQ(decoders, 1);
}

TEST_F(ArchiveFaultTest, FullDiskEndsThePass) {
  int writes = 0;
  FailEach(nullptr, [&](const std::string& failed, std::uint32_t result) {
    if (failed != "write") return;
    ++writes;
    EXPECT_EQ(result, ZE_DISK_FULL);
    // The first member writes twice, the others once each.
    const int member = std::max(writes - 2, 0);
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(IsNew(names_[static_cast<std::size_t>(i)]), i <= member) << i;
  });
  EXPECT_EQ(writes, 6);
}

}  // namespace
}  // namespace zeapi::testing
