#include "files/modify.h"

#include <cstdio>

#include "base/c_heap.h"
#include "base/stream.h"
#include "files/file_utilities.h"
#include "files/regular_file.h"
#include "platform/files.h"

namespace zeapi {
namespace {

constexpr int kLineRoom = 2048;

// A file that is removed at the end of its scope.
class TemporaryFile {
 public:
  explicit TemporaryFile(const char* path) : path_(path) {}
  ~TemporaryFile() { platform::RemoveFile(path_); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

 private:
  const char* path_;
};

Result RewriteLines(std::FILE* source, std::FILE* target, std::uint32_t value,
                    ZeModifyCallback callback) {
  const CHeapPtr<char[]> line = CHeapBytes<char>(kLineRoom);
  if (line == nullptr) return ZE_OUT_OF_MEMORY;
  while (std::fgets(line.get(), kLineRoom, source) != nullptr) {
    callback(line.get(), value);
    line[kLineRoom - 1] = '\0';  // whatever the callback did, the line ends in its buffer
    if (line[0] != '\0' && std::fputs(line.get(), target) < 0) return ZE_WRITE_FAILED;
  }
  return std::ferror(source) != 0 ? ZE_READ_FAILED : ZE_OK;
}

}  // namespace

Result FilModify(const char* path, std::uint32_t value, ZeModifyCallback callback) {
  char temporary[ZE_MAX_NAME + 1];
  if (!platform::TemporaryName("\\", "tmpfil", temporary, sizeof(temporary))) return ZE_UNUSABLE;
  const TemporaryFile remover(temporary);
  Stream source(OpenRegularFile(path, "r"));
  if (source == nullptr) return ZE_OPEN_FAILED;
  Stream target(platform::OpenStream(temporary, "w"));
  if (target == nullptr) return ZE_OPEN_FAILED;

  const Result rewritten = RewriteLines(source.get(), target.get(), value, callback);
  if (rewritten != ZE_OK) return rewritten;
  const bool sourceClosed = std::fclose(source.release()) == 0;
  const bool targetClosed = std::fclose(target.release()) == 0;
  if (!sourceClosed || !targetClosed) return ZE_CLOSE_FAILED;
  return FilCopy(temporary, path);
}

}  // namespace zeapi
