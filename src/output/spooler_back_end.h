// The queue's back end that hands the job to the system's print spooler as one raw document.
#pragma once

#include "output/ZeQue.h"

namespace zeapi {

// Opens the printer and starts the document. Returns 0 or 3.
Result OpenSpooler(const char* name, GenQueContext* ctx);

std::uint32_t WriteSpooler(const void* data, std::uint32_t length, GenQueContext* ctx);

void CloseSpooler(GenQueContext* ctx);

}  // namespace zeapi
