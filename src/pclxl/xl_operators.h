// What each byte of a PCL XL stream stands for, and where each operator may stand. The table of
// operators is data: names are those that the listing prints.
#pragma once

#include <array>
#include <cstdint>

namespace zeapi {

enum XlTag : std::uint8_t {
  kXlBeginSession = 0x41,
  kXlEndSession = 0x42,
  kXlBeginPage = 0x43,
  kXlEndPage = 0x44,
  kXlBeginStream = 0x5B,
  kXlExecStream = 0x5E,
  kXlUbyte = 0xC0,
  kXlUint16 = 0xC1,
  kXlUbyteArray = 0xC8,
  kXlEmbeddedData = 0xFA,      // four-byte length
  kXlEmbeddedDataByte = 0xFB,  // one-byte length
};

enum class XlClass : std::uint8_t {
  kIllegal,
  kWhiteSpace,
  kRejected,  // known, but not read: header characters, xy and box arrays, two-byte identifiers
  kOperator,
  kValue,
  kArray,
  kAttributeId,
  kEmbeddedData,
};

// The reader asks for every byte of a page: one look tells all.
struct XlByteFacts {
  XlClass kind = XlClass::kIllegal;
  std::uint8_t size = 1;   // of the token: 1, of values and identifiers what follows too
  bool inSession = false;  // of an operator or embedded data: may stand outside a page
  bool inPage = false;     // and in a page
};

extern const std::array<XlByteFacts, 256> kXlBytes;

inline XlClass XlClassOf(std::uint8_t byte) { return kXlBytes[byte].kind; }

// Whether an operator or embedded data may stand in the session outside a page, or in a page.
inline bool XlAllowedInSession(std::uint8_t tag) { return kXlBytes[tag].inSession; }
inline bool XlAllowedInPage(std::uint8_t tag) { return kXlBytes[tag].inPage; }

// The operator's name; null for any other byte.
const char* XlOperatorName(std::uint8_t code);

// Shapes of a value: how many elements it has (1, an xy pair 2, a box 4), and how many bytes one of
// them. Of data type tags.
constexpr unsigned XlElementCount(std::uint8_t type) {
  const unsigned shape = type >> 4U;
  return shape == 0xD ? 2 : shape == 0xE ? 4 : 1;
}

// ubyte, uint16, uint32, sint16, sint32, real32
constexpr unsigned XlElementWidth(std::uint8_t type) {
  constexpr std::array<unsigned, 8> kWidths = {1, 2, 4, 2, 4, 4, 0, 0};
  return kWidths[type & 7U];
}

}  // namespace zeapi
