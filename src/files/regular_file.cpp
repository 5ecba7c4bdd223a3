#include "files/regular_file.h"

#include "platform/files.h"

namespace zeapi {

std::FILE* OpenRegularFile(const char* path, const char* mode) {
  switch (platform::QueryPath(path)) {
    case platform::PathKind::kRegularFile:
      break;
    case platform::PathKind::kMissing:
      if (mode[0] == 'r') return nullptr;
      break;
    case platform::PathKind::kFolder:
    case platform::PathKind::kOther:
      return nullptr;
  }
  return platform::OpenStream(path, mode);
}

}  // namespace zeapi
