// DLF fonts, and the FMF metrics that accompany them.
#include <array>

#include "base/stream.h"
#include "files/regular_file.h"
#include "fonts/dlf_font.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"
#include "fonts/font_stream.h"
#include "fonts/printer_memory.h"

namespace zeapi {
namespace {

constexpr std::size_t kFmfHeader = 184;
constexpr std::size_t kFmfNameOffset = 52;

}  // namespace

Result QueryDlf(const FontQuery& query) {
  ZeFontInfo& info = *query.info;
  const Stream stream(OpenRegularFile(query.path, "rb"));
  if (stream == nullptr) return ZE_OPEN_FAILED;
  DescribeDlfFont(stream.get(), info.description, sizeof(info.description));
  if (info.description[0] == '\0') return ZE_BAD_FORMAT;
  info.kind = ZE_FONT_KIND_DOWNLOADABLE;
  info.format = ZE_FONT_DLF;
  info.flags |= ZE_FONT_BINARY | ZE_FONT_BIT_3;
  info.printerMemory = info.fileSize + kPrinterOverhead;
  if (query.option != 2) return ZE_OK;
  if (!CompanionExists(query, "FMF")) return ZE_UNSUPPORTED;
  SetCompanion(query, "FMF", info.companionFile);
  return ZE_OK;
}

Result QueryFmf(const FontQuery& query) {
  ZeFontInfo& info = *query.info;
  const Stream stream(OpenRegularFile(query.path, "rb"));
  if (stream == nullptr) return ZE_OPEN_FAILED;
  std::array<std::uint8_t, kFmfHeader> room;
  const auto header = ReadUpTo(stream.get(), room);
  if (header.size() < kFmfHeader) return ZE_BAD_FORMAT;
  const std::string_view name = TextIn(header.subspan(kFmfNameOffset));
  if (name.empty()) return ZE_BAD_FORMAT;
  SetField(info.description, name);
  info.kind = ZE_FONT_KIND_METRICS;
  info.format = ZE_FONT_FMF;
  info.flags |= ZE_FONT_BINARY | ZE_FONT_BIT_3 | ZE_FONT_BIT_5;
  SetCompanion(query, "DLF", info.companionFile);
  SetCompanion(query, "DLF", info.metricsFile);
  return ZE_OK;
}

}  // namespace zeapi
