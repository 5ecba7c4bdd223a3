#include "platform/standard_input.h"

#include <windows.h>

namespace zeapi::platform {

bool StandardInputByte(char* byte) {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  DWORD count = 0;
  switch (GetFileType(input)) {
    case FILE_TYPE_DISK:
      break;
    case FILE_TYPE_PIPE:
      if (!PeekNamedPipe(input, nullptr, 0, nullptr, &count, nullptr) || count == 0) return false;
      break;
    default:
      return false;
  }
  return ReadFile(input, byte, 1, &count, nullptr) && count == 1;
}

}  // namespace zeapi::platform
