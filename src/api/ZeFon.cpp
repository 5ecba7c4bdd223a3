#include "api/guard.h"
#include "fonts/convert.h"
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
