// A binary file with an open mode and a sticky error.
#pragma once

#include <cstdint>

#include "platform/handle_files.h"

namespace zeapi {

// Values of FilAccess::error: up to 7 they are the interface's own codes.
enum FilError : std::uint32_t {
  kFilGood = 0,
  kFilOpenFailed = 3,
  kFilCloseFailed = 4,
  kFilReadFailed = 6,
  kFilWriteFailed = 7,  // or fewer bytes were written than asked
  kFilSeekFailed = 8,
  kFilEndOfFile = 9,  // fewer bytes were read than asked
};

// Open modes 1 to 12: 1 and 4 read; 2 and 5 write to an emptied file; 3 and 6 write to an existing
// one; 7, 8, 10 and 11 read and write an emptied file; 9 and 12 read and write an existing one.
inline constexpr std::uint32_t kFilRead = 4;

struct FilAccess {
  std::uint32_t mode = 0;
  std::uint32_t reserved = 0;  // set to 0 by FilOpen, not used
  std::uint32_t handle = static_cast<std::uint32_t>(platform::kNoFileHandle);
  std::uint32_t error = kFilGood;  // set by the calls below, cleared by none of them
};

// Opens the file in `access->mode`. Failure: error 3.
void FilOpen(const char* path, FilAccess* access);

// Failure: error 4. The accessor counts as closed either way.
void FilClose(FilAccess* access);

// Returns the number of bytes read. Failure: error 6; fewer than asked: error 9.
std::uint32_t FilRead(FilAccess* access, void* buffer, std::uint32_t count);

// Returns the number of bytes written. Failure or fewer than asked: error 7.
std::uint32_t FilWrite(FilAccess* access, const void* data, std::uint32_t count);

// Returns the new position, -1 with error 8 on failure.
std::int64_t FilSeek(FilAccess* access, std::int64_t offset, platform::SeekOrigin origin);

}  // namespace zeapi
