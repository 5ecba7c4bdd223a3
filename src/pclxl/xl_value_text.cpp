#include "pclxl/xl_value_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <span>

#include "base/byte_reader.h"
#include "pclxl/xl_names.h"
#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

enum class Kind : std::uint8_t { kUnsigned, kSigned, kReal };

// How elements are shown, by the low three bits of the type tag.
struct ElementType {
  const char* name;
  const char* arrayOpening;
  Kind kind;
  int columns;         // of an element in an array
  std::size_t inRow;   // elements in a row of an array
  std::size_t indent;  // of a row of an array
};

constexpr ElementType kElementTypes[] = {
    {"Ubyte", "Ubyte_Array (", Kind::kUnsigned, 4, 8, 18},
    {"UInt16", "UInt16_Array(", Kind::kUnsigned, 6, 8, 19},
    {"UInt32", "UInt32_Array(", Kind::kUnsigned, 10, 4, 19},
    {"SInt16", "SInt16_Array(", Kind::kSigned, 6, 8, 19},
    {"SInt32", "SInt32_Array(", Kind::kSigned, 10, 4, 19},
    {"Real32", "Real32_Array(", Kind::kReal, 10, 4, 19},
};

constexpr std::uint8_t kTextIds[] = {0x81, 0x8A, 0x8B, 0xA8, 0xAB};

// The next element, right-aligned in `columns`.
std::string ElementText(const ElementType& type, unsigned width, ByteReader* bytes, int columns) {
  const std::uint32_t raw = width == 1 ? bytes->U8() : width == 2 ? bytes->U16Le() : bytes->U32Le();
  std::array<char, 64> text = {};
  if (type.kind == Kind::kReal) {
    std::snprintf(text.data(), text.size(), "%*f", columns, double{std::bit_cast<float>(raw)});
  } else if (type.kind == Kind::kSigned) {
    const auto value = width == 2 ? static_cast<std::int16_t>(raw) : static_cast<std::int32_t>(raw);
    std::snprintf(text.data(), text.size(), "%*d", columns, value);
  } else {
    std::snprintf(text.data(), text.size(), "%*u", columns, raw);
  }
  return text.data();
}

std::string ArrayOpening(const char* opening, const XlAttribute& attribute) {
  std::array<char, 16> type = {};
  std::snprintf(type.data(), type.size(), "0x%02x, \"", attribute.type);
  return opening + std::string(type.data()) + attribute.lengthType + "\",";
}

std::string EscapedByte(std::uint8_t byte) {
  if (byte == '\n') return "\\n";
  if (byte == '\r') return "\\r";
  if (byte == '\'' || byte == '\\') return {'\\', static_cast<char>(byte)};
  if (byte >= 32 && byte != 127) return {static_cast<char>(byte)};
  std::array<char, 8> octal = {};
  std::snprintf(octal.data(), octal.size(), "\\%03o", byte);
  return octal.data();
}

std::string AsciiArrayText(const XlAttribute& attribute) {
  std::string text = ArrayOpening("ASCII_Array (", attribute) + " '";
  const std::span bytes(attribute.elements.get(), attribute.elementCount);
  for (const std::uint8_t byte : bytes) text += EscapedByte(byte);
  return text + "')";
}

std::string ArrayText(const ElementType& type, const XlAttribute& attribute) {
  std::string text = ArrayOpening(type.arrayOpening, attribute);
  const unsigned width = XlElementWidth(static_cast<std::uint8_t>(attribute.type));
  const std::size_t count = attribute.elementCount;
  ByteReader bytes({attribute.elements.get(), count * width});
  for (std::size_t i = 0; i < count; ++i) {
    const bool last = i + 1 == count;
    // The last element never opens a row.
    if (i % type.inRow == 0 && !last) text += '\n' + std::string(type.indent, ' ');
    text += ElementText(type, width, &bytes, type.columns);
    text += last ? ')' : ',';
  }
  return text;
}

std::string SingleText(const ElementType& type, const XlAttribute& attribute) {
  const auto tag = static_cast<std::uint8_t>(attribute.type);
  ByteReader bytes(attribute.value);
  std::string text = type.name;
  for (unsigned i = 0; i < XlElementCount(tag); ++i) {
    text += i == 0 ? '(' : ',';
    text += ElementText(type, XlElementWidth(tag), &bytes, 0);
  }
  return text + ')';
}

bool IsText(const XlAttribute& attribute) {
  return attribute.type == kXlUbyteArray &&
         std::find(std::begin(kTextIds), std::end(kTextIds), attribute.id) != std::end(kTextIds);
}

}  // namespace

std::string XlValueText(const XlAttribute& attribute) {
  const auto tag = static_cast<std::uint8_t>(attribute.type);
  const bool isArray = XlClassOf(tag) == XlClass::kArray;
  if (!isArray) {
    const char* name = XlEnumerationName(attribute.id, attribute.value[0]);
    if (name != nullptr) return "Ubyte(\"" + std::string(name) + "\")";
  }
  if (tag >= 0xD8 && tag <= 0xDD) return "xy arrays--not documented, but seem to exist\n";
  if (!isArray && XlClassOf(tag) != XlClass::kValue) return "Invalid type ";
  if (IsText(attribute)) return AsciiArrayText(attribute);
  const ElementType& type = kElementTypes[tag & 7U];
  return isArray ? ArrayText(type, attribute) : SingleText(type, attribute);
}

}  // namespace zeapi
