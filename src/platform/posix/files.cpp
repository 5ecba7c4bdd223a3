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

// What fopen would open with; -1 for a mode that it does not know.
int OpenFlags(const char* mode) {
  const bool both = std::strchr(mode, '+') != nullptr;
  switch (mode[0]) {
    case 'r':
      return both ? O_RDWR : O_RDONLY;
    case 'w':
      return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_TRUNC;
    case 'a':
      return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_APPEND;
    default:
      return -1;
  }
}

// An existing file of the name as written is opened without asking for it first: the log does this
// for every line. Only when there is none is another case looked for, and then a file made.
int Open(const char* path, int flags) {
  HostPath host;
  if (!ToHostPathAsWritten(path, &host)) return -1;
  const int descriptor = open(host.text, (flags & ~O_CREAT) | O_CLOEXEC);
  if (descriptor >= 0 || errno != ENOENT) return descriptor;
  MatchCase(&host);
  return open(host.text, flags | O_CLOEXEC, 0666);
}

}  // namespace

// Reading text goes through a translating stream; every other mode is the host's own.
std::FILE* OpenStream(const char* path, const char* mode) {
  const int flags = OpenFlags(mode);
  if (flags < 0) return nullptr;
  const int descriptor = Open(path, flags);
  if (descriptor < 0) return nullptr;
  if (flags == O_RDONLY && IsDirectory(descriptor)) {
    close(descriptor);
    return nullptr;
  }
  if (std::strcmp(mode, "r") == 0) return OpenTextReader(descriptor);
  std::FILE* stream = fdopen(descriptor, mode);
  if (stream == nullptr) close(descriptor);
  return stream;
}

// Asking for the kind of file first would cost every line of the log as much as opening it.
std::FILE* OpenLogStream(const char* path) {
  const int descriptor = Open(path, OpenFlags("a") | O_NONBLOCK);
  if (descriptor < 0) return nullptr;
  std::FILE* stream = fdopen(descriptor, "a");
  if (stream == nullptr) close(descriptor);
  return stream;
}

// A link that leads nowhere is there: to create its name would write behind it.
bool PathExists(const char* path) {
  HostPath host;
  struct stat status;
  return ToHostPath(path, &host) && lstat(host.text, &status) == 0;
}

bool PathReadable(const char* path) {
  HostPath host;
  return ToHostPath(path, &host) && access(host.text, R_OK) == 0;
}

PathKind QueryPath(const char* path) {
  HostPath host;
  struct stat status;
  if (!ToHostPath(path, &host) || stat(host.text, &status) != 0) return PathKind::kMissing;
  if (S_ISDIR(status.st_mode)) return PathKind::kFolder;
  return S_ISREG(status.st_mode) ? PathKind::kRegularFile : PathKind::kOther;
}

bool SameFile(const char* a, const char* b) {
  HostPath hosts[2];
  struct stat statuses[2];
  return ToHostPath(a, &hosts[0]) && ToHostPath(b, &hosts[1]) &&
         stat(hosts[0].text, &statuses[0]) == 0 && stat(hosts[1].text, &statuses[1]) == 0 &&
         statuses[0].st_dev == statuses[1].st_dev && statuses[0].st_ino == statuses[1].st_ino;
}

bool MakeDirectory(const char* path) {
  HostPath host;
  if (!ToHostPath(path, &host)) return false;
  const bool isDrive = host.text[host.rest] == '\0';  // one that is not there is not made
  return !isDrive && mkdir(host.text, 0777) == 0;
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
