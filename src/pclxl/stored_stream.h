// The stored-stream form of a page: a session that defines a named stream on the printer, with the
// page body as its data.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

#include "pclxl/xl_result.h"

namespace zeapi {

// The header of every stream that is written, and of the data within.
inline constexpr std::string_view kXlStreamHeader = ") HP-PCL XL;1;1;\n";

// Longest name of a stream, and what is kept of how the job opened its session.
inline constexpr std::size_t kXlLongestName = 255;
inline constexpr std::size_t kXlLongestOpening = 52;

// Writes the session. `opening` is kept in it as a comment; the page body is the first `bodySize`
// bytes of "temp.str"; `execute` appends a page that runs the stream. Returns 0, 1 (a write failed)
// or 53 ("temp.str" did not open or has fewer bytes).
XlResult XlWriteStoredStream(std::string_view name, std::span<const std::uint8_t> opening,
                             std::uint32_t bodySize, bool execute, std::FILE* out);

}  // namespace zeapi
