// The files that the PCL XL fixup writes in the current directory.
#pragma once

namespace zeapi {

// True when a path leads to one of them: to write it would empty what is to be read.
bool IsStreamWorkFile(const char* path);

}  // namespace zeapi
