#include "files/make_path.h"

#include <cstring>
#include <string>
#include <string_view>

#include "base/text.h"
#include "files/split_path.h"
#include "platform/files.h"

namespace zeapi {
namespace {

// Length of what stands before the first directory to look at; 0 for a path that has no such start.
// The share of a server counts as a directory: callers see it checked, and made where that works.
std::size_t FixedPrefix(std::string_view path, bool hasDrive) {
  if (hasDrive) return 3;
  const std::size_t serverEnd = path.find('\\', 3);
  return serverEnd == std::string_view::npos ? 0 : serverEnd + 1;
}

// Makes sure that the directory is there; `made` tells whether it had to be made.
bool EnsureDirectory(const char* path, bool* made) {
  *made = false;
  switch (platform::QueryPath(path)) {
    case platform::PathKind::kRegularFile:
      return false;
    case platform::PathKind::kFolder:
    case platform::PathKind::kOther:
      return true;
    case platform::PathKind::kMissing:
      break;
  }
  *made = platform::MakeDirectory(path);
  return *made;
}

}  // namespace

Result FilMakePath(const char* path, char* created) {
  if (created != nullptr) created[0] = '\0';
  if (path == nullptr || path[0] == '\0' || NameTooLong(path)) return ZE_UNUSABLE;
  const PathParts parts = SplitPath(path);
  const bool hasDrive = !parts.drive.empty();
  if (!hasDrive && std::strncmp(path, "\\\\", 2) != 0) return ZE_UNUSABLE;
  if (parts.baseName.empty()) return ZE_UNUSABLE;

  std::string full(parts.drive);
  if (parts.directory.empty() || !IsSeparator(parts.directory[0])) full += '\\';
  full.append(parts.directory).append(parts.baseName).append(parts.extension);
  const std::size_t prefix = FixedPrefix(full, hasDrive);
  if (prefix == 0) return ZE_UNUSABLE;

  std::string working;
  working.reserve(full.size() + 1);  // so that nothing fails for want of memory halfway
  working.assign(full, 0, prefix);
  std::string_view rest = std::string_view(full).substr(prefix);
  while (!rest.empty()) {
    const std::string_view component = rest.substr(0, rest.find_first_of("\\/"));
    rest.remove_prefix(component.size());
    if (!rest.empty()) rest.remove_prefix(1);
    if (component.empty()) continue;
    working += component;
    bool made = false;
    if (!EnsureDirectory(working.c_str(), &made)) return ZE_UNUSABLE;
    if (made && created != nullptr) {
      *created++ = '\\';
      created += component.copy(created, component.size());
      *created = '\0';
    }
    working += '\\';
  }
  return ZE_OK;
}

}  // namespace zeapi
