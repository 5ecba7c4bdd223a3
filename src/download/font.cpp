#include "download/font.h"

#include "download/font_senders.h"
#include "download/own_output.h"
#include "fonts/query_info.h"
#include "output/pjl.h"

namespace zeapi {
namespace {

// False when a write failed.
bool StartJob(GenQueContext* ctx) {
  if (!StartResourceJob(ctx)) return false;
  if (ctx->device != ZE_DEVICE_RAM) PjlResourceCommand(ZE_RESOURCE_TARGET_DEVICE, ctx);
  return !QueueFailed(ctx);
}

// The sender for the font's format; what no sender takes leaves the job empty.
Result SendFont(const char* path, const ZeFontInfo& info, GenQueContext* ctx) {
  switch (info.format) {
    case ZE_FONT_TYPE1:
      if (ctx->destination->language == ZE_LANGUAGE_PPDS)
        return SendPpdsBlocks(path, info.fileSize, ctx);
      return SendType1Font(path, (info.flags & ZE_FONT_BINARY) != 0, ctx);
    case ZE_FONT_DLF:
      return SendPclFont(path, FontIdForm::kPpds, ctx);
    case ZE_FONT_PCL_RESOLUTION:
    case ZE_FONT_PCL_BITMAP:
    case ZE_FONT_PCL_OLD_BITMAP:
    case ZE_FONT_PCL_BITMAP_13:
    case ZE_FONT_PCL_BITMAP_15:
      return SendPclFont(path, FontIdForm::kPcl, ctx);
    case ZE_FONT_PCL_BOUND:
    case ZE_FONT_PCL_UNBOUND:
    case ZE_FONT_PCL_TRUETYPE:
      return SendScalableFont(path, ctx);
    default:
      return ZE_BAD_FORMAT;
  }
}

// Ends the job whatever became of the font, so that the printer is left as it was found. False when
// a write has failed, be it the font's own.
bool EndJob(GenQueContext* ctx) {
  if (ctx->device != ZE_DEVICE_RAM) {
    PjlResourceCommand(ZE_RESOURCE_TARGET_RAM, ctx);
    if (QueueFailed(ctx)) return false;
  }
  if (TakesPjl(*ctx)) {
    PjlJobTrailer(ctx, false);
    if (QueueFailed(ctx)) return false;
  }
  return true;
}

}  // namespace

Result DownloadFont(const char* fontFile, const char* printerName, const ZeDestination& destination,
                    std::int32_t target) {
  ZeFontInfo info;
  const Result queried = FonQueryInfo(fontFile, &info, destination.fontQueryOption, false);
  // A companion file that is missing is of no interest here.
  if (queried != ZE_OK && queried != ZE_UNSUPPORTED) return queried;
  if (info.kind != ZE_FONT_KIND_DOWNLOADABLE && info.kind != ZE_FONT_KIND_TRUETYPE) {
    return ZE_INVALID_ARGUMENT;
  }

  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = kAppendFile;
  ctx.device = target;
  const Result opened = GenQueOpen(printerName, &ctx);
  if (opened != ZE_OK) return opened;
  if (IsOwnOutput(ctx, fontFile, printerName)) {
    GenQueClose(&ctx);
    return ZE_OPEN_FAILED;
  }

  if (!StartJob(&ctx)) return ctx.error;
  const Result sent = SendFont(fontFile, info, &ctx);
  if (!EndJob(&ctx)) return ctx.error;
  GenQueClose(&ctx);
  // A font ID command for PPDS that was refused has not been reported yet.
  return sent != ZE_OK ? sent : ctx.error;
}

}  // namespace zeapi
