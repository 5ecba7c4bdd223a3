// Records of a keyed data file: one a line, fields in the order of a table.
//
// Before each field any mix of "," ";" ":" blanks and unprintable characters is passed over, but no line
// feed. Lines without anything else and lines whose first other character is "#" are no records. A text
// stands in double quotes and may hold line feeds; a number ends at "," ";" ":" or the line feed and
// has at most 24 characters. Behind the last field only separators may stand before the line feed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

namespace zeapi {

// Types of fields. Other values make a field that is not in the file and holds zeros.
enum ZeDatFieldType : std::int32_t {
  kDatText = 0,     // ends at the next quote
  kDatInteger = 1,  // in 2 or 4 bytes; also 2 and 8
  kDatFloat = 3,    // in 4 or 8 bytes; also 4
  kDatDouble = 4,
  kDatQuotedText = 5,  // a doubled quote stands for one; also 7
};

struct ZeDatField {
  const char* name;
  std::int32_t type;
  std::int32_t size;    // bytes in the record; fields lie there one behind the other
  const char* picture;  // how a program would show it; not used for reading
};

// What reading a record comes to; the values are those of the exported calls.
enum ZeDatReading : std::int16_t {
  kDatRecord = 0,
  kDatBadFormat = -2,
  kDatEndOfFile = -10,
};

// Characters of a text stream, one of which can be looked at ahead.
class TextCursor {
 public:
  explicit TextCursor(std::FILE* stream) : stream_(stream) {}

  // The next character, or EOF.
  int Peek() {
    if (next_ == end_ && !Refill()) return EOF;
    return static_cast<unsigned char>(*next_);
  }
  // Passes over the character that Peek() showed.
  void Skip() { ++next_; }

  // What has been read ahead from the next character on; empty only at the end of the file.
  std::string_view Ahead() {
    if (next_ == end_) Refill();
    return {next_, static_cast<std::size_t>(end_ - next_)};
  }
  // Passes over characters that Ahead() showed.
  void SkipAhead(std::size_t count) { next_ += count; }

  // Passes over everything before the next `stop`, which Peek() then shows (or EOF). The first `size`
  // of these characters go to `room`; returns how many.
  std::size_t TakeUpTo(char stop, char* room, std::size_t size);

  // Back to the start of the file.
  void Rewind();

 private:
  bool Refill();

  std::FILE* stream_;
  std::array<char, 16384> room_;
  const char* next_ = room_.data();
  const char* end_ = room_.data();
};

// Reads the next record into `record`, which the fields fill; what a text leaves of its field is zero.
ZeDatReading DatReadRecord(TextCursor* text, std::span<const ZeDatField> fields,
                           std::span<std::uint8_t> record);

}  // namespace zeapi
