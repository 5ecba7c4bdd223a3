// Two loops decode the codes of a block. The fast one works where it can neither reach the end of an
// input block nor the edge of the window, and so asks for neither; the careful one does one code at a
// time in between. Both stop at the same codes.
#include "archive/inflate.h"

#include <memory>
#include <new>

#include "archive/inflate_tables.h"
#include "archive/match_copy.h"

namespace zeapi {
namespace {

enum class Outcome { kMore, kEndOfBlock, kBad };

constexpr std::uint32_t kLiteralMask = (1U << InflateTables::kLiteralBits) - 1;
constexpr std::uint32_t kDistanceMask = (1U << InflateTables::kDistanceBits) - 1;
constexpr std::size_t kLongestMatch = 258;
// One round of the fast loop takes two words of input at most and makes two literals, and then another
// one or a match.
constexpr std::ptrdiff_t kInputMargin = BitReader::kPiece;
constexpr std::size_t kLastRound = Window::kSize - 4;  // the window must not become full
constexpr std::size_t kLastMatch = Window::kSize - kLongestMatch - kCopySlack;

// Value of a symbol with its extra bits, which follow the code at the low end of `buffer`.
std::uint32_t WithExtraBits(std::uint32_t entry, std::uint64_t buffer) {
  const std::uint64_t bits = buffer & ((std::uint64_t{1} << EntryDrop(entry)) - 1);
  return EntryValue(entry) + static_cast<std::uint32_t>(bits >> EntryCodeBits(entry));
}

// The same for the fast loop: without the masks that shifts and entries of values make needless.
std::uint32_t Value(std::uint32_t entry, std::uint64_t buffer) {
  const std::uint64_t bits = buffer & ((std::uint64_t{1} << (entry & 63)) - 1);
  return (entry >> 16) + static_cast<std::uint32_t>(bits >> (entry >> 8 & 63));
}

std::uint32_t Index(std::uint64_t buffer, std::uint32_t mask) {
  return static_cast<std::uint32_t>(buffer) & mask;
}

std::uint32_t InTable(const std::uint32_t* table, std::uint32_t entry, std::uint64_t buffer) {
  return table[EntryValue(entry) + Index(buffer, (1U << EntryCodeBits(entry)) - 1)];
}

class Inflater {
 public:
  Inflater(BlockSource& source, Window& window) : bits_(source), window_(window) {}

  ArchiveStatus Run() {
    for (bool last = false; !last && window_.ok();) {
      bits_.Refill();
      last = bits_.Take(1) != 0;
      const unsigned kind = bits_.Take(2);
      if (!bits_.ok() || !Block(kind)) return kArchiveBad;
    }
    return kArchiveOk;
  }

 private:
  bool Block(unsigned kind) {
    switch (kind) {
      case 0:
        return StoredBlock();
      case 1:
        tables_.UseFixed();
        return Codes();
      case 2:
        return tables_.Read(bits_) && Codes();
      default:
        return false;
    }
  }

  bool StoredBlock() {
    bits_.Align();
    const std::uint32_t length = bits_.Bits(16);
    const std::uint32_t complement = bits_.Bits(16);
    if (!bits_.ok() || length != (complement ^ 0xFFFF)) return false;
    for (std::size_t left = length; left > 0;) {
      const auto bytes = bits_.Bytes(left);
      if (bytes.empty()) return false;
      window_.Append(bytes);
      left -= bytes.size();
    }
    return true;
  }

  bool Codes() {
    for (;;) {
      Outcome outcome = Fast();
      if (outcome == Outcome::kMore) outcome = OneCode();
      if (outcome == Outcome::kEndOfBlock) return true;
      if (outcome == Outcome::kBad || !window_.ok()) return false;
    }
  }

  Outcome Fast();
  Outcome OneCode();

