#include "fonts/scalable_selection.h"

#include <cstdio>

namespace zeapi {

std::string ScalableSelection::Text() const {
  char text[96];
  std::snprintf(text, sizeof(text), "\x1B(%.*s\x1B(s%dp%ds%db%uT\x1B(s#HEIGHTV",
                static_cast<int>(symbolSet.size()), symbolSet.data(), proportional ? 1 : 0, style,
                strokeWeight, typeface);
  return text;
}

}  // namespace zeapi
