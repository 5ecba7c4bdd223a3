// Type 1 outlines: PFA (text) and PFB (binary), and the companions that a caller asks for.
#include "base/stream.h"
#include "files/regular_file.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"
#include "fonts/font_stream.h"
#include "fonts/type1_names.h"

namespace zeapi {
namespace {

// Printer memory by file size, in ten-thousandths.
constexpr std::uint32_t kPfaMemory = 5172;
constexpr std::uint32_t kPfbMemory = 11531;

std::uint32_t PrinterMemory(std::uint32_t fileSize, std::uint32_t tenThousandths) {
  return static_cast<std::uint32_t>(std::uint64_t{fileSize} * tenThousandths / 10000);
}

void SetOutline(const Type1Name& name, ZeFontInfo* info) {
  SetField(info->description, name.text);
  info->kind = ZE_FONT_KIND_DOWNLOADABLE;
  info->format = ZE_FONT_TYPE1;
  info->flags |= ZE_FONT_BIT_3 | ZE_FONT_BIT_5;
}

Result FindCompanions(const FontQuery& query) {
  ZeFontInfo& info = *query.info;
  const Result missing = query.option == 5 ? ZE_OK : ZE_UNSUPPORTED;
  if (query.option == 4 || query.option == 5) {
    if (CompanionExists(query, "PFM")) {
      SetCompanion(query, "PFM", info.metricsFile);
      return ZE_OK;
    }
    if (!CompanionExists(query, "INF")) return missing;
  } else if (query.option != 2) {
    return ZE_OK;
  }
  if (!CompanionExists(query, "AFM")) return missing;
  SetCompanion(query, "AFM", info.companionFile);
  SetCompanion(query, "PFM", info.metricsFile);  // where conversion will put it
  return ZE_OK;
}

}  // namespace

Result QueryPfa(const FontQuery& query) {
  const Stream stream(OpenRegularFile(query.path, "r"));
  if (stream == nullptr) return ZE_OPEN_FAILED;
  const Type1Name name = ReadPfaName(stream.get());
  if (name.text[0] == '\0') return ZE_BAD_FORMAT;
  SetOutline(name, query.info);
  query.info->printerMemory = PrinterMemory(query.info->fileSize, kPfaMemory);
  return FindCompanions(query);
}

Result QueryPfb(const FontQuery& query) {
  const Stream stream(OpenRegularFile(query.path, "rb"));
  if (stream == nullptr) return ZE_OPEN_FAILED;
  const PfbNames names = ReadPfbNames(stream.get());
  if (names.name.text[0] == '\0') return ZE_BAD_FORMAT;
  ZeFontInfo& info = *query.info;
  SetOutline(names.name, &info);
  info.flags |= ZE_FONT_BINARY;
  if (!names.standardEncoding) info.flags &= ~std::uint32_t{ZE_FONT_STANDARD};
  info.printerMemory = PrinterMemory(info.fileSize, kPfbMemory);
  return FindCompanions(query);
}

}  // namespace zeapi
