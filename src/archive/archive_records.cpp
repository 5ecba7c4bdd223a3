#include "archive/archive_records.h"

namespace zeapi {
namespace {

template <std::size_t size>
ArchiveStatus ReadRecord(ArchiveFile& file, ZipRecord record,
                         std::array<std::uint8_t, size>* bytes) {
  const ArchiveStatus status = ReadSignature(file, record);
  if (status != kArchiveOk) return status;
  return file.Read(*bytes) ? kArchiveOk : kArchiveUnexpectedEnd;
}

// The name and `behind` bytes more.
ArchiveStatus ReadName(ArchiveFile& file, std::uint16_t length, std::int64_t behind,
                       std::string* name) {
  name->resize(length);
  const std::span<char> text(*name);
  if (!file.Read({reinterpret_cast<std::uint8_t*>(text.data()), text.size()}))
    return kArchiveUnexpectedEnd;
  file.Seek(file.position() + behind);
  return kArchiveOk;
}

}  // namespace

ArchiveStatus ReadSignature(ArchiveFile& file, ZipRecord record) {
  std::array<std::uint8_t, kSignatureSize> bytes;
  if (!file.Read(bytes)) return kArchiveUnexpectedEnd;
  return bytes == ZipSignature(record) ? kArchiveOk : kArchiveBad;
}

ArchiveStatus ReadCentralEntry(ArchiveFile& file, CentralHeader* header, std::string* name) {
  std::array<std::uint8_t, kCentralHeaderSize> bytes;
  const ArchiveStatus status = ReadRecord(file, ZipRecord::kCentral, &bytes);
  if (status != kArchiveOk) return status;
  *header = ParseCentralHeader(bytes);
  const MemberFacts& facts = header->facts;
  return ReadName(file, facts.nameLength, facts.extraLength + header->commentLength, name);
}

ArchiveStatus ReadLocalEntry(ArchiveFile& file, MemberFacts* facts, std::string* name) {
  std::array<std::uint8_t, kLocalHeaderSize> bytes;
  const ArchiveStatus status = ReadRecord(file, ZipRecord::kLocal, &bytes);
  if (status != kArchiveOk) return status;
  *facts = ParseLocalHeader(bytes);
  const ArchiveStatus named = ReadName(file, facts->nameLength, facts->extraLength, name);
  if (named != kArchiveOk) return named;
  return file.position() <= file.size() ? kArchiveOk : kArchiveUnexpectedEnd;
}

}  // namespace zeapi
