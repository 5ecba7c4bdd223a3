// Writes bits, lowest bit of each byte first.
#pragma once

#include <cstdint>
#include <string>

namespace zeapi::testing {

class BitWriter {
 public:
  // The low bit first.
  void Put(std::uint32_t value, unsigned bits) {
    for (unsigned i = 0; i < bits; ++i) PutBit((value >> i & 1) != 0);
  }

  // A code: its highest bit first.
  void PutCode(std::uint32_t code, unsigned bits) {
    for (unsigned i = bits; i-- > 0;) PutBit((code >> i & 1) != 0);
  }

  void Align() { used_ = 8; }

  const std::string& bytes() const { return bytes_; }

 private:
  void PutBit(bool bit) {
    if (used_ == 8) {
      bytes_ += '\0';
      used_ = 0;
    }
    if (bit) bytes_.back() = static_cast<char>(bytes_.back() | 1 << used_);
    ++used_;
  }

  std::string bytes_;
  unsigned used_ = 8;
};

}  // namespace zeapi::testing
