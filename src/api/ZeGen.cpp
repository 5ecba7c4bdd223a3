#include <cstdlib>

#include "api/guard.h"
#include "base/text.h"
#include "download/resource.h"
#include "output/bidi_back_end.h"
#include "zeapi.h"

namespace zeapi {
namespace {

struct ApiWord {
  std::size_t index;
  uint16_t value;
};

// The words that are not 0. Callers compare them one by one.
constexpr ApiWord kApiWords[] = {{0, ZE_API_VERSION},
                                 {1, 32},
                                 {2, 2},
                                 {3, 2},
                                 {11, 1},
                                 {12, 1},
                                 {16, 1},
                                 {17, 1},
                                 {20, 1},
                                 {23, 1},
                                 {26, 1},
                                 {28, 1}};

// Neither query enumerates anything.
Result CheckQueryBuffer(const void* buffer, uint32_t size) {
  constexpr uint16_t kSmallest = 1024;
  const bool enough = buffer != nullptr && static_cast<uint16_t>(size) >= kSmallest;
  return enough ? ZE_OK : ZE_INVALID_ARGUMENT;
}

}  // namespace
}  // namespace zeapi

using namespace zeapi;

void ZEAPI_CALL ZeGenQueryApiInfo(void* info) noexcept {
  if (info == nullptr) return;
  auto* record = static_cast<ZeApiInfo*>(info);
  *record = ZeApiInfo{};
  for (const ApiWord& word : kApiWords) record->words[word.index] = word.value;
}

void ZEAPI_CALL ZeMemFree(void* block) noexcept { std::free(block); }

uint32_t ZEAPI_CALL ZeGenQueryAdapters(uint32_t, uint32_t, void* buffer, uint32_t size) noexcept {
  return CheckQueryBuffer(buffer, size);
}

uint32_t ZEAPI_CALL ZeGenQueryQueues(uint32_t, uint32_t, void* buffer, uint32_t size) noexcept {
  return CheckQueryBuffer(buffer, size);
}

uint32_t ZEAPI_CALL ZeNetGetType(uint32_t printer) noexcept {
  return Guarded(0, [&] { return BidiConnectionType(printer); });
}

uint32_t ZEAPI_CALL ZeGenResource(int32_t request, const char* printerName,
                                  const ZeDestination* destination, int32_t device) noexcept {
  return Guarded([&]() -> Result {
    if (printerName == nullptr || destination == nullptr) return ZE_INVALID_ARGUMENT;
    // This call alone refuses a name of exactly 260 characters.
    if (BoundedLength(printerName, ZE_MAX_NAME) >= ZE_MAX_NAME) return ZE_INVALID_ARGUMENT;
    if (request < ZE_RESOURCE_TARGET_RAM || request > ZE_RESOURCE_PRINT_DIRECTORY) {
      return ZE_INVALID_ARGUMENT;
    }
    if (device < ZE_DEVICE_RAM || device > ZE_DEVICE_DISK2) return ZE_INVALID_ARGUMENT;
    return SendResourceRequest(request, printerName, *destination, device);
  });
}
