#include "support/host_double.h"

#include <cstring>

#include "platform/console.h"

namespace zeapi::testing {

HostDouble& Host() {
  static HostDouble host;
  return host;
}

void ResetHost() { Host() = HostDouble{}; }

}  // namespace zeapi::testing

namespace zeapi::platform {
namespace {

bool Tell(const std::string& value, char* name, std::size_t size) {
  const bool told = testing::Host().known && value.size() < size;
  std::strcpy(name, told ? value.c_str() : "");
  return told;
}

}  // namespace

bool HostComputerName(char* name, std::size_t size) {
  return Tell(testing::Host().computer, name, size);
}

bool HostUserName(char* name, std::size_t size) { return Tell(testing::Host().user, name, size); }

std::uint16_t DefaultLanguage() { return testing::Host().language; }

SystemVersion QuerySystem() { return testing::Host().system; }

void ConsoleWrite(std::string_view text) { testing::Host().console += text; }

}  // namespace zeapi::platform
