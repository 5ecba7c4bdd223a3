// Searching a folder whose GLUE.TXT is the input. The drive has a font of each kind that the text
// can name: c:\pcl.sfp, c:\out.sfp with c:\out.tfm, c:\cart.pcm.

#include <set>
#include <string>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

std::string PclFont(char headerFormat, char size) {
  std::string descriptor(64, '\0');
  descriptor[1] = size;
  descriptor[2] = headerFormat;
  descriptor[15] = 8;
  descriptor.replace(48, 4, "Font");
  return "\x1B)s64W" + descriptor;
}

void WriteFonts(const PrivateDrives& drives) {
  std::filesystem::create_directory(drives.Folder("c") / "fonts");
  WriteWhole(drives.Folder("c") / "pcl.sfp", PclFont(0, 64));
  WriteWhole(drives.Folder("c") / "out.sfp", PclFont(11, 88));
  WriteWhole(drives.Folder("c") / "out.tfm", "x");
  std::string cartridge(96, '\0');
  cartridge[8] = 16;
  cartridge.replace(16, 4, "Cart");
  WriteWhole(drives.Folder("c") / "cart.pcm", cartridge);
}

// Searches with a limit and checks the list against it.
void Find(std::uint16_t limit, std::uint32_t option) {
  std::uint16_t count = limit;
  ZeFoundFile* first = ZeFonFind("c:\\fonts", &count, 26, 5, option, 1);
  std::set<std::string> descriptions;
  unsigned nodes = 0;
  for (const ZeFoundFile* file = first; file != nullptr; file = file->next) {
    ++nodes;
    Check(file->kind == ZE_FOUND_FONT && file->info != nullptr, "a node is a font");
    const auto* font = static_cast<const ZeFontInfo*>(file->info);
    Check(descriptions.insert(font->description).second, "no two fonts are described alike");
    Check(font->symbolSet[5] == '\0', "a symbol set ends in its field");
  }
  Check(nodes == count, "the count is the list's");
  Check(limit == 0 || nodes <= limit, "the limit holds");
  ZeFonFindFree(first);
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  static const bool written = (WriteFonts(drives), true);
  Check(written, "the fonts are there");
  WriteWhole(drives.Folder("c") / "fonts" / "GLUE.TXT", Input(data, size).Rest());
  const int open = OpenDescriptors();
  for (const std::uint16_t limit : {std::uint16_t{0}, std::uint16_t{1}}) Find(limit, 0);
  Find(0, 2);
  Check(OpenDescriptors() == open, "every file is closed");
  return 0;
}
