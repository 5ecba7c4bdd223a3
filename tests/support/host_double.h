// Stands in for the host's identity and its console.
#pragma once

#include <string>

namespace zeapi::testing {

struct HostDouble {
  std::string computer = "TESTHOST";
  std::string user = "tester";
  bool known = true;    // false: the system does not tell either name
  std::string console;  // what the library showed on standard output
};

HostDouble& Host();
void ResetHost();

}  // namespace zeapi::testing
