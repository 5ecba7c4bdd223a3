#include "fonts/tagged_file.h"

#include "fonts/field_text.h"

namespace zeapi {
namespace {

constexpr std::uint16_t kLittleEndian = 0x4949;  // "II"
constexpr std::uint16_t kBigEndian = 0x4D4D;     // "MM"
constexpr std::size_t kDirectoryField = 4;
constexpr std::size_t kInlineSize = 4;

enum Type : std::uint16_t {
  kByte = 1,
  kAscii = 2,
  kWord = 3,
  kLong = 4,
  kRational = 5,
  kSignedByte = 16,
  kSignedWord = 17,
  kSignedLong = 18
};

// 0 for a type that is not known.
std::uint32_t SizeOf(std::uint16_t type) {
  switch (type) {
    case kByte:
    case kAscii:
    case kSignedByte:
      return 1;
    case kWord:
    case kSignedWord:
      return 2;
    case kLong:
    case kSignedLong:
      return 4;
    case kRational:
      return 8;
    default:
      return 0;
  }
}

}  // namespace

std::uint16_t TaggedFile::U16(ByteReader* reader) const {
  return bigEndian_ ? reader->U16Be() : reader->U16Le();
}

std::uint32_t TaggedFile::U32(ByteReader* reader) const {
  return bigEndian_ ? reader->U32Be() : reader->U32Le();
}

bool TaggedFile::ReadDirectory() {
  ByteReader reader(file_);
  const std::uint16_t order = reader.U16Le();
  if (order != kLittleEndian && order != kBigEndian) return false;
  bigEndian_ = order == kBigEndian;
  reader.Seek(kDirectoryField);
  reader.Seek(U32(&reader));
  const std::uint16_t count = U16(&reader);
  for (unsigned i = 0; i < count; ++i) {
    const std::uint16_t tag = U16(&reader);
    const std::uint16_t type = U16(&reader);
    const std::uint64_t size = std::uint64_t{U32(&reader)} * SizeOf(type);
    ByteReader value = reader.Sub(kInlineSize);
    if (!reader.ok()) return false;
    if (size > kInlineSize) {
      const std::uint32_t offset = U32(&value);
      value = ByteReader(file_);
      value.Seek(offset);
      if (!value.ok() || size > value.remaining()) return false;
    }
    entries_.try_emplace(tag, Entry{type, value.Bytes(static_cast<std::size_t>(size))});
  }
  return reader.ok();
}

const TaggedFile::Entry* TaggedFile::Find(unsigned tag) const {
  const auto found = entries_.find(static_cast<std::uint16_t>(tag));
  return found != entries_.end() ? &found->second : nullptr;
}

std::int64_t TaggedFile::Number(unsigned tag) const {
  const Entry* entry = Find(tag);
  if (entry == nullptr) return 0;
  ByteReader reader(entry->bytes);
  switch (entry->type) {
    case kByte:
      return reader.U8();
    case kSignedByte:
      return reader.S8();
    case kWord:
      return U16(&reader);
    case kSignedWord:
      return static_cast<std::int16_t>(U16(&reader));
    case kLong:
      return U32(&reader);
    case kSignedLong:
      return static_cast<std::int32_t>(U32(&reader));
    case kRational: {
      const std::uint32_t numerator = U32(&reader);
      const std::uint32_t denominator = U32(&reader);
      return denominator != 0 ? numerator / denominator : 0;
    }
    default:
      return 0;
  }
}

std::string TaggedFile::Text(unsigned tag) const {
  const Entry* entry = Find(tag);
  return entry != nullptr && entry->type == kAscii ? std::string(TextIn(entry->bytes)) : "";
}

std::vector<std::uint16_t> TaggedFile::Words(unsigned tag) const {
  std::vector<std::uint16_t> words;
  const Entry* entry = Find(tag);
  if (entry == nullptr || SizeOf(entry->type) != 2) return words;
  ByteReader reader(entry->bytes);
  while (reader.remaining() >= 2) words.push_back(U16(&reader));
  return words;
}

std::span<const std::uint8_t> TaggedFile::Bytes(unsigned tag) const {
  const Entry* entry = Find(tag);
  return entry != nullptr ? entry->bytes : std::span<const std::uint8_t>();
}

}  // namespace zeapi
