// Demo download: a demonstration page that the printer stores.
#pragma once

#include "base/result.h"

namespace zeapi {

// Sends the file as a job of its own and sets the destination's language to that of the method once
// the queue is open. The arguments have been checked.
Result DownloadDemo(const char* demoFile, const char* printerName, ZeDestination* destination,
                    const ZeDemoInfo& demo);

}  // namespace zeapi
