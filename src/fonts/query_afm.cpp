// Type 1 font metrics (AFM) with their INF and PFB companions.
#include <cstdio>

#include "base/stream.h"
#include "files/file_utilities.h"
#include "files/regular_file.h"
#include "fonts/afm_reader.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"
#include "fonts/font_stream.h"
#include "fonts/replace_extension.h"

namespace zeapi {
namespace {

const char* StyleWords(char style) {
  switch (style) {
    case 'B':
      return ",BOLD";
    case 'I':
      return ",ITALIC";
    case 'T':
      return ",BOLDITALIC";
    default:
      return "";
  }
}

void SetDetail(const AfmMetrics& metrics, ZeFontInfo* info) {
  if (metrics.menuName[0] == '\0') return;
  char detail[sizeof(metrics.menuName) + 16];
  std::snprintf(detail, sizeof(detail), "%s%s", metrics.menuName, StyleWords(metrics.style));
  SetField(info->detail, detail);
}

}  // namespace

Result QueryAfm(const FontQuery& query) {
  const bool needsInf = query.option == 4 || query.option == 5;
  const PathText infFile = ReplaceExtension(query.path, "INF");
  if (needsInf && !FilExists(infFile.text)) {
    return query.option == 5 ? ZE_OK : ZE_UNSUPPORTED;
  }
  const Stream afm(OpenRegularFile(query.path, "r"));
  if (afm == nullptr) return ZE_OPEN_FAILED;
  const Stream inf(OpenRegularFile(infFile.text, "r"));
  if (needsInf && inf == nullptr) return query.option == 5 ? ZE_OK : ZE_OPEN_FAILED;

  const AfmMetricsPtr metrics = NewAfmMetrics(query.path);
  if (metrics == nullptr) return ZE_OUT_OF_MEMORY;
  const Result afmRead = ReadAfmHeader(afm.get(), metrics.get());
  if (afmRead != ZE_OK) return afmRead;
  const Result infRead = inf != nullptr ? ReadInf(inf.get(), metrics.get()) : Result{ZE_OK};
  if (infRead != ZE_OK) return infRead;
  if (metrics->fontName[0] == '\0') return ZE_BAD_FORMAT;

  ZeFontInfo& info = *query.info;
  SetField(info.description, metrics->fontName);
  SetDetail(*metrics, &info);
  info.kind = ZE_FONT_KIND_TYPE1_METRICS;
  info.format = ZE_FONT_TYPE1;
  info.flags |= ZE_FONT_BIT_3;
  if (!CompanionExists(query, "PFB")) return ZE_UNSUPPORTED;
  SetCompanion(query, "PFB", info.companionFile);
  return ZE_OK;
}

}  // namespace zeapi
