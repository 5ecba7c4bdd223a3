#include <cstdio>

#include "download/macro.h"
#include "download/macro_commands.h"
#include "download/macro_payload.h"
#include "output/pjl.h"

namespace zeapi {
namespace {

// What follows a failed step is left out, the stop command too.
Result SendDefinition(const MacroPayload& payload, GenQueContext* ctx) {
  const std::int32_t language = ctx->destination->language;
  const Result started = WriteDefinitionStart(payload, ctx);
  if (started != ZE_OK || ctx->error != ZE_OK) return started;

  char comment[sizeof(macro::kOverlayComment) + kNameField];
  std::snprintf(comment, sizeof(comment), macro::kOverlayComment, payload.name.text);
  const bool isPostScript = language == ZE_LANGUAGE_POSTSCRIPT;
  const Result sent = SendMacroFile(payload, false, isPostScript ? comment : nullptr, ctx);
  if (sent != ZE_OK) return sent;

  if (language == ZE_LANGUAGE_PCL) WriteCommand(ctx, macro::kStop);
  return ZE_OK;
}

}  // namespace

Result CreateMacro(const char* macroFile, const char* printerName, const ZeDestination& destination,
                   ZeMacroInfo* macro) {
  MacroPayload payload;
  const Result openedFile = OpenMacro(macroFile, destination, false, macro, &payload);
  if (openedFile != ZE_OK) return openedFile;

  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = kReplaceFile;
  const Result opened = OpenMacroQueue(payload, printerName, &ctx);
  if (opened != ZE_OK) return opened;
  const QueueCloser closer(&ctx);
  const Result result = SendDefinition(payload, &ctx);
  GenQueClose(&ctx);
  return result != ZE_OK ? result : ctx.error;
}

}  // namespace zeapi
