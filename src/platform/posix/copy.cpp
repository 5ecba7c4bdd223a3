// Copying a file, with failures told in the numbers of Windows.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files.h"
#include "platform/posix/path.h"

namespace zeapi::platform {
namespace {

constexpr std::uint32_t kErrorFileNotFound = 2;
constexpr std::uint32_t kErrorPathNotFound = 3;
constexpr std::uint32_t kErrorAccessDenied = 5;
constexpr std::uint32_t kErrorGeneralFailure = 31;
constexpr std::uint32_t kErrorSharingViolation = 32;
constexpr std::uint32_t kErrorInvalidParameter = 87;
constexpr std::uint32_t kErrorDiskFull = 112;
constexpr std::uint32_t kErrorNameTooLong = 206;

std::uint32_t SystemError(int number) {
  switch (number) {
    case ENOENT:
      return kErrorFileNotFound;
    case ENOTDIR:
      return kErrorPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return kErrorAccessDenied;
    case ETXTBSY:
    case EBUSY:
      return kErrorSharingViolation;
    case EINVAL:
      return kErrorInvalidParameter;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kErrorDiskFull;
    case ENAMETOOLONG:
      return kErrorNameTooLong;
    default:
      return kErrorGeneralFailure;
  }
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
  constexpr std::size_t kBlock = 65536;
  char block[kBlock];
  for (;;) {
    const ssize_t count = read(source, block, kBlock);
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
  if (!ToHostPath(source, &from) || !ToHostPath(destination, &to)) return kErrorPathNotFound;
  Descriptor input(open(from.text, O_RDONLY | O_CLOEXEC));
  struct stat status;
  if (input.number() < 0 || fstat(input.number(), &status) != 0) return SystemError(errno);
  if (S_ISDIR(status.st_mode)) return kErrorAccessDenied;
  struct stat target;
  const bool existed = stat(to.text, &target) == 0;
  if (existed && target.st_dev == status.st_dev && target.st_ino == status.st_ino) {
    return kErrorSharingViolation;
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
