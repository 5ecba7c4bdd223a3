#include "platform/posix/descriptors.h"

#include <fcntl.h>
#include <unistd.h>

namespace zeapi::platform {

int AboveStandardStreams(int file) {
  if (file < 0 || file > STDERR_FILENO) return file;
  const int above = fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  close(file);
  return above;
}

}  // namespace zeapi::platform
