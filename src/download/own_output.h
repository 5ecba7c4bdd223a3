// Jobs whose output is their own input.
#pragma once

#include "output/ZeQue.h"

namespace zeapi {

// True when the open queue appends to the very file that the job is to send: a job that would never
// come to its end.
bool IsOwnOutput(const GenQueContext& ctx, const char* input, const char* printerName);

}  // namespace zeapi
