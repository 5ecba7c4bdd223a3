#include "files/system_file.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"

namespace zeapi {
namespace {

constexpr std::array<std::string_view, 9> kSystemExtensions = {"BAT", "CMD", "COM", "DLL", "DRV",
                                                               "EXE", "HLP", "INI", "SYS"};

}  // namespace

bool IsSystemFile(const char* path) {
  const std::string_view text(path);
  const std::size_t dot = text.rfind('.');
  if (dot == std::string_view::npos) return false;
  // Only three characters are compared, so that "exec" counts as a program too.
  const std::string_view extension = text.substr(dot + 1, 3);
  return std::any_of(
      kSystemExtensions.begin(), kSystemExtensions.end(), [extension](std::string_view known) {
        return std::equal(known.begin(), known.end(), extension.begin(), extension.end(),
                          [](char a, char b) { return a == AsciiUpper(b); });
      });
}

}  // namespace zeapi
