#include "platform/host.h"

#include <windows.h>

namespace zeapi::platform {

bool HostComputerName(char* name, std::size_t size) {
  DWORD room = static_cast<DWORD>(size);
  if (GetComputerNameA(name, &room)) return true;
  name[0] = '\0';
  return false;
}

bool HostUserName(char* name, std::size_t size) {
  DWORD room = static_cast<DWORD>(size);
  if (GetUserNameA(name, &room)) return true;
  name[0] = '\0';
  return false;
}

std::uint16_t DefaultLanguage() { return GetUserDefaultLangID(); }

SystemVersion QuerySystem() {
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  if (!GetVersionExA(&version)) return {};
  return {version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion};
}

}  // namespace zeapi::platform
