// The stream fixup: turns a PCL XL job of one page into a session that defines a named stream on
// the printer. It works through the files "in.str" (the job without job control), "temp.str" (the
// page body) and "out.str" (the result) in the current directory, which are made anew and stay.
#pragma once

#include <cstdint>
#include <cstdio>

#include "output/ZeQue.h"

namespace zeapi {

// Fixes up the job in `source` (open, at any position) and sends the result into `queue`. With
// `execute` a page that runs the stream once is appended. `reserved` is not used. Nothing is sent
// unless the whole result stands in "out.str". Returns
//   1            no source
//   3            "in.str" or "out.str" did not open
//   11           no memory for the buffers
//   46           the job could not be fixed up, for whatever reason
//   otherwise    the error that the queue had already, or the result of SendStream.
// Kept: when the memory of the reader cannot be had, what an earlier call left in "out.str" is
// sent.
Result StreamFixupSend(std::FILE* source, GenQueContext* queue, std::uint32_t reserved,
                       const char* streamName, bool execute);

// The PCL XL branch of macro validation, on a file open at its start. Asked to fix up (`macroFlags`
// 2), it writes the fixed-up form to "fixup.str" in the current directory. Otherwise it looks
// whether the file defines a stream and copies its name to `macroName`. Returns 0, 3 ("fixup.str"
// did not open), 6 (shorter than a header), 46, or a result of StreamFixupSend.
Result XlValidateStreamFile(std::FILE* file, const ZeDestination* destination, ZeMacroInfo* macro);

}  // namespace zeapi
