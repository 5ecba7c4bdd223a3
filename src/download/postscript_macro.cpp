#include "download/postscript_macro.h"

#include "download/macro_commands.h"
#include "download/stored_file_commands.h"
#include "output/pjl.h"

namespace zeapi {
namespace {

bool IsFixedUp(const MacroPayload& payload) { return Asks(*payload.macro, ZE_MACRO_FIX_UP); }
bool IsDemo(const MacroPayload& payload) { return Asks(*payload.macro, ZE_MACRO_DEMO); }
bool GoesToMemory(const MacroPayload& payload) {
  return payload.macro->macroDevice == ZE_DEVICE_RAM;
}

bool Write(GenQueContext* ctx, const char* text) {
  WriteCommand(ctx, "%s", text);
  return !QueueFailed(ctx);
}

bool WriteFileStart(const MacroPayload& payload, GenQueContext* ctx) {
  if (IsDemo(payload) && !Write(ctx, stored_file::kExtensionOff)) return false;
  const StoredFileName name = StoredFileNameOf(payload.name, IsDemo(payload));
  WriteCommand(ctx, macro::kFileWriter, DeviceName(payload.macro->macroDevice), name.text);
  return !QueueFailed(ctx);
}

bool WriteFileEnd(const MacroPayload& payload, GenQueContext* ctx) {
  if (!Write(ctx, macro::kFileEnd)) return false;
  if (IsDemo(payload)) WriteCommand(ctx, macro::kDemoEnd, stored_file::kExtensionBack);
  return !QueueFailed(ctx);
}

}  // namespace

bool WriteOverlayStart(const MacroPayload& payload, GenQueContext* ctx) {
  return !IsFixedUp(payload) || Write(ctx, macro::kHideShowPage);
}

bool WriteOverlayEnd(const MacroPayload& payload, GenQueContext* ctx) {
  return !IsFixedUp(payload) ||
         (Write(ctx, macro::kUndefineShowPage) && Write(ctx, macro::kShowPage));
}

bool WriteStoredStart(const MacroPayload& payload, GenQueContext* ctx) {
  if (GoesToMemory(payload)) {
    WriteCommand(ctx, macro::kProcedureStart, payload.name.text);
    if (QueueFailed(ctx)) return false;
  } else if (!WriteFileStart(payload, ctx)) {
    return false;
  }
  return WriteOverlayStart(payload, ctx);
}

bool WriteStoredEnd(const MacroPayload& payload, GenQueContext* ctx) {
  if (IsFixedUp(payload)) {
    if (!Write(ctx, macro::kUndefineShowPage)) return false;
    // Only a demo that was fixed up shows its page when it is run.
    if (IsDemo(payload) && !Write(ctx, macro::kShowPage)) return false;
  }
  return GoesToMemory(payload) ? Write(ctx, macro::kProcedureEnd) : WriteFileEnd(payload, ctx);
}

}  // namespace zeapi
