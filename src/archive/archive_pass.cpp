#include "archive/archive_pass.h"

#include "archive/archive_records.h"
#include "archive/confirmation.h"
#include "archive/extractable.h"
#include "archive/member_name.h"
#include "archive/wildcard.h"

namespace zeapi {
namespace {

bool CanExtract(const CentralHeader& header) {
  return VersionWillDo(header) && (!AsksFirst(header) || Confirmed()) && IsUnpackable(header.facts);
}

}  // namespace

std::uint64_t& ArchiveRunningTotal() {
  static std::uint64_t total = 0;
  return total;
}

std::uint32_t ArchivePercentage(std::uint32_t compressedSize, std::uint64_t runningTotal) {
  if (runningTotal == 0) return 0;
  const std::uint64_t doubled = std::uint64_t{compressedSize} * 200;
  return static_cast<std::uint32_t>((doubled + runningTotal) / (2 * runningTotal));
}

ArchivePass::ArchivePass(ArchiveFile& file, ArchiveBuffers& buffers, const char* pattern,
                         ZeZipProgress progress)
    : file_(file), extractor_(file, buffers), pattern_(pattern), progress_(progress) {
  batch_.reserve(kBatch);
}

ArchiveStatus ArchivePass::Run() {
  const Directory directory = FindDirectory(file_);
  status_ = directory.status;
  if (directory.readable) Walk(directory);
  return status_;
}

void ArchivePass::Walk(const Directory& directory) {
  file_.Seek(directory.position);
  bool skipped = false;
  bool found = pattern_[0] == '\0';
  bool broken = false;
  for (unsigned left = directory.entries; left > 0 && !broken;) {
    batch_.clear();
    for (; left > 0 && batch_.size() < kBatch && !broken; --left) {
      const Entry entry = ReadEntry(directory.adjustment);
      found |= entry == Entry::kTaken || entry == Entry::kSkipped;
      skipped |= entry == Entry::kSkipped;
      broken = entry == Entry::kBroken;
    }
    const std::int64_t next = file_.position();
    if (!ExtractBatch()) return;
    file_.Seek(next);
  }
  if (broken) return;
  if (skipped || ReadSignature(file_, ZipRecord::kEnd) != kArchiveOk) Note(kArchiveWarning);
  if (!found) Note(kArchiveNothingFound);
}

ArchivePass::Entry ArchivePass::ReadEntry(std::int64_t adjustment) {
  CentralHeader header;
  std::string name;
  const ArchiveStatus status = ReadCentralEntry(file_, &header, &name);
  if (status != kArchiveOk) {
    Note(status);
    return Entry::kBroken;
  }
  const MemberFacts& facts = header.facts;
  ArchiveRunningTotal() += facts.compressedSize;
  if (pattern_[0] != '\0' && !MatchesWildcard(MapMemberName(name), pattern_))
    return Entry::kLeftOut;
  if (!CanExtract(header)) return Entry::kSkipped;
  batch_.push_back(
      {facts.crc, facts.compressedSize, facts.uncompressedSize, header.localOffset + adjustment});
  return Entry::kTaken;
}

// False when the pass is over.
bool ArchivePass::ExtractBatch() {
  for (const ArchiveMember& member : batch_) {
    // Members that lie over each other could be as many as the directory has entries, each as long as the
    // file. No packing method makes as much of bytes that are each of one member alone: Shrink comes
    // nearest, with up to 7936 bytes for a code of 13 bits.
    constexpr std::int64_t kMostOfAByte = 8192;
    if (moved_ > kMostOfAByte * file_.size()) {
      Note(kArchiveBad);
      return false;
    }
    const Extracted extracted = extractor_.Extract(member);
    moved_ += extracted.read + extracted.written;
    if (progress_ != nullptr && extracted.status != kArchiveOk) {
      status_ = extracted.status;  // alone, whatever came before it
      return false;
    }
    if (extracted.renamed) Note(kArchiveWarning);
    Note(extracted.status);
    if (extracted.status == kArchiveDiskFull) return false;
    if (progress_ == nullptr || !extracted.isFile) continue;
    progress_(extracted.name.c_str(), member.compressedSize,
              ArchivePercentage(member.compressedSize, ArchiveRunningTotal()));
  }
  return true;
}

}  // namespace zeapi
