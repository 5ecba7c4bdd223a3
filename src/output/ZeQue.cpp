#include "output/ZeQue.h"

#include "output/bidi_back_end.h"
#include "output/file_back_end.h"
#include "output/queue_log.h"
#include "output/spooler_back_end.h"

namespace zeapi {

Result GenQueOpen(const char* name, GenQueContext* ctx) {
  queue_log::Write(queue_log::kOpenEnter);
  ctx->error = ZE_OK;
  ctx->spare = 0;
  ctx->file = nullptr;
  ctx->backEnd = QueueBackEnd::kClosed;

  Result result;
  if (ctx->destination->bidiHandle != 0) {
    result = OpenBidi(ctx);
  } else {
    result = OpenSpooler(name, ctx);
    if (result != ZE_OK) result = OpenFile(name, ctx);
  }
  queue_log::Write(queue_log::kOpenLeave);
  return result;
}

std::uint32_t GenQueWrite(const void* data, std::uint32_t length, GenQueContext* ctx) {
  if (ctx->backEnd == QueueBackEnd::kClosed) return 0;
  queue_log::Write(queue_log::kWriteEnter);
  std::uint32_t written;
  if (ctx->backEnd == QueueBackEnd::kBidi) {
    written = WriteBidi(data, length, ctx);
  } else if (ctx->backEnd == QueueBackEnd::kSpooler) {
    written = WriteSpooler(data, length, ctx);
  } else {
    written = WriteFile(data, length, ctx);
  }
  queue_log::Write(queue_log::kWriteLeave);
  return written;
}

Result GenQueClose(GenQueContext* ctx) {
  if (ctx->backEnd == QueueBackEnd::kClosed) return ZE_OK;
  queue_log::Write(queue_log::kCloseEnter);
  Result result = ZE_OK;
  if (ctx->backEnd == QueueBackEnd::kBidi) {
    CloseBidi(ctx);
  } else if (ctx->backEnd == QueueBackEnd::kSpooler) {
    CloseSpooler(ctx);
  } else {
    result = CloseFile(ctx);
  }
  ctx->backEnd = QueueBackEnd::kClosed;
  queue_log::Write(queue_log::kCloseLeave);
  return result;
}

bool QueueFailed(GenQueContext* ctx) {
  if (ctx->error == ZE_OK) return false;
  GenQueClose(ctx);
  return true;
}

}  // namespace zeapi
