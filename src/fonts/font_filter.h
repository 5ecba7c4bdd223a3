// Which fonts a search lists.
#pragma once

#include <cstdint>

#include "zeapi.h"

namespace zeapi {

// The filters of a search; see ZeFonFind().
struct FontFilter {
  std::uint32_t type;
  std::uint32_t kind;

  // True when both are in their range.
  bool IsValid() const;

  // True when the search also reads GLUE.TXT: it may list PCL fonts.
  bool ReadsGlue() const;

  // True for a font to list; `path` is where it lies. The type filter of Windows drivers reads the
  // file.
  bool Passes(const char* path, const ZeFontInfo& font) const;
};

}  // namespace zeapi
