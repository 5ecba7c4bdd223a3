#include "download/resource.h"

#include "download/framed_job.h"
#include "output/pjl.h"

namespace zeapi {

Result SendResourceRequest(int request, const char* printerName, const ZeDestination& destination,
                           std::int32_t device) {
  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = kReplaceFile;
  ctx.device = device;
  return SendFramed(printerName, &ctx, [&] { PjlResourceCommand(request, &ctx); });
}

}  // namespace zeapi
