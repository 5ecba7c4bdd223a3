// Built where the host has no print spooler: no printer ever opens, so every job goes to a file.

#include "platform/spooler.h"

namespace zeapi::platform {

bool SpoolerOpen(const char*, SpoolerHandle*) { return false; }
bool SpoolerStartDocument(SpoolerHandle, const char*) { return false; }
std::uint32_t SpoolerWrite(SpoolerHandle, const void*, std::uint32_t) { return 0; }
void SpoolerEndDocument(SpoolerHandle) {}
void SpoolerClose(SpoolerHandle) {}
std::uint32_t SpoolerLastError() { return 0; }

}  // namespace zeapi::platform
