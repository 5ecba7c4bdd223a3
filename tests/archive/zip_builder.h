// Composes ZIP archives, sound ones and others.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zeapi::testing {

struct ZipMember {
  std::string name;
  std::string plain;
  std::uint16_t method = 0;
  std::optional<std::string> packed = {};  // without it `plain` as it is
  std::uint16_t flags = 0;                 // 8: the sizes stand behind the data
  std::uint16_t time = 0x6A3D;             // 13:17:58
  std::uint16_t date = 0x2A5B;             // 27 February 2001
  std::uint8_t neededVersion = 20;
  std::uint8_t neededHost = 0;
  std::string localExtra = {};
  std::string centralExtra = {};
  std::string comment = {};

  // What the headers state instead of the truth.
  std::optional<std::string> localName = {};
  std::optional<std::uint16_t> localMethod = {};
  std::optional<std::uint32_t> crc = {};
  std::optional<std::uint32_t> compressedSize = {};
  std::optional<std::uint32_t> uncompressedSize = {};
  std::optional<std::uint32_t> centralCompressedSize = {};
  std::optional<std::uint32_t> localOffset = {};
  bool breakLocalSignature = false;
};

struct ZipArchive {
  std::vector<ZipMember> members = {};
  std::string stub = {};  // before the archive; offsets do not know of it
  std::string comment = {};
  std::string tail = {};  // behind it
  std::string gap = {};   // between directory and end record
  std::uint16_t disk = 0;
  std::uint16_t directoryDisk = 0;
  std::optional<std::uint16_t> entries = {};
  std::optional<std::uint32_t> directorySize = {};
  std::optional<std::uint32_t> directoryOffset = {};
  std::int64_t offsetError = 0;  // added to every stored offset

  std::string Bytes() const;
};

std::uint32_t CrcOf(std::string_view plain);

}  // namespace zeapi::testing
