// Records of a keyed data file: one a line, fields in the order of a table.
//
// Before each field any mix of "," ";" ":" blanks and characters that are not printable ASCII is
// passed over, but no line feed. Lines without anything else and lines whose first other character
// is "#" are no records. A text stands in double quotes and may hold line feeds; a number ends at ","
// ";" ":" or the line feed and has at most 24 characters. Behind the last field only separators may
// stand before the line feed.
#pragma once

#include <cstdint>
#include <span>

#include "base/text_cursor.h"

namespace zeapi {

// Type codes of fields. All of them:
//   0        text that ends at the next quote
//   5, 7     text in which a doubled quote stands for one; 5 with 4 bytes is a whole number
//   1, 2, 8  whole number in 2 or 4 bytes
//   3, 4     number in single or double precision
//   others   not in the file: the field holds zeros
inline constexpr std::int32_t kDatText = 0;
inline constexpr std::int32_t kDatNumber = 4;

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

// Reads the next record. The fields that lie in `record` are stored there; what a text leaves of its
// field is zero. Those behind its end are checked the same and not kept.
ZeDatReading DatReadRecord(TextSource* source, std::span<const ZeDatField> fields,
                           std::span<std::uint8_t> record);

}  // namespace zeapi
