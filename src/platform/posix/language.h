// Windows language identifiers of POSIX locale names.
#pragma once

#include <cstdint>
#include <string_view>

namespace zeapi::platform {

// For a name like "de_AT.UTF-8"; only language and territory count. English (United States) for "C"
// and for a language without an entry.
std::uint16_t LanguageOfLocale(std::string_view locale);

}  // namespace zeapi::platform
