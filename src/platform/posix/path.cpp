#include "platform/posix/path.h"

#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/posix/folder_names.h"

namespace zeapi::platform {
namespace {

bool IsDriveLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool Exists(const char* path) {
  struct stat status;
  return lstat(path, &status) == 0;
}

// Writes "$ZEAPI_DRIVES/x/" for the drive letter; false without the variable or the room.
bool WriteDrive(char letter, HostPath* host) {
  const char* drives = std::getenv("ZEAPI_DRIVES");
  if (drives == nullptr || drives[0] == '\0') return false;
  const std::size_t length = std::strlen(drives);
  if (length + 4 > sizeof(host->text)) return false;
  char* end = std::copy_n(drives, length, host->text);
  *end++ = '/';
  *end++ = static_cast<char>(letter | 0x20);
  *end++ = '/';
  host->rest = static_cast<std::size_t>(end - host->text);
  return true;
}

// Resolves "." and ".." as Windows does: by the text alone, and the root of a drive is its own parent.
void ResolveDots(char* components) {
  char* to = components;
  bool endsInDots = false;
  for (const char* from = components; *from != '\0';) {
    const std::size_t length = std::strcspn(from, "/");
    const bool parted = from[length] == '/';
    const bool here = length == 0 || std::string_view(from, length) == ".";
    const bool up = std::string_view(from, length) == "..";
    if (up) {
      if (to != components) --to;  // the separator
      while (to != components && to[-1] != '/') --to;
    } else if (!here) {
      std::memmove(to, from, length);
      to += length;
      if (parted) *to++ = '/';
    }
    endsInDots = (here || up) && !parted;
    from += length + (parted ? 1 : 0);
  }
  if (endsInDots && to != components) --to;
  *to = '\0';
}

// Replaces the component at `name`, the last one of the host path, by the first entry of its folder
// that equals it but for case. False when there is none.
bool MatchComponent(HostPath* host, char* name) {
  const auto folderLength = static_cast<std::size_t>(name - host->text);
  const KeptName kept = MatchKeptName(host->text, folderLength, name);
  if (kept != KeptName::kUnknown) return kept == KeptName::kMatched;
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

}  // namespace

// Corrects each component as far as the path exists.
void MatchCase(HostPath* host) {
  char* rest = host->text + std::max(host->rest, CorrectKeptFolder(host->text));
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

bool ToHostPathAsWritten(const char* path, HostPath* host) {
  if (path == nullptr || path[0] == '\0') return false;
  host->rest = 0;
  if (IsDriveLetter(path[0]) && path[1] == ':') {
    if (!WriteDrive(path[0], host)) return false;
    path += 2;
  }
  const std::size_t length = std::strlen(path);
  if (length >= sizeof(host->text) - host->rest) return false;
  std::replace_copy(path, path + length + 1, host->text + host->rest, '\\', '/');
  if (host->rest != 0) ResolveDots(host->text + host->rest);
  return true;
}

bool ToHostPath(const char* path, HostPath* host) {
  if (!ToHostPathAsWritten(path, host)) return false;
  if (!Exists(host->text)) MatchCase(host);
  return true;
}

}  // namespace zeapi::platform
