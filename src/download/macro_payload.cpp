#include "download/macro_payload.h"

#include "download/macro_commands.h"
#include "download/resource_file.h"
#include "files/file_utilities.h"
#include "output/pjl.h"
#include "output/send_stream.h"
#include "pclxl/macro_fixup.h"
#include "pclxl/stream_fixup.h"
#include "pclxl/work_files.h"

namespace zeapi {

bool Asks(const ZeMacroInfo& macro, std::uint32_t flag) { return (macro.macroFlags & flag) != 0; }

Result OpenMacro(const char* macroFile, const ZeDestination& destination, bool asItIs,
                 ZeMacroInfo* macro, MacroPayload* payload) {
  const Result checked = CheckResourceFile(macroFile);
  if (checked != ZE_OK) return checked;
  payload->fixupOptions = ZE_FIXUP_DEFAULT;
  if (Asks(*macro, ZE_MACRO_FIX_UP_LIMIT)) {
    macro->macroFlags |= ZE_MACRO_FIX_UP;
    payload->fixupOptions = macro->fixupLimit;
  }
  payload->path = macroFile;
  payload->macro = macro;
  payload->name = ChooseStoredName(macro->macroName, macroFile);
  payload->makesWorkFiles =
      !asItIs && Asks(*macro, ZE_MACRO_FIX_UP) && destination.language == ZE_LANGUAGE_PCLXL;
  const Result opened = OpenResourceFile(macroFile, &payload->file);
  if (opened != ZE_OK) return opened;
  return payload->makesWorkFiles && IsStreamWorkFile(macroFile) ? ZE_OPEN_FAILED : ZE_OK;
}

Result OpenMacroQueue(const MacroPayload& payload, const char* printerName, GenQueContext* ctx) {
  const Result opened = GenQueOpen(printerName, ctx);
  if (opened != ZE_OK || ctx->backEnd != QueueBackEnd::kFile) return opened;
  if (!payload.makesWorkFiles || !IsStreamWorkFile(printerName)) return ZE_OK;
  GenQueClose(ctx);
  return ZE_OPEN_FAILED;
}

Result WriteDefinitionStart(const MacroPayload& payload, GenQueContext* ctx) {
  const unsigned number = ctx->destination->resourceId;
  if (ctx->destination->language == ZE_LANGUAGE_PPDS) {
    const std::uint32_t size = FilQuerySize(payload.path);
    if (size >= macro::kPpdsSizeLimit) return ZE_MACRO_TOO_LARGE;
    auto header = macro::kPpdsDefinition;
    header[macro::kPpdsSizeByte] = static_cast<std::uint8_t>(size + 3);
    header[macro::kPpdsNumberByte] = static_cast<std::uint8_t>(number);
    WriteSequence(ctx, header);
  } else if (ctx->destination->language == ZE_LANGUAGE_PCL) {
    if (Asks(*payload.macro, ZE_MACRO_CHAIN)) {
      const unsigned called = payload.macro->chainId;
      WriteCommand(ctx, macro::kStartCalling, number, called, number);
    } else {
      WriteCommand(ctx, macro::kStart, number);
    }
  }
  return ZE_OK;
}

Result SendMacroFile(const MacroPayload& payload, bool execute, const char* overlayHeader,
                     GenQueContext* ctx) {
  std::FILE* file = payload.file.get();
  if (!Asks(*payload.macro, ZE_MACRO_FIX_UP)) return SendStream(file, ctx, kRawBytes);
  if (payload.makesWorkFiles) return StreamFixupSend(file, ctx, 0, payload.name.text, execute);
  return MacroFixupSend(file, ctx, payload.fixupOptions, overlayHeader);
}

}  // namespace zeapi
