// The macro fixup: passes a PCL or PostScript file on without the commands that must not stand in a
// stored macro. PCL XL has a fixup of its own, see stream_fixup.h.
#pragma once

#include <cstdint>
#include <cstdio>

#include "output/ZeQue.h"
#include "pclxl/filter_io.h"

namespace zeapi {

// Sends the file, from its start, into the queue. The language of the queue's destination selects
// what is dropped; files in languages other than PCL and PostScript pass unchanged. `options` are
// ZE_FIXUP_... bits for PCL. `overlayHeader`, which may be null, is a line that goes behind each
// "%!PS" line of a PostScript file. A failed write does not end the reading. Returns 0, 6 (the file
// could not be read to its end), 11, or the queue's `error`.
Result MacroFixupSend(std::FILE* file, GenQueContext* ctx, std::uint32_t options,
                      const char* overlayHeader);

// Like MacroFixupSend, for a language and a sink of any kind. Returns 0, 6 or 11.
Result FilterMacro(std::FILE* file, std::int32_t language, std::uint32_t options,
                   const char* overlayHeader, filter::FilterSink* sink);

}  // namespace zeapi
