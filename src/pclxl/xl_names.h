// Names of PCL XL attributes and of the values that some of them enumerate; the listing shows them.
#pragma once

#include <cstdint>

namespace zeapi {

// Null for an identifier without a name.
const char* XlAttributeName(std::uint32_t id);

// The name of a value of an attribute; null where there is none.
const char* XlEnumerationName(std::uint32_t id, std::uint8_t value);

}  // namespace zeapi
