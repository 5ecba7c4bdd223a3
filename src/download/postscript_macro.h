// What stands round a PostScript macro: a procedure in the printer's memory, a file on a device, or
// an overlay for one page.
#pragma once

#include "download/macro_payload.h"
#include "output/ZeQue.h"

namespace zeapi {

// Each writes one command after another, and stops at a failed write after closing the queue; the
// result is then false.
bool WriteOverlayStart(const MacroPayload& payload, GenQueContext* ctx);
bool WriteOverlayEnd(const MacroPayload& payload, GenQueContext* ctx);
bool WriteStoredStart(const MacroPayload& payload, GenQueContext* ctx);
bool WriteStoredEnd(const MacroPayload& payload, GenQueContext* ctx);

}  // namespace zeapi
