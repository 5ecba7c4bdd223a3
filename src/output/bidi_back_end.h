// The queue's back end that hands the job to the bidirectional-communication DLL, and the one
// question that is asked of that DLL. The DLL and its entry points are loaded once a job and shared
// by the whole process: two jobs on this back end must not overlap.
#pragma once

#include "output/ZeQue.h"

namespace zeapi {

// Loads the DLL, opens the port and starts the document. Returns 0, 11 or 26; the DLL is loaded
// afterwards only when that is 0.
Result OpenBidi(GenQueContext* ctx);

std::uint32_t WriteBidi(const void* data, std::uint32_t length, GenQueContext* ctx);

void CloseBidi(GenQueContext* ctx);

// Type mask of a printer's connection: 2048, 32, 4, 2 or 0 (unknown, or no DLL).
std::uint32_t BidiConnectionType(std::uint32_t printer);

}  // namespace zeapi
