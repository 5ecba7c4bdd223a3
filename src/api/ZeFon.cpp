#include "api/guard.h"
#include "base/text.h"
#include "download/font.h"
#include "files/found_files.h"
#include "fonts/convert.h"
#include "fonts/font_search.h"
#include "fonts/query_info.h"
#include "zeapi.h"

using namespace zeapi;

uint32_t ZEAPI_CALL ZeFonConvert(const char* fontFile, const char* outputFile,
                                 const ZeFontInfo* option1, uint32_t option2,
                                 uint32_t conversion) noexcept {
  return Guarded([&] { return FonConvert(fontFile, outputFile, option1, option2, conversion); });
}

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

ZeFoundFile* ZEAPI_CALL ZeFonFind(const char* directory, uint16_t* count, uint32_t typeFilter,
                                  uint32_t kindFilter, uint32_t queryOption,
                                  uint32_t recurse) noexcept {
  return ZeFonFind2(directory, count, typeFilter, kindFilter, queryOption, recurse, nullptr);
}

ZeFoundFile* ZEAPI_CALL ZeFonFind2(const char* directory, uint16_t* count, uint32_t typeFilter,
                                   uint32_t kindFilter, uint32_t queryOption, uint32_t recurse,
                                   ZeFontProgress progress) noexcept {
  return Guarded(nullptr, [&]() -> ZeFoundFile* {
    FontSearch search = {{typeFilter, kindFilter}, queryOption, recurse != 0, progress};
    if (directory == nullptr || NameTooLong(directory)) return nullptr;
    if (count == nullptr || !search.filter.IsValid()) return nullptr;
    return FindFonts(directory, &search, count).release();
  });
}

void ZEAPI_CALL ZeFonFindFree(ZeFoundFile* first) noexcept { FreeFoundFiles(first); }
