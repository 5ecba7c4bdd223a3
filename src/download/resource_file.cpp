#include "download/resource_file.h"

#include "files/file_utilities.h"
#include "files/regular_file.h"
#include "files/system_file.h"

namespace zeapi {

Result CheckResourceFile(const char* path) {
  if (!FilExists(path)) return ZE_FILE_NOT_FOUND;
  return IsSystemFile(path) ? ZE_BAD_FORMAT : ZE_OK;
}

Result OpenResourceFile(const char* path, Stream* file) {
  file->reset(OpenRegularFile(path, "rb"));
  return *file == nullptr ? ZE_OPEN_FAILED : ZE_OK;
}

}  // namespace zeapi
