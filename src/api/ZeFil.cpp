#include "api/guard.h"
#include "files/checksum.h"
#include "files/file_utilities.h"
#include "files/make_path.h"
#include "files/modify.h"
#include "zeapi.h"

using namespace zeapi;

uint32_t ZEAPI_CALL ZeFilExists(const char* path) noexcept {
  return Guarded(0, [&]() -> Result { return FilExists(path) ? 1 : 0; });
}

uint32_t ZEAPI_CALL ZeFilQuerySize(const char* path) noexcept {
  return Guarded(0, [&] { return FilQuerySize(path); });
}

uint32_t ZEAPI_CALL ZeFilCopy(const char* source, const char* destination) noexcept {
  return Guarded([&]() -> Result {
    if (source == nullptr || destination == nullptr) return ZE_INVALID_ARGUMENT;
    return FilCopy(source, destination);
  });
}

uint32_t ZEAPI_CALL ZeFilBackup(const char* source, char* backupName) noexcept {
  return Guarded([&]() -> Result {
    if (backupName == nullptr) return ZE_INVALID_ARGUMENT;
    return FilBackup(source, backupName);
  });
}

uint32_t ZEAPI_CALL ZeFilModify(const char* path, uint32_t value,
                                ZeModifyCallback callback) noexcept {
  return Guarded([&]() -> Result {
    if (path == nullptr || callback == nullptr) return ZE_INVALID_ARGUMENT;
    return FilModify(path, value, callback);
  });
}

uint32_t ZEAPI_CALL ZeFilMakePath(const char* path, char* created) noexcept {
  return Guarded(ZE_UNUSABLE, [&] { return FilMakePath(path, created); });
}

uint32_t ZEAPI_CALL ZeFilChecksum(const char* path, int32_t handle, uint32_t skip,
                                  uint16_t* result) noexcept {
  return Guarded([&]() -> Result {
    if (result == nullptr) return ZE_INVALID_ARGUMENT;
    return FilChecksum(path, handle, static_cast<uint16_t>(skip), result);
  });
}
