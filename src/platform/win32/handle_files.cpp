#include "platform/handle_files.h"

#include <windows.h>

#include "platform/win32/file_handle.h"

namespace zeapi::platform {

FileHandle HandleOpen(const char* path, FileAccess access) {
  return _lopen(path, static_cast<int>(access) | OF_SHARE_DENY_NONE);
}

FileHandle HandleCreate(const char* path) { return _lcreat(path, 0); }

std::int32_t HandleRead(FileHandle file, void* buffer, std::uint32_t count) {
  return static_cast<std::int32_t>(_lread(file, buffer, count));
}

std::int32_t HandleWrite(FileHandle file, const void* data, std::uint32_t count) {
  if (count == 0) return 0;  // _lwrite would cut the file off here
  return static_cast<std::int32_t>(_lwrite(file, static_cast<const char*>(data), count));
}

// Not _llseek, whose 32-bit positions cannot tell a place past 2 GiB from a failure.
std::int64_t HandleSeek(FileHandle file, std::int64_t offset, SeekOrigin origin) {
  LARGE_INTEGER distance;
  LARGE_INTEGER position;
  distance.QuadPart = offset;
  if (!SetFilePointerEx(ToHandle(file), distance, &position, static_cast<DWORD>(origin))) return -1;
  return position.QuadPart;
}

// The number of no file is that of the process itself, whose closing succeeds.
bool HandleClose(FileHandle file) { return file != kNoFileHandle && _lclose(file) == 0; }

}  // namespace zeapi::platform
