#include "download/resource.h"

#include "output/ZeQue.h"
#include "output/pjl.h"

namespace zeapi {

Result SendResourceRequest(int request, const char* printerName, const ZeDestination& destination,
                           std::int32_t device) {
  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = kReplaceFile;
  ctx.device = device;
  const Result opened = GenQueOpen(printerName, &ctx);
  if (opened != ZE_OK) return opened;

  PjlJobHeader(&ctx, false);
  if (QueueFailed(&ctx)) return ctx.error;
  PjlResourceCommand(request, &ctx);
  if (QueueFailed(&ctx)) return ctx.error;
  PjlJobTrailer(&ctx, false);
  if (QueueFailed(&ctx)) return ctx.error;
  GenQueClose(&ctx);
  return ZE_OK;
}

}  // namespace zeapi
