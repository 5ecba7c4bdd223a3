#include <cstring>

#include "api/guard.h"
#include "base/text.h"
#include "data/data_files.h"
#include "data/file_listing.h"
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

int16_t ZEAPI_CALL ZeDatOpenFile(const char* path, uint32_t, int32_t mode) noexcept {
  return Guarded(ZE_DAT_FAILED, [&] { return DatOpenFile(path, mode); });
}

int16_t ZEAPI_CALL ZeDatCloseFile(int32_t handle) noexcept {
  return Guarded(ZE_DAT_FAILED, [&] { return DatCloseFile(static_cast<int16_t>(handle)); });
}

int16_t ZEAPI_CALL ZeDatGetFirstKey(int32_t handle, ZeDatRecord* record) noexcept {
  return Guarded(ZE_DAT_FAILED,
                 [&] { return DatGetFirstKey(static_cast<int16_t>(handle), record); });
}

int16_t ZEAPI_CALL ZeDatGetNextKey(int32_t handle, ZeDatRecord* record) noexcept {
  return Guarded(ZE_DAT_FAILED,
                 [&] { return DatGetNextKey(static_cast<int16_t>(handle), record); });
}

int16_t ZEAPI_CALL ZeDatQueryCount(const char* path, char* key, int32_t mode) noexcept {
  return Guarded(ZE_DAT_OPEN_FAILED,
                 [&] { return DatQueryCount(path, reinterpret_cast<ZeDatRecord*>(key), mode); });
}

int16_t ZEAPI_CALL ZeDatQueryCounts(const char* path, ZeDatCounts* counts, int32_t mode) noexcept {
  return Guarded(ZE_DAT_OPEN_FAILED, [&] { return DatQueryCounts(path, counts, mode); });
}

ZeDatFileInfo* ZEAPI_CALL ZeDatQueryFiles(const char* directory, uint32_t kind,
                                          uint16_t* count) noexcept {
  return Guarded(nullptr, [&] { return DatQueryFiles(directory, kind, count); });
}

void ZEAPI_CALL ZeDatQueryFilesFree(ZeDatFileInfo* list) noexcept { DatQueryFilesFree(list); }
