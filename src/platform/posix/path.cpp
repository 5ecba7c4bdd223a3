#include "platform/posix/path.h"

#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zeapi::platform {
namespace {

bool IsDriveLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool Exists(const char* path) {
  struct stat status;
  return lstat(path, &status) == 0;
}

// Writes "$ZEAPI_DRIVES/x/" for the drive letter; false without the variable or the room.
bool WriteDrive(char letter, HostPath* host, std::size_t* length) {
  const char* drives = std::getenv("ZEAPI_DRIVES");
  if (drives == nullptr || drives[0] == '\0') return false;
  const int written =
      std::snprintf(host->text, sizeof(host->text), "%s/%c/", drives, letter | 0x20);
  if (written < 0 || static_cast<std::size_t>(written) >= sizeof(host->text)) return false;
  *length = static_cast<std::size_t>(written);
  return true;
}

// Replaces the component at `name`, the last one of the host path, by the first entry of its folder
// that equals it but for case. False when there is none.
bool MatchComponent(HostPath* host, char* name) {
  const char saved = *name;
  *name = '\0';
  DIR* folder = opendir(host->text[0] == '\0' ? "." : host->text);
  *name = saved;
  if (folder == nullptr) return false;
  bool found = false;
  while (const dirent* entry = readdir(folder)) {
    if (strcasecmp(entry->d_name, name) == 0) {
      std::memcpy(name, entry->d_name, std::strlen(name));
      found = true;
      break;
    }
  }
  closedir(folder);
  return found;
}

// Corrects the case of each component as far as the path exists.
void MatchCase(HostPath* host, char* rest) {
  while (*rest != '\0') {
    while (*rest == '/') ++rest;
    char* end = rest + std::strcspn(rest, "/");
    if (end == rest) return;
    const char saved = *end;
    *end = '\0';
    const bool found = Exists(host->text) || MatchComponent(host, rest);
    *end = saved;
    if (!found) return;
    rest = end;
  }
}

}  // namespace

bool ToHostPath(const char* path, HostPath* host) {
  if (path == nullptr || path[0] == '\0') return false;
  std::size_t prefix = 0;
  if (IsDriveLetter(path[0]) && path[1] == ':') {
    if (!WriteDrive(path[0], host, &prefix)) return false;
    path += 2;
  }
  const std::size_t length = std::strlen(path);
  if (length >= sizeof(host->text) - prefix) return false;
  for (std::size_t i = 0; i <= length; ++i) {
    host->text[prefix + i] = path[i] == '\\' ? '/' : path[i];
  }
  if (!Exists(host->text)) MatchCase(host, host->text + prefix);
  return true;
}

}  // namespace zeapi::platform
