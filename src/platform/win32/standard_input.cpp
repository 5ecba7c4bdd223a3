#include "platform/standard_input.h"

#include <io.h>

#include <cstdio>
#include <cstring>

namespace zeapi::platform {

char StandardInputAnswer() {
  if (_isatty(_fileno(stdin)) != 0) return '\0';
  char answer = '\0';
  char part[80];
  // A long line is taken whole, so that the next question gets the next one.
  for (bool first = true; std::fgets(part, sizeof(part), stdin) != nullptr; first = false) {
    if (first) answer = part[0];
    if (std::strchr(part, '\n') != nullptr) break;
  }
  return answer == '\n' ? '\0' : answer;
}

}  // namespace zeapi::platform
