// Stand-alone storage requests.
#pragma once

#include <cstdint>

#include "base/result.h"

namespace zeapi {

// Sends one request, ZE_RESOURCE_..., for a device, ZE_DEVICE_..., as a job of its own. Returns 0,
// the failure of opening the queue (3, 11, 26), or that of a write (7, 14).
Result SendResourceRequest(int request, const char* printerName, const ZeDestination& destination,
                           std::int32_t device);

}  // namespace zeapi
