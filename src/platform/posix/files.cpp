#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "platform/posix/path.h"
#include "platform/posix/text_stream.h"

namespace zeapi::platform {
namespace {

bool IsDirectory(int descriptor) {
  struct stat status;
  return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

// Reading text goes through a translating stream; every other mode is the host's own.
std::FILE* OpenForReading(const char* path, bool text) {
  const int descriptor = open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  if (IsDirectory(descriptor)) {
    close(descriptor);
    return nullptr;
  }
  if (text) return OpenTextReader(descriptor);
  std::FILE* stream = fdopen(descriptor, "rb");
  if (stream == nullptr) close(descriptor);
  return stream;
}

}  // namespace

std::FILE* OpenStream(const char* path, const char* mode) {
  HostPath host;
  if (mode[0] == '\0' || !ToHostPath(path, &host)) return nullptr;
  if (std::strcmp(mode, "r") == 0) return OpenForReading(host.text, true);
  if (std::strcmp(mode, "rb") == 0) return OpenForReading(host.text, false);
  return std::fopen(host.text, mode);
}

bool PathExists(const char* path) {
  HostPath host;
  return ToHostPath(path, &host) && access(host.text, F_OK) == 0;
}

bool PathReadable(const char* path) {
  HostPath host;
  return ToHostPath(path, &host) && access(host.text, R_OK) == 0;
}

PathKind QueryPath(const char* path) {
  HostPath host;
  struct stat status;
  if (!ToHostPath(path, &host) || stat(host.text, &status) != 0) return PathKind::kMissing;
  return S_ISREG(status.st_mode) ? PathKind::kRegularFile : PathKind::kOther;
}

bool MakeDirectory(const char* path) {
  HostPath host;
  return ToHostPath(path, &host) && mkdir(host.text, 0777) == 0;
}

bool RemoveFile(const char* path) {
  HostPath host;
  return ToHostPath(path, &host) && unlink(host.text) == 0;
}

// The file is made at once and for this user alone, so that nobody else can put something in its
// place before it is opened.
bool TemporaryName(const char* directory, const char* prefix, char* name, std::size_t size) {
  const char* folders[] = {std::getenv("TMPDIR"), "/tmp", directory};
  for (const char* folder : folders) {
    HostPath host;
    if (!ToHostPath(folder, &host) || access(host.text, W_OK | X_OK) != 0) continue;
    const int length = std::snprintf(name, size, "%s/%sXXXXXX", host.text, prefix);
    if (length < 0 || static_cast<std::size_t>(length) >= size) continue;
    const int descriptor = mkstemp(name);
    if (descriptor < 0) continue;
    close(descriptor);
    return true;
  }
  return false;
}

}  // namespace zeapi::platform
