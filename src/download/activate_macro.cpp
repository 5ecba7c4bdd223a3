#include <array>
#include <cstdio>
#include <cstring>

#include "download/macro.h"
#include "download/macro_commands.h"
#include "download/macro_payload.h"
#include "output/pjl.h"

namespace zeapi {
namespace {

Result OpenMacroQueue(const char* printerName, const ZeDestination& destination,
                      GenQueContext* ctx) {
  ctx->destination = &destination;
  ctx->fileMode = kReplaceFile;
  return GenQueOpen(printerName, ctx);
}

Result WriteDeletion(GenQueContext* ctx) {
  switch (ctx->destination->language) {
    case ZE_LANGUAGE_PCL: {
      // Always eight bytes, of a number of any length: printers get them so from all versions.
      std::array<char, 16> text = {};
      const unsigned number = ctx->destination->resourceId;
      std::snprintf(text.data(), text.size(), macro::kDelete, number);
      GenQueWrite(text.data(), macro::kDeleteLength, ctx);
      return ZE_OK;
    }
    case ZE_LANGUAGE_PPDS:
    case ZE_LANGUAGE_POSTSCRIPT:
      return ZE_OK;
    default:
      return ZE_INVALID_ARGUMENT;
  }
}

}  // namespace

Result WriteActivation(bool enable, GenQueContext* ctx) {
  switch (ctx->destination->language) {
    case ZE_LANGUAGE_PCL: {
      const unsigned number = ctx->destination->resourceId;
      WriteCommand(ctx, enable ? macro::kEnableOverlay : macro::kDisableOverlay, number);
      return ZE_OK;
    }
    case ZE_LANGUAGE_PPDS: {
      // Measured as a text, so that its first zero byte ends it: printers get four bytes.
      const char* command = enable ? macro::kPpdsEnableOverlay : macro::kPpdsDisableOverlay;
      GenQueWrite(command, static_cast<std::uint32_t>(std::strlen(command)), ctx);
      return ZE_OK;
    }
    case ZE_LANGUAGE_POSTSCRIPT:
    case ZE_LANGUAGE_PCLXL:
      return ZE_OK;
    default:
      return ZE_INVALID_ARGUMENT;
  }
}

Result ActivateMacro(const char* printerName, const ZeDestination& destination, bool enable) {
  GenQueContext ctx;
  const Result opened = OpenMacroQueue(printerName, destination, &ctx);
  if (opened != ZE_OK) return opened;
  const Result result = WriteActivation(enable, &ctx);
  GenQueClose(&ctx);
  return result;
}

Result DeleteMacro(const char* printerName, const ZeDestination& destination) {
  GenQueContext ctx;
  const Result opened = OpenMacroQueue(printerName, destination, &ctx);
  if (opened != ZE_OK) return opened;
  const Result result = WriteDeletion(&ctx);
  GenQueClose(&ctx);
  return result;
}

}  // namespace zeapi
