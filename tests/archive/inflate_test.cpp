#include "archive/inflate.h"

#include <gtest/gtest.h>

#include <vector>

#include "archive/bit_writer.h"
#include "archive/memory_io.h"
#include "support/bytes.h"

namespace zeapi::testing {
namespace {

class DeflateWriter : public BitWriter {
 public:
  void Block(bool last, unsigned kind) {
    Put(last ? 1 : 0, 1);
    Put(kind, 2);
  }
  void Stored(bool last, std::string_view bytes) {
    Block(last, 0);
    Align();
    Put(static_cast<unsigned>(bytes.size()), 16);
    Put(static_cast<unsigned>(bytes.size()) ^ 0xFFFF, 16);
    for (const char c : bytes) Put(static_cast<unsigned char>(c), 8);
  }
  // A symbol of the code that is fixed.
  void Fixed(unsigned symbol) {
    if (symbol < 144)
      PutCode(0x30 + symbol, 8);
    else if (symbol < 256)
      PutCode(0x190 + symbol - 144, 9);
    else if (symbol < 280)
      PutCode(symbol - 256, 7);
    else
      PutCode(0xC0 + symbol - 280, 8);
  }
  void FixedDistance(unsigned symbol) { PutCode(symbol, 5); }
};

ArchiveStatus Inflated(std::string_view packed, std::string* plain, std::size_t most = 2048) {
  MemorySource source(packed, most);
  MemoryWindow memory;
  const ArchiveStatus status = Inflate(source, memory.window);
  *plain = memory.sink.text;
  return status;
}

void ExpectPlain(const BitWriter& bits, std::string_view expected) {
  std::string plain;
  EXPECT_EQ(Inflated(bits.bytes(), &plain), kArchiveOk);
  EXPECT_BYTES(plain, expected);
}

void ExpectBad(const BitWriter& bits) {
  std::string plain;
  EXPECT_EQ(Inflated(bits.bytes(), &plain), kArchiveBad);
  EXPECT_EQ(Inflated(bits.bytes() + std::string(400, '\0'), &plain), kArchiveBad);
}

TEST(Inflate, StoredBlocks) {
  DeflateWriter bits;
  bits.Stored(false, "one");
  bits.Stored(false, "");
  bits.Stored(true, std::string(40000, 'x'));
  ExpectPlain(bits, "one" + std::string(40000, 'x'));
}

TEST(Inflate, StoredBlockWithAWrongLength) {
  DeflateWriter bits;
  bits.Block(true, 0);
  bits.Align();
  bits.Put(3, 16);
  bits.Put(3, 16);
  ExpectBad(bits);
}

TEST(Inflate, FixedBlock) {
  DeflateWriter bits;
  bits.Block(true, 1);
  for (const char c : std::string("abc\xFF")) bits.Fixed(static_cast<unsigned char>(c));
  bits.Fixed(257);        // three bytes
  bits.FixedDistance(3);  // from 4 back
  bits.Fixed(285);        // 258
  bits.FixedDistance(0);
  bits.Fixed(256);
  ExpectPlain(bits,
              "abc\xFF"
              "abc" +
                  std::string(258, 'c'));
}

TEST(Inflate, EveryLengthAndDistanceSymbol) {
  // Base and extra bits as RFC 1951 lists them.
  std::string plain;
  DeflateWriter bits;
  bits.Block(true, 1);
  for (unsigned i = 0; i < 40000; ++i) {
    plain += static_cast<char>(i * 7 + i / 251);
    bits.Fixed(static_cast<unsigned char>(plain.back()));
  }
  const auto match = [&](unsigned lengthSymbol, unsigned lengthExtra, unsigned lengthBits,
                         unsigned length, unsigned distanceSymbol, unsigned distanceExtra,
                         unsigned distanceBits, unsigned distance) {
    bits.Fixed(lengthSymbol);
    bits.Put(lengthExtra, lengthBits);
    bits.FixedDistance(distanceSymbol);
    bits.Put(distanceExtra, distanceBits);
    for (unsigned i = 0; i < length; ++i) plain += plain[plain.size() - distance];
  };
  match(264, 0, 0, 10, 4, 1, 1, 6);
  match(265, 1, 1, 12, 5, 0, 1, 7);
  match(268, 0, 1, 17, 9, 7, 3, 32);
  match(269, 3, 2, 22, 12, 31, 5, 96);
  match(273, 7, 3, 42, 17, 0, 7, 385);
  match(277, 15, 4, 82, 20, 511, 9, 1536);
  match(281, 0, 5, 131, 25, 2047, 11, 8192);
  match(284, 31, 5, 258, 28, 0, 13, 16385);
  match(284, 30, 5, 257, 29, 8191, 13, 32768);
  match(285, 0, 0, 258, 29, 0, 13, 24577);
  bits.Fixed(256);
  ExpectPlain(bits, plain);
}

TEST(Inflate, DistancesFrom1To40AndLengthsTo258) {
  std::string plain;
  DeflateWriter bits;
  bits.Block(true, 1);
  const auto literal = [&](char c) {
    bits.Fixed(static_cast<unsigned char>(c));
    plain += c;
  };
  for (unsigned distance = 1; distance <= 40; ++distance) {
    for (const unsigned extra : {0U, 13U, 31U}) {
      for (unsigned i = 0; i < distance; ++i) literal(static_cast<char>('A' + (i * distance) % 50));
      bits.Fixed(281);
      bits.Put(extra, 5);
      unsigned symbol = 0;
      unsigned base = 1;
      unsigned width = 0;
      while (base + (1U << width) <= distance) {
        base += 1U << width;
        ++symbol;
        width = symbol < 4 ? 0 : symbol / 2 - 1;
      }
      bits.FixedDistance(symbol);
      bits.Put(distance - base, width);
      for (unsigned i = 0; i < 131 + extra; ++i) plain += plain[plain.size() - distance];
    }
  }
  bits.Fixed(256);
  ExpectPlain(bits, plain);
}

TEST(Inflate, FarthestDistanceNeedsNothingThatACopyHasSpoiled) {
  // After each short match, one from the farthest place there is: the oldest byte of the window.
  std::string plain;
  DeflateWriter bits;
  bits.Block(true, 1);
  for (unsigned i = 0; i < 33000; ++i) {
    plain += static_cast<char>(i ^ i >> 8);
    bits.Fixed(static_cast<unsigned char>(plain.back()));
  }
  for (unsigned i = 0; i < 9000; ++i) {
    for (const unsigned distance : {1U + i % 4, 32768U - i % 20}) {
      bits.Fixed(257);
      if (distance <= 4) {
        bits.FixedDistance(distance - 1);
      } else {
        bits.FixedDistance(29);
        bits.Put(distance - 24577, 13);
      }
      for (unsigned n = 0; n < 3; ++n) plain += plain[plain.size() - distance];
    }
  }
  bits.Fixed(256);
  ExpectPlain(bits, plain);
}

TEST(Inflate, InvalidBlocks) {
  DeflateWriter reserved;
  reserved.Block(true, 3);
  ExpectBad(reserved);
  for (const unsigned symbol : {286U, 287U}) {
    DeflateWriter bits;
    bits.Block(true, 1);
    bits.Fixed('a');
    bits.Fixed(symbol);
    ExpectBad(bits);
  }
  for (const unsigned symbol : {30U, 31U}) {
    DeflateWriter bits;
    bits.Block(true, 1);
    bits.Fixed('a');
    bits.Fixed(257);
    bits.FixedDistance(symbol);
    ExpectBad(bits);
  }
}

TEST(Inflate, NothingIsBeforeTheStart) {
  for (const unsigned literals : {0U, 1U, 40U}) {
    DeflateWriter bits;
    bits.Block(true, 1);
    for (unsigned i = 0; i < literals; ++i) bits.Fixed('a');
    bits.Fixed(257);
    bits.FixedDistance(11);  // 49 to 64
    bits.Put(0, 4);
    ExpectBad(bits);
  }
}

TEST(Inflate, DataWithoutItsEndIsBadAndWhatCameOutStays) {
  DeflateWriter bits;
  bits.Block(true, 1);
  for (int i = 0; i < 50; ++i) bits.Fixed('a');
  std::string plain;
  EXPECT_EQ(Inflated(bits.bytes(), &plain), kArchiveBad);
  EXPECT_EQ(plain.substr(0, 49), std::string(49, 'a'));
  EXPECT_EQ(Inflated("", &plain), kArchiveBad);
}

// --- Codes that a block states

struct Lengths {
  std::vector<unsigned> literals;
  std::vector<unsigned> distances;
};

// States each length by itself, with a code of four bits for the lengths 0 to 15.
void PutDynamicHeader(const Lengths& lengths, DeflateWriter* bits) {
  bits->Block(true, 2);
  bits->Put(static_cast<unsigned>(lengths.literals.size()) - 257, 5);
  bits->Put(static_cast<unsigned>(lengths.distances.size()) - 1, 5);
  bits->Put(15, 4);
  for (const unsigned symbol :
       {16U, 17U, 18U, 0U, 8U, 7U, 9U, 6U, 10U, 5U, 11U, 4U, 12U, 3U, 13U, 2U, 14U, 1U, 15U})
    bits->Put(symbol < 16 ? 4 : 0, 3);
  for (const unsigned length : lengths.literals) bits->PutCode(length, 4);
  for (const unsigned length : lengths.distances) bits->PutCode(length, 4);
}

Lengths OnlyEnd() {
  Lengths lengths = {std::vector<unsigned>(257, 0), {0}};
  lengths.literals[256] = 1;
  return lengths;
}

TEST(Inflate, EndAloneIsACode) {
  DeflateWriter bits;
  PutDynamicHeader(OnlyEnd(), &bits);
  bits.PutCode(0, 1);
  ExpectPlain(bits, "");
  DeflateWriter other;
  PutDynamicHeader(OnlyEnd(), &other);
  other.PutCode(1, 1);
  ExpectBad(other);
}

TEST(Inflate, OneDistanceOfOneBit) {
  Lengths lengths = OnlyEnd();
  lengths.literals.resize(258, 0);
  lengths.literals['a'] = 2;
  lengths.literals[257] = 2;
  lengths.distances = {1};
  DeflateWriter bits;
  PutDynamicHeader(lengths, &bits);
  bits.PutCode(2, 2);  // a
  bits.PutCode(3, 2);  // three bytes
  bits.PutCode(0, 1);  // from 1 back
  bits.PutCode(0, 1);
  ExpectPlain(bits, "aaaa");
  DeflateWriter other;
  PutDynamicHeader(lengths, &other);
  other.PutCode(2, 2);
  other.PutCode(3, 2);
  other.PutCode(1, 1);
  ExpectBad(other);
}

TEST(Inflate, CodesThatAreNone) {
  Lengths twice = OnlyEnd();
  twice.literals['a'] = twice.literals['b'] = 1;
  Lengths unused = OnlyEnd();
  unused.literals[256] = 2;
  Lengths noEnd = OnlyEnd();
  noEnd.literals[256] = 0;
  noEnd.literals['a'] = noEnd.literals['b'] = 1;
  Lengths sparseDistances = OnlyEnd();
  sparseDistances.distances = {2, 2};
  Lengths tooManyLiterals = OnlyEnd();
  tooManyLiterals.literals.resize(287, 0);
  Lengths tooManyDistances = OnlyEnd();
  tooManyDistances.distances.resize(31, 0);
  for (const Lengths& lengths :
       {twice, unused, noEnd, sparseDistances, tooManyLiterals, tooManyDistances}) {
    DeflateWriter bits;
    PutDynamicHeader(lengths, &bits);
    bits.PutCode(0, 1);
    ExpectBad(bits);
  }
}

TEST(Inflate, CodesOfFifteenBits) {
  // Each symbol one bit longer than the last, and two of the longest.
  Lengths lengths = OnlyEnd();
  for (unsigned i = 0; i < 13; ++i) lengths.literals['a' + i] = i + 2;
  lengths.literals['z'] = lengths.literals['y'] = 15;
  lengths.literals[256] = 1;
  DeflateWriter bits;
  PutDynamicHeader(lengths, &bits);
  for (unsigned i = 0; i < 13; ++i) bits.PutCode((1U << (i + 2)) - 2, i + 2);
  bits.PutCode(0x7FFE, 15);
  bits.PutCode(0x7FFF, 15);
  bits.PutCode(0, 1);
  ExpectPlain(bits, "abcdefghijklmyz");
}

TEST(Inflate, RepeatedLengths) {
  const auto header = [](DeflateWriter* bits) {
    bits->Block(true, 2);
    bits->Put(0, 5);   // 257 literals
    bits->Put(0, 5);   // 1 distance
    bits->Put(14, 4);  // up to symbol 1
    // Codes of two bits: 1, 16, 17, 18 in this order.
    for (const unsigned symbol :
         {16U, 17U, 18U, 0U, 8U, 7U, 9U, 6U, 10U, 5U, 11U, 4U, 12U, 3U, 13U, 2U, 14U, 1U})
      bits->Put(symbol >= 16 || symbol == 1 ? 2 : 0, 3);
  };
  DeflateWriter bits;
  header(&bits);
  bits.PutCode(3, 2);  // 138 zeros
  bits.Put(127, 7);
  bits.PutCode(3, 2);  // 107 zeros
  bits.Put(96, 7);
  bits.PutCode(2, 2);  // 10 zeros
  bits.Put(7, 3);
  bits.PutCode(0, 2);  // 255: 1
  bits.PutCode(0, 2);  // 256: 1
  bits.PutCode(2, 2);  // more zeros than there are symbols
  bits.Put(0, 3);
  ExpectBad(bits);
  DeflateWriter first;  // nothing to repeat
  header(&first);
  first.PutCode(1, 2);
  first.Put(0, 2);
  ExpectBad(first);
  DeflateWriter across;  // into the distances: 3 times 1 from symbol 255 on
  header(&across);
  across.PutCode(3, 2);
  across.Put(127, 7);
  across.PutCode(3, 2);
  across.Put(105, 7);  // 116 zeros
  across.PutCode(0, 2);
  across.PutCode(1, 2);
  across.Put(0, 2);
  across.PutCode(0, 1);  // 254 and more than two codes of one bit
  ExpectBad(across);
}

TEST(Inflate, BlocksOfOneByteDoAsWell) {
  DeflateWriter bits;
  bits.Stored(false, "stored");
  bits.Block(true, 1);
  for (int i = 0; i < 300; ++i) bits.Fixed('a' + static_cast<unsigned>(i) % 26);
  bits.Fixed(285);
  bits.FixedDistance(0);
  bits.Fixed(256);
  std::string whole;
  EXPECT_EQ(Inflated(bits.bytes(), &whole), kArchiveOk);
  EXPECT_EQ(whole.size(), 6U + 300 + 258);
  for (const std::size_t size : {1U, 2U, 7U, 15U, 17U, 33U, 47U, 100U}) {
    std::string plain;
    EXPECT_EQ(Inflated(bits.bytes(), &plain, size), kArchiveOk);
    EXPECT_TRUE(plain == whole) << size;
  }
}

TEST(Inflate, WritesWholeWindows) {
  DeflateWriter bits;
  for (int i = 0; i < 3; ++i) bits.Stored(i == 2, std::string(30000, 'x'));
  MemorySource source(bits.bytes());
  MemoryWindow memory;
  EXPECT_EQ(Inflate(source, memory.window), kArchiveOk);
  EXPECT_EQ(memory.sink.writes, 3);  // 32768, 32768 and the rest
}

}  // namespace
}  // namespace zeapi::testing
