#include "data/record_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "data/number_field.h"

namespace zeapi {
namespace {

constexpr std::size_t kLongestNumber = 24;
constexpr std::string_view kMarks = ",;:";

// By character: what stands between fields, and what ends a number.
struct CharacterClasses {
  std::array<bool, 256> separates = {};
  std::array<bool, 256> endsNumber = {};
};

constexpr CharacterClasses MakeClasses() {
  CharacterClasses classes;
  for (std::size_t c = 0; c < classes.separates.size(); ++c) {
    classes.separates[c] = c <= ' ' || c > '~';
  }
  for (const char mark : kMarks) {
    classes.separates[static_cast<unsigned char>(mark)] = true;
    classes.endsNumber[static_cast<unsigned char>(mark)] = true;
  }
  classes.separates['\n'] = false;
  classes.endsNumber['\n'] = true;
  return classes;
}

constexpr CharacterClasses kClasses = MakeClasses();

std::size_t CountWhile(std::string_view text, const std::array<bool, 256>& classes, bool is) {
  std::size_t count = 0;
  while (count < text.size() && classes[static_cast<unsigned char>(text[count])] == is) ++count;
  return count;
}

// What follows is inline where it takes the cursor: with it in registers a count of records takes
// two thirds of the time.

// Returns the character behind the separators.
inline int SkipSeparators(TextCursor* text) {
  for (;;) {
    const std::string_view ahead = text->Ahead();
    if (ahead.empty()) return EOF;
    const std::size_t count = CountWhile(ahead, kClasses.separates, true);
    text->SkipAhead(count);
    if (count < ahead.size()) return static_cast<unsigned char>(ahead[count]);
  }
}

// Returns the first character of the next record, or EOF.
inline int FindRecord(TextCursor* text) {
  for (;;) {
    int c = SkipSeparators(text);
    if (c == '#') {
      text->TakeUpTo('\n', {});
      c = text->Peek();
    }
    if (c != '\n') return c;
    text->Skip();
  }
}

// Empty for what is not kept.
using Field = std::span<std::uint8_t>;

// Texts go to a field that has been filled with zeros; its last byte stays the terminator.
inline ZeDatReading ReadText(TextCursor* text, bool doubledQuotes, Field field) {
  if (text->Peek() != '"') return kDatBadFormat;
  text->Skip();
  char* place = reinterpret_cast<char*>(field.data());
  std::size_t room = field.empty() ? 0 : field.size() - 1;
  for (;;) {
    const std::size_t taken = text->TakeUpTo('"', {place, room});
    place += taken;
    room -= taken;
    if (text->Peek() == EOF) return kDatEndOfFile;
    text->Skip();
    if (!doubledQuotes || text->Peek() != '"') return kDatRecord;
    text->Skip();
    if (room == 0) continue;
    *place++ = '"';
    --room;
  }
}

ZeDatReading StoreNumber(std::string_view token, bool whole, std::size_t size, Field field) {
  std::array<std::uint8_t, sizeof(double)> unkept;
  if (field.empty()) {
    if (size > unkept.size()) return kDatBadFormat;
    field = Field(unkept).first(size);
  }
  const bool stored = whole ? StoreWholeNumber(token, field) : StoreRealNumber(token, field);
  return stored ? kDatRecord : kDatBadFormat;
}

// Converting is most of what reading a number costs.
inline bool SkipPlainNumber(TextCursor* text) {
  const std::string_view ahead = text->Ahead();
  const std::size_t length = PlainNumberLength(ahead);
  if (length == 0 || length == ahead.size()) return false;
  if (!kClasses.endsNumber[static_cast<unsigned char>(ahead[length])]) return false;
  text->SkipAhead(length);
  return true;
}

inline ZeDatReading ReadNumber(TextCursor* text, bool whole, std::size_t size, Field field) {
  if (field.empty() && !whole && size == sizeof(double) && SkipPlainNumber(text)) return kDatRecord;
  char token[kLongestNumber];
  std::size_t length = 0;
  for (;;) {
    const std::string_view ahead = text->Ahead();
    const std::size_t count = CountWhile(ahead, kClasses.endsNumber, false);
    if (count > kLongestNumber - length) return kDatBadFormat;
    text->SkipAhead(count);
    const bool ended = count < ahead.size() || ahead.empty();
    // Nearly every token lies in one piece of what was read.
    if (ended && length == 0) return StoreNumber(ahead.substr(0, count), whole, size, field);
    std::copy_n(ahead.data(), count, token + length);
    length += count;
    if (ended) return StoreNumber({token, length}, whole, size, field);
  }
}

enum class FieldKind { kText, kDoubledQuotes, kWholeNumber, kNumber, kAbsent };

FieldKind KindOf(std::int32_t type, std::size_t size) {
  using enum FieldKind;
  static constexpr FieldKind kKinds[] = {kText,   kWholeNumber,   kWholeNumber,
                                         kNumber, kNumber,        kDoubledQuotes,
                                         kAbsent, kDoubledQuotes, kWholeNumber};
  if (type < 0 || type >= static_cast<std::int32_t>(std::size(kKinds))) return kAbsent;
  // A field of 4 bytes has no use for quotes.
  if (type == 5 && size == sizeof(std::int32_t)) return kWholeNumber;
  return kKinds[type];
}

inline ZeDatReading ReadField(TextCursor* text, std::int32_t type, std::size_t size, Field field) {
  switch (KindOf(type, size)) {
    case FieldKind::kText:
      return ReadText(text, false, field);
    case FieldKind::kDoubledQuotes:
      return ReadText(text, true, field);
    case FieldKind::kWholeNumber:
      return ReadNumber(text, true, size, field);
    case FieldKind::kNumber:
      return ReadNumber(text, false, size, field);
    case FieldKind::kAbsent:
      break;
  }
  return kDatRecord;
}

}  // namespace

ZeDatReading DatReadRecord(TextSource* source, std::span<const ZeDatField> fields,
                           std::span<std::uint8_t> record) {
  TextCursor text(source);
  std::fill(record.begin(), record.end(), std::uint8_t{0});
  if (FindRecord(&text) == EOF) return kDatEndOfFile;
  std::size_t offset = 0;
  for (const ZeDatField& field : fields) {
    if (SkipSeparators(&text) == EOF) return kDatBadFormat;
    const auto size = static_cast<std::size_t>(field.size);
    const bool kept = size <= record.size() && offset <= record.size() - size;
    const ZeDatReading reading =
        ReadField(&text, field.type, size, kept ? record.subspan(offset, size) : Field());
    if (reading != kDatRecord) return reading;
    offset += size;
  }
  if (SkipSeparators(&text) != '\n') return kDatBadFormat;
  text.Skip();
  return kDatRecord;
}

}  // namespace zeapi
