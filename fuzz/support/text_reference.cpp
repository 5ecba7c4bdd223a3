#include "support/text_reference.h"

namespace zeapi::fuzz {

std::string TextOf(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\x1A'));
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes.substr(i, 2) != "\r\n") text += bytes[i];
  }
  return text;
}

}  // namespace zeapi::fuzz
