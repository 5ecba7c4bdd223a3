// What each byte of a PCL XL stream stands for, and where each operator may stand. The table of
// operators is data: names are those that the listing prints.
#pragma once

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
  kXlAttributeId = 0xF8,
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

XlClass XlClassOf(std::uint8_t byte);

// The operator's name; null for any other byte.
const char* XlOperatorName(std::uint8_t code);

// Whether an operator or embedded data may stand in the session outside a page, or in a page.
bool XlAllowedInSession(std::uint8_t tag);
bool XlAllowedInPage(std::uint8_t tag);

// Shapes of a value: how many elements it has, and how many bytes one of them. Of data type tags.
unsigned XlElementCount(std::uint8_t type);  // 1, 2 (xy), 4 (box)
unsigned XlElementWidth(std::uint8_t type);

}  // namespace zeapi
