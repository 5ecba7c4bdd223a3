#include <array>
#include <cstring>

#include "base/text.h"
#include "output/plain_file_queue.h"
#include "pclxl/stored_stream.h"
#include "pclxl/stream_fixup.h"
#include "pclxl/stream_name.h"
#include "pclxl/work_files.h"

namespace zeapi {
namespace {

Result CheckStoredStream(std::FILE* file, ZeMacroInfo* macro) {
  std::array<char, kXlStreamHeader.size()> header;
  if (std::fread(header.data(), 1, header.size(), file) < header.size()) return ZE_READ_FAILED;
  if (std::string_view(header.data(), header.size()) != kXlStreamHeader) return ZE_FIXUP_FAILED;
  XlStreamName name = {};
  if (!XlFindStreamName(file, &name)) return ZE_FIXUP_FAILED;
  std::memcpy(macro->macroName, name.data(), name.size());
  return ZE_OK;
}

Result WriteFixedUp(std::FILE* file, const ZeDestination& destination, const char* name) {
  PlainFileQueue queue;
  queue.SetLanguage(destination.language);
  Result result = queue.Open(kXlFixedUpFile);
  if (result != ZE_OK) return result;
  result = StreamFixupSend(file, queue.context(), 0, name, false);
  const Result closed = queue.Close();
  return result != ZE_OK ? result : closed;
}

}  // namespace

Result XlValidateStreamFile(std::FILE* file, const ZeDestination* destination, ZeMacroInfo* macro) {
  if ((macro->macroFlags & ZE_MACRO_FIX_UP) == 0) return CheckStoredStream(file, macro);
  XlStreamName name = {};
  std::memcpy(name.data(), macro->macroName, BoundedLength(macro->macroName, name.size() - 1));
  return WriteFixedUp(file, *destination, name.data());
}

}  // namespace zeapi
