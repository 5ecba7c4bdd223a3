// Macro management: the jobs behind the macro calls. Their arguments have been checked.
#pragma once

#include <cstdint>

#include "base/result.h"

namespace zeapi {

// Sends the file as a macro definition, without a frame.
Result CreateMacro(const char* macroFile, const char* printerName, const ZeDestination& destination,
                   ZeMacroInfo* macro);

// Sends the file as a job: ZE_MACRO_PRINT_ONCE, ZE_MACRO_STORE or ZE_MACRO_RAW.
Result DownloadMacro(const char* macroFile, const char* printerName,
                     const ZeDestination& destination, ZeMacroInfo* macro, std::int32_t mode,
                     bool wrap);

// Switches an overlay on or off. Returns 0, 1 for a language without overlays, or the failure of
// opening the queue. Failed writes are not reported.
Result ActivateMacro(const char* printerName, const ZeDestination& destination, bool enable);

// Like ActivateMacro, but deletes a macro.
Result DeleteMacro(const char* printerName, const ZeDestination& destination);

// Says whether the file may be stored as a macro; see ZeMacValidate in zeapi.h.
Result ValidateMacro(const char* macroFile, const ZeDestination& destination, ZeMacroInfo* macro);

}  // namespace zeapi
