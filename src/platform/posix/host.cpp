#include "platform/host.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "platform/posix/language.h"

namespace zeapi::platform {
namespace {

// Stores the first `length` characters of `text`; false and empty when they do not fit.
bool Store(const char* text, std::size_t length, char* name, std::size_t size) {
  const bool fits = length < size;
  if (fits) std::memcpy(name, text, length);
  name[fits ? length : 0] = '\0';
  return fits;
}

}  // namespace

// A Windows computer name has at most 15 characters and no domain; longer host names are cut to
// that.
bool HostComputerName(char* name, std::size_t size) {
  constexpr std::size_t kLongest = 15;
  char host[256] = "";
  if (gethostname(host, sizeof(host) - 1) != 0) host[0] = '\0';
  std::size_t length = std::strcspn(host, ".");
  if (length > kLongest) length = kLongest;
  return Store(host, length, name, size) && length > 0;
}

bool HostUserName(char* name, std::size_t size) {
  char buffer[4096];
  passwd entry;
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, buffer, sizeof(buffer), &found) != 0 || found == nullptr) {
    name[0] = '\0';
    return false;
  }
  return Store(found->pw_name, std::strlen(found->pw_name), name, size);
}

// The language of messages: the first of the variables that is set and not empty.
std::uint16_t DefaultLanguage() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* locale = std::getenv(variable);
    if (locale != nullptr && locale[0] != '\0') return LanguageOfLocale(locale);
  }
  return LanguageOfLocale("C");
}

SystemVersion QuerySystem() { return {kPlatformNt + 1, 0, 0}; }

}  // namespace zeapi::platform
