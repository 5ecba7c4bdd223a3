// What the library needs of the host's print spooler: one raw document a job.
#pragma once

#include <cstdint>

namespace zeapi::platform {

// Names an open printer. Every call accepts a handle that is closed already and does nothing with
// it.
using SpoolerHandle = std::uintptr_t;

// Opens the printer `name`. False when the spooler knows no such printer or cannot be reached.
bool SpoolerOpen(const char* name, SpoolerHandle* printer);

// Starts a document of unprocessed data under the given name.
bool SpoolerStartDocument(SpoolerHandle printer, const char* documentName);

// Returns the number of bytes that the spooler took.
std::uint32_t SpoolerWrite(SpoolerHandle printer, const void* data, std::uint32_t length);

void SpoolerEndDocument(SpoolerHandle printer);
void SpoolerClose(SpoolerHandle printer);

// The system's number for the last failure of a call of this header.
std::uint32_t SpoolerLastError();

}  // namespace zeapi::platform
