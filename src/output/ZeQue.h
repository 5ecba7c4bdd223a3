// The output queue: every byte that goes to a printer passes here. One queue a job, with one of
// three back ends: the bidirectional DLL, the print spooler, or a plain file.
#pragma once

#include <cstdint>
#include <cstdio>

#include "base/result.h"
#include "platform/spooler.h"

namespace zeapi {

enum class QueueBackEnd { kClosed, kBidi, kSpooler, kFile };

// Modes of the file back end; indexes of the table of stream modes.
enum FileMode : std::int32_t { kReplaceFile = 5, kAppendFile = 6 };

// The stream mode with the given index; "" for an index that is not in the table.
const char* StreamMode(std::int32_t fileMode);

// One job. Built on the stack of the function that sends it, which sets `destination`, `fileMode`
// and `device` before GenQueOpen.
struct GenQueContext {
  const ZeDestination* destination = nullptr;
  std::int32_t fileMode = kReplaceFile;
  std::FILE* file = nullptr;  // output of the file back end
  std::uint32_t spare = 0;    // cleared by GenQueOpen, not used
  std::int32_t device = 0;    // storage device that resource commands name: ZE_DEVICE_...
  Result error = ZE_OK;       // first failed write: 7 file, 14 spooler or DLL
  std::uint32_t unused[2] = {0, 0};
  platform::SpoolerHandle printer = 0;  // of the spooler back end
  QueueBackEnd backEnd = QueueBackEnd::kClosed;
};

// Opens the queue on a printer of the spooler or a path. A non-zero `bidiHandle` of the destination
// selects the DLL and nothing else is tried. Returns 0, 3 (neither spooler nor file), 11, or 26
// (DLL unusable); after a failure there is nothing to close.
Result GenQueOpen(const char* name, GenQueContext* ctx);

// Writes with one call of the back end and returns the number of bytes that it reports. A failure
// is kept in `ctx->error`; writing goes on regardless, callers stop on their own. A closed queue
// takes nothing.
std::uint32_t GenQueWrite(const void* data, std::uint32_t length, GenQueContext* ctx);

// Ends the document and releases the back end. Returns 0, or 4 when the file did not close well.
// Closing a closed queue does nothing.
Result GenQueClose(GenQueContext* ctx);

// True when a write of the job has failed; the queue is then closed, and the job's result is
// `ctx->error`.
bool QueueFailed(GenQueContext* ctx);

// Closes the queue at the end of its scope if nothing has closed it before: when memory runs out in
// the middle of a job.
class QueueCloser {
 public:
  explicit QueueCloser(GenQueContext* ctx) : ctx_(ctx) {}
  ~QueueCloser() { GenQueClose(ctx_); }
  QueueCloser(const QueueCloser&) = delete;
  QueueCloser& operator=(const QueueCloser&) = delete;

 private:
  GenQueContext* const ctx_;
};

}  // namespace zeapi
