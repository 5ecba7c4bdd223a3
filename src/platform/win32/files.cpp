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

// True for a device ("NUL", also in any folder) and a pipe. The name tells: to open a pipe, even to ask what
// it is, would be a visit to its server.
bool IsDevice(const char* path) {
  char full[MAX_PATH + 16];
  const DWORD length = GetFullPathNameA(path, sizeof(full), full, nullptr);
  const char* name = length == 0 || length >= sizeof(full) ? path : full;
  if (std::strncmp(name, "\\\\", 2) != 0) return false;
  const char* server = name + 2;
  if (std::strncmp(server, ".\\", 2) == 0) return true;
  const char* share = std::strchr(server, '\\');
  return share != nullptr && _strnicmp(share, "\\pipe\\", 6) == 0;
}

// What tells one file from all others while it is open; false when the path leads to none.
bool FileIdentity(const char* path, BY_HANDLE_FILE_INFORMATION* identity) {
  if (path == nullptr || IsDevice(path)) return false;
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

std::FILE* OpenLogStream(const char* path) { return OpenStream(path, "a"); }

bool PathExists(const char* path) { return _access(path, kExists) == 0; }

bool PathReadable(const char* path) { return _access(path, kReadable) == 0; }

PathKind QueryPath(const char* path) {
  struct _stat64 status;
  if (path == nullptr) return PathKind::kMissing;
  if (IsDevice(path)) return PathKind::kOther;
  if (_stat64(path, &status) != 0) return PathKind::kMissing;
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

// The file is made at once: the next call, in this process or another, would find the same name.
bool TemporaryName(const char* directory, const char* prefix, char* name, std::size_t size) {
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    char* found = _tempnam(directory, prefix);
    if (found == nullptr) return false;
    const std::size_t length = std::strlen(found);
    const bool fits = length < size;
    if (fits) std::memcpy(name, found, length + 1);
    std::free(found);
    if (!fits) return false;
    const HANDLE file =
        CreateFileA(name, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      CloseHandle(file);
      return true;
    }
    if (GetLastError() != ERROR_FILE_EXISTS) return false;
  }
  return false;
}

std::uint32_t CopyOver(const char* source, const char* destination) {
  if (QueryPath(source) == PathKind::kOther) return ERROR_ACCESS_DENIED;
  if (CopyFileA(source, destination, FALSE)) return 0;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

}  // namespace zeapi::platform
