// Searching folders of fonts, beside opening and reading the same files, beside another program
// that tells what fonts are, and beside a search of half the size.

#include <cstdio>
#include <cstdlib>

#include "font_folder.h"
#include "paired.h"
#include "temporary_folder.h"
#include "zeapi.h"

namespace zeapi::bench {
namespace {

constexpr int kFonts = 10000;

// How many fonts of a folder of drive C are listed.
int List(const char* folder) {
  std::uint16_t count = 0;
  ZeFoundFile* first = ZeFonFind(folder, &count, 26, 5, 0, 0);
  ZeFonFindFree(first);
  return count;
}

// What a PCL font costs besides: the diagnostic file is written anew, 39 lines of about 28 bytes.
void WriteDump(const std::string& path) {
  std::FILE* dump = std::fopen(path.c_str(), "w");
  if (dump == nullptr) return;
  for (int line = 0; line < 39; ++line) std::fprintf(dump, "usFieldOfTheFont:      %d\n", line);
  std::fclose(dump);
}

bool IsPcl(const std::string& path) { return path.ends_with(".sfp") || path.ends_with(".sfs"); }

std::size_t ReadFiles(const std::vector<std::string>& paths, const std::string& dump) {
  std::size_t total = 0;
  for (const std::string& path : paths) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) continue;
    char block[4096];
    while (const std::size_t count = std::fread(block, 1, sizeof(block), file)) total += count;
    std::fclose(file);
    if (IsPcl(path)) WriteDump(dump);
  }
  return total;
}

void FontFindAndRead(benchmark::State& state) {
  const TemporaryFolder folder;
  folder.MakeDriveC();
  const std::vector<std::string> paths = WriteMixedFonts(folder.File("c/fonts"), kFonts);
  bool whole = true;
  RunPaired(
      state, kFonts, [&] { whole &= ReadFiles(paths, folder.File("c/dump.txt")) != 0; },
      [&] { whole &= List("c:\\fonts") == kFonts; });
  if (!whole) state.SkipWithError("not every font was listed");
}
BENCHMARK(FontFindAndRead)->UseManualTime()->Iterations(11)->Unit(benchmark::kMillisecond);

void FontFindAndScan(benchmark::State& state) {
  const TemporaryFolder folder;
  folder.MakeDriveC();
  const int fonts = CopyHostType1(folder.File("c/fonts"));
  const std::string scan = "fc-scan " + folder.File("c/fonts") + " >" + folder.File("scan");
  if (fonts == 0 || std::system(scan.c_str()) != 0) {
    state.SkipWithError("needs Type 1 fonts of the distribution, and fc-scan");
    return;
  }
  bool whole = true;
  RunPaired(
      state, fonts, [&] { whole &= std::system(scan.c_str()) == 0; },
      [&] { whole &= List("c:\\fonts") > 0; });
  if (!whole) state.SkipWithError("a scan failed");
}
BENCHMARK(FontFindAndScan)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void FontFindTwice(benchmark::State& state) {
  const TemporaryFolder folder;
  folder.MakeDriveC();
  WriteMixedFonts(folder.File("c/half"), kFonts);
  WriteMixedFonts(folder.File("c/whole"), 2 * kFonts);
  bool whole = true;
  RunPaired(
      state, 2 * kFonts, [&] { whole &= List("c:\\half") == kFonts; },
      [&] { whole &= List("c:\\whole") == 2 * kFonts; });
  if (!whole) state.SkipWithError("not every font was listed");
}
BENCHMARK(FontFindTwice)->UseManualTime()->Iterations(11)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
