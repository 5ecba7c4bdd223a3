#include "api/guard.h"
#include "api/ini_handle.h"
#include "web/links.h"
#include "zeapi.h"

using namespace zeapi;

uint32_t ZEAPI_CALL ZeWebGetURL(int32_t printer, int32_t topic, int32_t language, char* buffer,
                                uint32_t size, void* ini) noexcept {
  return Guarded([&] { return WebGetUrl(printer, topic, language, buffer, size, IniFileOf(ini)); });
}

uint32_t ZEAPI_CALL ZeWebGetCGIURL(uint32_t family, uint32_t model, uint32_t topic,
                                   uint32_t language, char* buffer, uint32_t size) noexcept {
  return Guarded([&] {
    return WebGetCgiUrl(family, model, topic, static_cast<uint16_t>(language), buffer, size);
  });
}
