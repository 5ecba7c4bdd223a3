#include "archive/unreduce.h"

#include "archive/bit_writer.h"
#include "archive/memory_io.h"
#include "archive/reduce_encoder.h"
#include "support/bytes.h"

namespace zeapi::testing {
namespace {

std::string Unreduced(std::string_view packed, unsigned factor, std::uint64_t size,
                      unsigned seed = 0) {
  MemorySource source(packed, 2048, seed);
  MemoryWindow memory;
  EXPECT_EQ(Unreduce(source, factor, size, memory.window), kArchiveOk);
  return memory.sink.text;
}

// Without followers each byte of the upper layer takes eight bits.
std::string Plainly(std::string_view upper) {
  BitWriter bits;
  for (int i = 0; i < 256; ++i) bits.Put(0, 6);
  for (const char c : upper) bits.Put(static_cast<unsigned char>(c), 8);
  return bits.bytes();
}

TEST(Unreduce, BytesAsTheyAre) { EXPECT_BYTES(Unreduced(Plainly("abc"), 1, 3), "abc"); }

TEST(Unreduce, MarkerOfItself) {
  EXPECT_BYTES(Unreduced(Plainly(Bytes("a\x90\0b")), 4, 3),
               "a\x90"
               "b");
}

TEST(Unreduce, RepeatsOfEachFactor) {
  // A length of 1 + 3 from 3 back, the low bits of the length first.
  for (unsigned factor = 1; factor <= 4; ++factor)
    EXPECT_BYTES(Unreduced(Plainly("abc\x90\x01\x02z"), factor, 8), "abcabcaz") << factor;
  // From 256 + 1 back: the bit above those of the length.
  const std::string far = "Q" + std::string(256, '.');
  for (unsigned factor = 1; factor <= 4; ++factor) {
    std::string upper = far + "\x90";
    upper += static_cast<char>(1U << (8 - factor));
    upper += '\0';
    EXPECT_BYTES(Unreduced(Plainly(upper), factor, 260), far + "Q..") << factor;
  }
}

TEST(Unreduce, LongestLengthHasAByteMore) {
  // 127 + 100 + 3 for factor 1, 15 + 100 + 3 for factor 4.
  EXPECT_EQ(Unreduced(Plainly("x\x90\x7F"
                              "d" +
                              std::string(1, '\0')),
                      1, 1000),
            std::string(1 + 127 + 100 + 3, 'x'));
  EXPECT_EQ(Unreduced(Plainly("x\x90\x0F"
                              "d" +
                              std::string(1, '\0')),
                      4, 1000),
            std::string(1 + 15 + 100 + 3, 'x'));
}

TEST(Unreduce, BytesBeforeTheStartAreZeros) {
  EXPECT_BYTES(Unreduced(Plainly("a\x90\x03\x01z"), 1, 8), Bytes("a\0a\0a\0az"));
}

TEST(Unreduce, StopsAtTheStatedSize) {
  EXPECT_BYTES(Unreduced(Plainly("a\x90\x20" + std::string(1, '\0')), 1, 5), "aaaaa");
}

TEST(Unreduce, FollowersTakeAsManyBitsAsTheirNumberNeeds) {
  for (unsigned count = 1; count <= 32; ++count) {
    unsigned width = count <= 2 ? 1 : count <= 4 ? 2 : count <= 8 ? 3 : count <= 16 ? 4 : 5;
    BitWriter bits;
    for (int byte = 255; byte > 0; --byte) bits.Put(0, 6);
    bits.Put(count, 6);
    for (unsigned i = 0; i < count; ++i) bits.Put('A' + i, 8);
    bits.Put(0, 1);
    bits.Put(count - 1, width);  // after byte 0, which stands before the first
    bits.Put('z', 8);            // after a byte without followers
    EXPECT_EQ(Unreduced(bits.bytes(), 2, 2),
              std::string(1, static_cast<char>('A' + count - 1)) + "z");
  }
}

TEST(Unreduce, InvalidDataEndsIt) {
  BitWriter tooMany;
  tooMany.Put(33, 6);
  for (int i = 0; i < 400; ++i) tooMany.Put(0, 8);
  EXPECT_BYTES(Unreduced(tooMany.bytes(), 1, 10), "");
  BitWriter beyond;
  for (int byte = 255; byte > 0; --byte) beyond.Put(0, 6);
  beyond.Put(3, 6);
  for (const char c : {'a', 'b', 'c'}) beyond.Put(static_cast<unsigned>(c), 8);
  beyond.Put(0, 1);
  beyond.Put(3, 2);
  beyond.Put(0xFFFF, 16);
  EXPECT_BYTES(Unreduced(beyond.bytes(), 1, 10), "");
}

TEST(Unreduce, EndsWithItsData) {
  EXPECT_BYTES(Unreduced(Plainly("ab"), 1, 100), "ab");
  EXPECT_BYTES(Unreduced("", 1, 100), "");
  EXPECT_BYTES(Unreduced(Plainly("ab\x90"), 1, 100), "ab");
  EXPECT_BYTES(Unreduced(Plainly("ab\x90\x01"), 1, 100), "ab");
}

TEST(Unreduce, RandomMembersComeBack) {
  Random random(7);
  for (unsigned i = 0; i < 40000; ++i) {
    const unsigned factor = 1 + i % 4;
    const std::string plain = RandomData(random, 150);
    const ReduceHabits habits = {Below(random, 33), Below(random, 2) * Below(random, 10)};
    const std::string packed = Reduce(plain, factor, habits, random);
    ASSERT_TRUE(Unreduced(packed, factor, plain.size(), i % 7) == plain) << i;
  }
}

TEST(Unreduce, LargeMembersComeBack) {
  Random random(8);
  for (unsigned factor = 1; factor <= 4; ++factor) {
    std::string plain;
    while (plain.size() < 100000) plain += RandomData(random, 5000);
    const std::string packed = Reduce(plain, factor, {}, random);
    ASSERT_TRUE(Unreduced(packed, factor, plain.size()) == plain) << factor;
  }
}

}  // namespace
}  // namespace zeapi::testing
