// Web addresses of a printer's support topics.
#pragma once

#include <cstdint>

#include "base/result.h"
#include "config/ini_file.h"

namespace zeapi {

// Base "/" topic "/" language "/" printer; `ini` may be null. Returns 0, 1, 11, 42, 44 or a code of
// IniRead2; every failure leaves an empty text.
Result WebGetUrl(std::int32_t printer, std::int32_t topic, std::int32_t language, char* buffer,
                 std::uint32_t size, IniFile* ini);

// The address as a query, which also tells the user's language and system. Returns 0, 1 or 42.
Result WebGetCgiUrl(std::uint32_t family, std::uint32_t model, std::uint32_t topic,
                    std::uint16_t language, char* buffer, std::uint32_t size);

}  // namespace zeapi
