// Option records.
#pragma once

#include <memory>

#include "zeapi.h"

namespace zeapi {

void FreeOptionInfo(ZeOptionInfo* info);

struct OptionInfoFree {
  void operator()(ZeOptionInfo* info) const { FreeOptionInfo(info); }
};
using OptionInfoPtr = std::unique_ptr<ZeOptionInfo, OptionInfoFree>;

// Null when there is no memory for the record itself; a later lack of it ends the record.
OptionInfoPtr ParseOptionInfo(const void* buffer);

}  // namespace zeapi
