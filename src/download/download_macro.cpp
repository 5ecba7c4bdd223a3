#include "download/macro.h"
#include "download/macro_commands.h"
#include "download/macro_payload.h"
#include "download/postscript_macro.h"
#include "output/pjl.h"
#include "output/pjl_commands.h"
#include "output/send_stream.h"

namespace zeapi {
namespace {

// One macro on its way. The first failure is the job's result; only one of the queue ends the job
// early. A step that returns false has met that and closed the queue.
class MacroDownload {
 public:
  MacroDownload(const MacroPayload& payload, std::int32_t mode, bool wrap, GenQueContext* ctx)
      : payload_(payload),
        mode_(mode),
        wrap_(wrap),
        device_(payload.macro->macroDevice),
        language_(ctx->destination->language),
        ctx_(ctx) {}

  Result Run() {
    if (Send()) GenQueClose(ctx_);
    return result_ != ZE_OK ? result_ : ctx_->error;
  }

 private:
  bool Send() {
    if (!Start() || !SendByMode() || !EndStorage()) return false;
    PjlJobTrailer(ctx_, false);
    return !QueueFailed(ctx_);
  }

  bool Start() {
    if (!StartResourceJob(ctx_)) return false;
    if (IsStored() && language_ != ZE_LANGUAGE_POSTSCRIPT && language_ != ZE_LANGUAGE_PCLXL) {
      PjlResourceCommand(ZE_RESOURCE_TARGET_DEVICE, ctx_);
    }
    if (QueueFailed(ctx_)) return false;
    if (language_ == ZE_LANGUAGE_PCLXL) EnterPclXl();
    return !QueueFailed(ctx_);
  }

  // Whatever the printer takes: PCL XL is entered by PJL alone.
  void EnterPclXl() {
    if (mode_ == ZE_MACRO_PRINT_ONCE) {
      WriteCommand(ctx_, pjl::kEnterLanguage, pjl::kPclXl);
    } else {
      WriteCommand(ctx_, pjl::kTargetAndEnterLanguage, DeviceName(device_), pjl::kPclXl);
    }
  }

  bool SendByMode() {
    switch (mode_) {
      case ZE_MACRO_PRINT_ONCE:
        return PrintOnce();
      case ZE_MACRO_STORE:
        return Store();
      default:
        Note(SendStream(payload_.file.get(), ctx_, kRawBytes));
        return MakePermanent();
    }
  }

  bool PrintOnce() {
    if (!StartDefinition() || !SendFile(true) || !EndDefinition()) return false;
    const Result activated = WriteActivation(true, ctx_);
    if (QueueFailed(ctx_)) return false;
    if (activated == ZE_OK && language_ != ZE_LANGUAGE_POSTSCRIPT &&
        language_ != ZE_LANGUAGE_PCLXL) {
      WriteSequence(ctx_, macro::kEjectPage);
      if (QueueFailed(ctx_)) return false;
    }
    Note(WriteActivation(false, ctx_));
    return !QueueFailed(ctx_);
  }

  bool Store() {
    return StartDefinition() && SendFile(false) && EndDefinition() && MakePermanent();
  }

  bool StartDefinition() {
    if (!wrap_) return true;
    if (language_ == ZE_LANGUAGE_POSTSCRIPT) {
      return mode_ == ZE_MACRO_STORE ? WriteStoredStart(payload_, ctx_)
                                     : WriteOverlayStart(payload_, ctx_);
    }
    Note(WriteDefinitionStart(payload_, ctx_));
    return !QueueFailed(ctx_);
  }

  bool SendFile(bool execute) {
    if (result_ == ZE_OK) Note(SendMacroFile(payload_, execute, nullptr, ctx_));
    return !QueueFailed(ctx_);
  }

  bool EndDefinition() {
    if (!wrap_) return true;
    if (language_ == ZE_LANGUAGE_POSTSCRIPT) {
      return mode_ == ZE_MACRO_STORE ? WriteStoredEnd(payload_, ctx_)
                                     : WriteOverlayEnd(payload_, ctx_);
    }
    if (language_ == ZE_LANGUAGE_PCL) WriteCommand(ctx_, macro::kStop);
    return !QueueFailed(ctx_);
  }

  bool MakePermanent() {
    if (QueueFailed(ctx_)) return false;
    const unsigned number = ctx_->destination->resourceId;
    if (language_ == ZE_LANGUAGE_PCL) WriteCommand(ctx_, macro::kMakePermanent, number);
    return !QueueFailed(ctx_);
  }

  // The target goes back to working memory after PCL XL too, although no request had set it.
  bool EndStorage() {
    if (IsStored() && language_ != ZE_LANGUAGE_POSTSCRIPT) {
      PjlResourceCommand(ZE_RESOURCE_TARGET_RAM, ctx_);
      if (QueueFailed(ctx_)) return false;
    }
    if (mode_ == ZE_MACRO_STORE && IsStored() && TakesPjl(*ctx_) && language_ == ZE_LANGUAGE_PCL) {
      const unsigned number = ctx_->destination->resourceId;
      WriteCommand(ctx_, macro::kResourceDefault, DeviceName(device_), number, payload_.name.text);
    }
    return !QueueFailed(ctx_);
  }

  bool IsStored() const { return device_ != ZE_DEVICE_RAM && mode_ != ZE_MACRO_PRINT_ONCE; }

  void Note(Result result) {
    if (result_ == ZE_OK) result_ = result;
  }

  const MacroPayload& payload_;
  const std::int32_t mode_;
  const bool wrap_;
  const std::int32_t device_;
  const std::int32_t language_;
  GenQueContext* const ctx_;
  Result result_ = ZE_OK;
};

}  // namespace

Result DownloadMacro(const char* macroFile, const char* printerName,
                     const ZeDestination& destination, ZeMacroInfo* macro, std::int32_t mode,
                     bool wrap) {
  MacroPayload payload;
  const bool asItIs = mode == ZE_MACRO_RAW;
  const Result openedFile = OpenMacro(macroFile, destination, asItIs, macro, &payload);
  if (openedFile != ZE_OK) return openedFile;

  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = kReplaceFile;
  ctx.device = macro->macroDevice;
  const Result opened = OpenMacroQueue(payload, printerName, &ctx);
  if (opened != ZE_OK) return opened;
  const QueueCloser closer(&ctx);
  return MacroDownload(payload, mode, wrap, &ctx).Run();
}

}  // namespace zeapi
