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

}  // namespace zeapi::platform
