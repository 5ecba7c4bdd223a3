#include "download/font_id.h"

#include <array>

#include "output/pjl.h"

namespace zeapi {
namespace {

constexpr char kPclFontId[] = "\x1B*c%uD";
constexpr std::array<std::uint8_t, 5> kMakePermanent = {0x1B, '*', 'c', '5', 'F'};
constexpr unsigned kLongPpdsId = 100;  // IDs from here on take the form with two bytes

}  // namespace

bool FontIdCommand(FontIdForm form, GenQueContext* ctx) {
  const unsigned id = ctx->destination->resourceId;
  const auto low = static_cast<std::uint8_t>(id & 0xFF);
  const auto high = static_cast<std::uint8_t>(id >> 8);
  if (form == FontIdForm::kPcl) {
    WriteCommand(ctx, kPclFontId, id);
  } else if (form == FontIdForm::kPpds && id < kLongPpdsId) {
    WriteSequence<7>(ctx, {0x1B, '=', 3, 0, 0x31, 0x08, low});
  } else {
    const std::uint8_t kind = form == FontIdForm::kPpdsAlternate ? 0x41 : 0x31;
    WriteSequence<8>(ctx, {0x1B, '=', 4, 0, kind, 0x0E, high, low});
  }
  return ctx->error == ZE_OK;
}

void MakeFontPermanent(GenQueContext* ctx) { WriteSequence(ctx, kMakePermanent); }

}  // namespace zeapi
