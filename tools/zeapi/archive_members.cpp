// The directory is no part of the interface: the library's own reader is used.
#include "archive_members.h"

#include <vector>

#include "archive/archive_records.h"
#include "archive/extract_archive.h"
#include "archive/extractable.h"
#include "archive/find_directory.h"
#include "archive/member_name.h"
#include "archive/wildcard.h"

namespace tool {
namespace {

bool IsTaken(const zeapi::CentralHeader& header, const std::string& name,
             const std::string& pattern) {
  if (!pattern.empty() && !zeapi::MatchesWildcard(zeapi::MapMemberName(name), pattern))
    return false;
  return zeapi::VersionWillDo(header) && !zeapi::AsksFirst(header) &&
         zeapi::IsUnpackable(header.facts);
}

// A member has the name of its own header. One without a header counts as a file: the pass fails at it.
bool IsFolder(zeapi::ArchiveFile& file, std::int64_t position) {
  zeapi::MemberFacts facts;
  std::string name;
  file.Seek(position);
  return position >= 0 && ReadLocalEntry(file, &facts, &name) == zeapi::kArchiveOk &&
         zeapi::MakeLocal(zeapi::MapMemberName(name)).file.empty();
}

}  // namespace

std::string ArchivePath(const std::string& archive) { return zeapi::ArchivePath(archive.c_str()); }

std::uint32_t CountFiles(const std::string& path, const std::string& pattern) {
  std::vector<std::uint8_t> buffer(zeapi::ArchiveFile::kBlock + zeapi::ArchiveFile::kSpare);
  zeapi::ArchiveFile file(buffer);
  if (!file.Open(path.c_str())) return 0;
  const zeapi::Directory directory = zeapi::FindDirectory(file);
  if (!directory.readable) return 0;
  file.Seek(directory.position);
  std::uint32_t count = 0;
  zeapi::CentralHeader header;
  std::string name;
  for (unsigned left = directory.entries; left > 0; --left) {
    if (ReadCentralEntry(file, &header, &name) != zeapi::kArchiveOk) break;
    const std::int64_t next = file.position();
    if (IsTaken(header, name, pattern) &&
        !IsFolder(file, header.localOffset + directory.adjustment))
      ++count;
    file.Seek(next);
  }
  return count;
}

}  // namespace tool
