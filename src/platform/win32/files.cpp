#include "platform/files.h"

#include <direct.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <cstdlib>
#include <cstring>

namespace zeapi::platform {
namespace {

constexpr int kExists = 0;
constexpr int kReadable = 4;

// What tells one file from all others while it is open; false when the path leads to none.
bool FileIdentity(const char* path, BY_HANDLE_FILE_INFORMATION* identity) {
  const HANDLE file = CreateFileA(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool told = GetFileInformationByHandle(file, identity) != 0;
  CloseHandle(file);
  return told;
}

}  // namespace

std::FILE* OpenStream(const char* path, const char* mode) {
  if (path == nullptr || mode[0] == '\0') return nullptr;
  return std::fopen(path, mode);
}

bool PathExists(const char* path) { return _access(path, kExists) == 0; }

bool PathReadable(const char* path) { return _access(path, kReadable) == 0; }

PathKind QueryPath(const char* path) {
  struct _stat64 status;
  if (path == nullptr || _stat64(path, &status) != 0) return PathKind::kMissing;
  const unsigned type = status.st_mode & _S_IFMT;
  if (type == _S_IFDIR) return PathKind::kFolder;
  return type == _S_IFREG ? PathKind::kRegularFile : PathKind::kOther;
}

bool SameFile(const char* a, const char* b) {
  BY_HANDLE_FILE_INFORMATION first;
  BY_HANDLE_FILE_INFORMATION second;
  return FileIdentity(a, &first) && FileIdentity(b, &second) &&
         first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
         first.nFileIndexHigh == second.nFileIndexHigh &&
         first.nFileIndexLow == second.nFileIndexLow;
}

bool MakeDirectory(const char* path) { return _mkdir(path) == 0; }

bool RemoveFile(const char* path) { return std::remove(path) == 0; }

bool TemporaryName(const char* directory, const char* prefix, char* name, std::size_t size) {
  char* found = _tempnam(directory, prefix);
  if (found == nullptr) return false;
  const std::size_t length = std::strlen(found);
  const bool fits = length < size;
  if (fits) std::memcpy(name, found, length + 1);
  std::free(found);
  return fits;
}

std::uint32_t CopyOver(const char* source, const char* destination) {
  if (CopyFileA(source, destination, FALSE)) return 0;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

}  // namespace zeapi::platform
