// Taking Windows paths apart, and putting them together.
#pragma once

#include <string>
#include <string_view>

namespace zeapi {

inline bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// The parts of a path, in order; together they are the path. Views into it.
struct PathParts {
  std::string_view drive;      // "c:" or empty
  std::string_view directory;  // up to and including the last separator
  std::string_view baseName;   // file name up to its last dot
  std::string_view extension;  // the rest, with its dot
};
PathParts SplitPath(std::string_view path);

// Offset of the file name in a path: what follows the last separator or colon.
std::size_t FileNameOffset(std::string_view path);

// The folder with a "\" at its end, unless it ends in a separator of either kind.
std::string EndedBySeparator(std::string_view folder);

// Like EndedBySeparator, but a "/" does not do: callers see the path.
std::string EndedByBackslash(std::string_view folder);

}  // namespace zeapi
