#include "download/find_resources.h"

#include "download/macro.h"
#include "files/find_files.h"
#include "files/system_file.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kMacroFlagBit4 = 0x10;  // set by searches, read by nobody

}  // namespace

FoundFiles FindDemos(const char* folder, bool recurse, std::int16_t* count) {
  const auto mayBeDemo = [](const char* path, std::span<const std::byte>*) {
    return !IsSystemFile(path);
  };
  return FindFiles(folder, ZE_FOUND_DEMO, recurse, mayBeDemo, count);
}

FoundFiles FindMacros(const char* folder, std::uint32_t kind, bool recurse, std::int16_t* count) {
  ZeDestination destination = {};
  destination.language = static_cast<std::int32_t>(kind);
  ZeMacroInfo macro = {};
  const auto mayBeMacro = [&](const char* path, std::span<const std::byte>* record) {
    macro = {};
    if (kind != ZE_LANGUAGE_PCLXL) macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT | kMacroFlagBit4;
    if (ValidateMacro(path, destination, &macro) != ZE_OK) return false;
    *record = std::as_bytes(std::span(&macro, 1));
    return true;
  };
  return FindFiles(folder, ZE_FOUND_MACRO, recurse, mayBeMacro, count);
}

}  // namespace zeapi
