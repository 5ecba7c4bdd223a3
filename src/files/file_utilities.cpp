#include "files/file_utilities.h"

#include <cstdio>
#include <cstring>

#include "base/text.h"
#include "files/split_path.h"
#include "platform/files.h"
#include "platform/find.h"

namespace zeapi {
namespace {

struct CopyError {
  std::uint32_t system;
  Result result;
};

constexpr CopyError kCopyErrors[] = {
    {2, ZE_FILE_NOT_FOUND},      // file not found
    {3, ZE_FILE_NOT_FOUND},      // path not found
    {5, ZE_ACCESS_DENIED},       // access denied
    {26, ZE_NOT_DOS_DISK},       // not a DOS disk
    {32, ZE_SHARING_VIOLATION},  // sharing violation
    {36, ZE_SHARING_VIOLATION},  // sharing buffer exceeded
    {87, ZE_INVALID_ARGUMENT},   // invalid parameter
    {108, ZE_DRIVE_LOCKED},      // drive locked
    {112, ZE_DISK_FULL},         // disk full
    {206, ZE_BAD_FORMAT},        // file name exceeds its range
    {267, ZE_BAD_FORMAT},        // directory name invalid
    {282, ZE_DRIVE_LOCKED},      // extended attributes not supported
};

constexpr int kBackupNumbers = 998;

}  // namespace

bool FilExists(const char* path) {
  if (path == nullptr || path[0] == '\0') return false;
  return platform::PathExists(path) && platform::PathReadable(path);
}

std::uint32_t FilQuerySize(const char* path) {
  if (path == nullptr || path[0] == '\0') return 0;
  platform::DirectorySearch search(path);
  platform::FoundEntry entry;
  return search.Next(&entry) ? entry.size : 0;
}

Result CopyErrorResult(std::uint32_t systemError) {
  for (const CopyError& error : kCopyErrors) {
    if (error.system == systemError) return error.result;
  }
  return ZE_COPY_FAILED;
}

Result FilCopy(const char* source, const char* destination) {
  const std::uint32_t systemError = platform::CopyOver(source, destination);
  return systemError == 0 ? static_cast<Result>(ZE_OK) : CopyErrorResult(systemError);
}

Result FilBackup(const char* source, char* backupName) {
  if (!FilExists(source) || NameTooLong(source)) return ZE_BAD_FORMAT;
  const PathParts parts = SplitPath(source);
  const std::size_t stem = parts.drive.size() + parts.directory.size() + parts.baseName.size();
  constexpr std::size_t kNumberLength = 4;  // ".001"
  if (stem + kNumberLength > ZE_MAX_NAME) return ZE_BAD_FORMAT;
  std::memcpy(backupName, source, stem);
  for (int number = 1; number <= kBackupNumbers; ++number) {
    std::snprintf(backupName + stem, kNumberLength + 1, ".%03d", number);
    // A backup that may not be read is one too.
    if (!platform::PathExists(backupName)) return FilCopy(source, backupName);
  }
  return ZE_NO_BACKUP_NAME;
}

}  // namespace zeapi
