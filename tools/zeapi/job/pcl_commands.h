// What the parameterised PCL commands mean, by their characters without the value: "&lX".
#pragma once

#include <string_view>

namespace tool {

struct PclCommand {
  std::string_view command;
  std::string_view meaning;  // a few words, as a heading
  std::string_view payload;  // what the value counts bytes of; empty when no bytes follow
};

// The command; null for one that is not in the table.
const PclCommand* FindPclCommand(std::string_view command);

// What ESC and these characters mean; empty for a sequence without a name.
std::string_view EscapeMeaning(std::string_view characters);

}  // namespace tool
