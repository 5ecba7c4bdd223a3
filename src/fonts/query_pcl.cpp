// PCL soft fonts: what every extension without a meaning of its own is taken for.
#include "fonts/font_query.h"
#include "fonts/pcl_font.h"
#include "fonts/pcl_naming.h"
#include "fonts/printer_memory.h"

namespace zeapi {
namespace {

std::uint32_t FlagsOf(const PclFont& font) {
  std::uint32_t flags = ZE_FONT_BINARY;
  if ((font.descriptor.spacing & 1) != 0) flags |= ZE_FONT_PROPORTIONAL;
  if (IsScalablePcl(font.format)) flags |= ZE_FONT_BIT_3 | ZE_FONT_BIT_5;
  return flags;
}

}  // namespace

Result QueryPcl(const FontQuery& query) {
  const Stream stream = OpenPclFont(query.path);
  PclFont font;
  if (stream == nullptr || !ReadPclFont(stream.get(), &font)) return ZE_BAD_FORMAT;
  ZeFontInfo& info = *query.info;
  info.kind = ZE_FONT_KIND_DOWNLOADABLE;
  info.format = font.format;
  info.flags |= FlagsOf(font);
  info.xResolution = font.xResolution;
  info.yResolution = font.yResolution;
  info.printerMemory = info.fileSize + kPrinterOverhead;
  DescribePclFont(font.descriptor, &info);
  return ZE_OK;
}

}  // namespace zeapi
