// Searching a folder whose GLUE.TXT is the input, with a progress callback and without.
//
// Input: a line of numbers (font type, kind, query option, limit, whether folders within are searched),
// then the text. The drive has a font of each kind that the text can name: c:\pcl.sfp; the scalable
// c:\out.sfp with c:\out.tfm, c:\ver.sfp with c:\ver.PFM, and c:\non.sfp with neither; c:\cart.pcm.
// Beside the text lie uni.sfp with its metrics, alone.afm without an INF, and more.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr char kFolder[] = "c:\\fonts";
constexpr std::uint32_t kAnyKind = 5;  // and 6

std::string PclFont(char headerFormat, char size, const char* name) {
  std::string descriptor(64, '\0');
  descriptor[1] = size;
  descriptor[2] = headerFormat;
  descriptor[15] = 8;
  descriptor.replace(48, std::string(name).size(), name);
  return "\x1B)s64W" + descriptor;
}

void WriteFonts(const PrivateDrives& drives) {
  const auto drive = drives.Folder("c");
  std::filesystem::create_directories(drive / "fonts" / "within");
  WriteWhole(drive / "pcl.sfp", PclFont(0, 64, "Font"));
  WriteWhole(drive / "out.sfp", PclFont(11, 88, "Font"));
  WriteWhole(drive / "out.tfm", "x");
  WriteWhole(drive / "ver.sfp", PclFont(15, 72, "Verdana"));
  WriteWhole(drive / "ver.PFM", "x");
  WriteWhole(drive / "non.sfp", PclFont(10, 80, "None"));
  std::string cartridge(96, '\0');
  cartridge[8] = 16;
  cartridge.replace(16, 4, "Cart");
  WriteWhole(drive / "cart.pcm", cartridge);
  const auto fonts = drive / "fonts";
  WriteWhole(fonts / "alone.afm", "FontName Alone\nEndFontMetrics\n");
  WriteWhole(fonts / "alone.PFB", "/FontName /AloneOutline def\n");
  WriteWhole(fonts / "uni.sfp", PclFont(11, 88, "Univers"));
  WriteWhole(fonts / "uni0000S.TFM", "x");
  WriteWhole(fonts / "within" / "a.ttf", "x");
  WriteWhole(fonts / "within" / "b.ttf", "x");
}

struct Search {
  std::uint32_t type;
  std::uint32_t kind;
  std::uint32_t option;
  std::uint16_t limit;
  bool recurse;
};

bool IsScalable(std::uint32_t format) { return format == 17 || format == 18 || format == 20; }

bool Fits(std::uint32_t type, std::uint32_t format) {
  static const std::map<std::uint32_t, std::set<std::uint32_t>> kGroups = {
      {10, {8, 9, 11, 13, 15, 17, 18, 20}},
      {12, {11, 17}},
      {14, {9, 13, 17}},
      {16, {8, 9, 13, 15, 17, 18, 20}},
      {27, {8, 9, 13, 15, 17, 18, 20, 25, 28}}};
  if (type == 26) return true;
  const auto group = kGroups.find(type);
  return group == kGroups.end() ? format == type : group->second.count(format) != 0;
}

// What the progress callback was told.
struct Progress {
  unsigned files = 0;
  std::vector<std::string> fonts;  // their descriptions
  std::uint32_t percent = 0;
} progress;

void ZEAPI_CALL Tell(const ZeFontInfo* font, std::uint32_t percent) {
  Check(percent >= progress.percent && percent <= 100, "progress goes on, up to its end");
  progress.percent = percent;
  if (font == nullptr) {
    ++progress.files;
  } else {
    Check(font->description[0] != '\0', "a font that is told has a description");
    progress.fonts.emplace_back(font->description);
  }
}

void CheckFont(const ZeFoundFile& file, const Search& search) {
  Check(file.kind == ZE_FOUND_FONT && file.info != nullptr, "a node is a font");
  const auto& font = *static_cast<const ZeFontInfo*>(file.info);
  Check(file.size == font.fileSize, "a node has the font's size");
  Check(font.symbolSet[5] == '\0', "a symbol set ends in its field");
  Check(Fits(search.type, font.format), "a font passes the filter of types");
  Check(search.kind >= kAnyKind || font.kind == search.kind, "a font passes the filter of kinds");
  if (!IsScalable(font.format)) return;
  Check(search.option != 2 || font.companionFile[0] != '\0', "option 2 wants metrics");
  Check(search.option != 4 || font.metricsFile[0] != '\0', "option 4 wants metrics or a PFM");
}

// The descriptions of the fonts listed, in the order in which they were found.
std::vector<std::string> Find(const Search& search, ZeFontProgress tell) {
  std::uint16_t count = search.limit;
  ZeFoundFile* first = ZeFonFind2(kFolder, &count, search.type, search.kind, search.option,
                                  search.recurse ? 1 : 0, tell);
  std::vector<std::string> descriptions;
  for (const ZeFoundFile* file = first; file != nullptr; file = file->next) {
    CheckFont(*file, search);
    descriptions.emplace_back(static_cast<const ZeFontInfo*>(file->info)->description);
  }
  ZeFonFindFree(first);
  std::reverse(descriptions.begin(), descriptions.end());
  const std::size_t nodes = descriptions.size();
  Check(std::set(descriptions.begin(), descriptions.end()).size() == nodes,
        "no two fonts are described alike");
  const bool valid = search.type >= 1 && search.type <= 28 && search.kind >= 1 && search.kind <= 6;
  Check(valid || (nodes == 0 && count == search.limit), "a bad argument changes nothing");
  Check(!valid || search.recurse || nodes == count, "the count is the list's");
  Check(search.limit == 0 || nodes <= search.limit, "the limit holds");
  return descriptions;
}

void FindBothWays(const Search& search) {
  progress = {};
  const std::vector<std::string> told = Find(search, &Tell);
  Check(Find(search, nullptr) == told, "the callback changes nothing");
  if (search.recurse) return;  // fonts within are told and not listed
  Check(progress.files <= 5, "files are told once");
  std::vector<std::string> described;
  for (const std::string& description : told) {
    if (!description.empty()) described.push_back(description);
  }
  Check(progress.fonts == described, "each font listed is told");
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  static const bool written = (WriteFonts(drives), true);
  Check(written, "the fonts are there");
  Input input(data, size);
  Numbers numbers(input.Line());
  Search search = {};
  search.type = numbers.Below(30);
  search.kind = numbers.Below(8);
  search.option = numbers.Below(7);
  search.limit = static_cast<std::uint16_t>(numbers.Next());
  search.recurse = numbers.Next() != 0;
  WriteWhole(drives.Folder("c") / "fonts" / "GLUE.TXT", input.Rest());
  const int open = OpenDescriptors();
  FindBothWays(search);
  Check(OpenDescriptors() == open, "every file is closed");
  return 0;
}
