// Who and where this process is.
#pragma once

#include <cstddef>

namespace zeapi::platform {

// Each stores a zero-terminated name in a buffer of `size` bytes. False, and an empty name, when
// the system does not tell or the buffer is too small.
bool HostComputerName(char* name, std::size_t size);
bool HostUserName(char* name, std::size_t size);

}  // namespace zeapi::platform
