// File name patterns as the Windows directory search understands them.
#pragma once

namespace zeapi::platform {

// True when `pattern` holds * or ?.
bool HasWildcard(const char* pattern);

// Matches without regard to case. "*" is any run of characters, "?" any one; a "." before a
// wildcard or at the end of the pattern also matches the end of the name, so that "*.*" matches
// every name.
bool MatchesPattern(const char* name, const char* pattern);

}  // namespace zeapi::platform
