// Result codes in words and as exit codes.
#include "result_words.h"

#include <gtest/gtest.h>

#include <set>

#include "zeapi.h"

namespace tool {
namespace {

TEST(ResultWords, HasWordsOfItsOwnForEachCode) {
  std::set<std::string> words;
  constexpr std::uint32_t kCodes[] = {ZE_OK,
                                      ZE_INVALID_ARGUMENT,
                                      ZE_FILE_NOT_FOUND,
                                      ZE_OPEN_FAILED,
                                      ZE_CLOSE_FAILED,
                                      ZE_ACCESS_DENIED,
                                      ZE_READ_FAILED,
                                      ZE_WRITE_FAILED,
                                      ZE_UNEXPECTED_END,
                                      ZE_OUT_OF_MEMORY,
                                      ZE_PRINTER_WRITE_FAILED,
                                      ZE_NOT_DOS_DISK,
                                      ZE_DISK_FULL,
                                      ZE_UNUSABLE,
                                      ZE_BAD_FORMAT,
                                      ZE_DRIVE_LOCKED,
                                      ZE_SHARING_VIOLATION,
                                      ZE_UNSUPPORTED,
                                      ZE_COPY_FAILED,
                                      ZE_NO_BACKUP_NAME,
                                      ZE_SEEK_FAILED,
                                      ZE_BAD_HEADER,
                                      ZE_KEY_NOT_FOUND,
                                      ZE_BUFFER_TOO_SMALL,
                                      ZE_BAD_CHECKSUM,
                                      ZE_UNKNOWN_TYPE,
                                      ZE_SECTION_NOT_FOUND,
                                      ZE_DEFAULT_USED,
                                      ZE_FIXUP_FAILED};
  for (const std::uint32_t code : kCodes) {
    EXPECT_NE(ResultWords(code), ResultWords(999)) << code;
    EXPECT_TRUE(words.insert(ResultWords(code)).second) << code;
  }
}

TEST(ExitCodeFor, IsTheResultWhereAnExitCodeCanBe) {
  EXPECT_EQ(ExitCodeFor(ZE_OK), 0);
  EXPECT_EQ(ExitCodeFor(ZE_FILE_NOT_FOUND), 2);
  EXPECT_EQ(ExitCodeFor(63), 63);
  EXPECT_EQ(ExitCodeFor(64), kExitInternal);
  EXPECT_EQ(ExitCodeFor(0xFFFFFFFF), kExitInternal);
}

}  // namespace
}  // namespace tool
