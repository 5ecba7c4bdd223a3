#include "base/byte_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace zeapi::testing {
namespace {

constexpr std::array<std::uint8_t, 8> kBytes = {0x01, 0x82, 0x03, 0xF4, 0x05, 0x06, 0x07, 0x08};

TEST(ByteReader, ReadsLittleEndian) {
  ByteReader reader(kBytes);
  EXPECT_EQ(reader.U16Le(), 0x8201);
  EXPECT_EQ(reader.U32Le(), 0x0605F403U);
  EXPECT_EQ(reader.position(), 6U);
  EXPECT_EQ(reader.remaining(), 2U);
  EXPECT_TRUE(reader.ok());
}

TEST(ByteReader, ReadsBigEndian) {
  ByteReader reader(kBytes);
  EXPECT_EQ(reader.U16Be(), 0x0182);
  EXPECT_EQ(reader.U24Be(), 0x03F405U);
  reader.Seek(0);
  EXPECT_EQ(reader.U32Be(), 0x018203F4U);
}

TEST(ByteReader, ReadsSignedBytes) {
  ByteReader reader(kBytes);
  EXPECT_EQ(reader.S8(), 1);
  EXPECT_EQ(reader.S8(), -126);
}

TEST(ByteReader, ReadsToTheLastByte) {
  ByteReader reader(kBytes);
  reader.Skip(7);
  EXPECT_EQ(reader.U8(), 8);
  EXPECT_TRUE(reader.ok());
  EXPECT_EQ(reader.remaining(), 0U);
}

TEST(ByteReader, FailureStaysAndNothingMoves) {
  ByteReader reader(kBytes);
  reader.Skip(6);
  EXPECT_EQ(reader.U32Le(), 0U);
  EXPECT_FALSE(reader.ok());
  EXPECT_EQ(reader.position(), 6U);
  EXPECT_EQ(reader.U8(), 0);
  reader.Seek(0);
  EXPECT_EQ(reader.position(), 6U);
  EXPECT_TRUE(reader.Bytes(1).empty());
  EXPECT_FALSE(reader.ok());
}

TEST(ByteReader, RefusesCountsAndOffsetsThatWouldOverflow) {
  constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();
  ByteReader skipping(kBytes);
  skipping.Skip(1);
  skipping.Skip(kHuge);
  EXPECT_FALSE(skipping.ok());
  ByteReader seeking(kBytes);
  seeking.Seek(kHuge);
  EXPECT_FALSE(seeking.ok());
}

TEST(ByteReader, SeeksUpToTheEnd) {
  ByteReader reader(kBytes);
  reader.Seek(8);
  EXPECT_TRUE(reader.ok());
  EXPECT_EQ(reader.remaining(), 0U);
  reader.Seek(9);
  EXPECT_FALSE(reader.ok());
}

TEST(ByteReader, TakesBytes) {
  ByteReader reader(kBytes);
  reader.Skip(1);
  const auto bytes = reader.Bytes(2);
  ASSERT_EQ(bytes.size(), 2U);
  EXPECT_EQ(bytes[0], 0x82);
  EXPECT_EQ(reader.position(), 3U);
}

TEST(ByteReader, PartKnowsNothingBeyondItsEnd) {
  ByteReader reader(kBytes);
  reader.Skip(1);
  ByteReader part = reader.Sub(3);
  EXPECT_EQ(reader.U8(), 5);
  EXPECT_EQ(part.U8(), 0x82);
  EXPECT_EQ(part.U32Le(), 0U);
  EXPECT_FALSE(part.ok());
  EXPECT_TRUE(reader.ok());
}

TEST(ByteReader, PartOfMissingBytesHasFailed) {
  ByteReader reader(kBytes);
  EXPECT_FALSE(reader.Sub(9).ok());
  EXPECT_FALSE(reader.ok());
}

TEST(ByteReader, EmptySpan) {
  ByteReader reader({});
  EXPECT_TRUE(reader.ok());
  EXPECT_EQ(reader.U8(), 0);
  EXPECT_FALSE(reader.ok());
}

}  // namespace
}  // namespace zeapi::testing
