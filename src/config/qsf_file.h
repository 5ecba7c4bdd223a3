// Binary QSF files: a checked header and up to three blocks of option variables.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "base/c_heap.h"
#include "base/result.h"
#include "files/fil_access.h"

namespace zeapi {

inline constexpr std::size_t kQsfHeaderSize = 74;

// An open file whose header has been checked.
struct QsfFile {
  QsfFile() = default;
  ~QsfFile();
  QsfFile(const QsfFile&) = delete;
  QsfFile& operator=(const QsfFile&) = delete;

  FilAccess access;
  std::array<std::uint8_t, kQsfHeaderSize> header = {};
  std::uint32_t size = 0;  // of the file
};

// Returns 0, 3 (no regular file, or too short for a header), 6 (not read to its end), 11, 29 (not a QSF
// header), 43 (checksum) or 44 (another type); the type is checked before the rest of the header.
Result QsfOpen(const char* path, std::uint8_t type, std::unique_ptr<QsfFile>* file);

// Block 1, 2 or 5, and how many variables it says it has. Returns 0 (no block when it has none), 1 (any
// other block), 11, 27 (the block is not in the file) or an accessor's error.
Result QsfGetVariables(QsfFile* file, std::uint32_t block, CHeapPtr<std::uint8_t[]>* bytes,
                       std::uint16_t* count);

}  // namespace zeapi
