#include "output/spooler_back_end.h"

#include <cstdio>

#include "base/text.h"
#include "output/queue_log.h"
#include "platform/console.h"

namespace zeapi {
namespace {

constexpr char kDefaultDocumentName[] = "Vantrel Job";

// Tells the console of the process what was refused. The data is shown as text: up to its first
// zero byte, and never further than it goes.
void ReportRefusedWrite(const void* data, std::uint32_t length, std::uint32_t written,
                        const GenQueContext& ctx) {
  const auto systemError = static_cast<int>(platform::SpoolerLastError());
  const char* text = static_cast<const char*>(data);
  char before[48];
  char after[80];
  std::snprintf(before, sizeof(before), "\nWritePrinter FAILED! %d ",
                static_cast<int>(ctx.printer));
  std::snprintf(after, sizeof(after), " %d %d \nGetLastError: %d\n", static_cast<int>(length),
                static_cast<int>(written), systemError);
  platform::ConsoleWrite(before);
  platform::ConsoleWrite({text, BoundedLength(text, length)});
  platform::ConsoleWrite(after);
}

}  // namespace

Result OpenSpooler(const char* name, GenQueContext* ctx) {
  queue_log::Write(queue_log::kTrySpooler);
  if (platform::SpoolerOpen(name, &ctx->printer)) {
    const char* jobName = ctx->destination->jobName;
    if (platform::SpoolerStartDocument(ctx->printer,
                                       jobName != nullptr ? jobName : kDefaultDocumentName)) {
      ctx->backEnd = QueueBackEnd::kSpooler;
      return ZE_OK;
    }
    queue_log::Write(queue_log::kStartDocPrinterFailed);
    platform::SpoolerClose(ctx->printer);
  }
  queue_log::Write(queue_log::kNoPrinter);
  return ZE_OPEN_FAILED;
}

std::uint32_t WriteSpooler(const void* data, std::uint32_t length, GenQueContext* ctx) {
  queue_log::Write(queue_log::kPrinterWrite);
  const std::uint32_t written = platform::SpoolerWrite(ctx->printer, data, length);
  if (written != length) {
    ReportRefusedWrite(data, length, written, *ctx);
    queue_log::Write(queue_log::kPrinterWriteFailed);
    platform::SpoolerClose(ctx->printer);
    ctx->error = ZE_PRINTER_WRITE_FAILED;
  }
  return written;
}

// After a refused write the printer is closed already; it is released once more all the same, which
// does the spooler no harm.
void CloseSpooler(GenQueContext* ctx) {
  queue_log::Write(queue_log::kEndDocPrinter);
  platform::SpoolerEndDocument(ctx->printer);
  queue_log::Write(queue_log::kClosePrinter);
  platform::SpoolerClose(ctx->printer);
}

}  // namespace zeapi
