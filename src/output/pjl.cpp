#include "output/pjl.h"

#include <cstdarg>
#include <cstdio>

#include "output/pjl_commands.h"

namespace zeapi {
namespace {

// Patched with the channel of each job and kept so: a destination without a channel gets the last
// one that was set for its language, for as long as the process lives. Callers rely on it.
auto selectLanguage = pjl::kSelectLanguage;

const char* LanguageName(std::int32_t language) {
  const bool known =
      language >= 0 && language < static_cast<std::int32_t>(pjl::kLanguageNames.size());
  return known ? pjl::kLanguageNames[static_cast<std::size_t>(language)] : nullptr;
}

void WriteDownloadTarget(GenQueContext* ctx, std::int32_t device) {
  WriteCommand(ctx, pjl::kSetWord, pjl::kDownloadTarget, DeviceName(device));
}

void WritePclCopies(GenQueContext* ctx) {
  const std::uint16_t copies = ctx->destination->copies;
  if (copies != 0) WriteCommand(ctx, pjl::kPclCopies, copies);
}

}  // namespace

void WriteCommand(GenQueContext* ctx, const char* format, ...) {
  char text[1024];
  std::va_list arguments;
  va_start(arguments, format);
  const int formatted = std::vsnprintf(text, sizeof(text), format, arguments);
  va_end(arguments);
  if (formatted < 0) return;
  const auto length = static_cast<std::uint32_t>(formatted);
  GenQueWrite(text, length < sizeof(text) ? length : sizeof(text) - 1, ctx);
}

void WriteUniversalExit(GenQueContext* ctx) {
  GenQueWrite(pjl::kUniversalExit, sizeof(pjl::kUniversalExit) - 1, ctx);
}

const char* DeviceName(std::int32_t device) {
  const bool known = device >= 0 && device < static_cast<std::int32_t>(pjl::kDeviceTable.size());
  return known ? pjl::kDeviceTable[static_cast<std::size_t>(device)] : "";
}

bool TakesPjl(const GenQueContext& ctx) { return (ctx.destination->flags & ZE_FLAG_PJL) != 0; }

bool TakesBracketK(const GenQueContext& ctx) {
  return (ctx.destination->flags & ZE_FLAG_BRACKET_K) != 0;
}

void PjlJobHeader(GenQueContext* ctx, bool withCopies) {
  if (!TakesPjl(*ctx)) return;
  const ZeDestination& destination = *ctx->destination;
  WriteUniversalExit(ctx);
  if (QueueFailed(ctx)) return;
  if (destination.jobName != nullptr) WriteCommand(ctx, pjl::kReadyMessage, destination.jobName);
  const char* language = LanguageName(destination.language);
  if (ctx->error == ZE_OK && language != nullptr) WriteCommand(ctx, pjl::kEnterLanguage, language);
  if (QueueFailed(ctx)) return;
  if (withCopies && destination.copies != 0) {
    WriteCommand(ctx, pjl::kSetNumber, pjl::kCopies, static_cast<int>(destination.copies));
  }
}

bool StartResourceJob(GenQueContext* ctx) {
  if (TakesBracketK(*ctx)) LanguageSelect(ctx);
  if (QueueFailed(ctx)) return false;
  PjlJobHeader(ctx, false);
  return !QueueFailed(ctx);
}

void PjlJobTrailer(GenQueContext* ctx, bool withReset) {
  if (!TakesPjl(*ctx)) return;
  WriteUniversalExit(ctx);
  if (QueueFailed(ctx)) return;
  WriteCommand(ctx, pjl::kReadyMessage, "");
  if (QueueFailed(ctx)) return;
  if (withReset) {
    WriteCommand(ctx, pjl::kReset);
    if (QueueFailed(ctx)) return;
  }
  WriteUniversalExit(ctx);
}

void PjlResourceCommand(int kind, GenQueContext* ctx) {
  // Sent to every printer of that class, whatever command set it takes.
  if (kind == ZE_RESOURCE_TARGET_DEVICE && ctx->destination->deviceClass == 2) {
    WriteSequence(ctx, pjl::kInitialConditions);
  }
  const bool takesPjl = TakesPjl(*ctx);
  if (takesPjl) {
    WriteUniversalExit(ctx);
    if (QueueFailed(ctx)) return;
  }
  if (ctx->error != ZE_OK) return;
  switch (kind) {
    case ZE_RESOURCE_TARGET_RAM:
      if (takesPjl) WriteDownloadTarget(ctx, ZE_DEVICE_RAM);
      if (TakesBracketK(*ctx)) WriteSequence(ctx, pjl::kTargetMemory);
      break;
    case ZE_RESOURCE_TARGET_DEVICE:
      if (takesPjl) WriteDownloadTarget(ctx, ctx->device);
      if (TakesBracketK(*ctx)) WriteSequence(ctx, pjl::kTargetDevice);
      break;
    // Formatting and listing go to printers of neither command set too, in the bracket-K form.
    case ZE_RESOURCE_FORMAT_DEVICE:
      if (takesPjl) {
        WriteCommand(ctx, pjl::kDeviceCommand, pjl::kFormat, DeviceName(ctx->device));
      } else {
        WriteSequence(ctx, pjl::kFormatDevice);
      }
      break;
    case ZE_RESOURCE_PRINT_DIRECTORY:
      if (takesPjl) {
        WriteCommand(ctx, pjl::kPrintDirectory);
      } else {
        WriteSequence(ctx, pjl::kListDirectory);
      }
      break;
    default:
      break;
  }
}

void LanguageSelect(GenQueContext* ctx) {
  if (ctx->error != ZE_OK) return;
  const ZeDestination& destination = *ctx->destination;
  const std::int32_t language = destination.language;
  if (language == ZE_LANGUAGE_NONE) {
    WritePclCopies(ctx);
    return;
  }
  if (language < ZE_LANGUAGE_DEFAULT || language > ZE_LANGUAGE_PCLXL) return;
  pjl::BracketK& sequence = selectLanguage[static_cast<std::size_t>(language)];
  if (destination.channel != 0) sequence[pjl::kChannelByte] = destination.channel;
  WriteSequence(ctx, sequence);
  if (language == ZE_LANGUAGE_PCL || language == ZE_LANGUAGE_PCLXL) WritePclCopies(ctx);
}

void ResetLanguageSelectForTesting() { selectLanguage = pjl::kSelectLanguage; }

}  // namespace zeapi
