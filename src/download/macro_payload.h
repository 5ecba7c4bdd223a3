// What creating and downloading a macro have in common.
#pragma once

#include <cstdint>
#include <cstdio>

#include "base/result.h"
#include "base/stream.h"
#include "download/stored_name.h"
#include "output/ZeQue.h"

namespace zeapi {

// A macro file that is being sent.
struct MacroPayload {
  const char* path = nullptr;
  Stream file;
  const ZeMacroInfo* macro = nullptr;
  StoredName name = {};
  std::uint32_t fixupOptions = 0;  // ZE_FIXUP_... bits, used when the macro is to be fixed up
  bool makesWorkFiles = false;     // the fixup of a PCL XL file does
};

// Whether the macro's record asks for something, ZE_MACRO_...
bool Asks(const ZeMacroInfo& macro, std::uint32_t flag);

// Opens the file and takes over what the record says; a record with a limit of its own for the
// fixup is marked for fixup. `asItIs`: the job leaves the file as it is, whatever the record asks
// for. Returns 0, 2, 27 or 3 (also for a file that its own fixup makes anew).
Result OpenMacro(const char* macroFile, const ZeDestination& destination, bool asItIs,
                 ZeMacroInfo* macro, MacroPayload* payload);

// Opens the queue for the macro's job, but not on a file that its fixup makes anew. Returns 0, 3, 11
// or 26; after a failure there is nothing to close.
Result OpenMacroQueue(const MacroPayload& payload, const char* printerName, GenQueContext* ctx);

// Sends the command that starts a PCL or PPDS definition; nothing in other languages. Returns 0 or
// 37 (a PPDS macro too large for its header).
Result WriteDefinitionStart(const MacroPayload& payload, GenQueContext* ctx);

// Sends the file, fixed up if the record asks for it. `execute` and `overlayHeader` are for PCL XL
// and PostScript. Returns the result of the sender or the fixup.
Result SendMacroFile(const MacroPayload& payload, bool execute, const char* overlayHeader,
                     GenQueContext* ctx);

// Writes the command that switches the macro on or off as overlay. Returns 0, or 1 in a language
// that has no overlays.
Result WriteActivation(bool enable, GenQueContext* ctx);

}  // namespace zeapi
