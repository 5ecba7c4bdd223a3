#include "output/plain_file_queue.h"

#include "files/regular_file.h"

namespace zeapi {

Result PlainFileQueue::Open(const char* path) {
  ctx_.file = OpenRegularFile(path, StreamMode(kReplaceFile));
  if (ctx_.file == nullptr) return ZE_OPEN_FAILED;
  ctx_.backEnd = QueueBackEnd::kFile;
  return ZE_OK;
}

Result PlainFileQueue::Close() {
  if (ctx_.backEnd == QueueBackEnd::kClosed) return ZE_OK;
  ctx_.backEnd = QueueBackEnd::kClosed;
  const bool closed = std::fclose(ctx_.file) == 0;
  ctx_.file = nullptr;
  return closed ? ZE_OK : ZE_CLOSE_FAILED;
}

}  // namespace zeapi
