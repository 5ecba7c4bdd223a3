// Windows printer font metrics of one font (PFM, PSM, PBM) and of a cartridge (PCM).
#include "base/stream.h"
#include "files/regular_file.h"
#include "fonts/cartridge.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"
#include "fonts/font_stream.h"
#include "fonts/pfm_block.h"

namespace zeapi {

Result QueryPfm(const FontQuery& query) {
  const Stream stream(OpenRegularFile(query.path, "rb"));
  PfmBlock block;
  if (stream == nullptr || !ReadPfmBlock(stream.get(), &block)) return ZE_BAD_FORMAT;
  const PfmName name = PfmFontName(block.bytes);
  if (name.text[0] == '\0') return ZE_BAD_FORMAT;
  ZeFontInfo& info = *query.info;
  SetField(info.description, name.text);
  info.kind = ZE_FONT_KIND_METRICS;
  info.format = ZE_FONT_PFM;
  info.flags |= ZE_FONT_BINARY | ZE_FONT_BIT_3 | ZE_FONT_BIT_5;
  return ZE_OK;
}

Result QueryPcm(const FontQuery& query) {
  const Stream stream(OpenRegularFile(query.path, "rb"));
  if (stream == nullptr) return ZE_BAD_FORMAT;
  CartridgePtr cartridge = ReadCartridge(stream.get());
  if (cartridge == nullptr) return ZE_BAD_FORMAT;
  ZeFontInfo& info = *query.info;
  SetField(info.description, cartridge->name);
  info.kind = ZE_FONT_KIND_METRICS;
  info.format = ZE_FONT_CARTRIDGE;
  info.flags |= ZE_FONT_BINARY;
  info.cartridge = cartridge.release();
  return ZE_OK;
}

}  // namespace zeapi
