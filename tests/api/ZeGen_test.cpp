#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <map>

#include "api/guard.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

TEST(ZeGenQueryApiInfo, SetsEveryWordOfTheRecordAndNothingAfterIt) {
  const std::map<int, int> words = {{0, 930}, {1, 32}, {2, 2},  {3, 2},  {11, 1}, {12, 1},
                                    {16, 1},  {17, 1}, {20, 1}, {23, 1}, {26, 1}, {28, 1}};
  unsigned char record[130];
  std::memset(record, 0xFF, sizeof(record));
  ZeGenQueryApiInfo(record);
  for (int word = 0; word < 64; ++word) {
    const int value = record[2 * word] | record[2 * word + 1] << 8;
    EXPECT_EQ(value, words.count(word) != 0 ? words.at(word) : 0) << word;
  }
  EXPECT_EQ(record[128], 0xFF);
  EXPECT_EQ(record[129], 0xFF);
}

TEST(ZeGenQueryApiInfo, IgnoresANullPointer) { ZeGenQueryApiInfo(nullptr); }

TEST(ZeMemFree, IgnoresANullPointer) { ZeMemFree(nullptr); }

TEST(ZeMemFree, ReleasesABlockOfTheCHeap) { ZeMemFree(std::malloc(16)); }

using Query = uint32_t(ZEAPI_CALL*)(uint32_t, uint32_t, void*, uint32_t) noexcept;

class ZeGenQuery : public ::testing::TestWithParam<Query> {};

TEST_P(ZeGenQuery, NeedsABufferOf1024Bytes) {
  char buffer[1024];
  EXPECT_EQ(GetParam()(1, 2, buffer, 1023), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(GetParam()(1, 2, buffer, 1024), ZE_OK);
  EXPECT_EQ(GetParam()(1, 2, buffer, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(GetParam()(1, 2, nullptr, 1024), ZE_INVALID_ARGUMENT);
}

TEST_P(ZeGenQuery, SizeIsA16BitValue) {
  char buffer[1024];
  EXPECT_EQ(GetParam()(0, 0, buffer, 0xFFFF), ZE_OK);
  EXPECT_EQ(GetParam()(0, 0, buffer, 0x10000), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(GetParam()(0, 0, buffer, 0x10400), ZE_OK);
}

TEST_P(ZeGenQuery, WritesNothing) {
  char buffer[1024];
  std::memset(buffer, 0x5A, sizeof(buffer));
  GetParam()(0, 0, buffer, sizeof(buffer));
  for (const char byte : buffer) EXPECT_EQ(byte, 0x5A);
}

INSTANTIATE_TEST_SUITE_P(Both, ZeGenQuery,
                         ::testing::Values(&ZeGenQueryAdapters, &ZeGenQueryQueues));

TEST(Guard, WhateverIsThrownBecomesTheCallsCode) {
  EXPECT_EQ(Guarded([]() -> Result { throw std::bad_alloc(); }), ZE_OUT_OF_MEMORY);
  EXPECT_EQ(Guarded(ZE_UNUSABLE, []() -> Result { throw 5; }), ZE_UNUSABLE);
  EXPECT_EQ(Guarded([]() -> Result { return ZE_OK; }), ZE_OK);
}

}  // namespace
}  // namespace zeapi::testing
