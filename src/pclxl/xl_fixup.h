// The middle of the stream fixup: from a stream without job control to its stored form.
#pragma once

#include <string_view>

#include "pclxl/xl_result.h"

namespace zeapi {

// Turns "in.str" into "out.str". Returns 0, a code of the reader, 2 also for a session without a
// page, or 53 (a work file failed; the name is longer than 255 bytes, or what opens the session
// longer than 52).
//
// Kept: a stream with a bad header is walked all the same, from where the check stopped; and without
// memory for the reader the result is 0 and "out.str" keeps what it held.
XlResult XlFixupStream(std::string_view streamName, bool execute);

}  // namespace zeapi
