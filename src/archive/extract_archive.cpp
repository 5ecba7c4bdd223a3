#include "archive/extract_archive.h"

#include "archive/archive_pass.h"
#include "platform/files.h"

namespace zeapi {

std::string ArchivePath(const char* archive) {
  const platform::PathKind kind = platform::QueryPath(archive);
  const bool isFile = kind != platform::PathKind::kMissing && kind != platform::PathKind::kFolder;
  return isFile ? archive : std::string(archive) + ".zip";
}

Result ExtractArchive(const char* archive, const char* pattern, ZeZipProgress progress) {
  const std::string path = ArchivePath(archive);
  const platform::PathKind kind = platform::QueryPath(path.c_str());
  if (kind == platform::PathKind::kMissing) return ZE_FILE_NOT_FOUND;
  // Opening a pipe would wait for its other end.
  if (kind != platform::PathKind::kRegularFile) return ResultOf(kArchiveCannotOpen);
  ArchiveBuffers buffers;
  if (!buffers.ok()) return ZE_OUT_OF_MEMORY;
  ArchiveFile file({buffers.input.get(), ArchiveFile::kBlock + ArchiveFile::kSpare});
  if (!file.Open(path.c_str())) return ResultOf(kArchiveCannotOpen);
  return ResultOf(ArchivePass(file, buffers, pattern, progress).Run());
}

}  // namespace zeapi
