#include "archive/zip_records.h"

#include "base/byte_reader.h"

namespace zeapi {
namespace {

MemberFacts ReadFacts(ByteReader& reader) {
  MemberFacts facts;
  facts.flags = reader.U16Le();
  facts.method = reader.U16Le();
  facts.time = reader.U16Le();
  facts.date = reader.U16Le();
  facts.crc = reader.U32Le();
  facts.compressedSize = reader.U32Le();
  facts.uncompressedSize = reader.U32Le();
  facts.nameLength = reader.U16Le();
  facts.extraLength = reader.U16Le();
  return facts;
}

}  // namespace

std::array<std::uint8_t, 4> ZipSignature(ZipRecord record) {
  const auto third = static_cast<std::uint8_t>(record);
  return {'P', 'K', third, static_cast<std::uint8_t>(third + 1)};
}

EndRecord ParseEndRecord(std::span<const std::uint8_t, kEndRecordSize> bytes) {
  ByteReader reader(bytes);
  EndRecord record;
  record.disk = reader.U16Le();
  record.directoryDisk = reader.U16Le();
  reader.Skip(2);  // entries on this disk
  record.entries = reader.U16Le();
  record.directorySize = reader.U32Le();
  record.directoryOffset = reader.U32Le();
  return record;
}

CentralHeader ParseCentralHeader(std::span<const std::uint8_t, kCentralHeaderSize> bytes) {
  ByteReader reader(bytes);
  CentralHeader header;
  reader.Skip(2);  // version made by and its host
  header.neededVersion = reader.U8();
  header.neededHost = reader.U8();
  header.facts = ReadFacts(reader);
  header.commentLength = reader.U16Le();
  reader.Skip(2 + 2 + 4);  // disk, internal and external attributes
  header.localOffset = reader.U32Le();
  return header;
}

MemberFacts ParseLocalHeader(std::span<const std::uint8_t, kLocalHeaderSize> bytes) {
  ByteReader reader(bytes);
  reader.Skip(2);  // version needed
  return ReadFacts(reader);
}

}  // namespace zeapi
