// Looking for the name of a stored stream in its file.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>

namespace zeapi {

// A name as macro records hold it: at most 23 characters and the terminator.
using XlStreamName = std::array<char, 24>;

// Reads at most 499 bytes from where the file is, up to a BeginStream, and looks before it for the
// array that names the stream.
// Kept: it finds none. Validation without fixup refuses every file for that, and callers know it.
bool XlFindStreamName(std::FILE* file, XlStreamName* name);

// The search itself, in bytes that end with BeginStream, for an array that begins with `arrayTag`.
// A longer name is cut.
bool XlNameBeforeBeginStream(std::span<const std::uint8_t> bytes, int arrayTag, XlStreamName* name);

}  // namespace zeapi
