#include <memory>

#include "api/guard.h"
#include "api/ini_handle.h"
#include "config/ini_file.h"
#include "zeapi.h"

using namespace zeapi;

namespace {

constexpr uint32_t kDone = 1;
constexpr uint32_t kNotDone = 0;

template <typename Write>
uint32_t WriteWith(Write write, void* handle, const char* section, const char* key,
                   const char* value) noexcept {
  return Guarded(kNotDone, [&] {
    if (handle == nullptr || section == nullptr || key == nullptr || value == nullptr) {
      return kNotDone;
    }
    write(IniFileOf(handle), section, key, value);
    return kDone;
  });
}

}  // namespace

void* ZEAPI_CALL ZeIniOpen(const char* name) noexcept {
  return Guarded(nullptr, [&]() -> void* {
    std::unique_ptr<IniFile> file = IniOpen(name, kIniReadFiltered);
    const bool hasLines = file != nullptr && file->lines.first() != nullptr;
    return hasLines ? file.release() : nullptr;
  });
}

void* ZEAPI_CALL ZeIniOpen2(const char* name, uint32_t mode) noexcept {
  return Guarded(nullptr, [&]() -> void* { return IniOpen(name, mode).release(); });
}

uint32_t ZEAPI_CALL ZeIniClose(void* handle) noexcept {
  return Guarded(kNotDone, [&]() -> uint32_t {
    return handle != nullptr && IniClose(std::unique_ptr<IniFile>(IniFileOf(handle))) ? kDone
                                                                                      : kNotDone;
  });
}

const char* ZEAPI_CALL ZeIniRead(void* handle, const char* section, const char* key) noexcept {
  const char* text = Guarded(nullptr, [&]() -> const char* {
    return handle == nullptr ? nullptr : IniRead(IniFileOf(handle), section, key);
  });
  return text != nullptr ? text : "";
}

uint32_t ZEAPI_CALL ZeIniRead2(void* handle, const char* section, const char* key,
                               const char* fallback, char* buffer, uint32_t size,
                               uint32_t* count) noexcept {
  // Without memory the call answers as if it had found an empty value but stores nothing; callers
  // know that by the count.
  return Guarded(ZE_OK, [&]() -> Result {
    if (handle == nullptr || count == nullptr) return ZE_INVALID_ARGUMENT;
    return IniRead2(IniFileOf(handle), section, key, fallback, buffer, size, count);
  });
}

uint32_t ZEAPI_CALL ZeIniWrite(void* handle, const char* section, const char* key,
                               const char* value) noexcept {
  return WriteWith(IniWrite, handle, section, key, value);
}

uint32_t ZEAPI_CALL ZeIniWriteAll(void* handle, const char* section, const char* key,
                                  const char* value) noexcept {
  return WriteWith(IniWriteAll, handle, section, key, value);
}

uint32_t ZEAPI_CALL ZeIniDelete(void* handle, const char* section, const char* key,
                                const char* value) noexcept {
  return Guarded(kNotDone, [&] {
    if (handle == nullptr || section == nullptr) return kNotDone;
    IniDelete(IniFileOf(handle), section, key, value);
    return kDone;
  });
}
