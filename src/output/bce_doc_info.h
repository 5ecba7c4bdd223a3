// The document-information block that the bidirectional DLL is given when a document starts.
#pragma once

#include <cstdint>

#include "base/c_heap.h"
#include "zeapi.h"

namespace zeapi {

// Five little-endian 32-bit words (total size of the block in bytes; offsets of the four strings),
// then computer name, user name, "Vantrel" and the job name, each with its terminator. A name that
// the system does not tell, and a job name that is null, is empty. Null when there is no memory.
CHeapPtr<std::uint8_t[]> MakeBceDocInfo(const ZeDestination& destination);

}  // namespace zeapi
