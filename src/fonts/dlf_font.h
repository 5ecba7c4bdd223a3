// DLF download fonts: their readable description.
#pragma once

#include <cstddef>
#include <cstdio>

namespace zeapi {

// Describes the DLF font at which `stream` stands, in at most `size` bytes with the terminator (at
// least 1). The description is empty when it is not a DLF font.
void DescribeDlfFont(std::FILE* stream, char* description, std::size_t size);

}  // namespace zeapi
