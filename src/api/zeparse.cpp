#include "api/guard.h"
#include "parse/zecard.h"
#include "parse/zefax.h"
#include "zeapi.h"

using namespace zeapi;

ZeOptionInfo* ZEAPI_CALL ZeParseOptionInfo(const void* buffer) noexcept {
  return Guarded(nullptr, [&]() -> ZeOptionInfo* {
    return buffer != nullptr ? ParseOptionInfo(buffer).release() : nullptr;
  });
}

void ZEAPI_CALL ZeFreeOptionInfo(ZeOptionInfo* info) noexcept { FreeOptionInfo(info); }

ZeJobAccount* ZEAPI_CALL ZeParseJobAccountingAlert(const void* buffer) noexcept {
  return Guarded(nullptr, [&]() -> ZeJobAccount* {
    return buffer != nullptr ? ParseJobAccount(buffer).release() : nullptr;
  });
}

void ZEAPI_CALL ZeFreeJobAccount(ZeJobAccount* account) noexcept { FreeJobAccount(account); }
