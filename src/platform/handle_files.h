// Unbuffered files behind small integer handles: the 16-bit-compatible calls of Windows
// (_lopen and its family), file descriptors elsewhere.
#pragma once

#include <cstdint>

namespace zeapi::platform {

using FileHandle = std::int32_t;
inline constexpr FileHandle kNoFileHandle = -1;

enum class FileAccess { kRead = 0, kWrite = 1, kReadWrite = 2 };
enum class SeekOrigin { kStart = 0, kCurrent = 1, kEnd = 2 };

// Opens an existing file, shared with everybody. kNoFileHandle on failure.
FileHandle HandleOpen(const char* path, FileAccess access);

// Creates the file or empties it, for writing. kNoFileHandle on failure.
FileHandle HandleCreate(const char* path);

// Each returns the number of bytes moved (fewer at the end of the file or of the disk), -1 on
// failure.
std::int32_t HandleRead(FileHandle file, void* buffer, std::uint32_t count);
std::int32_t HandleWrite(FileHandle file, const void* data, std::uint32_t count);

// The new position, -1 on failure.
std::int64_t HandleSeek(FileHandle file, std::int64_t offset, SeekOrigin origin);

bool HandleClose(FileHandle file);

}  // namespace zeapi::platform
