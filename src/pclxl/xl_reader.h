// The PCL XL reader: walks a stream token by token and hands over each operator with the attributes
// before it. It reads the binary encoding with the low byte first, protocol class 1, revision 1.
//
// A value becomes an attribute when an identifier follows it; a value without one is dropped. The
// elements of arrays are the only memory that is taken; at most 102 arrays of 65535 elements are
// held at a time: 100 of attributes, one without an identifier, one that is read.
#pragma once

#include <array>
#include <cstdint>

#include "base/c_heap.h"
#include "pclxl/xl_input.h"
#include "pclxl/xl_result.h"

namespace zeapi {

class XlListingSink;
class XlPageBody;

inline constexpr std::int32_t kXlMostAttributes = 100;

struct XlAttribute {
  std::uint32_t type = 0xC0;             // data type tag that introduced the value
  std::array<std::uint8_t, 16> value{};  // of a single value, xy pair or box: its elements
  CHeapPtr<std::uint8_t[]> elements;     // of an array: as in the stream, low byte first
  std::uint32_t elementCount = 0;        // of an array
  std::uint32_t id = 0;                  // identifier
  const char* lengthType = nullptr;      // of an array: how its count was written

  // Becomes a ubyte of 0 without an identifier.
  void Clear() {
    type = 0xC0;
    value = {};
    elements.reset();
    elementCount = 0;
    id = 0;
  }
};

struct XlReaderState {
  explicit XlReaderState(XlInput* source) : input(source) {}

  XlInput* input;
  XlListingSink* listing = nullptr;  // null: quiet
  XlPageBody* pageBody = nullptr;    // takes the page's content; null: nobody does

  // One more than can be taken, for a value that is not an attribute yet.
  std::array<XlAttribute, kXlMostAttributes + 1> attributes;
  std::int32_t attributeCount = 0;
  std::uint8_t currentTag = 0;      // the operator or embedded data met last
  std::uint32_t operatorCount = 0;  // how many of them were met
  bool recovering = false;          // a report skips to the end: keep nothing
  bool pageSeen = false;
};

// Checks the header line; lists it. Returns 0, 1, 46, 47, 48 or 49. The byte that failed counts as
// read.
XlResult XlReadStreamHeader(XlReaderState* state);

// Reads to the next operator or embedded data, whose tag is then the current one. Returns 0, 1 (the
// end; an escape byte is left unread), 3, 4 or 54.
XlResult XlReadToOperator(XlReaderState* state);

// Frees the attributes, last first.
void XlReleaseAttributes(XlReaderState* state);

}  // namespace zeapi
