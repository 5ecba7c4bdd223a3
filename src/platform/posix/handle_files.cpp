#include "platform/handle_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/descriptors.h"
#include "platform/posix/path.h"

namespace zeapi::platform {
namespace {

static_assert(static_cast<int>(FileAccess::kRead) == O_RDONLY);
static_assert(static_cast<int>(FileAccess::kWrite) == O_WRONLY);
static_assert(static_cast<int>(FileAccess::kReadWrite) == O_RDWR);
static_assert(static_cast<int>(SeekOrigin::kStart) == SEEK_SET);
static_assert(static_cast<int>(SeekOrigin::kCurrent) == SEEK_CUR);
static_assert(static_cast<int>(SeekOrigin::kEnd) == SEEK_END);

FileHandle OpenFile(const char* path, int flags) {
  HostPath host;
  if (!ToHostPath(path, &host)) return kNoFileHandle;
  const int file = AboveStandardStreams(open(host.text, flags | O_CLOEXEC, 0666));
  struct stat status;
  if (file >= 0 && fstat(file, &status) == 0 && S_ISDIR(status.st_mode)) {
    close(file);
    return kNoFileHandle;
  }
  return file;
}

}  // namespace

FileHandle HandleOpen(const char* path, FileAccess access) {
  return OpenFile(path, static_cast<int>(access));
}

FileHandle HandleCreate(const char* path) { return OpenFile(path, O_WRONLY | O_CREAT | O_TRUNC); }

std::int32_t HandleRead(FileHandle file, void* buffer, std::uint32_t count) {
  return static_cast<std::int32_t>(read(file, buffer, count));
}

std::int32_t HandleWrite(FileHandle file, const void* data, std::uint32_t count) {
  return static_cast<std::int32_t>(write(file, data, count));
}

std::int64_t HandleSeek(FileHandle file, std::int64_t offset, SeekOrigin origin) {
  return lseek(file, offset, static_cast<int>(origin));
}

bool HandleClose(FileHandle file) { return close(file) == 0; }

}  // namespace zeapi::platform
