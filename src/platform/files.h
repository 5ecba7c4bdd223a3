// What the library needs of the host's file system. Paths are Windows paths on every host.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace zeapi::platform {

// Opens a C stream with a mode of fopen. Text modes follow the host: reading turns CR LF into a
// line feed everywhere, writing gives CR LF on Windows and a line feed elsewhere. A text stream
// opened for reading alone can be rewound but not positioned. Null on failure, for a directory, and
// for an empty mode.
std::FILE* OpenStream(const char* path, const char* mode);

// Like OpenStream(path, "a"), but does not wait where somebody has put a pipe that nobody reads.
std::FILE* OpenLogStream(const char* path);

bool PathExists(const char* path);
bool PathReadable(const char* path);

enum class PathKind { kMissing, kRegularFile, kFolder, kOther };
PathKind QueryPath(const char* path);  // a null path is missing

// True when both paths lead to one existing file.
bool SameFile(const char* a, const char* b);

// Creates one directory; false when that fails or the directory exists.
bool MakeDirectory(const char* path);

bool RemoveFile(const char* path);

// Makes an empty temporary file: in the system's folder for such files where it names one, else in
// `directory`. Stores its name in a buffer of `size` bytes.
bool TemporaryName(const char* directory, const char* prefix, char* name, std::size_t size);

// Copies a regular file over whatever the destination holds. Returns 0 or a system error in the
// numbering of Windows.
std::uint32_t CopyOver(const char* source, const char* destination);

}  // namespace zeapi::platform
