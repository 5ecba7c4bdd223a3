// Values of attributes as the listing of a PCL XL stream shows them.
#pragma once

#include <string>

#include "pclxl/xl_reader.h"

namespace zeapi {

// An enumerated value of one attribute is shown by its name, whatever its type: its first byte
// decides. The bytes of some arrays (CommentData, StreamName, QueryKey, FontName, TextData) are
// shown as text.
std::string XlValueText(const XlAttribute& attribute);

}  // namespace zeapi
