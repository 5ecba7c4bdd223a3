// Pieces of the values of configuration files.
#pragma once

#include <string_view>

namespace zeapi {

// Takes the next piece of `rest` that is not empty; pieces stand between runs of the separator.
// False when there is none left.
bool TakePiece(std::string_view* rest, char separator, std::string_view* piece);

}  // namespace zeapi
