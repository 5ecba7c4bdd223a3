#include "files/upper_case_copy.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "files/split_path.h"

namespace zeapi {
namespace {

// What a caller without a buffer gets. Emptied each time, in case somebody wrote to it.
char noDestination[1];

char* CopyUpper(char* destination, std::string_view text) {
  if (destination == nullptr) {
    noDestination[0] = '\0';
    return noDestination;
  }
  *std::transform(text.begin(), text.end(), destination, AsciiUpper) = '\0';
  return destination;
}

}  // namespace

char* StrCpyFile(char* destination, const char* path) {
  const std::string_view text = path != nullptr ? path : "";
  return CopyUpper(destination, text.substr(FileNameOffset(text)));
}

char* StrCpyPath(char* destination, const char* path) {
  const std::string_view text = path != nullptr ? path : "";
  return CopyUpper(destination, text.substr(0, FileNameOffset(text)));
}

}  // namespace zeapi
