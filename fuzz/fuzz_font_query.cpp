// Querying font files of every kind.
//
// Input: a line with the extension, a line with the query option, then the file. The companions
// that a font may have are beside it: an INF with a menu name for metrics, the others of one byte.

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

void Query(const std::string& path, std::uint32_t option, std::size_t size) {
  ZeFontInfo info;
  std::memset(&info, 0xCC, sizeof(info));
  const std::uint32_t code = ZeFonQueryInfo(path.c_str(), &info, option, 1);
  Check(code == ZE_OK || code == ZE_BAD_FORMAT || code == ZE_UNSUPPORTED ||
            code == ZE_INVALID_ARGUMENT,
        "a query gives one of its codes");
  Check(Ends(info.description) && Ends(info.detail) && Ends(info.symbolSet) &&
            Ends(info.companionFile) && Ends(info.metricsFile),
        "every text ends in its field");
  if (code == ZE_OK) {
    Check(info.kind >= ZE_FONT_KIND_METRICS && info.kind <= ZE_FONT_KIND_TRUETYPE, "a kind");
    Check(info.fileSize == size, "the size of the file");
  }
  if (info.cartridge != nullptr) CheckCartridge(*info.cartridge);
  Check(code == ZE_OK || info.cartridge == nullptr, "a refused file has no cartridge");
  FreeCartridge(info.cartridge);
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
  const auto option = static_cast<std::uint32_t>(Numbers(input.Line()).Next());
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  for (const char* companion : {"AFM", "PFB", "PFM", "FMF", "DLF"}) {
    WriteWhole(folder / (std::string("font.") + companion), "x");
  }
  WriteWhole(folder / "font.INF", "MSMenuName (Menu)\nVPStyle (B)\n");
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::string upper;
    for (const char c : extension)
      upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (entry.path().extension() == "." + upper) std::filesystem::remove(entry.path());
  }
  WriteWhole(folder / ("font." + extension), input.Rest());
  const int open = OpenDescriptors();
  Query("c:\\fonts\\font." + extension, option, input.Rest().size());
  Check(OpenDescriptors() == open, "every file is closed");
  return 0;
}
