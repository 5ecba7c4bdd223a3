#include <cstring>

#include "api/guard.h"
#include "base/text.h"
#include "download/data.h"
#include "zeapi.h"

namespace zeapi {
namespace {

constexpr std::size_t kLongestText = 2147483645;

bool LanguageInRange(const ZeDestination& destination) {
  return destination.language >= ZE_LANGUAGE_NONE && destination.language <= ZE_LANGUAGE_PCLXL;
}

FileMode ModeFor(uint32_t append) { return append != 0 ? kAppendFile : kReplaceFile; }

}  // namespace
}  // namespace zeapi

using namespace zeapi;

uint32_t ZEAPI_CALL ZeDatSendFile(const char* fileName, const char* printerName,
                                  const ZeDestination* destination, uint32_t append) noexcept {
  return Guarded([&]() -> Result {
    if (fileName == nullptr || printerName == nullptr || destination == nullptr) {
      return ZE_INVALID_ARGUMENT;
    }
    if (NameTooLong(fileName) || NameTooLong(printerName)) return ZE_INVALID_ARGUMENT;
    if (!LanguageInRange(*destination)) return ZE_INVALID_ARGUMENT;
    return SendDataFile(fileName, printerName, *destination, ModeFor(append));
  });
}

uint32_t ZEAPI_CALL ZeDatSendString(const char* text, const char* printerName,
                                    const ZeDestination* destination, uint32_t append) noexcept {
  return Guarded([&]() -> Result {
    if (text == nullptr || printerName == nullptr || destination == nullptr) {
      return ZE_INVALID_ARGUMENT;
    }
    if (text[0] == '%') return ZeDatSendFile(text + 1, printerName, destination, append);
    const bool escaped = text[0] == '$';
    const std::size_t length = std::strlen(text);
    if (!escaped && length % 2 != 0) return ZE_INVALID_ARGUMENT;
    if (length > kLongestText || NameTooLong(printerName) || !LanguageInRange(*destination)) {
      return ZE_INVALID_ARGUMENT;
    }
    DecodedString decoded;
    const Result result =
        escaped ? DecodeEscapedString(text + 1, &decoded) : DecodeHexString(text, &decoded);
    if (result != ZE_OK) return result;
    return SendDataString(decoded, printerName, *destination, ModeFor(append));
  });
}
