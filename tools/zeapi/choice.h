// Options that take one of a few names and stand for numbers of the library.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <span>
#include <string>

namespace tool {

struct Choice {
  const char* name;
  std::int32_t value;
};

// Storage devices, as printers name them.
inline constexpr std::size_t kDeviceCount = 5;
extern const Choice kDevices[kDeviceCount];

// Storage requests.
inline constexpr std::size_t kRequestCount = 4;
extern const Choice kRequests[kRequestCount];

// Printer languages.
inline constexpr std::size_t kLanguageCount = 7;
extern const Choice kLanguages[kLanguageCount];

// Lets an option take one of the names, in any case, and turns it into its number.
CLI::Validator OneOf(std::span<const Choice> choices);

// "a, b or c"
std::string NamesOf(std::span<const Choice> choices);

// The name of a number that is in the table.
std::string NameOf(std::span<const Choice> choices, std::int32_t value);

}  // namespace tool
