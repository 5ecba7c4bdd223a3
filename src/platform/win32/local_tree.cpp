#include "platform/local_tree.h"

#include <windows.h>

#include "platform/win32/file_handle.h"

namespace zeapi::platform {
namespace {

// The entry itself where it is a junction or a link.
HANDLE OpenEntry(const std::string& path, DWORD access, DWORD share, DWORD creation, DWORD flags) {
  return CreateFileA(path.c_str(), access, share, nullptr, creation,
                     FILE_FLAG_OPEN_REPARSE_POINT | flags, nullptr);
}

// Held without sharing its deletion: nobody renames it or puts another in its place.
FileHandle HoldFolder(const std::string& path) {
  CreateDirectoryA(path.c_str(), nullptr);  // it may be there
  const HANDLE folder = OpenEntry(path, FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  if (folder == INVALID_HANDLE_VALUE) return kNoFileHandle;
  BY_HANDLE_FILE_INFORMATION facts;
  if (GetFileInformationByHandle(folder, &facts) &&
      (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
      (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
    return FromHandle(folder);
  CloseHandle(folder);
  return kNoFileHandle;
}

// True also when nobody can tell.
bool IsFile(const BY_HANDLE_FILE_INFORMATION& facts, FileHandle file) {
  BY_HANDLE_FILE_INFORMATION other;
  return !GetFileInformationByHandle(ToHandle(file), &other) ||
         (facts.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
          facts.nFileIndexHigh == other.nFileIndexHigh &&
          facts.nFileIndexLow == other.nFileIndexLow);
}

// Empties a file that has just been opened.
bool Empty(HANDLE file, FileHandle spared) {
  constexpr DWORD kNoPlainFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  BY_HANDLE_FILE_INFORMATION facts;
  if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &facts) ||
      (facts.dwFileAttributes & kNoPlainFile) != 0)
    return false;
  if (facts.nFileSizeHigh == 0 && facts.nFileSizeLow == 0) return true;
  return (spared == kNoFileHandle || !IsFile(facts, spared)) && SetEndOfFile(file) != 0;
}

}  // namespace

LocalTree::~LocalTree() { Leave(); }

void LocalTree::Leave() {
  for (const FileHandle folder : held_) CloseHandle(ToHandle(folder));
  held_.clear();
  entered_.clear();
}

bool LocalTree::Enter(const std::string& folder) {
  if (folder == entered_) return true;
  Leave();
  for (std::size_t end = folder.find('/'); end != std::string::npos;
       end = folder.find('/', end + 1)) {
    held_.reserve(held_.size() + 1);
    const FileHandle held = HoldFolder(folder.substr(0, end));
    if (held == kNoFileHandle) {
      Leave();
      return false;
    }
    held_.push_back(held);
  }
  entered_ = folder;
  return true;
}

FileHandle LocalTree::Create(const std::string& name) const {
  const HANDLE file = OpenEntry(entered_ + name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL);
  if (file == INVALID_HANDLE_VALUE) return kNoFileHandle;
  if (Empty(file, spared_)) return FromHandle(file);
  CloseHandle(file);
  return kNoFileHandle;
}

bool LocalTree::SetLastWrite(const std::string& name, std::uint16_t date,
                             std::uint16_t time) const {
  FILETIME stamp;
  if (!DosDateTimeToFileTime(date, time, &stamp)) return false;
  const HANDLE file = OpenEntry(entered_ + name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool set = SetFileTime(file, nullptr, nullptr, &stamp) != 0;
  CloseHandle(file);
  return set;
}

}  // namespace zeapi::platform