  BitReader bits_;
  Window& window_;
  InflateTables tables_;
};

Outcome Inflater::OneCode() {
  bits_.Refill();
  std::uint32_t entry = tables_.literals()[bits_.Peek(InflateTables::kLiteralBits)];
  if ((entry & kEntryTable) != 0) {
    bits_.Drop(EntryDrop(entry));
    entry = InTable(tables_.literals(), entry, bits_.cursor().buffer);
  }
  if ((entry & kEntryLiteral) != 0) {
    bits_.Drop(EntryDrop(entry));
    if (!bits_.ok()) return Outcome::kBad;
    window_.Put(static_cast<std::uint8_t>(EntryValue(entry)));
    return Outcome::kMore;
  }
  if ((entry & kEntrySpecial) != 0) {
    bits_.Drop(EntryDrop(entry));
    return (entry & kEntryEnd) != 0 && bits_.ok() ? Outcome::kEndOfBlock : Outcome::kBad;
  }
  const std::uint32_t length = WithExtraBits(entry, bits_.cursor().buffer);
  bits_.Drop(EntryDrop(entry));
  bits_.Refill();
  entry = tables_.distances()[bits_.Peek(InflateTables::kDistanceBits)];
  if ((entry & kEntryTable) != 0) {
    bits_.Drop(EntryDrop(entry));
    entry = InTable(tables_.distances(), entry, bits_.cursor().buffer);
  }
  if ((entry & kEntrySpecial) != 0) return Outcome::kBad;
  const std::uint32_t distance = WithExtraBits(entry, bits_.cursor().buffer);
  bits_.Drop(EntryDrop(entry));
  if (!bits_.ok() || distance > window_.history()) return Outcome::kBad;
  window_.Copy(distance, length);
  return Outcome::kMore;
}

// One loop of all there is: parts of it as functions would pass through memory what it keeps in registers.
Outcome Inflater::Fast() {  // NOLINT(readability-function-cognitive-complexity)
  bits_.Join();
  BitCursor in = bits_.cursor();
  std::size_t position = window_.position();
  if (in.end - in.next < kInputMargin || position > kLastRound) return Outcome::kMore;
  const std::uint8_t* const inputLimit = in.end - kInputMargin;
  const bool goneRound = window_.history() == Window::kSize;
  const std::uint32_t* const literals = tables_.literals();
  const std::uint32_t* const distances = tables_.distances();
  std::uint8_t* const bytes = window_.bytes();
  Outcome outcome = Outcome::kMore;

  in.RefillWord();
  std::uint32_t entry = literals[Index(in.buffer, kLiteralMask)];
  for (;;) {
    // At least 56 bits are ready: three literals of the main table take 33 of them.
    if ((entry & kEntryLiteral) != 0) {
      in.DropEntry(entry);
      bytes[position++] = static_cast<std::uint8_t>(entry >> 16);
      entry = literals[Index(in.buffer, kLiteralMask)];
      if ((entry & kEntryLiteral) != 0) {
        in.DropEntry(entry);
        bytes[position++] = static_cast<std::uint8_t>(entry >> 16);
        entry = literals[Index(in.buffer, kLiteralMask)];
        if ((entry & kEntryLiteral) != 0) {
          in.DropEntry(entry);
          bytes[position++] = static_cast<std::uint8_t>(entry >> 16);
          if (in.next > inputLimit || position > kLastRound) break;
          entry = literals[Index(in.buffer, kLiteralMask)];
          in.RefillWord();
          continue;
        }
      }
    }
    // Two literals at most are gone; 34 bits are left, enough for a length of 20.
    if ((entry & kEntrySpecial) != 0) {
      if ((entry & kEntryTable) != 0) {
        in.DropEntry(entry);
        entry = InTable(literals, entry, in.buffer);
      }
      if ((entry & kEntryLiteral) != 0) {
        in.DropEntry(entry);
        bytes[position++] = static_cast<std::uint8_t>(entry >> 16);
        if (in.next > inputLimit || position > kLastRound) break;
        entry = literals[Index(in.buffer, kLiteralMask)];
        in.RefillWord();
        continue;
      }
      if ((entry & kEntrySpecial) != 0) {
        in.DropEntry(entry);
        outcome = (entry & kEntryEnd) != 0 ? Outcome::kEndOfBlock : Outcome::kBad;
        break;
      }
    }
    const std::uint32_t length = Value(entry, in.buffer);
    in.DropEntry(entry);
    // Looked up in the 14 bits that are left at least, so that nothing waits for the refill.
    entry = distances[Index(in.buffer, kDistanceMask)];
    in.RefillWord();
    if ((entry & kEntrySpecial) != 0) {
      if ((entry & kEntryTable) != 0) {
        in.DropEntry(entry);
        entry = InTable(distances, entry, in.buffer);
      }
      if ((entry & kEntrySpecial) != 0) {
        outcome = Outcome::kBad;
        break;
      }
    }
    const std::uint32_t distance = Value(entry, in.buffer);
    in.DropEntry(entry);
    // 28 bits are left, enough to look the next code up while the match is copied.
    entry = literals[Index(in.buffer, kLiteralMask)];
    if (distance <= position && position <= kLastMatch) {
      CopyMatch(bytes + position, distance, length);
    } else {
      if (distance > position && !goneRound) {
        outcome = Outcome::kBad;
        break;
      }
      if (position > kLastMatch) {
        window_.SetPosition(position);
        window_.Copy(distance, length);
        position = window_.position();
        break;
      }
      CopyRound(bytes, Window::kSize, position, distance, length);
    }
    position += length;
    if (in.next > inputLimit || position > kLastRound) break;
    in.RefillWord();
  }
  in.Tidy();
  bits_.SetCursor(in);
  window_.SetPosition(position);
  return outcome;
}

}  // namespace

ArchiveStatus Inflate(BlockSource& source, Window& window) {
  const std::unique_ptr<Inflater> inflater(new (std::nothrow) Inflater(source, window));
  if (inflater == nullptr) return kArchiveNoMemory;
  const ArchiveStatus status = inflater->Run();
  window.Flush();
  return status;
}

}  // namespace zeapi
