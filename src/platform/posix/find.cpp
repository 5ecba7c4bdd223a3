#include "platform/find.h"

#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/posix/name_pattern.h"
#include "platform/posix/path.h"

namespace zeapi::platform {
namespace {

constexpr std::uint32_t kReadOnly = 1;
constexpr std::uint32_t kDirectory = 16;
constexpr std::uint32_t kArchive = 32;
constexpr std::uint32_t kLink = 1024;

// A folder is never shown as read-only: searches tell folders by the bare directory attribute. A link
// to one shows as such, so that no search goes in circles.
std::uint32_t Attributes(const char* path, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) {
    struct stat itself;
    const bool isLink = lstat(path, &itself) == 0 && S_ISLNK(itself.st_mode);
    return kDirectory | (isLink ? kLink : 0);
  }
  const bool writable = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
  return kArchive | (writable ? 0 : kReadOnly);
}

// To a caller a backslash parts folders: no path means a file with one in its name.
bool CanBeMeant(const char* name) { return std::strchr(name, '\\') == nullptr; }

bool NameBefore(const std::string& a, const std::string& b) {
  const int order = strcasecmp(a.c_str(), b.c_str());
  return order != 0 ? order < 0 : a < b;
}

}  // namespace

struct DirectorySearch::State {
  std::string folder;  // host path, ends in "/" unless it is empty
  std::vector<std::string> names;
  std::size_t next = 0;
};

DirectorySearch::DirectorySearch(const char* pattern) : state_(std::make_unique<State>()) {
  HostPath host;
  if (!ToHostPath(pattern, &host)) return;
  const char* slash = std::strrchr(host.text, '/');
  const char* name = slash == nullptr ? host.text : slash + 1;
  if (*name == '\0') return;  // the name of a folder does not end in a separator
  state_->folder.assign(static_cast<const char*>(host.text), name);
  if (!HasWildcard(name)) {
    state_->names.emplace_back(name);
    return;
  }
  DIR* folder = opendir(slash == nullptr ? "." : state_->folder.c_str());
  if (folder == nullptr) return;
  try {
    while (const dirent* entry = readdir(folder)) {
      if (CanBeMeant(entry->d_name) && MatchesPattern(entry->d_name, name))
        state_->names.emplace_back(entry->d_name);
    }
  } catch (...) {
    closedir(folder);
    throw;
  }
  closedir(folder);
  std::sort(state_->names.begin(), state_->names.end(), NameBefore);
}

DirectorySearch::~DirectorySearch() = default;

bool DirectorySearch::Next(FoundEntry* entry) {
  while (state_->next < state_->names.size()) {
    std::string& name = state_->names[state_->next++];
    struct stat status;
    // Gone since the folder was read, or a link to nothing: passed over.
    const std::string path = state_->folder + name;
    if (stat(path.c_str(), &status) != 0) continue;
    entry->name = std::move(name);
    entry->size = S_ISDIR(status.st_mode) ? 0 : static_cast<std::uint32_t>(status.st_size);
    entry->attributes = Attributes(path.c_str(), status);
    return true;
  }
  return false;
}

}  // namespace zeapi::platform
