// The numbers of open files as handles of the host.
#pragma once

#include <windows.h>

#include "platform/handle_files.h"

namespace zeapi::platform {

inline HANDLE ToHandle(FileHandle file) {
  return reinterpret_cast<HANDLE>(static_cast<INT_PTR>(file));
}

// The low half is the whole of it, in programs of 64 bits too.
inline FileHandle FromHandle(HANDLE handle) {
  return static_cast<FileHandle>(reinterpret_cast<INT_PTR>(handle));
}

}  // namespace zeapi::platform
