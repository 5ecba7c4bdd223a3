#include "files/fil_access.h"

#include <iterator>

namespace zeapi {
namespace {

using platform::FileAccess;

struct OpenMode {
  FileAccess access;
  bool createFirst;
};

constexpr OpenMode kOpenModes[] = {
    {FileAccess::kRead, false},     {FileAccess::kWrite, true},     {FileAccess::kWrite, false},
    {FileAccess::kRead, false},     {FileAccess::kWrite, true},     {FileAccess::kWrite, false},
    {FileAccess::kReadWrite, true}, {FileAccess::kReadWrite, true}, {FileAccess::kReadWrite, false},
    {FileAccess::kReadWrite, true}, {FileAccess::kReadWrite, true}, {FileAccess::kReadWrite, false},
};

platform::FileHandle HandleOf(const FilAccess& access) {
  return static_cast<platform::FileHandle>(access.handle);
}

bool CreateEmpty(const char* path) {
  const platform::FileHandle file = platform::HandleCreate(path);
  return file != platform::kNoFileHandle && platform::HandleClose(file);
}

platform::FileHandle Open(const char* path, std::uint32_t mode) {
  if (mode < 1 || mode > std::size(kOpenModes)) return platform::kNoFileHandle;
  const OpenMode& open = kOpenModes[mode - 1];
  if (open.createFirst && !CreateEmpty(path)) return platform::kNoFileHandle;
  return platform::HandleOpen(path, open.access);
}

}  // namespace

void FilOpen(const char* path, FilAccess* access) {
  access->reserved = 0;
  const platform::FileHandle file = Open(path, access->mode);
  access->handle = static_cast<std::uint32_t>(file);
  if (file == platform::kNoFileHandle) access->error = kFilOpenFailed;
}

void FilClose(FilAccess* access) {
  if (!platform::HandleClose(HandleOf(*access))) access->error = kFilCloseFailed;
  access->handle = static_cast<std::uint32_t>(platform::kNoFileHandle);
}

std::uint32_t FilRead(FilAccess* access, void* buffer, std::uint32_t count) {
  const std::int32_t read = platform::HandleRead(HandleOf(*access), buffer, count);
  if (read < 0) {
    access->error = kFilReadFailed;
    return 0;
  }
  if (static_cast<std::uint32_t>(read) < count) access->error = kFilEndOfFile;
  return static_cast<std::uint32_t>(read);
}

std::uint32_t FilWrite(FilAccess* access, const void* data, std::uint32_t count) {
  const std::int32_t written = platform::HandleWrite(HandleOf(*access), data, count);
  if (written < 0 || static_cast<std::uint32_t>(written) < count) access->error = kFilWriteFailed;
  return written < 0 ? 0 : static_cast<std::uint32_t>(written);
}

std::int64_t FilSeek(FilAccess* access, std::int64_t offset, platform::SeekOrigin origin) {
  const std::int64_t position = platform::HandleSeek(HandleOf(*access), offset, origin);
  if (position < 0) access->error = kFilSeekFailed;
  return position;
}

}  // namespace zeapi
