// Windows paths on a posix host.
#pragma once

#include <climits>
#include <cstddef>

namespace zeapi::platform {

// A path of the host, kept without the heap: paths are made for every log line.
struct HostPath {
  char text[PATH_MAX];
  std::size_t rest;  // where in `text` goes on what follows the drive
};

// Turns a Windows path into a path of the host. "\" becomes "/"; "x:" becomes "$ZEAPI_DRIVES/x",
// and without that variable there is no drive; "." and ".." on a drive are resolved by the text; a
// component that does not exist as written is looked up without regard to case. A path that does not
// exist is passed on as written, to be created.
// False when the path is empty, names a drive that does not exist, or is too long.
bool ToHostPath(const char* path, HostPath* host);

// The two halves of ToHostPath, for callers to whom the failure of what they do tells that the name
// does not exist as written: the path as written, and the correction of its case.
bool ToHostPathAsWritten(const char* path, HostPath* host);
void MatchCase(HostPath* host);

}  // namespace zeapi::platform
