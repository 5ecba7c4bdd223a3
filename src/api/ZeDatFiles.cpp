#include "api/guard.h"
#include "data/data_files.h"
#include "data/file_listing.h"
#include "zeapi.h"

using namespace zeapi;

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
