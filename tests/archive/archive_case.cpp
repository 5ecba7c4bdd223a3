#include "archive/archive_case.h"

#include <algorithm>

namespace zeapi::testing {

std::vector<ArchiveTest::Progress> ArchiveTest::progress_;

void ArchiveTest::SetUp() {
  ScratchTest::SetUp();
  progress_.clear();
}

std::uint32_t ZEAPI_CALL ArchiveTest::OnProgress(const char* name, std::uint32_t compressedSize,
                                                 std::uint32_t percentage) {
  progress_.push_back({name, compressedSize, percentage});
  return 1;  // ignored
}

// A new file each time: some file systems write a file that is emptied and filled again to the disk.
void ArchiveTest::WriteArchive(const std::string& bytes) {
  std::filesystem::remove(kArchive);
  WriteFile(kArchive, bytes);
}

std::uint32_t ArchiveTest::Explode(const ZipArchive& archive, const char* pattern) {
  return ExplodeBytes(archive.Bytes(), pattern);
}

std::uint32_t ArchiveTest::ExplodeBytes(const std::string& bytes, const char* pattern) {
  WriteArchive(bytes);
  return ZeZipExplode(kArchive, pattern, nullptr);
}

std::uint32_t ArchiveTest::ExplodeTold(const ZipArchive& archive, const char* pattern) {
  WriteArchive(archive.Bytes());
  return ZeZipExplode(kArchive, pattern, OnProgress);
}

void ArchiveTest::Empty() {
  for (const auto& entry : std::filesystem::directory_iterator("."))
    std::filesystem::remove_all(entry.path());
}

std::vector<std::string> ArchiveTest::Tree() {
  std::vector<std::string> tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(".")) {
    const std::string name = entry.path().lexically_relative(".").generic_string();
    tree.push_back(entry.is_directory() ? name + "/" : name + "=" + ReadFile(entry.path()));
  }
  std::sort(tree.begin(), tree.end());
  return tree;
}

}  // namespace zeapi::testing
