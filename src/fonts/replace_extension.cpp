#include "fonts/replace_extension.h"

#include <algorithm>
#include <cassert>

namespace zeapi {

PathText ReplaceExtension(std::string_view path, std::string_view extension) {
  assert(path.size() <= ZE_MAX_NAME && extension.size() < 16);
  const std::size_t mark = path.find_last_of(".\\/:");
  if (mark != std::string_view::npos && path[mark] == '.') {
    path = path.substr(0, extension.starts_with('.') ? mark : mark + 1);
  }
  PathText replaced = {};
  char* end = std::copy(path.begin(), path.end(), replaced.text);
  std::copy(extension.begin(), extension.end(), end);
  return replaced;
}

}  // namespace zeapi
