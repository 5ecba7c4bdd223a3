// Stands in for the host's identity and its console.
#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"

namespace zeapi::testing {

struct HostDouble {
  std::string computer = "TESTHOST";
  std::string user = "tester";
  bool known = true;  // false: the system does not tell either name
  std::uint16_t language = 0x0409;
  platform::SystemVersion system = {2, 5, 1};
  std::string console;  // what the library showed on standard output
};

HostDouble& Host();
void ResetHost();

}  // namespace zeapi::testing
