#include "api/guard.h"
#include "api/ini_handle.h"
#include "config/qsf_file.h"
#include "config/qsf_section.h"
#include "zeapi.h"

using namespace zeapi;

uint32_t ZEAPI_CALL ZeQsfOpen(const char* path, uint32_t type, void** handle) noexcept {
  return Guarded([&]() -> Result {
    if (handle == nullptr) return ZE_INVALID_ARGUMENT;
    *handle = nullptr;
    std::unique_ptr<QsfFile> file;
    const Result result = QsfOpen(path, static_cast<uint8_t>(type), &file);
    *handle = file.release();
    return result;
  });
}

uint32_t ZEAPI_CALL ZeQsfGetVariables(void* handle, uint32_t block, void** variables,
                                      uint16_t* count) noexcept {
  return Guarded([&]() -> Result {
    if (variables != nullptr) *variables = nullptr;
    if (count != nullptr) *count = 0;
    if (handle == nullptr || variables == nullptr || count == nullptr) return ZE_INVALID_ARGUMENT;
    CHeapPtr<uint8_t[]> bytes;
    const Result result = QsfGetVariables(static_cast<QsfFile*>(handle), block, &bytes, count);
    *variables = bytes.release();
    return result;
  });
}

void ZEAPI_CALL ZeQsfClose(void* handle) noexcept { delete static_cast<QsfFile*>(handle); }

uint32_t ZEAPI_CALL ZeQsfIniGetSection(void* ini, uint32_t kind, uint32_t model,
                                       uint16_t** variables, uint16_t* count) noexcept {
  return Guarded([&]() -> Result {
    if (variables != nullptr) *variables = nullptr;
    if (count != nullptr) *count = 0;
    if (ini == nullptr || variables == nullptr || count == nullptr) return ZE_INVALID_ARGUMENT;
    CHeapPtr<uint8_t[]> bytes;
    const Result result =
        QsfReadSection(IniFileOf(ini), kind, static_cast<uint8_t>(model), &bytes, count);
    *variables = reinterpret_cast<uint16_t*>(bytes.release());
    return result;
  });
}
