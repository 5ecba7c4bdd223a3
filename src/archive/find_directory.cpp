#include "archive/find_directory.h"

#include <algorithm>
#include <array>

#include "archive/archive_records.h"

namespace zeapi {
namespace {

constexpr std::int64_t kWholeEndRecord = kSignatureSize + kEndRecordSize;
constexpr std::int64_t kLongestComment = 65535;
constexpr std::int64_t kBlock = ArchiveFile::kBlock;

bool SignatureAt(ArchiveFile& file, std::int64_t position, ZipRecord record) {
  file.Seek(position);
  return ReadSignature(file, record) == kArchiveOk;
}

// A block and the first three bytes of the one behind it, in which a signature may end.
struct SearchBlock {
  std::array<std::uint8_t, ArchiveFile::kBlock + kSignatureSize - 1> bytes;
  std::int64_t start = 0;
  std::size_t size = 0;
  std::size_t carried = 0;

  bool Read(ArchiveFile& file, std::int64_t from, std::int64_t to) {
    carried = std::min(size, kSignatureSize - 1);
    const auto length = static_cast<std::size_t>(to - from);
    std::array<std::uint8_t, kSignatureSize - 1> first = {};
    std::copy_n(bytes.begin(), carried, first.begin());
    file.Seek(from);
    if (!file.Read(std::span(bytes).first(length))) return false;
    std::copy_n(first.begin(), carried, bytes.begin() + static_cast<std::ptrdiff_t>(length));
    start = from;
    size = length;
    return true;
  }

  // The last signature that begins in the block, between two positions of the file.
  std::int64_t FindLast(std::int64_t lowest, std::int64_t highest) const {
    const auto signature = ZipSignature(ZipRecord::kEnd);
    const auto most =
        static_cast<std::int64_t>(size + carried - std::min(size + carried, kSignatureSize));
    for (std::int64_t at = std::min(most, highest - start);
         at >= std::max<std::int64_t>(lowest - start, 0); --at) {
      if (std::equal(signature.begin(), signature.end(), bytes.begin() + at)) return start + at;
    }
    return -1;
  }
};

}  // namespace

std::int64_t FindEndRecord(ArchiveFile& file) {
  const std::int64_t size = file.size();
  const std::int64_t highest = size - kWholeEndRecord;
  const std::int64_t lowest = std::max<std::int64_t>(highest - kLongestComment, 0);
  if (highest < 0) return -1;
  SearchBlock block;
  // The odd piece at the end first; one too short for a record is left alone.
  std::int64_t end = size <= kBlock ? size : size - size % kBlock;
  if (size > kBlock && size - end > static_cast<std::int64_t>(kEndRecordSize)) {
    if (!block.Read(file, end, size)) return -1;
    const std::int64_t found = block.FindLast(lowest, highest);
    if (found >= 0) return found;
  }
  while (end > lowest) {
    const std::int64_t start = std::max<std::int64_t>(end - kBlock, 0);
    if (!block.Read(file, start, end)) return -1;
    const std::int64_t found = block.FindLast(lowest, highest);
    if (found >= 0) return found;
    end = start;
  }
  return -1;
}

Directory FindDirectory(ArchiveFile& file) {
  Directory directory;
  const auto fail = [&](ArchiveStatus status) {
    directory.status = Worse(directory.status, status);
    return directory;
  };
  const std::int64_t recordPosition = FindEndRecord(file);
  if (recordPosition < 0) return fail(kArchiveBad);
  std::array<std::uint8_t, kEndRecordSize> bytes;
  file.Seek(recordPosition + static_cast<std::int64_t>(kSignatureSize));
  if (!file.Read(bytes)) return fail(kArchiveUnexpectedEnd);
  const EndRecord record = ParseEndRecord(bytes);
  if (record.disk != 0 && (record.disk != 1 || record.directoryDisk != 1))
    return fail(kArchiveNothingFound);

  const std::int64_t stored = record.directoryOffset;
  std::int64_t offset = stored;
  directory.entries = record.entries;
  directory.adjustment = recordPosition - (stored + record.directorySize);
  if (directory.adjustment != 0)
    directory.status = directory.adjustment > 0 ? kArchiveWarning : kArchiveBad;
  if (stored == 0 && record.directorySize != 0) {
    offset = directory.adjustment;
    directory.adjustment = 0;
    directory.status = kArchiveBad;
  }
  if (stored + record.directorySize == 0) return fail(kArchiveWarning);  // no members
  directory.position = offset + directory.adjustment;
  if (directory.position < 0) return fail(kArchiveBadStructure);
  if (!SignatureAt(file, directory.position, ZipRecord::kCentral)) {
    directory.adjustment = 0;
    directory.position = stored;
    directory.status = Worse(directory.status, kArchiveBad);
    if (!SignatureAt(file, directory.position, ZipRecord::kCentral))
      return fail(kArchiveBadStructure);
  }
  directory.readable = true;
  return directory;
}

}  // namespace zeapi
