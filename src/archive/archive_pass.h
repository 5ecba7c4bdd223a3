// The pass over an archive: its directory is walked in batches, and the members of each batch are
// extracted before the next is read.
#pragma once

#include <vector>

#include "archive/extract_member.h"
#include "archive/find_directory.h"
#include "zeapi.h"

namespace zeapi {

class ArchivePass {
 public:
  static constexpr std::size_t kBatch = 64;

  // An empty pattern takes every member; `progress` may be null.
  ArchivePass(ArchiveFile& file, ArchiveBuffers& buffers, const char* pattern,
              ZeZipProgress progress);

  ArchiveStatus Run();

 private:
  enum class Entry { kTaken, kLeftOut, kSkipped, kBroken };

  void Walk(const Directory& directory);
  Entry ReadEntry(std::int64_t adjustment);
  bool ExtractBatch();
  void Note(ArchiveStatus status) { status_ = Worse(status_, status); }

  ArchiveFile& file_;
  MemberExtractor extractor_;
  const char* pattern_;
  ZeZipProgress progress_;
  ArchiveStatus status_ = kArchiveOk;
  std::int64_t moved_ = 0;  // bytes read of members and written to their files
  std::vector<ArchiveMember> batch_;
};

// Compressed sizes of all directory entries that this process has read. Kept: it is never reset, so a
// second call reports smaller percentages, as callers know it.
std::uint64_t& ArchiveRunningTotal();

// Per cent, rounded half up; 0 of nothing.
std::uint32_t ArchivePercentage(std::uint32_t compressedSize, std::uint64_t runningTotal);

}  // namespace zeapi
