// Reading a text file as Windows does.
#pragma once

#include <cstdio>

namespace zeapi::platform {

// Takes over the descriptor of an open file and returns a stream that reads it as text: CR LF comes
// as a line feed, a lone CR as it is, and a Ctrl-Z (0x1A) ends the file. The stream can be rewound
// but not positioned. Null on failure, with the descriptor closed.
std::FILE* OpenTextReader(int descriptor);

}  // namespace zeapi::platform
