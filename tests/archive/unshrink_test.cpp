#include "archive/unshrink.h"

#include "archive/bit_writer.h"
#include "archive/memory_io.h"
#include "archive/shrink_encoder.h"
#include "archive/unshrink_model.h"
#include "support/bytes.h"

namespace zeapi::testing {
namespace {

std::string Unshrunk(std::string_view packed, std::uint64_t size, unsigned seed = 0) {
  MemorySource source(packed, 2048, seed);
  MemoryWindow memory;
  EXPECT_EQ(Unshrink(source, size, memory.window), kArchiveOk);
  return memory.sink.text;
}

// Codes of 9 bits.
std::string Codes(std::initializer_list<unsigned> codes) {
  BitWriter bits;
  for (const unsigned code : codes) bits.Put(code, 9);
  return bits.bytes();
}

TEST(Unshrink, BytesAndStrings) {
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b', 257, 258, 'c'}), 7), "ababbac");
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b', 257, 259, 'c'}), 8), "abababac" + std::string());
}

TEST(Unshrink, CodeThatItsOwnStepMakes) {
  EXPECT_BYTES(Unshrunk(Codes({'a', 257, 258, 259}), 10), "aaaaaaaaaa");
}

TEST(Unshrink, StopsAtTheStatedSizeEvenWithinAString) {
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b', 257, 'x'}), 3), "aba");
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b'}), 0), "");
}

TEST(Unshrink, EndsWithItsData) { EXPECT_BYTES(Unshrunk(Codes({'a', 'b'}), 100), "ab"); }

TEST(Unshrink, WidensOnlyWhenTold) {
  BitWriter bits;
  bits.Put('a', 9);
  bits.Put(256, 9);
  bits.Put(1, 9);
  bits.Put('b', 10);
  bits.Put(257, 10);
  EXPECT_BYTES(Unshrunk(bits.bytes(), 4), "abab");
}

TEST(Unshrink, OrdersMakeNoStrings) {
  EXPECT_BYTES(Unshrunk(Codes({'a', 256, 2, 'b', 257}), 4), "abab");
}

TEST(Unshrink, ClearingFreesTheStringsThatAreNobodysParent) {
  // 257 "ab", 258 "bc", 259 "ca", 260 "abc": 257 stays, being the parent of 260; "cd" gets 258.
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b', 'c', 257, 'c', 256, 2, 'd', 258, 257}), 10), "abcabcdcda");
}

TEST(Unshrink, ParentThatClearingFreedMakesAStringThatNobodyKnows) {
  // 257 "ab" is freed when it is the string before; what is made then stands at 257 and names itself.
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b', 257, 256, 2, 'c', 'd', 258}), 8), "ababcdcd");
  EXPECT_BYTES(Unshrunk(Codes({'a', 'b', 257, 256, 2, 'c', 257, 'x'}), 8), "ababc");
}

TEST(Unshrink, InvalidDataEndsIt) {
  EXPECT_BYTES(Unshrunk(Codes({257, 'a'}), 5), "");           // nothing was before
  EXPECT_BYTES(Unshrunk(Codes({'a', 258, 'b'}), 5), "a");     // not the next one
  EXPECT_BYTES(Unshrunk(Codes({'a', 256, 3, 'b'}), 5), "a");  // no such order
  EXPECT_BYTES(Unshrunk(Codes({'a', 256, 0, 'b'}), 5), "a");
}

TEST(Unshrink, CodesOfFourteenBitsThereAreNot) {
  BitWriter bits;
  bits.Put('a', 9);
  for (unsigned width = 9; width <= 13; ++width) {
    bits.Put(256, width);
    bits.Put(1, width);
  }
  bits.Put('b', 14);
  EXPECT_BYTES(Unshrunk(bits.bytes(), 5), "a");
}

TEST(Unshrink, FullTableTakesNoMore) {
  Random random(1);
  std::string plain;
  for (int i = 0; i < 60000; ++i) plain += static_cast<char>(Below(random, 256));
  ShrinkFacts facts;
  const std::string packed = Shrink(plain, {1U << 30}, random, &facts);
  EXPECT_EQ(facts.widest, 13U);
  EXPECT_EQ(facts.clears, 0U);
  EXPECT_TRUE(Unshrunk(packed, plain.size()) == plain);
}

TEST(Unshrink, ClearsAFullTableAgainAndAgain) {
  Random random(2);
  std::string plain;
  for (int i = 0; i < 60000; ++i) plain += static_cast<char>(Below(random, 60));
  ShrinkFacts facts;
  const std::string packed = Shrink(plain, {}, random, &facts);
  EXPECT_GT(facts.clears, 3U);
  EXPECT_TRUE(Unshrunk(packed, plain.size()) == plain);
}

TEST(Unshrink, ClearsAtEveryWidth) {
  Random random(3);
  std::string plain;
  for (int i = 0; i < 30000; ++i) plain += static_cast<char>(Below(random, 200));
  ShrinkFacts facts;
  const std::string packed = Shrink(plain, {100, 2000, 0}, random, &facts);
  for (unsigned width = 9; width <= 13; ++width) EXPECT_GT(facts.clearedAt[width], 0U) << width;
  EXPECT_TRUE(Unshrunk(packed, plain.size()) == plain);
}

TEST(Unshrink, RandomMembersComeBack) {
  Random random(4);
  ShrinkFacts all;
  for (int i = 0; i < 10000; ++i) {
    const std::string plain = RandomData(random, 200);
    const ShrinkHabits habits = {Below(random, 3) == 0 ? 0 : 1 + Below(random, 60),
                                 Below(random, 3) == 0 ? 1 + Below(random, 100) : 0,
                                 Below(random, 2) == 0 ? 1 + Below(random, 20) : 0};
    ShrinkFacts facts;
    const std::string packed = Shrink(plain, habits, random, &facts);
    all.newest += facts.newest;
    ASSERT_TRUE(Unshrunk(packed, plain.size(), static_cast<unsigned>(i)) == plain) << i;
  }
  EXPECT_GT(all.newest, 1000U);
}

// Codes that no encoder would choose: strings of freed parents, clearing again and again, strings that are
// their own parents.
struct OddCodes {
  unsigned clearOneIn;
  unsigned newestOneIn;
  unsigned recentOneIn;
  unsigned wrongOneIn;
};

unsigned OddCode(const OddCodes& odds, const UnshrinkModel& model, Random& random) {
  const auto oneIn = [&](unsigned n) { return Below(random, n) == 0; };
  const unsigned next = model.LowestFree();
  if (oneIn(odds.wrongOneIn)) return 257 + Below(random, 8192 - 257);
  if (next < 8192 && oneIn(odds.newestOneIn)) return next;
  const unsigned most = std::min(next + 20, 8192U);
  if (oneIn(odds.recentOneIn) && most > 257) {
    const unsigned code = 257 + Below(random, most - 257);
    if (!model.IsFree(code)) return code;
  }
  return Below(random, 256);
}

void CompareWithModel(const OddCodes& odds, unsigned steps, Random& random) {
  UnshrinkModel model;
  BitWriter bits;
  for (unsigned width = 9; width < 13; ++width) {
    bits.Put(256, width);
    bits.Put(1, width);
  }
  std::string expected;
  for (unsigned step = 0; step < steps && expected.size() < 1000000; ++step) {
    if (Below(random, odds.clearOneIn) == 0) {
      bits.Put(256, 13);
      bits.Put(2, 13);
      model.Clear();
    }
    const unsigned code = OddCode(odds, model, random);
    bits.Put(code, 13);
    const auto text = model.Code(code);
    if (!text) break;
    expected += *text;
  }
  ASSERT_TRUE(Unshrunk(bits.bytes(), 2000000) == expected) << expected.size();
}

TEST(Unshrink, ClearsWhatTheDefinitionClears) {
  Random random(6);
  for (int i = 0; i < 1000; ++i) {
    const OddCodes odds = {1 + Below(random, 30), 1 + Below(random, 10), 1 + Below(random, 4),
                           100 + Below(random, 1000)};
    CompareWithModel(odds, 300, random);
    if (HasFatalFailure()) FAIL() << i;
  }
}

TEST(Unshrink, ClearsFullTablesAsDefined) {
  Random random(7);
  for (const unsigned clearOneIn : {3U, 500U, 9000U, 12000U}) {
    CompareWithModel({clearOneIn, 50, 2, 1000000}, 20000, random);
    if (HasFatalFailure()) FAIL() << clearOneIn;
  }
}

TEST(Unshrink, FailedWriteEndsIt) {
  Random random(5);
  const std::string packed = Shrink(std::string(200000, 'x'), {}, random);
  MemorySource source(packed);
  MemoryWindow memory(Window::kSize);
  Unshrink(source, 200000, memory.window);
  EXPECT_FALSE(memory.window.ok());
  EXPECT_EQ(memory.sink.writes, 2);
}

}  // namespace
}  // namespace zeapi::testing
