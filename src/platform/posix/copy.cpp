// Copying a file, with failures told in the numbers of Windows.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files.h"
#include "platform/posix/path.h"

namespace zeapi::platform {
namespace {

struct ErrorNumber {
  int host;
  std::uint32_t windows;
};

constexpr std::uint32_t kPathNotFound = 3;
constexpr std::uint32_t kAccessDenied = 5;
constexpr std::uint32_t kGeneralFailure = 31;
constexpr std::uint32_t kSharingViolation = 32;

constexpr ErrorNumber kErrorNumbers[] = {
    {ENOENT, 2},
    {ENOTDIR, kPathNotFound},
    {EACCES, kAccessDenied},
    {EPERM, kAccessDenied},
    {EROFS, kAccessDenied},
    {EISDIR, kAccessDenied},
    {ETXTBSY, kSharingViolation},
    {EBUSY, kSharingViolation},
    {EINVAL, 87},   // invalid parameter
    {ENOSPC, 112},  // disk full
    {EDQUOT, 112},
    {EFBIG, 112},
    {ENAMETOOLONG, 206},  // file name exceeds its range
};

std::uint32_t SystemError(int number) {
  for (const ErrorNumber& error : kErrorNumbers) {
    if (error.host == number) return error.windows;
  }
  return kGeneralFailure;
}

// Closes a descriptor at the end of its scope; Close() tells how that went.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return number_; }
  bool Close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || close(number) == 0;
  }

 private:
  int number_;
};

bool WriteAll(int descriptor, const char* data, std::size_t count) {
  while (count > 0) {
    const ssize_t written = write(descriptor, data, count);
    if (written < 0) return false;
    data += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

bool CopyBytes(int source, int destination) {
  constexpr std::size_t kCopyBlock = 65536;
  char block[kCopyBlock];
  for (;;) {
    const ssize_t count = read(source, block, kCopyBlock);
    if (count == 0) return true;
    if (count < 0 || !WriteAll(destination, block, static_cast<std::size_t>(count))) return false;
  }
}

// As a copy on Windows does, this one keeps the time of the last change.
void KeepTime(int descriptor, const struct stat& source) {
  const timespec times[2] = {source.st_atim, source.st_mtim};
  futimens(descriptor, times);
}

}  // namespace

std::uint32_t CopyOver(const char* source, const char* destination) {
  HostPath from;
  HostPath to;
  if (!ToHostPath(source, &from) || !ToHostPath(destination, &to)) return kPathNotFound;
  struct stat status;
  if (stat(from.text, &status) != 0) return SystemError(errno);
  if (!S_ISREG(status.st_mode)) return kAccessDenied;
  Descriptor input(open(from.text, O_RDONLY | O_CLOEXEC));
  if (input.number() < 0) return SystemError(errno);
  struct stat target;
  const bool existed = stat(to.text, &target) == 0;
  if (existed && target.st_dev == status.st_dev && target.st_ino == status.st_ino) {
    return kSharingViolation;
  }
  Descriptor output(open(to.text, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, status.st_mode & 0777));
  if (output.number() < 0) return SystemError(errno);
  if (CopyBytes(input.number(), output.number())) {
    KeepTime(output.number(), status);
    if (output.Close()) return 0;
  }
  const std::uint32_t error = SystemError(errno);
  if (!existed) unlink(to.text);
  return error;
}

}  // namespace zeapi::platform
