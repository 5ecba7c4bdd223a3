#include "fonts/pcl_descriptor.h"

#include <algorithm>

#include "base/byte_reader.h"

namespace zeapi {

PclDescriptor ParsePclDescriptor(const PclRawDescriptor& raw) {
  PclDescriptor descriptor;
  ByteReader reader(raw);
  descriptor.size = reader.U16Be();
  descriptor.headerFormat = reader.U8();
  descriptor.fontType = reader.U8();
  const std::uint8_t styleHigh = reader.U8();
  reader.Seek(6);
  descriptor.baseline = reader.U16Be();
  reader.Seek(10);
  descriptor.cellHeight = reader.U16Be();
  descriptor.orientation = reader.U8();
  descriptor.spacing = reader.U8();
  descriptor.symbolSet = reader.U16Be();
  descriptor.pitch = reader.U16Be();
  descriptor.height = reader.U16Be();
  descriptor.xHeight = reader.U16Be();
  reader.Seek(23);
  descriptor.style = static_cast<std::uint16_t>(styleHigh << 8 | reader.U8());
  descriptor.strokeWeight = reader.S8();
  descriptor.typeface = reader.U16Le();
  reader.Seek(30);
  descriptor.underlinePosition = reader.S8();
  descriptor.underlineThickness = reader.U8();
  reader.Seek(40);
  descriptor.pitchExtended = reader.U8();
  descriptor.heightExtended = reader.U8();
  descriptor.capHeight = reader.U16Be();
  descriptor.vendorLetter = reader.U8() & 0x7F;
  descriptor.fontNumber = reader.U24Be();
  const auto name = reader.Bytes(16);
  std::copy(name.begin(), name.end(), descriptor.name);
  return descriptor;
}

}  // namespace zeapi
