// Readable names of PCL symbol sets.
#pragma once

#include <string_view>

namespace zeapi {

// Name of a symbol set by its code text such as "8U"; empty when it has none.
std::string_view SymbolSetName(std::string_view code);

}  // namespace zeapi
