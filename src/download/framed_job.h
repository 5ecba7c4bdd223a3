// A job that is one thing between the PJL header and trailer of a printer that takes them.
#pragma once

#include "output/ZeQue.h"
#include "output/pjl.h"

namespace zeapi {

// Opens the queue of a prepared context, has `payload` write into it and closes it. The first failure ends
// the job.
template <typename Payload>
Result SendFramed(const char* printerName, GenQueContext* ctx, Payload payload) {
  const Result opened = GenQueOpen(printerName, ctx);
  if (opened != ZE_OK) return opened;

  PjlJobHeader(ctx, false);
  if (QueueFailed(ctx)) return ctx->error;
  payload();
  if (QueueFailed(ctx)) return ctx->error;
  PjlJobTrailer(ctx, false);
  if (QueueFailed(ctx)) return ctx->error;
  GenQueClose(ctx);
  return ZE_OK;
}

}  // namespace zeapi
