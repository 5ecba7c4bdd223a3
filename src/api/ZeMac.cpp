#include "api/guard.h"
#include "base/text.h"
#include "download/find_resources.h"
#include "download/macro.h"
#include "zeapi.h"

namespace zeapi {
namespace {

constexpr std::uint16_t kMacroNumberLimit = 32768;

bool MacroLanguageInRange(const ZeDestination& destination) {
  return destination.language >= ZE_LANGUAGE_DEFAULT && destination.language <= ZE_LANGUAGE_PCLXL;
}

// What the calls that send a macro file ask of their arguments alike.
bool CanSendMacro(const char* macroFile, const char* printerName, const ZeDestination* destination,
                  const ZeMacroInfo* macro) {
  if (macroFile == nullptr || printerName == nullptr || destination == nullptr ||
      macro == nullptr) {
    return false;
  }
  return !SameText(macroFile, printerName) && !NameTooLong(macroFile) &&
         !NameTooLong(printerName) && MacroLanguageInRange(*destination);
}

// What the calls that name a stored macro ask.
bool CanNameMacro(const char* printerName, const ZeDestination* destination) {
  return printerName != nullptr && destination != nullptr && !NameTooLong(printerName) &&
         destination->resourceId < kMacroNumberLimit;
}

bool CanDownload(const ZeDestination& destination, const ZeMacroInfo& macro, std::int32_t mode,
                 std::uint32_t wrap) {
  if (wrap != ZE_MACRO_UNWRAPPED && wrap != ZE_MACRO_WRAPPED) return false;
  if (wrap == ZE_MACRO_WRAPPED && destination.language == ZE_LANGUAGE_PCLXL) return false;
  if (macro.macroDevice < ZE_DEVICE_RAM || macro.macroDevice > ZE_DEVICE_DISK2) return false;
  if (mode < ZE_MACRO_PRINT_ONCE || mode > ZE_MACRO_RAW) return false;
  return mode == ZE_MACRO_RAW || destination.resourceId < kMacroNumberLimit;
}

}  // namespace
}  // namespace zeapi

using namespace zeapi;

uint32_t ZEAPI_CALL ZeMacActivate(const char* printerName, const ZeDestination* destination,
                                  uint32_t enable) noexcept {
  return Guarded([&]() -> Result {
    if (!CanNameMacro(printerName, destination)) return ZE_INVALID_ARGUMENT;
    return ActivateMacro(printerName, *destination, enable != 0);
  });
}

uint32_t ZEAPI_CALL ZeMacCreate(const char* macroFile, const char* printerName,
                                const ZeDestination* destination, ZeMacroInfo* macro) noexcept {
  return Guarded([&]() -> Result {
    if (!CanSendMacro(macroFile, printerName, destination, macro)) return ZE_INVALID_ARGUMENT;
    return CreateMacro(macroFile, printerName, *destination, macro);
  });
}

uint32_t ZEAPI_CALL ZeMacDelete(const char* printerName,
                                const ZeDestination* destination) noexcept {
  return Guarded([&]() -> Result {
    if (!CanNameMacro(printerName, destination)) return ZE_INVALID_ARGUMENT;
    return DeleteMacro(printerName, *destination);
  });
}

uint32_t ZEAPI_CALL ZeMacDownload(const char* macroFile, const char* printerName,
                                  const ZeDestination* destination, ZeMacroInfo* macro,
                                  int32_t mode, uint32_t wrap) noexcept {
  return Guarded([&]() -> Result {
    if (!CanSendMacro(macroFile, printerName, destination, macro)) return ZE_INVALID_ARGUMENT;
    if (!CanDownload(*destination, *macro, mode, wrap)) return ZE_INVALID_ARGUMENT;
    return DownloadMacro(macroFile, printerName, *destination, macro, mode,
                         wrap == ZE_MACRO_WRAPPED);
  });
}

uint32_t ZEAPI_CALL ZeMacValidate(const char* macroFile, const ZeDestination* destination,
                                  ZeMacroInfo* macro) noexcept {
  return Guarded([&]() -> Result {
    if (macroFile == nullptr || destination == nullptr || macro == nullptr ||
        NameTooLong(macroFile)) {
      return ZE_INVALID_ARGUMENT;
    }
    return ValidateMacro(macroFile, *destination, macro);
  });
}

ZeFoundFile* ZEAPI_CALL ZeMacFind(const char* directory, int16_t* count, uint32_t kind,
                                  uint32_t /*value*/, uint32_t recurse) noexcept {
  return Guarded(nullptr, [&]() -> ZeFoundFile* {
    if (directory == nullptr || count == nullptr || NameTooLong(directory)) return nullptr;
    if (kind < ZE_LANGUAGE_DEFAULT || kind > ZE_LANGUAGE_PCLXL) return nullptr;
    return FindMacros(directory, kind, recurse != 0, count).release();
  });
}
