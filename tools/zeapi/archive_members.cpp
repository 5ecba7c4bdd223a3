// The directory is no part of the interface: the library's own reader is used.
#include "archive_members.h"

#include <vector>

#include "archive/archive_records.h"
#include "archive/extractable.h"
#include "archive/find_directory.h"
#include "archive/member_name.h"
#include "archive/wildcard.h"

namespace tool {
namespace {

bool IsExpected(const zeapi::CentralHeader& header, const std::string& name,
                const std::string& pattern) {
  const std::string mapped = zeapi::MapMemberName(name);
  if (!pattern.empty() && !zeapi::MatchesWildcard(mapped, pattern)) return false;
  return zeapi::VersionWillDo(header) && !zeapi::AsksFirst(header) &&
         zeapi::IsUnpackable(header.facts) && !zeapi::MakeLocal(mapped).file.empty();
}

}  // namespace

std::uint32_t CountFiles(const std::string& archive, const std::string& pattern) {
  std::vector<std::uint8_t> buffer(zeapi::ArchiveFile::kBlock + zeapi::ArchiveFile::kSpare);
  zeapi::ArchiveFile file(buffer);
  if (!file.Open(archive.c_str()) && !file.Open((archive + ".zip").c_str())) return 0;
  const zeapi::Directory directory = zeapi::FindDirectory(file);
  if (!directory.readable) return 0;
  file.Seek(directory.position);
  std::uint32_t count = 0;
  zeapi::CentralHeader header;
  std::string name;
  for (unsigned left = directory.entries; left > 0; --left) {
    if (ReadCentralEntry(file, &header, &name) != zeapi::kArchiveOk) break;
    if (IsExpected(header, name, pattern)) ++count;
  }
  return count;
}

}  // namespace tool
