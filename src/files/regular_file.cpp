#include "files/regular_file.h"

#include "platform/files.h"

namespace zeapi {

std::FILE* OpenRegularFile(const char* path, const char* mode) {
  if (platform::QueryPath(path) != platform::PathKind::kRegularFile) return nullptr;
  return platform::OpenStream(path, mode);
}

}  // namespace zeapi
