#include "files/split_path.h"

namespace zeapi {

PathParts SplitPath(std::string_view path) {
  PathParts parts;
  if (path.size() >= 2 && path[1] == ':') parts.drive = path.substr(0, 2);
  const std::string_view rest = path.substr(parts.drive.size());
  const std::size_t separator = rest.find_last_of("\\/");
  const std::size_t name = separator == std::string_view::npos ? 0 : separator + 1;
  parts.directory = rest.substr(0, name);
  const std::string_view fileName = rest.substr(name);
  parts.baseName = fileName.substr(0, fileName.rfind('.'));
  parts.extension = fileName.substr(parts.baseName.size());
  return parts;
}

std::size_t FileNameOffset(std::string_view path) {
  const std::size_t last = path.find_last_of("\\/:");
  return last == std::string_view::npos ? 0 : last + 1;
}

std::string EndedBySeparator(std::string_view folder) {
  std::string text(folder);
  if (folder.empty() || !IsSeparator(folder.back())) text += '\\';
  return text;
}

std::string EndedByBackslash(std::string_view folder) {
  std::string text(folder);
  if (!folder.ends_with('\\')) text += '\\';
  return text;
}

}  // namespace zeapi
