// Deflate as zlib's encoder makes it, at every level and with every strategy.

#include <gtest/gtest.h>
#include <zlib.h>

#include "archive/inflate.h"
#include "archive/memory_io.h"
#include "archive/random_data.h"

namespace zeapi::testing {
namespace {

struct Habits {
  int level;
  int strategy;
  int windowBits;
  int memory;
};

std::string Deflated(std::string_view plain, const Habits& habits, Random* flushes = nullptr) {
  z_stream stream = {};
  EXPECT_EQ(deflateInit2(&stream, habits.level, Z_DEFLATED, -habits.windowBits, habits.memory,
                         habits.strategy),
            Z_OK);
  std::string packed(deflateBound(&stream, static_cast<uLong>(plain.size())) + 4000, '\0');
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  std::string copy(plain);
  stream.next_in = reinterpret_cast<Bytef*>(copy.data());
  if (flushes != nullptr) {
    const int kinds[] = {Z_NO_FLUSH, Z_PARTIAL_FLUSH, Z_SYNC_FLUSH, Z_FULL_FLUSH, Z_BLOCK};
    for (int i = 0; i < 20; ++i) {
      stream.avail_in =
          Below(*flushes, static_cast<unsigned>(copy.data() + copy.size() -
                                                reinterpret_cast<char*>(stream.next_in)) +
                              1);
      deflate(&stream, kinds[Below(*flushes, 5)]);
    }
  }
  stream.avail_in =
      static_cast<uInt>(copy.data() + copy.size() - reinterpret_cast<char*>(stream.next_in));
  EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

void ExpectBack(const std::string& packed, const std::string& plain, unsigned seed) {
  MemorySource source(packed, 2048, seed);
  MemoryWindow memory;
  ASSERT_EQ(Inflate(source, memory.window), kArchiveOk);
  ASSERT_TRUE(memory.sink.text == plain);
}

constexpr int kStrategies[] = {Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED};

TEST(InflateZlib, RandomMembersOfEveryLevelAndStrategyComeBack) {
  Random random(21);
  for (int i = 0; i < 10000; ++i) {
    const Habits habits = {i % 10, kStrategies[i / 10 % 5], 9 + i / 50 % 7, 1 + i / 350 % 9};
    const std::string plain = RandomData(random, 400);
    const std::string packed = Deflated(plain, habits, i % 3 == 0 ? &random : nullptr);
    ASSERT_NO_FATAL_FAILURE(ExpectBack(packed, plain, static_cast<unsigned>(i) % 5)) << i;
  }
}

TEST(InflateZlib, LargeMembersOfEveryLevelAndStrategyComeBack) {
  Random random(22);
  std::string plain;
  while (plain.size() < 150000) plain += RandomData(random, 8000);
  for (int level = 0; level <= 9; ++level) {
    for (const int strategy : kStrategies) {
      const std::string packed = Deflated(plain, {level, strategy, 15, 8}, &random);
      ASSERT_NO_FATAL_FAILURE(ExpectBack(packed, plain, 0)) << level << ' ' << strategy;
    }
  }
}

}  // namespace
}  // namespace zeapi::testing
