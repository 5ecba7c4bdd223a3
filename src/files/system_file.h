// The guard that keeps programs and drivers from being sent to a printer as pages.
#pragma once

namespace zeapi {

// True when the first three characters after the last dot of the path, in any case, are the
// extension of a system file. A path without a dot is none.
bool IsSystemFile(const char* path);

}  // namespace zeapi
