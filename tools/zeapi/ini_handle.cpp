#include "ini_handle.h"

namespace tool {

IniValue ReadValue(void* ini, const std::string& section, const std::string& key,
                   const char* fallback) {
  IniValue value = {ZE_BUFFER_TOO_SMALL, std::string(128, '\0')};
  std::uint32_t count = 0;
  while (value.result == ZE_BUFFER_TOO_SMALL) {
    value.text.resize(2 * value.text.size());
    value.result = ZeIniRead2(ini, section.c_str(), key.c_str(), fallback, value.text.data(),
                              static_cast<std::uint32_t>(value.text.size()), &count);
  }
  value.text.resize(count);
  return value;
}

}  // namespace tool
