// The content of a page, gathered in the file "temp.str" of the current directory while the reader
// walks the page.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>

#include "pclxl/xl_input.h"
#include "pclxl/xl_result.h"

namespace zeapi {

// Embedded data counts its bytes in 32 bits; the header that goes before the body counts too.
inline constexpr std::uint32_t kXlLongestPageBody = 0xFFFFFFFF - 17;

class XlPageBody {
 public:
  ~XlPageBody();
  XlPageBody() = default;
  XlPageBody(const XlPageBody&) = delete;
  XlPageBody& operator=(const XlPageBody&) = delete;

  // Makes the file anew. Returns 0 or 53.
  XlResult Begin();

  // Appends what the input holds from `begin` to where it is, and leaves it there. Returns 0, 53
  // (reading or writing failed) or 54 (too long, or fewer bytes could be read).
  XlResult Append(std::uint64_t begin, XlInput* input);

  // Writes what is still held and closes the file. Returns 0 or 53.
  XlResult End();

  // Bytes in the file.
  std::uint32_t size() const { return size_; }

 private:
  bool WriteBuffer();
  XlResult CopyLarge(std::uint64_t length, XlInput* input);

  std::FILE* file_ = nullptr;
  std::array<std::uint8_t, 1024> buffer_;
  std::size_t fill_ = 0;
  std::uint32_t size_ = 0;
};

}  // namespace zeapi
