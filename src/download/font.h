// Font jobs: one font file of the host sent to a printer's working memory or storage.
#pragma once

#include <cstdint>

#include "base/result.h"

namespace zeapi {

// Sends a font as a complete job: see ZeFonDownload(). A job that goes to a file is always appended
// to it. `target` is ZE_DEVICE_...
Result DownloadFont(const char* fontFile, const char* printerName, const ZeDestination& destination,
                    std::int32_t target);

}  // namespace zeapi
