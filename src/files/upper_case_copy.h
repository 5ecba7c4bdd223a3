// Parts of a path in upper case.
#pragma once

namespace zeapi {

// Copy the file name of a path, or what stands before it, with "a" to "z" in upper case. A null
// path gives an empty string. Each returns the destination, or an empty string when that is null.
char* StrCpyFile(char* destination, const char* path);
char* StrCpyPath(char* destination, const char* path);

}  // namespace zeapi
