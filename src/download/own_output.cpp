#include "download/own_output.h"

#include "platform/files.h"

namespace zeapi {

bool IsOwnOutput(const GenQueContext& ctx, const char* input, const char* printerName) {
  return ctx.backEnd == QueueBackEnd::kFile && ctx.fileMode == kAppendFile &&
         platform::SameFile(input, printerName);
}

}  // namespace zeapi
