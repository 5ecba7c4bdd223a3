// Choosing members by a pattern.
#pragma once

#include <string_view>

namespace zeapi {

// "*" any run of characters, "?" one character, "[...]" one of a set: "!" or "^" at its start turns it
// round, "-" between two characters makes a range of them in either order, "\" takes the next
// character as it is. A set that is empty or not closed matches nothing. Letters outside sets match in
// either case.
bool MatchesWildcard(std::string_view name, std::string_view pattern);

}  // namespace zeapi
