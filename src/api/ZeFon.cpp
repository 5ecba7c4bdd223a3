#include "api/guard.h"
#include "files/found_files.h"
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

void ZEAPI_CALL ZeFonFindFree(ZeFoundFile* first) noexcept { FreeFoundFiles(first); }
