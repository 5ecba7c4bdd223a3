#include "support/soft_fonts.h"

#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

std::string Zeros(std::size_t count) { return std::string(count, '\0'); }

// The byte that makes the sum of all 0.
std::string Checksum(const std::string& bytes) {
  unsigned sum = 0;
  for (const char c : bytes) sum += static_cast<std::uint8_t>(c);
  return Byte(256 - sum % 256);
}

std::uint16_t DescriptorSize(std::uint8_t headerFormat) {
  switch (headerFormat) {
    case 5:
    case 9:
    case 12:
    case 15:
      return 72;
    case 10:
      return 80;
    case 11:
      return 88;
    case 20:
      return 68;
    default:
      return 64;
  }
}

std::string HeaderRest(std::uint8_t headerFormat) {
  switch (headerFormat) {
    case 10:  // scale factor, ..., no further data, reserved, checksum
      return Be16(8782) + Zeros(14) + Zeros(2);
    case 11:
      return Be16(8782) + Zeros(22) + Zeros(2);
    case 15:  // scale factor, underline, technology, variety
      return Be16(2048) + Zeros(4) + Byte(1) + Byte(0);
    case 20:
      return Be16(300) + Be16(300);
    default:
      return Zeros(DescriptorSize(headerFormat) - 64U);
  }
}

}  // namespace

SoftFont::SoftFont(std::uint8_t headerFormat) : header(HeaderRest(headerFormat)) {
  descriptor.headerFormat = headerFormat;
  descriptor.size = DescriptorSize(headerFormat);
  descriptor.strokeWeight = 0;
  Set16(6, 40);   // baseline
  Set16(10, 52);  // cell height
}

void SoftFont::Set8(std::size_t offset, unsigned value) {
  patches_.emplace_back(offset, Byte(value));
}
void SoftFont::Set16(std::size_t offset, unsigned value) {
  patches_.emplace_back(offset, Be16(value));
}

void SoftFont::AddCode(unsigned code) { characters_ += "\x1B*c" + std::to_string(code) + "E"; }

void SoftFont::AddBlock(const std::string& block) {
  characters_ += "\x1B(s" + std::to_string(block.size()) + "W" + block;
}

void SoftFont::AddBitmap(unsigned code, int advance, int top, unsigned width, unsigned height) {
  AddCode(code);
  AddBlock(Byte(4) + Byte(0) + Byte(14) + Byte(1) + Byte(0) + Byte(0) + Be16(2) +
           Be16(static_cast<std::uint16_t>(top)) + Be16(width) + Be16(height) +
           Be16(static_cast<std::uint16_t>(advance)) +
           std::string((width + 7) / 8 * height, '\x1B'));
}

void SoftFont::AddOld(unsigned code, unsigned format) {
  AddCode(code);
  AddBlock(Byte(format) + Byte(0) + Byte(8) + Byte(1) + Zeros(6) + "bits");
}

void SoftFont::AddOutline(unsigned code, int left, int right) {
  AddCode(code);
  const auto box = [](int from, int to) {
    return Be16(static_cast<std::uint16_t>(from)) + Be16(0) + Be16(static_cast<std::uint16_t>(to)) +
           Be16(6000);
  };
  // The data begins with its offsets, then its metrics: two boxes and two lines.
  const std::string data = Be16(30) + Be16(10) + Be16(30) + Be16(30) + Be16(30) +
                           box(left + 100, right - 100) + box(left, right) + Be16(0) + Be16(0);
  AddBlock(Byte(10) + Byte(0) + Byte(2) + Byte(3) + data + Byte(0) + Checksum(data));
}

void SoftFont::AddCompound(unsigned code, int escapement) {
  AddCode(code);
  const std::string data = Be16(static_cast<std::uint16_t>(escapement)) + Byte(1) + Byte(0) +
                           Be16(65) + Be16(0) + Be16(0);
  AddBlock(Byte(10) + Byte(0) + Byte(2) + Byte(4) + data + Byte(0) + Checksum(data));
}

void SoftFont::AddGlyph(unsigned code, unsigned glyph) {
  AddCode(code);
  const std::string data = Be16(4) + Be16(glyph);
  AddBlock(Byte(15) + Byte(0) + Byte(2) + Byte(15) + data + Byte(0) + Checksum(data));
}

std::string SoftFont::Header() const {
  std::string bytes = descriptor.Descriptor();
  for (const auto& [offset, part] : patches_) bytes.replace(offset, part.size(), part);
  bytes += header;
  if (descriptor.headerFormat == 15 && header.size() == 8) bytes += TrueTypeSegments(glyphAdvances);
  return bytes;
}

std::string SoftFont::File() const {
  const std::string bytes = Header();
  return "\x1B)s" + std::to_string(bytes.size()) + "W" + bytes + characters_;
}

std::string TrueTypeSegments(const std::vector<std::uint16_t>& advances) {
  std::string horizontalHeader = Zeros(34) + Be16(static_cast<std::uint32_t>(advances.size()));
  std::string metrics;
  for (const std::uint16_t advance : advances) metrics += Be16(advance) + Be16(0);
  const std::uint32_t first = 12 + 2 * 16;
  const auto entry = [](const char* tag, std::size_t offset, std::size_t length) {
    return tag + Be32(0) + Be32(static_cast<std::uint32_t>(offset)) +
           Be32(static_cast<std::uint32_t>(length));
  };
  const std::string font =
      Be32(0x00010000) + Be16(2) + Zeros(6) + entry("hhea", first, horizontalHeader.size()) +
      entry("hmtx", first + horizontalHeader.size(), metrics.size()) + horizontalHeader + metrics;
  return "PA" + Be16(10) + Zeros(10) + "GT" + Be16(static_cast<std::uint32_t>(font.size())) + font +
         Be16(0xFFFF) + Be16(0) + Zeros(2);
}

}  // namespace zeapi::testing
