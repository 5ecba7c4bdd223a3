#include "data/record_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>

namespace zeapi {
namespace {

constexpr std::size_t kLongestNumber = 24;

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
  for (const std::size_t c : {',', ';', ':'}) {
    classes.separates[c] = true;
    classes.endsNumber[c] = true;
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

// Returns the character behind the separators.
int SkipSeparators(TextCursor* text) {
  for (;;) {
    const std::string_view ahead = text->Ahead();
    if (ahead.empty()) return EOF;
    const std::size_t count = CountWhile(ahead, kClasses.separates, true);
    text->SkipAhead(count);
    if (count < ahead.size()) return static_cast<unsigned char>(ahead[count]);
  }
}

// Returns the first character of the next record, or EOF.
int FindRecord(TextCursor* text) {
  for (;;) {
    int c = SkipSeparators(text);
    if (c == '#') {
      text->TakeUpTo('\n', nullptr, 0);
      c = text->Peek();
    }
    if (c != '\n') return c;
    text->Skip();
  }
}

using Field = std::span<std::uint8_t>;

// Texts go to a field that has been filled with zeros; its last byte stays the terminator.
ZeDatReading ReadText(TextCursor* text, bool doubledQuotes, Field field) {
  if (text->Peek() != '"') return kDatBadFormat;
  text->Skip();
  char* place = reinterpret_cast<char*>(field.data());
  std::size_t room = field.size() - 1;
  for (;;) {
    const std::size_t taken = text->TakeUpTo('"', place, room);
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

// A number of at most 15 digits without an exponent: both parts of the quotient are exact, so it is
// the nearest there is. Most numbers are such, and this takes a fraction of the time.
bool ConvertShort(std::string_view token, double* number) {
  constexpr std::size_t kExactDigits = 15;
  constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = token.starts_with('-');
  if (negative) token.remove_prefix(1);
  std::int64_t digits = 0;
  std::size_t fraction = 0;
  bool point = false;
  if (token.size() > kExactDigits) return false;
  for (const char c : token) {
    if (c >= '0' && c <= '9') {
      digits = digits * 10 + (c - '0');
      if (point) ++fraction;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  if (token.size() == (point ? 1U : 0U)) return false;
  const double value = static_cast<double>(digits) / kPowers[fraction];
  *number = negative ? -value : value;
  return true;
}

// The whole of a number, independent of any locale: digits with a point or an exponent, no names.
template <typename Number>
bool Convert(std::string_view token, Number* number) {
  const bool plus = token.starts_with('+');
  if (plus) token.remove_prefix(1);
  const std::size_t sign = !plus && token.starts_with('-') ? 1 : 0;
  const char first = token.size() > sign ? token[sign] : '\0';
  if (first != '.' && (first < '0' || first > '9')) return false;
  const char* end = token.data() + token.size();
  const std::from_chars_result result = std::from_chars(token.data(), end, *number);
  return result.ec == std::errc() && result.ptr == end;
}

bool Convert(std::string_view token, double* number) {
  return ConvertShort(token, number) || Convert<double>(token, number);
}

template <typename Number>
ZeDatReading StoreNumber(std::string_view token, Field field) {
  Number number;
  if (field.size() != sizeof(number) || !Convert(token, &number)) return kDatBadFormat;
  std::memcpy(field.data(), &number, sizeof(number));
  return kDatRecord;
}

ZeDatReading StoreToken(std::string_view number, bool whole, Field field) {
  if (!whole && field.size() == sizeof(float)) return StoreNumber<float>(number, field);
  if (!whole) return StoreNumber<double>(number, field);
  if (field.size() == sizeof(std::int16_t)) return StoreNumber<std::int16_t>(number, field);
  return StoreNumber<std::int32_t>(number, field);
}

ZeDatReading ReadNumber(TextCursor* text, bool whole, Field field) {
  char token[kLongestNumber];
  std::size_t length = 0;
  for (;;) {
    const std::string_view ahead = text->Ahead();
    const std::size_t count = CountWhile(ahead, kClasses.endsNumber, false);
    if (count > kLongestNumber - length) return kDatBadFormat;
    text->SkipAhead(count);
    const bool ended = count < ahead.size() || ahead.empty();
    // Nearly every token lies in one piece of what was read.
    if (ended && length == 0) return StoreToken(ahead.substr(0, count), whole, field);
    std::copy_n(ahead.data(), count, token + length);
    length += count;
    if (ended) return StoreToken({token, length}, whole, field);
  }
}

ZeDatReading ReadField(TextCursor* text, std::int32_t type, Field field) {
  switch (type) {
    case kDatText:
      return ReadText(text, false, field);
    case kDatQuotedText:
      // A field of 4 bytes has no use for quotes: it is a number.
      if (field.size() == sizeof(std::int32_t)) return ReadNumber(text, true, field);
      return ReadText(text, true, field);
    case 7:
      return ReadText(text, true, field);
    case kDatInteger:
    case 2:
    case 8:
      return ReadNumber(text, true, field);
    case kDatFloat:
    case kDatDouble:
      return ReadNumber(text, false, field);
    default:
      return kDatRecord;
  }
}

}  // namespace

bool TextCursor::Refill() {
  const std::size_t count = std::fread(room_.data(), 1, room_.size(), stream_);
  next_ = room_.data();
  end_ = next_ + count;
  return count > 0;
}

std::size_t TextCursor::TakeUpTo(char stop, char* room, std::size_t size) {
  std::size_t taken = 0;
  while (Peek() != EOF) {
    const void* found = std::memchr(next_, stop, static_cast<std::size_t>(end_ - next_));
    const char* until = found == nullptr ? end_ : static_cast<const char*>(found);
    const std::size_t part = std::min(static_cast<std::size_t>(until - next_), size - taken);
    if (part > 0) std::memcpy(room + taken, next_, part);
    taken += part;
    next_ = until;
    if (found != nullptr) break;
  }
  return taken;
}

void TextCursor::Rewind() {
  std::rewind(stream_);
  next_ = end_ = room_.data();
}

ZeDatReading DatReadRecord(TextCursor* text, std::span<const ZeDatField> fields,
                           std::span<std::uint8_t> record) {
  std::fill(record.begin(), record.end(), std::uint8_t{0});
  if (FindRecord(text) == EOF) return kDatEndOfFile;
  std::size_t offset = 0;
  for (const ZeDatField& field : fields) {
    if (SkipSeparators(text) == EOF) return kDatBadFormat;
    const auto size = static_cast<std::size_t>(field.size);
    const ZeDatReading reading = ReadField(text, field.type, record.subspan(offset, size));
    if (reading != kDatRecord) return reading;
    offset += size;
  }
  if (SkipSeparators(text) != '\n') return kDatBadFormat;
  text->Skip();
  return kDatRecord;
}

}  // namespace zeapi
