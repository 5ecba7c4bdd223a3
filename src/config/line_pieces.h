// Lines of an INI file as they are read: in pieces of limited length.
#pragma once

#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace zeapi {

// Longest piece, newline included. A longer line comes in several pieces.
inline constexpr std::size_t kLongestPiece = 1019;

class LinePieces {
 public:
  explicit LinePieces(std::FILE* stream) : stream_(stream) {}

  // The next piece, with its newline where that is part of it, up to its first zero byte. False at the end of
  // the file or when it cannot be read. `piece` is valid until the next call.
  bool Next(std::string_view* piece);

 private:
  void Refill();

  std::FILE* stream_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool ended_ = false;
  bool hasZeros_ = false;  // somewhere in the room
  std::array<char, 65536> room_;
};

}  // namespace zeapi
