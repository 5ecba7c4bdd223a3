#include "platform/local_tree.h"

#include <windows.h>

namespace zeapi::platform {
namespace {

// A junction or link leads elsewhere.
bool IsOwnFolder(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

bool MakeFolder(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes != INVALID_FILE_ATTRIBUTES) return IsOwnFolder(attributes);
  return CreateDirectoryA(path, nullptr) != 0;
}

}  // namespace

LocalTree::~LocalTree() { Leave(); }

void LocalTree::Leave() { entered_.clear(); }

bool LocalTree::Enter(const std::string& folder) {
  if (folder == entered_) return true;
  Leave();
  for (std::size_t end = folder.find('/'); end != std::string::npos;
       end = folder.find('/', end + 1)) {
    if (!MakeFolder(folder.substr(0, end).c_str())) return false;
  }
  entered_ = folder;
  return true;
}

FileHandle LocalTree::Create(const std::string& name) const {
  const std::string path = entered_ + name;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) != 0)
    return kNoFileHandle;
  return HandleCreate(path.c_str());
}

bool LocalTree::SetLastWrite(const std::string& name, std::uint16_t date,
                             std::uint16_t time) const {
  FILETIME stamp;
  if (!DosDateTimeToFileTime(date, time, &stamp)) return false;
  const HANDLE file =
      CreateFileA((entered_ + name).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool set = SetFileTime(file, nullptr, nullptr, &stamp) != 0;
  CloseHandle(file);
  return set;
}

}  // namespace zeapi::platform
