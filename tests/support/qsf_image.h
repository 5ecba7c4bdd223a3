// Binary QSF files, composed field by field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/byte_order.h"

namespace zeapi::testing {

// A file in the making; its type is 7.
struct QsfImage {
  std::string bytes = std::string(74, '\0');

  QsfImage() {
    bytes[0] = 'Q';
    bytes[1] = 'S';
    bytes[4] = 7;
  }
  QsfImage& Byte(std::size_t at, int value) {
    bytes[at] = static_cast<char>(value);
    return *this;
  }
  QsfImage& Block(int number, std::uint32_t offset, std::uint16_t count) {
    const std::size_t at = number == 1 ? 44 : number == 2 ? 50 : 56;
    bytes.replace(at, 6, Le32(offset) + Le16(count));
    return *this;
  }
  QsfImage& Append(std::string_view text) {
    bytes += text;
    return *this;
  }
  // With its checksum: all words but the second and the checksum itself add up to 0.
  std::string Summed() const {
    std::string file = bytes;
    std::uint16_t sum = 0;
    std::uint8_t high = 0;
    for (std::size_t i = 0; i < file.size(); i += 2) {
      if (i + 1 < file.size()) high = static_cast<std::uint8_t>(file[i + 1]);
      const auto word = static_cast<std::uint8_t>(file[i]) | high << 8;
      if (i != 2) sum = static_cast<std::uint16_t>(sum - word);
    }
    return file.replace(2, 2, Le16(sum));
  }
};

}  // namespace zeapi::testing
