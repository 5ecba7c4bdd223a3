#include "config/qsf_file.h"

#include <algorithm>
#include <limits>

#include "base/big_endian.h"
#include "base/byte_reader.h"
#include "base/text.h"
#include "files/checksum.h"
#include "platform/files.h"

namespace zeapi {
namespace {

using platform::SeekOrigin;

constexpr std::uint16_t kChecksumWord = 2;
constexpr std::size_t kPrefixSize = 6;

struct Header {
  std::uint8_t magic[2];
  std::uint16_t checksum;
  std::uint8_t type;
  std::uint8_t flagA;
  std::uint8_t flagB;
  std::uint32_t offset1;
  std::uint16_t count1;
  std::uint32_t offset2;
  std::uint16_t count2;
  std::uint32_t offset5;
  std::uint16_t count5;
};

Header Parse(const QsfFile& file) {
  ByteReader reader(file.header);
  Header header;
  header.magic[0] = reader.U8();
  header.magic[1] = reader.U8();
  header.checksum = reader.U16Le();
  header.type = reader.U8();
  header.flagA = reader.U8();
  header.flagB = reader.U8();
  reader.Seek(44);
  header.offset1 = reader.U32Le();
  header.count1 = reader.U16Le();
  header.offset2 = reader.U32Le();
  header.count2 = reader.U16Le();
  header.offset5 = reader.U32Le();
  header.count5 = reader.U16Le();
  return header;
}

Result CheckHeader(const Header& header, std::uint8_t type) {
  if (header.type != type) return ZE_UNKNOWN_TYPE;
  if (header.magic[0] != 'Q' || header.magic[1] != 'S') return ZE_BAD_HEADER;
  if (header.flagA > 1 || header.flagB > 1) return ZE_BAD_HEADER;
  if (header.flagA == 1 && header.flagB == 0 && header.count1 == 0) return ZE_BAD_HEADER;
  return ZE_OK;
}

struct Block {
  std::uint16_t count;
  std::uint32_t start;
  std::uint32_t end;
};

// Blocks lie one behind the other, each up to the next one's start.
bool FindBlock(const Header& header, std::uint32_t fileSize, std::uint32_t number, Block* block) {
  switch (number) {
    case 1:
      *block = {header.count1, header.offset1, header.offset2 == 0 ? fileSize : header.offset2};
      return true;
    case 2: {
      const bool last = header.flagA == 1 && header.flagB == 0;
      *block = {header.count2, header.offset2, last ? fileSize : header.offset5};
      return true;
    }
    case 5:
      *block = {header.count5, header.offset5, fileSize};
      return true;
    default:
      return false;
  }
}

// Length of the block, low byte first, and its count, high byte first.
void StorePrefix(std::uint32_t length, std::uint16_t count, std::uint8_t* place) {
  for (int shift = 0; shift < 32; shift += 8) *place++ = static_cast<std::uint8_t>(length >> shift);
  const auto high = BigEndianBytes(count);
  std::copy(high.begin(), high.end(), place);
}

}  // namespace

QsfFile::~QsfFile() {
  if (access.handle != static_cast<std::uint32_t>(platform::kNoFileHandle)) FilClose(&access);
}

Result QsfOpen(const char* path, std::uint8_t type, std::unique_ptr<QsfFile>* file) {
  if (path == nullptr || NameTooLong(path)) return ZE_OPEN_FAILED;
  if (platform::QueryPath(path) != platform::PathKind::kRegularFile) return ZE_OPEN_FAILED;
  auto opened = std::make_unique<QsfFile>();
  FilAccess* access = &opened->access;
  access->mode = kFilRead;
  FilOpen(path, access);
  if (access->error != kFilGood) return access->error;
  if (FilRead(access, opened->header.data(), kQsfHeaderSize) != kQsfHeaderSize) {
    return ZE_OPEN_FAILED;
  }
  const Header header = Parse(*opened);
  const Result checked = CheckHeader(header, type);
  if (checked != ZE_OK) return checked;
  std::uint16_t checksum = 0;
  const Result summed = FilChecksum(nullptr, static_cast<platform::FileHandle>(access->handle),
                                    kChecksumWord, &checksum);
  if (summed != ZE_OK) return summed;
  if (checksum != header.checksum) return ZE_BAD_CHECKSUM;
  const std::int64_t size = FilSeek(access, 0, SeekOrigin::kEnd);
  if (size < 0 || size > std::numeric_limits<std::uint32_t>::max()) return ZE_OPEN_FAILED;
  opened->size = static_cast<std::uint32_t>(size);
  *file = std::move(opened);
  return ZE_OK;
}

Result QsfGetVariables(QsfFile* file, std::uint32_t block, CHeapPtr<std::uint8_t[]>* bytes,
                       std::uint16_t* count) {
  const Header header = Parse(*file);
  Block found;
  if (!FindBlock(header, file->size, block, &found)) return ZE_INVALID_ARGUMENT;
  if (found.count == 0) return ZE_OK;
  if (found.end < found.start || found.end > file->size) return ZE_BAD_FORMAT;
  file->access.error = kFilGood;  // what an earlier call met is over
  FilSeek(&file->access, found.start, SeekOrigin::kStart);
  if (file->access.error != kFilGood) return file->access.error;

  const std::uint32_t length = found.end - found.start;
  const std::size_t prefix = header.flagA == 1 && header.flagB == 1 ? kPrefixSize : 0;
  // More than one read can give; a process of 32 bits has no room for it either.
  if (length > std::numeric_limits<std::int32_t>::max()) return ZE_OUT_OF_MEMORY;
  CHeapPtr<std::uint8_t[]> room = CHeapBytes<std::uint8_t>(prefix + length);
  if (room == nullptr) return ZE_OUT_OF_MEMORY;
  if (prefix != 0) StorePrefix(length, found.count, room.get());
  const std::uint32_t read = FilRead(&file->access, room.get() + prefix, length);
  if (read < length && file->access.error == kFilEndOfFile) return ZE_BAD_FORMAT;
  if (file->access.error != kFilGood) return file->access.error;
  *bytes = std::move(room);
  *count = found.count;
  return ZE_OK;
}

}  // namespace zeapi
