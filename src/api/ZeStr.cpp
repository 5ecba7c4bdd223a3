#include "files/upper_case_copy.h"
#include "zeapi.h"

char* ZEAPI_CALL ZeStrCpyFile(char* destination, const char* path) noexcept {
  return zeapi::StrCpyFile(destination, path);
}

char* ZEAPI_CALL ZeStrCpyPath(char* destination, const char* path) noexcept {
  return zeapi::StrCpyPath(destination, path);
}
