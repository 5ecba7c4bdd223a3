// The records of a ZIP archive (PKWARE's application note), all little-endian. Each parser takes the
// record without its signature.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace zeapi {

// "PK" and two bytes, put together at run time so that the library itself holds no signature.
enum class ZipRecord : std::uint8_t { kLocal = 3, kCentral = 1, kEnd = 5 };
std::array<std::uint8_t, 4> ZipSignature(ZipRecord record);

inline constexpr std::size_t kSignatureSize = 4;
inline constexpr std::size_t kEndRecordSize = 18;
inline constexpr std::size_t kCentralHeaderSize = 42;
inline constexpr std::size_t kLocalHeaderSize = 26;

enum ZipFlags : std::uint16_t {
  kZipEncrypted = 0x01,
  kZipLargeWindow = 0x02,    // method 6
  kZipLiteralTree = 0x04,    // method 6
  kZipDataDescriptor = 0x08  // sizes and CRC stand behind the data and in the directory
};

enum ZipMethod : std::uint16_t {
  kZipStored = 0,
  kZipShrunk = 1,
  kZipReduced1 = 2,
  kZipReduced4 = 5,
  kZipImploded = 6,
  kZipDeflated = 8
};

struct EndRecord {
  std::uint16_t disk;
  std::uint16_t directoryDisk;
  std::uint16_t entries;
  std::uint32_t directorySize;
  std::uint32_t directoryOffset;
};

// What local and central headers have in common.
struct MemberFacts {
  std::uint16_t flags;
  std::uint16_t method;
  std::uint16_t time;
  std::uint16_t date;
  std::uint32_t crc;
  std::uint32_t compressedSize;
  std::uint32_t uncompressedSize;
  std::uint16_t nameLength;
  std::uint16_t extraLength;
};

struct CentralHeader {
  std::uint8_t neededVersion;
  std::uint8_t neededHost;
  MemberFacts facts;
  std::uint16_t commentLength;
  std::uint32_t localOffset;
};

EndRecord ParseEndRecord(std::span<const std::uint8_t, kEndRecordSize> bytes);
CentralHeader ParseCentralHeader(std::span<const std::uint8_t, kCentralHeaderSize> bytes);
MemberFacts ParseLocalHeader(std::span<const std::uint8_t, kLocalHeaderSize> bytes);

}  // namespace zeapi
