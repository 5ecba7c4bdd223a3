// Bytes of a job as a person can read them on any terminal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tool {

// The first bytes, at most `limit` characters, with "..." when there are more. What is not
// printable ASCII is an escape: \n \r \t \f \e \\ and \xHH.
std::string Excerpt(std::span<const std::uint8_t> bytes, std::size_t limit);

// The same for text, without a limit.
std::string Printable(const std::string& text);

}  // namespace tool
