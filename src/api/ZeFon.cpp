#include "api/guard.h"
#include "base/text.h"
#include "download/font.h"
#include "fonts/query_info.h"
#include "zeapi.h"

using namespace zeapi;

uint32_t ZEAPI_CALL ZeFonQueryInfo(const char* fontFile, ZeFontInfo* info, uint32_t queryOption,
                                   uint32_t includeMetricFiles) noexcept {
  return Guarded([&]() -> Result {
    if (info == nullptr) return ZE_INVALID_ARGUMENT;
    return FonQueryInfo(fontFile, info, queryOption, includeMetricFiles != 0);
  });
}

uint32_t ZEAPI_CALL ZeFonDownload(const char* fontFile, const char* printerName,
                                  const ZeDestination* destination, int32_t target) noexcept {
  return Guarded([&]() -> Result {
    if (fontFile == nullptr || printerName == nullptr || destination == nullptr) {
      return ZE_INVALID_ARGUMENT;
    }
    if (NameTooLong(fontFile) || NameTooLong(printerName)) return ZE_INVALID_ARGUMENT;
    if (destination->language < ZE_LANGUAGE_DEFAULT || destination->language > ZE_LANGUAGE_PCLXL) {
      return ZE_INVALID_ARGUMENT;
    }
    if (target < ZE_DEVICE_RAM || target > ZE_DEVICE_DISK2) return ZE_INVALID_ARGUMENT;
    return DownloadFont(fontFile, printerName, *destination, target);
  });
}
