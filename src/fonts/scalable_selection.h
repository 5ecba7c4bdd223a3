// What all scalable fonts of a PCL 5 device share.
#pragma once

#include <string>
#include <string_view>

namespace zeapi {

inline constexpr char kPcl5Device[] = "PCL5 / HP LaserJet III";

// The escape sequence that selects a scalable font. The driver puts a size in the place of "#HEIGHT".
struct ScalableSelection {
  std::string_view symbolSet;  // code text, such as "8U"
  bool proportional;
  int style;
  int strokeWeight;
  unsigned typeface;

  std::string Text() const;
};

}  // namespace zeapi
