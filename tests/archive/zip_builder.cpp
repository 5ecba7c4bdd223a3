#include "archive/zip_builder.h"

#include <initializer_list>
#include <string_view>

#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

std::string Sizes(const ZipMember& member) {
  const std::string& packed = member.packed ? *member.packed : member.plain;
  return Le32(member.crc.value_or(CrcOf(member.plain))) +
         Le32(member.compressedSize.value_or(static_cast<std::uint32_t>(packed.size()))) +
         Le32(member.uncompressedSize.value_or(static_cast<std::uint32_t>(member.plain.size())));
}

std::string Local(const ZipMember& member) {
  const std::string name = member.localName.value_or(member.name);
  const bool descriptor = (member.flags & 8) != 0;
  std::string bytes = member.breakLocalSignature ? "PK\3\5" : "PK\3\4";
  bytes += static_cast<char>(member.neededVersion);
  bytes += static_cast<char>(member.neededHost);
  bytes += Le16(member.flags) + Le16(member.localMethod.value_or(member.method)) +
           Le16(member.time) + Le16(member.date);
  bytes += descriptor ? std::string(12, '\0') : Sizes(member);
  bytes += Le16(static_cast<std::uint32_t>(name.size())) +
           Le16(static_cast<std::uint32_t>(member.localExtra.size()));
  bytes += name + member.localExtra + (member.packed ? *member.packed : member.plain);
  if (descriptor) bytes += "PK\7\10" + Sizes(member);
  return bytes;
}

std::string Central(const ZipMember& member, std::uint32_t offset) {
  std::string sizes = Sizes(member);
  if (member.centralCompressedSize) sizes.replace(4, 4, Le32(*member.centralCompressedSize));
  std::string bytes = "PK\1\2" + Le16(20);
  bytes += static_cast<char>(member.neededVersion);
  bytes += static_cast<char>(member.neededHost);
  bytes += Le16(member.flags) + Le16(member.method) + Le16(member.time) + Le16(member.date) + sizes;
  for (const std::string* text : {&member.name, &member.centralExtra, &member.comment})
    bytes += Le16(static_cast<std::uint32_t>(text->size()));
  bytes += Le16(0) + Le16(0) + Le32(0) + Le32(member.localOffset.value_or(offset));
  return bytes + member.name + member.centralExtra + member.comment;
}

}  // namespace

// One bit at a time, from the definition.
std::uint32_t CrcOf(std::string_view plain) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : plain) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

std::string ZipArchive::Bytes() const {
  const auto stated = [&](std::size_t offset) {
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(offset) + offsetError);
  };
  std::string data;
  std::string directory;
  for (const ZipMember& member : members) {
    directory += Central(member, stated(data.size()));
    data += Local(member);
  }
  const auto count = entries.value_or(static_cast<std::uint16_t>(members.size()));
  std::string end = "PK\5\6" + Le16(disk) + Le16(directoryDisk) + Le16(count) + Le16(count);
  end += Le32(directorySize.value_or(static_cast<std::uint32_t>(directory.size())));
  end += Le32(directoryOffset.value_or(stated(data.size())));
  end += Le16(static_cast<std::uint32_t>(comment.size())) + comment;
  return stub + data + directory + gap + end + tail;
}

}  // namespace zeapi::testing
