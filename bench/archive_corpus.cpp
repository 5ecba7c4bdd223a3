#include "archive_corpus.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "archive/find_directory.h"
#include "archive/zip_records.h"

namespace zeapi::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kCorpus = std::uintmax_t{110} << 20;
constexpr std::uintmax_t kLargest = 8U << 20;

std::vector<fs::path> SystemFiles() {
  std::vector<fs::path> files;
  for (const char* folder : {"/usr/bin", "/usr/lib", "/usr/share"}) {
    const auto options = fs::directory_options::skip_permission_denied;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, options)) {
      std::error_code error;
      if (entry.is_symlink(error) || !entry.is_regular_file(error)) continue;
      const std::uintmax_t size = entry.file_size(error);
      if (!error && size > 2000 && size < kLargest) files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool Zip(const std::string& arguments) {
  return std::system(("zip -6 -q " + arguments).c_str()) == 0;
}

}  // namespace

bool ZipSystemFiles(const std::string& archive, const std::string& listFile) {
  const std::vector<fs::path> files = SystemFiles();
  std::ofstream list(listFile);
  std::uintmax_t total = 0;
  constexpr std::size_t kStride =
      1009;  // no folder is taken whole before every other has its share
  for (std::size_t start = 0; start < kStride && total < kCorpus; ++start) {
    for (std::size_t i = start; i < files.size() && total < kCorpus; i += kStride) {
      std::error_code error;
      total += fs::file_size(files[i], error);
      list << files[i].native() << '\n';
    }
  }
  list.close();
  return Zip(archive + " -@ < " + listFile);
}

bool ZipSmallFiles(const std::string& archive, const std::string& folder, int count) {
  for (int i = 0; i < count; ++i) {
    const fs::path place = fs::path(folder) / std::to_string(i / 100);
    if (i % 100 == 0) fs::create_directories(place);
    std::ofstream(place / (std::to_string(i) + ".txt")) << "file " << i << std::string(200, '.');
  }
  return Zip("-r " + archive + " " + folder);
}

std::vector<PackedMember> ReadPacked(const std::string& archive) {
  std::vector<PackedMember> members;
  std::vector<std::uint8_t> buffer(ArchiveFile::kBlock + ArchiveFile::kSpare);
  ArchiveFile file(buffer);
  if (!file.Open(archive.c_str())) return members;
  const Directory directory = FindDirectory(file);
  std::int64_t at = directory.position;
  for (unsigned i = 0; i < directory.entries; ++i) {
    std::array<std::uint8_t, kCentralHeaderSize> bytes;
    file.Seek(at + static_cast<std::int64_t>(kSignatureSize));
    if (!file.Read(bytes)) break;
    const CentralHeader header = ParseCentralHeader(bytes);
    at =
        file.position() + header.facts.nameLength + header.facts.extraLength + header.commentLength;
    if (header.facts.method != kZipDeflated) continue;
    std::array<std::uint8_t, kLocalHeaderSize> local;
    file.Seek(header.localOffset + static_cast<std::int64_t>(kSignatureSize));
    if (!file.Read(local)) break;
    const MemberFacts facts = ParseLocalHeader(local);
    file.Seek(file.position() + facts.nameLength + facts.extraLength);
    PackedMember member = {std::vector<std::uint8_t>(header.facts.compressedSize),
                           header.facts.uncompressedSize};
    if (!file.Read(member.packed)) break;
    members.push_back(std::move(member));
  }
  return members;
}

}  // namespace zeapi::bench
