// INI files under every failure: a handle or none, done or not, and an image that stays whole.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "fault/each_failure.h"
#include "support/bytes.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

constexpr std::uint32_t kNotCalled = 999;

using IniFaultTest = IniTest;

TEST_F(IniFaultTest, OpenAndRead) {
  std::uint32_t code = kNotCalled;
  std::uint32_t count = 0;
  char buffer[16];
  const char* text = "";
  EachFailure(
      [&] {
        WriteFile(kFile, "[s]\nkey  =value\n");
        code = kNotCalled;
        count = 77;
        std::strcpy(buffer, "untouched");
      },
      [&] {
        handle = TRIED(ZeIniOpen)(kFile);
        if (handle == nullptr) return;
        code = TRIED(ZeIniRead2)(handle, "s", "key", nullptr, buffer, sizeof(buffer), &count);
        text = TRIED(ZeIniRead)(handle, "s", "key");
      },
      [&](const std::string& failed) {
        if (handle == nullptr) {
          EXPECT_FALSE(failed.empty());
          return;
        }
        // Without memory the look-up stores nothing and says so by its count alone.
        EXPECT_EQ(code, ZE_OK);
        EXPECT_STREQ(buffer, count == 0 ? "untouched" : "value");
        EXPECT_TRUE(count == 5 || failed == "new");
        EXPECT_TRUE(std::string_view(text) == "value" || failed == "new");
        EXPECT_EQ(Value("s", "key"), "value");
        EXPECT_STREQ(ZeIniRead(handle, "s", "key"), "value");
        EXPECT_EQ(Close(), 1U);
      });
}

TEST_F(IniFaultTest, FailedEnumerationForgetsItsPlace) {
  const char* first = "";
  const char* next = "";
  EachFailure(
      [&] {
        Open("[s]\na=1\nb=2\n");
        EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
      },
      [&] {
        first = TRIED(ZeIniRead)(handle, "s", nullptr);
        next = TRIED(ZeIniRead)(handle, nullptr, nullptr);
      },
      [&](const std::string& failed) {
        EXPECT_STREQ(first, failed.empty() ? "a=1" : "");
        EXPECT_STREQ(next, failed.empty() ? "b=2" : "");
        EXPECT_EQ(Close(), 1U);
      });
}

TEST_F(IniFaultTest, UpdateAndCreate) {
  for (const std::uint32_t mode : {ZE_INI_UPDATE, ZE_INI_CREATE, ZE_INI_APPEND}) {
    EachFailure([&] { WriteFile(kFile, "[s]\na=1\n"); },
                [&] { handle = TRIED(ZeIniOpen2)(kFile, mode); },
                [&](const std::string& failed) {
                  if (handle == nullptr) {
                    EXPECT_FALSE(failed.empty());
                    return;
                  }
                  EXPECT_EQ(Value("s", "a"), mode == ZE_INI_CREATE ? "<45>" : "1");
                  EXPECT_EQ(Close(), 1U);
                });
  }
}

// Edits one after the other: what was done shows, what was not done can be done again.
TEST_F(IniFaultTest, Edits) {
  constexpr int kEdits = 5;
  std::uint32_t results[kEdits];
  EachFailure([&] { Open("[s]\na=1\nb=2\n"); },
              [&] {
                results[0] = TRIED(ZeIniWrite)(handle, "s", "a", "a longer value");
                results[1] = TRIED(ZeIniWrite)(handle, "s", "c", "3");
                results[2] = TRIED(ZeIniWrite)(handle, "t", "d", "4");
                results[3] = TRIED(ZeIniWriteAll)(handle, "s", "c", "5");
                results[4] = TRIED(ZeIniDelete)(handle, "s", "b", nullptr);
              },
              [&](const std::string& failed) {
                EXPECT_EQ(std::count(results, results + kEdits, 0U), failed.empty() ? 0 : 1);
                EXPECT_EQ(Value("s", "a"), results[0] == 1 ? "a longer value" : "1");
                EXPECT_EQ(Value("s", "c"), results[1] == 1 ? "3" : "5");
                EXPECT_EQ(Value("s", "b"), results[4] == 1 ? "<41>" : "2");
                if (results[2] == 1) {
                  EXPECT_EQ(Value("t", "d"), "4");
                }
                EXPECT_EQ(ZeIniWrite(handle, "t", "d", "6"), 1U);
                EXPECT_EQ(Value("t", "d"), "6");
                EXPECT_EQ(Close(), 1U);
              });
}

TEST_F(IniFaultTest, Close) {
  std::uint32_t result = kNotCalled;
  EachFailure(
      [&] {
        Open("[s]\na=1\n");
        EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
      },
      [&] {
        result = TRIED(ZeIniClose)(handle);
        handle = nullptr;
      },
      [&](const std::string& failed) {
        // Errors of the writing itself are not reported.
        const bool opened = failed != "open" && failed != "fdopen";
        EXPECT_EQ(result, opened ? 1U : 0U);
        if (failed.empty()) {
          EXPECT_BYTES(ReadFile(kFile), "[s]\na=2\n");
        }
      });
}

}  // namespace
}  // namespace zeapi::testing
