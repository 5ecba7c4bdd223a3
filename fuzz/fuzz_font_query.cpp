// Querying font files of every kind, with metric files and without.
//
// Input: a line with the extension, a line with the query option, then the file. The companions
// that a font may have are beside it: an INF with a menu name for metrics, the others of one byte;
// none when a 1 follows the option.

#include <cctype>
#include <cstring>
#include <string>

#include "files/found_files.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kLongestExtension = 8;

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

template <std::size_t size>
bool Ends(const char (&field)[size]) {
  return std::memchr(field, '\0', size) != nullptr;
}

void CheckCartridge(const ZeCartridge& cartridge) {
  Check(std::memchr(cartridge.name, '\0', 80) != nullptr, "a cartridge's name ends");
  for (const ZeCartridgeFont* font = cartridge.fonts; font != nullptr; font = font->next) {
    Check(font->name[0] != '\0', "a cartridge's font has a name");
    Check(std::memchr(font->name, '\0', 91) != nullptr, "a cartridge font's name ends");
  }
}

// What a query says, and whether that is well formed.
std::uint32_t Query(const std::string& path, std::uint32_t option, bool includeMetricFiles,
                    std::size_t size, ZeFontInfo* info) {
  std::memset(info, 0xCC, sizeof(*info));
  const std::uint32_t code = ZeFonQueryInfo(path.c_str(), info, option, includeMetricFiles ? 1 : 0);
  Check(code == ZE_OK || code == ZE_BAD_FORMAT || code == ZE_UNSUPPORTED ||
            code == ZE_INVALID_ARGUMENT,
        "a query gives one of its codes");
  Check(Ends(info->description) && Ends(info->detail) && Ends(info->symbolSet) &&
            Ends(info->companionFile) && Ends(info->metricsFile),
        "every text ends in its field");
  if (code == ZE_OK) {
    const bool unread = option == 5 && info->kind == 0;  // an AFM without its INF
    Check(unread == (info->description[0] == '\0') || info->format == ZE_FONT_TFM ||
              info->format == ZE_FONT_HOST_TRUETYPE,
          "a font is described");
    Check(unread || (info->kind >= ZE_FONT_KIND_METRICS && info->kind <= ZE_FONT_KIND_TRUETYPE),
          "a kind");
    Check(info->fileSize == size, "the size of the file");
  }
  if (info->cartridge != nullptr) CheckCartridge(*info->cartridge);
  Check(code == ZE_OK || info->cartridge == nullptr, "a refused file has no cartridge");
  FreeCartridge(info->cartridge);
  info->cartridge = nullptr;
  return code;
}

bool IsMetricFile(const std::string& extension) {
  for (const char* metric : {"AFM", "FMF", "PFM", "PSM", "PBM", "PCM", "TFM"}) {
    if (Upper(extension.substr(0, 3)) == metric) return true;
  }
  return false;
}

// With metric files and without them: they are refused unopened, and others do not notice.
void QueryBothWays(const std::string& extension, std::uint32_t option, std::size_t size) {
  const std::string path = "c:\\fonts\\font." + extension;
  ZeFontInfo with;
  ZeFontInfo without;
  const std::uint32_t code = Query(path, option, true, size, &with);
  const std::uint32_t codeWithout = Query(path, option, false, size, &without);
  if (IsMetricFile(extension)) {
    ZeFontInfo refused = {};
    refused.flags = ZE_FONT_STANDARD;
    refused.fileSize = static_cast<std::uint32_t>(size);
    Check(codeWithout == ZE_BAD_FORMAT, "metric files are refused");
    Check(std::memcmp(&without, &refused, sizeof(refused)) == 0, "a refused file is not looked at");
  } else {
    Check(codeWithout == code, "other files are queried alike");
    Check(std::memcmp(&without, &with, sizeof(with)) == 0, "other files have one record");
  }
}

void WriteCompanions(const std::filesystem::path& folder, const std::string& but) {
  for (const std::string companion : {"AFM", "PFB", "PFM", "FMF", "DLF", "INF"}) {
    if (companion == but) continue;
    WriteWhole(folder / ("font." + companion),
               companion == "INF" ? "MSMenuName (Menu)\nVPStyle (B)\n" : "x");
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  const auto folder = drives.Folder("c") / "fonts";
  Input input(data, size);
  std::string extension;
  for (const char c : input.Line().substr(0, kLongestExtension)) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) extension += c;
  }
  Numbers numbers(input.Line());
  const auto option = static_cast<std::uint32_t>(numbers.Next());
  const bool alone = numbers.Next() == 1;
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  if (!alone) WriteCompanions(folder, Upper(extension));
  WriteWhole(folder / ("font." + extension), input.Rest());
  const int open = OpenDescriptors();
  QueryBothWays(extension, option, input.Rest().size());
  Check(OpenDescriptors() == open, "every file is closed");
  return 0;
}
