// Files that a caller or a folder names, opened only when they are files.
#pragma once

#include <cstdio>

namespace zeapi {

// Like platform::OpenStream, but null for what is there and no regular file: a named pipe would make the
// caller wait for a writer that may never come, and a device may never end.
std::FILE* OpenRegularFile(const char* path, const char* mode);

}  // namespace zeapi
