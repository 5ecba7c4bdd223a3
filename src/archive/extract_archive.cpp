#include "archive/extract_archive.h"

#include <string>

#include "archive/archive_pass.h"
#include "platform/files.h"

namespace zeapi {

Result ExtractArchive(const char* archive, const char* pattern, ZeZipProgress progress) {
  std::string path(archive);
  if (platform::QueryPath(path.c_str()) != platform::PathKind::kRegularFile) {
    path += ".zip";
    if (!platform::PathExists(path.c_str())) return ZE_FILE_NOT_FOUND;
  }
  ArchiveBuffers buffers;
  if (!buffers.ok()) return ZE_OUT_OF_MEMORY;
  ArchiveFile file({buffers.input.get(), ArchiveFile::kBlock + ArchiveFile::kSpare});
  if (!file.Open(path.c_str())) return ResultOf(kArchiveCannotOpen);
  return ResultOf(ArchivePass(file, buffers, pattern, progress).Run());
}

}  // namespace zeapi
