#include "pclxl/stream_fixup.h"

#include "base/log.h"
#include "base/stream.h"
#include "files/regular_file.h"
#include "output/plain_file_queue.h"
#include "output/send_stream.h"
#include "pclxl/job_control.h"
#include "pclxl/work_files.h"
#include "pclxl/xl_fixup.h"

namespace zeapi {
namespace {

constexpr char kLogModule[] = ".\\ZeMac";
constexpr LogEvent kEntered{1, "Entered StreamFixupSend"};

// Makes "in.str" out of the source. Returns 0, 1, 3, 11, or 46 when either file failed.
Result WriteInput(std::FILE* source) {
  filter::PushBackReader reader;
  Result result = reader.Open(source);
  if (result != ZE_OK) return result;
  PlainFileQueue input;
  result = input.Open(kXlInputFile);
  if (result != ZE_OK) return result;
  filter::QueueSink sink(input.context());
  filter::BlockWriter writer;
  result = writer.Open(&sink);
  if (result != ZE_OK) return result;

  StripJobControl(&reader, &writer);
  writer.Close();
  const bool whole = input.Close() == ZE_OK && input.context()->error == ZE_OK && !reader.Failed();
  return whole ? ZE_OK : ZE_FIXUP_FAILED;
}

}  // namespace

Result StreamFixupSend(std::FILE* source, GenQueContext* queue, std::uint32_t,
                       const char* streamName, bool execute) {
  ZeLog(kLogModule, kEntered.line, kEntered.message);
  if (source != nullptr) std::rewind(source);
  const Result written = WriteInput(source);
  if (written != ZE_OK && written != ZE_FIXUP_FAILED) return written;
  if (queue->error != ZE_OK) return queue->error;
  if (written != ZE_OK || XlFixupStream(streamName, execute) != kXlOk) return ZE_FIXUP_FAILED;

  const Stream out(OpenRegularFile(kXlOutputFile, "rb"));
  if (out == nullptr) return ZE_OPEN_FAILED;
  return SendStream(out.get(), queue, kRawBytes);
}

}  // namespace zeapi
