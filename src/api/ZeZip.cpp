#include "api/guard.h"
#include "archive/extract_archive.h"
#include "base/text.h"
#include "zeapi.h"

using namespace zeapi;

namespace {

bool AreArguments(const char* archive, const char* pattern) {
  if (archive == nullptr || NameTooLong(archive)) return false;
  return pattern == nullptr || !NameTooLong(pattern);
}

}  // namespace

uint32_t ZEAPI_CALL ZeZipExplode(const char* archive, const char* pattern,
                                 ZeZipProgress progress) noexcept {
  return Guarded([&]() -> Result {
    if (!AreArguments(archive, pattern)) return ZE_INVALID_ARGUMENT;
    return ExtractArchive(archive, pattern == nullptr ? "" : pattern, progress);
  });
}

uint32_t ZEAPI_CALL ZeZipImplode(const char* archive, const char* pattern, ZeZipProgress) noexcept {
  return Guarded([&]() -> Result {
    return AreArguments(archive, pattern) ? ZE_UNSUPPORTED : ZE_INVALID_ARGUMENT;
  });
}
