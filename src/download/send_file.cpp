#include "base/stream.h"
#include "download/data.h"
#include "download/own_output.h"
#include "files/file_utilities.h"
#include "files/regular_file.h"
#include "output/pjl.h"
#include "output/pjl_commands.h"
#include "output/send_stream.h"

namespace zeapi {
namespace {

// Starts the job and says how often the data is to be sent; 0 counts as once. Bracket-K wins over
// PJL: its language selection stands in place of the PJL header. False when a write failed.
bool StartJob(GenQueContext* ctx, unsigned* passes) {
  *passes = 0;
  if (TakesBracketK(*ctx)) {
    LanguageSelect(ctx);
  } else if (TakesPjl(*ctx)) {
    PjlJobHeader(ctx, true);
  } else {
    *passes = ctx->destination->copies;
  }
  return !QueueFailed(ctx);
}

Result SendPasses(std::FILE* file, GenQueContext* ctx, unsigned passes) {
  unsigned sent = 0;
  Result result;
  do {
    std::rewind(file);
    result = SendStream(file, ctx, kRawBytes);
    ++sent;
  } while (result == ZE_OK && sent < passes);
  return result;
}

// Only a refusing printer gets no end of job; after any other failure the job is ended properly.
// False when a write of the PJL trailer failed; the end-of-job sequence of bracket-K is not asked
// about.
bool EndJob(GenQueContext* ctx) {
  if (TakesPjl(*ctx)) {
    PjlJobTrailer(ctx, true);
    if (QueueFailed(ctx)) return false;
  }
  if (TakesBracketK(*ctx)) WriteSequence(ctx, pjl::kEndOfJob);
  return true;
}

}  // namespace

Result SendDataFile(const char* fileName, const char* printerName, const ZeDestination& destination,
                    FileMode fileMode) {
  if (!FilExists(fileName)) return ZE_FILE_NOT_FOUND;
  const Stream file(OpenRegularFile(fileName, "rb"));
  if (file == nullptr) return ZE_OPEN_FAILED;

  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = fileMode;
  const Result opened = GenQueOpen(printerName, &ctx);
  if (opened != ZE_OK) return opened;

  if (IsOwnOutput(ctx, fileName, printerName)) {
    GenQueClose(&ctx);
    return ZE_OPEN_FAILED;
  }

  unsigned passes = 0;
  if (!StartJob(&ctx, &passes)) return ctx.error;
  const Result result = SendPasses(file.get(), &ctx, passes);
  if (result != ZE_PRINTER_WRITE_FAILED && !EndJob(&ctx)) return ctx.error;
  GenQueClose(&ctx);
  return result;
}

}  // namespace zeapi
