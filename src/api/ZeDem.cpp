#include "api/guard.h"
#include "base/text.h"
#include "download/demo.h"
#include "download/find_resources.h"
#include "zeapi.h"

using namespace zeapi;

uint32_t ZEAPI_CALL ZeDemDownload(const char* demoFile, const char* printerName,
                                  ZeDestination* destination, const ZeDemoInfo* demo) noexcept {
  return Guarded([&]() -> Result {
    if (demoFile == nullptr || printerName == nullptr || destination == nullptr ||
        demo == nullptr) {
      return ZE_INVALID_ARGUMENT;
    }
    if (SameText(demoFile, printerName) || NameTooLong(demoFile) || NameTooLong(printerName)) {
      return ZE_INVALID_ARGUMENT;
    }
    if (demo->device < ZE_DEVICE_FLASH1 || demo->device > ZE_DEVICE_DISK2 ||
        demo->method < ZE_DEMO_POSTSCRIPT || demo->method > ZE_DEMO_NOTHING) {
      return ZE_INVALID_ARGUMENT;
    }
    return DownloadDemo(demoFile, printerName, destination, *demo);
  });
}

ZeFoundFile* ZEAPI_CALL ZeDemFind(const char* directory, int16_t* count, uint32_t /*value*/,
                                  uint32_t recurse) noexcept {
  return Guarded(nullptr, [&]() -> ZeFoundFile* {
    if (directory == nullptr || count == nullptr || NameTooLong(directory)) return nullptr;
    return FindDemos(directory, recurse != 0, count).release();
  });
}
