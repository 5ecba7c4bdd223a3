// Result codes inside the library are the interface's own: see ZeResult in zeapi.h.
#pragma once

#include <cstdint>

#include "zeapi.h"

namespace zeapi {

using Result = std::uint32_t;

}  // namespace zeapi
