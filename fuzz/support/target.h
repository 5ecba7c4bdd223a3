// What every fuzz target has: its entry point, called by libFuzzer or by the replay program, and
// the end of the process when a promise is broken.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace zeapi::fuzz {

// Says what was promised and aborts unless it holds.
void Check(bool holds, const char* promise);

// How many files are open: as many after a call as before, when it closes its files.
int OpenDescriptors();

}  // namespace zeapi::fuzz
