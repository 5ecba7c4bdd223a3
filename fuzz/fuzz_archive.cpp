// Whole archives through ZeZipExplode().
//
// Input: a line with whether there is a callback (1) and how many members of host system 2 are confirmed; a
// line with the pattern; the archive. Nothing may appear outside the folder of the extraction, where a link leads out
// and a file stands in the way.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace fs = std::filesystem;

namespace zeapi::fuzz {
namespace {

constexpr std::uint32_t kStated[] = {ZE_OK,
                                     ZE_FILE_NOT_FOUND,
                                     ZE_BAD_FORMAT,
                                     ZE_OUT_OF_MEMORY,
                                     ZE_SHARING_VIOLATION,
                                     ZE_UNEXPECTED_END};

std::uint32_t ZEAPI_CALL OnFile(const char* name, std::uint32_t, std::uint32_t percentage) {
  Check(percentage <= 100, "a share is at most the whole");
  Check(fs::is_regular_file(fs::symlink_status(name)), "the file that is told is there");
  return 0;
}

bool IsHarmless(const std::string& component) {
  return component.find_first_of("\\:") == component.npos && component.back() != '.' &&
         component.back() != ' ';
}

// Puts so many lines on standard input.
void AnswerYes(const fs::path& file, unsigned count) {
  std::string answers;
  for (; count > 0; --count) answers += "y\n";
  WriteWhole(file, answers);
  Check(std::freopen(file.c_str(), "r", stdin) != nullptr, "standard input can be a file");
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("ox");  // o: what is outside, x: where members go
  Input input(data, size);
  Numbers numbers(input.Line());
  const bool tells = numbers.Below(2) != 0;
  AnswerYes(drives.Folder("tmp") / "answers", numbers.Below(64));
  const std::string pattern(UpToZero(input.Line()));
  const fs::path folder = drives.Folder("x");
  fs::remove_all(folder);
  fs::create_directory(folder);
  fs::remove_all(drives.Folder("o"));
  fs::create_directory(drives.Folder("o"));
  fs::create_directory_symlink(drives.Folder("o"), folder / "link");
  fs::create_symlink(drives.Folder("o") / "target", folder / "l");
  WriteWhole(drives.Folder("tmp") / "a.zip", std::string(input.Rest()));
  const fs::path elsewhere = fs::current_path();
  fs::current_path(folder);
  const int before = OpenDescriptors();
  const std::string archive = (drives.Folder("tmp") / "a.zip").string();
  const std::uint32_t result =
      ZeZipExplode(archive.c_str(), pattern.c_str(), tells ? OnFile : nullptr);
  Check(OpenDescriptors() == before, "all files are closed");
  Check(pattern.size() > ZE_MAX_NAME
            ? result == ZE_INVALID_ARGUMENT
            : std::find(std::begin(kStated), std::end(kStated), result) != std::end(kStated),
        "the result is one that is stated");
  Check(fs::is_empty(drives.Folder("o")), "nothing leaves the folder by a link");
  Check(drives.NothingOutside(), "nothing is made outside the folder");
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
    Check(IsHarmless(entry.path().filename().string()), "names are harmless everywhere");
  fs::current_path(elsewhere);
  return 0;
}
