#include "base/stream.h"
#include "download/macro.h"
#include "download/resource_file.h"
#include "files/regular_file.h"
#include "output/plain_file_queue.h"
#include "pclxl/macro_fixup.h"
#include "pclxl/pcl_macro_check.h"
#include "pclxl/stream_fixup.h"
#include "pclxl/work_files.h"
#include "platform/files.h"

namespace zeapi {
namespace {

constexpr char kWorkFile[] = "fixup.mac";

Result WriteWorkFile(std::FILE* file, std::uint32_t options) {
  PlainFileQueue queue;
  const Result opened = queue.Open(kWorkFile);
  if (opened != ZE_OK) return opened;
  queue.SetLanguage(ZE_LANGUAGE_PCL);
  const Result result = MacroFixupSend(file, queue.context(), options, nullptr);
  const Result closed = queue.Close();
  return result != ZE_OK ? result : closed;
}

Result CheckPclMacro(const char* macroFile, std::FILE* file, const ZeMacroInfo& macro) {
  // Writing the work file would empty its own source.
  if (platform::SameFile(macroFile, kWorkFile)) return ZE_OPEN_FAILED;
  const bool limited = (macro.macroFlags & ZE_MACRO_FIX_UP_LIMIT) != 0;
  const std::uint32_t options = limited ? macro.fixupLimit : std::uint32_t{ZE_FIXUP_DEFAULT};
  const Result written = WriteWorkFile(file, options);
  if (written != ZE_OK) return written;
  const Stream fixedUp(OpenRegularFile(kWorkFile, "rb"));
  if (fixedUp == nullptr) return ZE_OPEN_FAILED;
  return CheckPclMacroContent(fixedUp.get());
}

}  // namespace

Result ValidateMacro(const char* macroFile, const ZeDestination& destination, ZeMacroInfo* macro) {
  const Result checked = CheckResourceFile(macroFile);
  if (checked != ZE_OK) return checked;
  Stream file;
  const Result opened = OpenResourceFile(macroFile, &file);
  if (opened != ZE_OK) return opened;
  if (destination.language == ZE_LANGUAGE_PCLXL) {
    const bool fixesUp = (macro->macroFlags & ZE_MACRO_FIX_UP) != 0;
    if (fixesUp && IsStreamWorkFile(macroFile)) return ZE_OPEN_FAILED;
    return XlValidateStreamFile(file.get(), &destination, macro);
  }
  return CheckPclMacro(macroFile, file.get(), *macro);
}

}  // namespace zeapi
