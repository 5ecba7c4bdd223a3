#include "output/file_back_end.h"

#include <iterator>

#include "output/queue_log.h"
#include "platform/files.h"

namespace zeapi {
namespace {

constexpr const char* kStreamModes[] = {"",   "r",  "w",  "a",   "rb",  "wb",  "ab",
                                        "r+", "w+", "a+", "rb+", "wb+", "ab+", ""};

}  // namespace

const char* StreamMode(std::int32_t fileMode) {
  const bool known = fileMode >= 0 && fileMode < static_cast<std::int32_t>(std::size(kStreamModes));
  return known ? kStreamModes[fileMode] : "";
}

Result OpenFile(const char* name, GenQueContext* ctx) {
  queue_log::Write(queue_log::kUseFile);
  ctx->file = platform::OpenStream(name, StreamMode(ctx->fileMode));
  if (ctx->file == nullptr) return ZE_OPEN_FAILED;
  ctx->backEnd = QueueBackEnd::kFile;
  return ZE_OK;
}

// The stream buffers what fwrite takes, so a full disk shows in the flush; both count as the write.
std::uint32_t WriteFile(const void* data, std::uint32_t length, GenQueContext* ctx) {
  queue_log::Write(queue_log::kFileWrite);
  const auto taken = static_cast<std::uint32_t>(std::fwrite(data, 1, length, ctx->file));
  const bool flushed = std::fflush(ctx->file) == 0;
  if (taken < length || !flushed) {
    queue_log::Write(queue_log::kFileWriteFailed);
    ctx->error = ZE_WRITE_FAILED;
  }
  return flushed ? taken : 0;
}

Result CloseFile(GenQueContext* ctx) {
  queue_log::Write(queue_log::kFileClose);
  const bool closed = std::fclose(ctx->file) == 0;
  ctx->file = nullptr;
  return closed ? ZE_OK : ZE_CLOSE_FAILED;
}

}  // namespace zeapi
