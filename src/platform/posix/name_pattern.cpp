#include "platform/posix/name_pattern.h"

#include <strings.h>

#include <cstring>

namespace zeapi::platform {
namespace {

bool SameLetter(char a, char b) { return strncasecmp(&a, &b, 1) == 0; }

// True when what is left of a pattern matches the end of a name.
bool MatchesEnd(const char* pattern) {
  if (*pattern == '.' && (pattern[1] == '\0' || pattern[1] == '*' || pattern[1] == '?')) ++pattern;
  while (*pattern == '*' || *pattern == '?') ++pattern;
  return *pattern == '\0';
}

}  // namespace

bool HasWildcard(const char* pattern) { return std::strpbrk(pattern, "*?") != nullptr; }

bool MatchesPattern(const char* name, const char* pattern) {
  const char* star = nullptr;   // the last "*" that was passed
  const char* retry = nullptr;  // where the name goes on when that "*" takes one character more
  while (*name != '\0') {
    if (*pattern == '*') {
      star = pattern++;
      retry = name;
    } else if (*pattern != '\0' && (*pattern == '?' || SameLetter(*pattern, *name))) {
      ++pattern;
      ++name;
    } else if (star != nullptr) {
      pattern = star + 1;
      name = ++retry;
    } else {
      return false;
    }
  }
  return MatchesEnd(pattern);
}

}  // namespace zeapi::platform
