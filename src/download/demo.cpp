#include "download/demo.h"

#include <array>
#include <cstring>

#include "base/stream.h"
#include "download/demo_commands.h"
#include "download/resource_file.h"
#include "download/stored_file_commands.h"
#include "download/stored_name.h"
#include "files/file_utilities.h"
#include "output/pjl.h"
#include "output/send_stream.h"

namespace zeapi {
namespace {

// One demo on its way. A step that returns false has met a failed write and closed the queue.
class DemoDownload {
 public:
  DemoDownload(const char* demoFile, std::FILE* file, const ZeDemoInfo& demo, GenQueContext* ctx)
      : demoFile_(demoFile),
        file_(file),
        demo_(demo),
        ctx_(ctx),
        name_(ChooseStoredName(demo.name, demoFile)) {}

  Result Run() {
    if (!StartResourceJob(ctx_) || !Payload()) return ctx_->error;
    PjlJobTrailer(ctx_, false);
    if (QueueFailed(ctx_)) return ctx_->error;
    GenQueClose(ctx_);
    return result_;
  }

 private:
  bool Payload() {
    switch (demo_.method) {
      case ZE_DEMO_POSTSCRIPT:
        return PostScriptFile();
      case ZE_DEMO_PJL_FILE:
        return PjlFile();
      case ZE_DEMO_BRACKET_D:
        return BracketDBlock();
      case ZE_DEMO_PJL_DEMO_FILE:
        return PjlDemoFile();
      default:
        return true;
    }
  }

  bool PostScriptFile() {
    WriteCommand(ctx_, demo::kPostScriptPrologue, stored_file::kExtensionOff, Device(),
                 FileName().text);
    if (!Send(kHexadecimal)) return false;
    WriteCommand(ctx_, demo::kPostScriptEpilogue, stored_file::kExtensionBack);
    return !QueueFailed(ctx_);
  }

  // The file commands are for a PJL printer, whatever the destination says of it.
  bool PjlFile() {
    const StoredFileName name = FileName();
    if (!TargetDevice()) return false;
    WriteCommand(ctx_, demo::kOpenFile, Device(), name.text, demo::kWriteOnly);
    if (QueueFailed(ctx_)) return false;
    WriteCommand(ctx_, demo::kWriteFile, Device(), name.text, 0UL);
    if (!Send(kRawBytes)) return false;
    WriteCommand(ctx_, demo::kEndOfData);
    if (QueueFailed(ctx_)) return false;
    WriteCommand(ctx_, demo::kCloseFile, Device(), name.text);
    return TargetMemory();
  }

  bool BracketDBlock() {
    constexpr std::size_t kNameAt = 7;
    constexpr std::size_t kNameLength = 12;
    constexpr std::size_t kSizeAt = kNameAt + kNameLength;
    std::array<std::uint8_t, kSizeAt + 4> header = {0x1B, '[', 'D', 0};
    header[4] = static_cast<std::uint8_t>(ctx_->destination->resourceId);
    header[5] = demo_.options & 1;
    header[6] = demo_.slot;
    std::memcpy(header.data() + kNameAt, name_.text, kNameLength);
    const std::uint32_t size = FilQuerySize(demoFile_);
    for (std::size_t i = 0; i < 4; ++i) {
      header[kSizeAt + i] = static_cast<std::uint8_t>(size >> (24 - 8 * i));
    }
    WriteSequence(ctx_, header);
    return Send(kRawBytes);
  }

  bool PjlDemoFile() {
    if (!TargetDevice()) return false;
    WriteCommand(ctx_, demo::kOpenDemoFile, name_.text);
    if (!Send(kRawBytes)) return false;
    WriteCommand(ctx_, demo::kCloseDemoFile);
    return TargetMemory();
  }

  bool TargetDevice() {
    PjlResourceCommand(ZE_RESOURCE_TARGET_DEVICE, ctx_);
    if (QueueFailed(ctx_)) return false;
    WriteUniversalExit(ctx_);
    return !QueueFailed(ctx_);
  }

  bool TargetMemory() {
    if (QueueFailed(ctx_)) return false;
    PjlResourceCommand(ZE_RESOURCE_TARGET_RAM, ctx_);
    return !QueueFailed(ctx_);
  }

  // A file that cannot be read is remembered, and the job still ended properly.
  bool Send(StreamEncoding encoding) {
    if (QueueFailed(ctx_)) return false;
    result_ = SendStream(file_, ctx_, encoding);
    return !QueueFailed(ctx_);
  }

  const char* Device() const { return DeviceName(demo_.device); }

  StoredFileName FileName() const { return StoredFileNameOf(name_, true); }

  const char* const demoFile_;
  std::FILE* const file_;
  const ZeDemoInfo& demo_;
  GenQueContext* const ctx_;
  const StoredName name_;
  Result result_ = ZE_OK;
};

void SetLanguage(std::int32_t method, ZeDestination* destination) {
  if (method == ZE_DEMO_NOTHING) return;
  destination->language = method == ZE_DEMO_POSTSCRIPT ? ZE_LANGUAGE_POSTSCRIPT : ZE_LANGUAGE_PCL;
}

}  // namespace

Result DownloadDemo(const char* demoFile, const char* printerName, ZeDestination* destination,
                    const ZeDemoInfo& demo) {
  const Result checked = CheckResourceFile(demoFile);
  if (checked != ZE_OK) return checked;
  Stream file;
  const Result openedFile = OpenResourceFile(demoFile, &file);
  if (openedFile != ZE_OK) return openedFile;

  GenQueContext ctx;
  ctx.destination = destination;
  ctx.fileMode = kReplaceFile;
  ctx.device = demo.device;
  const Result opened = GenQueOpen(printerName, &ctx);
  if (opened != ZE_OK) return opened;
  const QueueCloser closer(&ctx);
  SetLanguage(demo.method, destination);
  return DemoDownload(demoFile, file.get(), demo, &ctx).Run();
}

}  // namespace zeapi
