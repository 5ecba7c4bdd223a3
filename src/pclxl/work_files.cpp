#include "pclxl/work_files.h"

#include <algorithm>
#include <iterator>

#include "platform/files.h"

namespace zeapi {
namespace {

constexpr const char* kWorkFiles[] = {kXlInputFile, kXlPageFile, kXlOutputFile, kXlFixedUpFile};

}  // namespace

bool IsStreamWorkFile(const char* path) {
  return std::any_of(std::begin(kWorkFiles), std::end(kWorkFiles),
                     [path](const char* file) { return platform::SameFile(path, file); });
}

}  // namespace zeapi
