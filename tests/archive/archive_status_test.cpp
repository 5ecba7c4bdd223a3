#include "archive/archive_status.h"

#include <gtest/gtest.h>

namespace zeapi::testing {
namespace {

TEST(ArchiveStatus, EachHasItsResult) {
  const auto result = [](int status) { return ResultOf(static_cast<ArchiveStatus>(status)); };
  EXPECT_EQ(result(0), ZE_OK);
  EXPECT_EQ(result(1), ZE_OK);
  EXPECT_EQ(result(2), ZE_BAD_FORMAT);
  EXPECT_EQ(result(3), ZE_BAD_FORMAT);
  for (int status = 4; status <= 8; ++status) EXPECT_EQ(result(status), ZE_OUT_OF_MEMORY);
  EXPECT_EQ(result(9), ZE_OPEN_FAILED);
  EXPECT_EQ(result(10), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(result(11), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(result(40), ZE_SHARING_VIOLATION);
  EXPECT_EQ(result(50), ZE_DISK_FULL);
  EXPECT_EQ(result(51), 9U);
  for (const int status : {12, 39, 41, 49, 52, 80}) EXPECT_EQ(result(status), 36U) << status;
}

TEST(ArchiveStatus, TheHigherIsTheWorse) {
  EXPECT_EQ(Worse(kArchiveBad, kArchiveWarning), kArchiveBad);
  EXPECT_EQ(Worse(kArchiveOk, kArchiveUnexpectedEnd), kArchiveUnexpectedEnd);
}

}  // namespace
}  // namespace zeapi::testing
