// Who and where this process is.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zeapi::platform {

// Each stores a zero-terminated name in a buffer of `size` bytes. False, and an empty name, when
// the system does not tell or the buffer is too small.
bool HostComputerName(char* name, std::size_t size);
bool HostUserName(char* name, std::size_t size);

// The user's language as Windows numbers it: primary language in the low 10 bits, its variant above.
std::uint16_t DefaultLanguage();

// Which Windows this is; on other hosts a platform that no Windows has.
inline constexpr std::uint32_t kPlatformNt = 2;
struct SystemVersion {
  std::uint32_t platform = 0;
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
};
SystemVersion QuerySystem();

}  // namespace zeapi::platform
