#include "api/guard.h"
#include "api/ini_handle.h"
#include "config/panel_queries.h"
#include "config/panel_registry.h"
#include "zeapi.h"

using namespace zeapi;

namespace {

int16_t Low16(int32_t value) { return static_cast<int16_t>(value); }

void StoreIfWanted(int32_t value, int32_t* place) {
  if (place != nullptr) *place = value;
}

}  // namespace

void* ZEAPI_CALL ZeOpcRegisterCfg(int32_t panel, const char* directory) noexcept {
  return Guarded(nullptr, [&]() -> void* { return OpcRegister(Low16(panel), directory); });
}

uint32_t ZEAPI_CALL ZeOpcUnregisterCfg(void* handle) noexcept {
  return Guarded(0, [&]() -> uint32_t { return OpcUnregister(handle) ? 1 : 0; });
}

uint32_t ZEAPI_CALL ZeOpcGetFileName(int32_t panel, char* buffer) noexcept {
  if (buffer != nullptr) OpcFileName(Low16(panel), buffer);
  return 1;
}

void ZEAPI_CALL ZeOpcGetSpinControlLimits(void* handle, int32_t control, int32_t* minimum,
                                          int32_t* maximum, int32_t* third) noexcept {
  const OpcSpinLimits limits = Guarded(OpcSpinLimits{}, [&] {
    return handle == nullptr ? OpcSpinLimits{}
                             : OpcSpinControlLimits(IniFileOf(handle), Low16(control));
  });
  StoreIfWanted(limits.minimum, minimum);
  StoreIfWanted(limits.maximum, maximum);
  if (limits.hasThird) StoreIfWanted(limits.third, third);
}

int16_t ZEAPI_CALL ZeOpcGetTextListing(void* handle, int32_t control, int32_t subIndex,
                                       uint16_t* texts, int32_t size) noexcept {
  return Guarded(kOpcNoMemory, [&] {
    if (handle == nullptr) return kOpcMissing;
    return OpcTextListing(IniFileOf(handle), Low16(control), static_cast<uint32_t>(subIndex),
                          {texts, Low16(size)});
  });
}

int16_t ZEAPI_CALL ZeOpcGetMaxEditLength(void* handle, int32_t control) noexcept {
  return Guarded(0, [&]() -> int16_t {
    return handle == nullptr ? int16_t{0} : OpcMaxEditLength(IniFileOf(handle), Low16(control));
  });
}

int16_t ZEAPI_CALL ZeOpcGetPageDefaults(void* handle, int32_t page, void* records,
                                        int32_t size) noexcept {
  return Guarded(kOpcMissing, [&] {
    if (handle == nullptr) return kOpcMissing;
    return OpcPageDefaults(IniFileOf(handle), Low16(page), {records, Low16(size)});
  });
}

int16_t ZEAPI_CALL ZeOpcGetPageOmVars(void* handle, int32_t page, void* variables,
                                      int32_t size) noexcept {
  return Guarded(kOpcMissing, [&] {
    if (handle == nullptr) return kOpcMissing;
    return OpcPageOmVars(IniFileOf(handle), Low16(page), {variables, Low16(size)});
  });
}
