// A folder of the target's own, in $TMPDIR or /tmp, that holds its drives. Everything that the
// library writes under test lands there; it is removed at the end.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zeapi::fuzz {

class PrivateDrives {
 public:
  // Makes a folder for each letter and points the library's drives and temporary files there.
  explicit PrivateDrives(std::string_view letters);
  ~PrivateDrives();
  PrivateDrives(const PrivateDrives&) = delete;
  PrivateDrives& operator=(const PrivateDrives&) = delete;

  // Where a drive, or the folder of temporary files ("tmp"), is on the host.
  std::filesystem::path Folder(std::string_view name) const { return root_ / name; }

  // True when nothing but what the constructor made stands beside the drives.
  bool NothingOutside() const;

 private:
  std::filesystem::path root_;
  std::size_t folders_ = 0;
};

// The names of a folder, sorted.
std::vector<std::string> NamesIn(const std::filesystem::path& folder);

void WriteWhole(const std::filesystem::path& file, std::string_view content);

// Empty when there is no such file.
std::string ReadWhole(const std::filesystem::path& file);

// A name that stays in its folder: separators become "_", and a zero byte ends it.
std::string WithoutSeparators(std::string_view name);

}  // namespace zeapi::fuzz
