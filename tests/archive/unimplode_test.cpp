#include "archive/unimplode.h"

#include <gtest/gtest.h>

#include "archive/implode_encoder.h"
#include "archive/memory_io.h"
#include "support/bytes.h"

namespace zeapi::testing {
namespace {

constexpr ImplodeForm kForms[] = {{false, false}, {false, true}, {true, false}, {true, true}};

UnimplodeResult Unimploded(std::string_view packed, ImplodeForm form, std::uint64_t size,
                           std::string* plain, unsigned seed = 0) {
  MemorySource source(packed, 2048, seed);
  MemoryWindow memory;
  const UnimplodeResult result = Unimplode(source, form, packed.size(), size, memory.window);
  *plain = memory.sink.text;
  return result;
}

std::string Unimploded(std::string_view packed, ImplodeForm form, std::uint64_t size) {
  std::string plain;
  Unimploded(packed, form, size, &plain);
  return plain;
}

// All codes of six bits: symbol n has the code 63 - n.
void PutFlatTree(BitWriter* bits) { PutTree(std::vector<unsigned>(64, 6), bits); }
void PutFlat(unsigned symbol, BitWriter* bits) { bits->PutCode(63 - symbol, 6); }

void PutLiteral(char c, BitWriter* bits) {
  bits->Put(1, 1);
  bits->Put(static_cast<unsigned char>(c), 8);
}

BitWriter TwoTrees() {
  BitWriter bits;
  PutFlatTree(&bits);
  PutFlatTree(&bits);
  return bits;
}

// The published example of a tree: eight symbols, here the first of 64.
TEST(Unimplode, CodesAreTheDefinedOnes) {
  const std::vector<unsigned> codes = ImplodeCodes({3, 3, 3, 3, 3, 2, 4, 4});
  EXPECT_EQ(codes, (std::vector<unsigned>{5, 4, 3, 2, 1, 3, 1, 0}));
}

TEST(Unimplode, MatchWithoutLiteralTreeHasTwoBytesAtLeast) {
  BitWriter bits = TwoTrees();
  PutLiteral('a', &bits);
  PutLiteral('b', &bits);
  bits.Put(0, 1);
  bits.Put(1, 6);  // distance 2
  PutFlat(0, &bits);
  PutFlat(1, &bits);
  EXPECT_BYTES(Unimploded(bits.bytes(), {false, false}, 5), "ababa");
}

TEST(Unimplode, WindowFlagRulesTheLowBitsOfTheDistanceAlone) {
  BitWriter bits = TwoTrees();
  for (const char c : std::string("Q") + std::string(128, '.')) PutLiteral(c, &bits);
  bits.Put(0, 1);
  bits.Put(0, 7);
  PutFlat(1, &bits);  // 1 * 128 + 0 + 1
  PutFlat(0, &bits);
  EXPECT_BYTES(Unimploded(bits.bytes(), {false, true}, 131), "Q" + std::string(128, '.') + "Q.");
}

TEST(Unimplode, MatchWithLiteralTreeHasThreeBytesAtLeast) {
  BitWriter bits;
  PutTree(std::vector<unsigned>(256, 8), &bits);
  PutFlatTree(&bits);
  PutFlatTree(&bits);
  bits.Put(1, 1);
  bits.PutCode(255 - 'a', 8);
  bits.Put(0, 1);
  bits.Put(0, 6);
  PutFlat(0, &bits);
  PutFlat(0, &bits);
  EXPECT_BYTES(Unimploded(bits.bytes(), {true, false}, 4), "aaaa");
}

TEST(Unimplode, GreatestLengthHasAByteMore) {
  BitWriter bits = TwoTrees();
  PutLiteral('a', &bits);
  bits.Put(0, 1);
  bits.Put(0, 6);
  PutFlat(0, &bits);
  PutFlat(63, &bits);
  bits.Put(255, 8);
  EXPECT_EQ(Unimploded(bits.bytes(), {false, false}, 1 + 63 + 2 + 255),
            std::string(1 + 63 + 2 + 255, 'a'));
}

TEST(Unimplode, BytesBeforeTheStartAreZeros) {
  BitWriter bits = TwoTrees();
  bits.Put(0, 1);
  bits.Put(63, 6);
  PutFlat(63, &bits);  // 4096 back
  PutFlat(5, &bits);
  EXPECT_EQ(Unimploded(bits.bytes(), {false, false}, 7), std::string(7, '\0'));
}

TEST(Unimplode, StopsAtTheStatedSize) {
  BitWriter bits = TwoTrees();
  PutLiteral('a', &bits);
  bits.Put(0, 1);
  bits.Put(0, 6);
  PutFlat(0, &bits);
  PutFlat(40, &bits);
  std::string plain;
  EXPECT_EQ(Unimploded(bits.bytes(), {false, false}, 5, &plain), kUnimploded);
  EXPECT_BYTES(plain, "aaaaa");
}

TEST(Unimplode, DataOfAnotherLengthIsTold) {
  BitWriter bits = TwoTrees();
  for (int i = 0; i < 20; ++i) PutLiteral('a', &bits);
  std::string plain;
  EXPECT_EQ(Unimploded(bits.bytes(), {false, false}, 3, &plain), kUnimplodeOtherSize);
  EXPECT_BYTES(plain, "aaa");
  EXPECT_EQ(Unimploded(bits.bytes(), {false, false}, 100, &plain), kUnimplodeOtherSize);
  EXPECT_EQ(plain.substr(0, 20), std::string(20, 'a'));
}

TEST(Unimplode, KeepsADataLengthThatDoesNotFitASuccess) {
  EXPECT_EQ(StatusOf(kUnimploded), kArchiveOk);
  EXPECT_EQ(StatusOf(kUnimplodeOtherSize), kArchiveOk);
  EXPECT_EQ(StatusOf(kUnimplodeNoMemory), kArchiveNoMemory);
  EXPECT_EQ(StatusOf(kUnimplodeBadTree), kArchiveBad);
}

TEST(Unimplode, BadTrees) {
  std::string plain;
  const auto result = [&](const BitWriter& bits) {
    return Unimploded(bits.bytes(), {false, false}, 5, &plain);
  };
  BitWriter tooFew;  // 63 codes
  PutTree(std::vector<unsigned>(63, 6), &tooFew);
  tooFew.Put(0xFFFFFF, 24);
  EXPECT_EQ(result(tooFew), kUnimplodeBadTree);
  BitWriter tooMany;
  PutTree(std::vector<unsigned>(65, 7), &tooMany);
  EXPECT_EQ(result(tooMany), kUnimplodeBadTree);
  BitWriter tooLong;  // does not use every code
  PutTree(std::vector<unsigned>(64, 7), &tooLong);
  PutFlatTree(&tooLong);
  EXPECT_EQ(result(tooLong), kUnimplodeBadTree);
  BitWriter tooShort;  // uses codes twice
  PutTree(std::vector<unsigned>(64, 5), &tooShort);
  PutFlatTree(&tooShort);
  EXPECT_EQ(result(tooShort), kUnimplodeBadTree);
  BitWriter missing;
  PutFlatTree(&missing);
  EXPECT_EQ(result(missing), kUnimplodeBadTree);
  EXPECT_EQ(result(BitWriter()), kUnimplodeBadTree);
}

TEST(Unimplode, RandomMembersComeBackInEachForm) {
  Random random(11);
  for (unsigned i = 0; i < 10000; ++i) {
    const ImplodeForm form = kForms[i % 4];
    const auto shape = static_cast<TreeShape>(Below(random, 3));
    const std::string plain = RandomData(random, 250);
    const std::string packed = Implode(plain, form, shape, random);
    std::string back;
    ASSERT_EQ(Unimploded(packed, form, plain.size(), &back, i % 5), kUnimploded) << i;
    ASSERT_TRUE(back == plain) << i;
  }
}

TEST(Unimplode, LargeMembersComeBackOnBothSidesOf200000) {
  Random random(12);
  for (const ImplodeForm form : kForms) {
    for (const unsigned size : {90000U, 320000U}) {
      std::string plain;
      for (unsigned i = 0; i < size; ++i) plain += static_cast<char>(Below(random, 256));
      plain += plain.substr(size - 3000, 2000);
      const std::string packed = Implode(plain, form, TreeShape::kRandom, random);
      EXPECT_EQ(packed.size() > 200000, size > 200000);
      std::string back;
      ASSERT_EQ(Unimploded(packed, form, plain.size(), &back), kUnimploded);
      ASSERT_TRUE(back == plain);
    }
  }
}

}  // namespace
}  // namespace zeapi::testing
