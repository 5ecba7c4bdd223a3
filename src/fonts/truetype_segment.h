// The TrueType tables that a PCL soft font brings in its header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi {

// How far each glyph advances, in design units.
class TrueTypeAdvances {
 public:
  // Finds the tables in the segments that begin at an offset of the header. False when they are not
  // there or cut short. The header must outlive the calls of Of().
  bool Read(std::span<const std::uint8_t> header, std::size_t segments);

  // Glyphs beyond the table advance by as much as its last entry says.
  int Of(std::uint16_t glyph) const;

 private:
  std::span<const std::uint8_t> table_;
  std::uint16_t count_ = 0;  // of entries
};

}  // namespace zeapi
