#include "archive/extract_member.h"

#include "archive/archive_records.h"
#include "archive/inflate.h"
#include "archive/member_name.h"
#include "archive/member_output.h"
#include "archive/member_source.h"
#include "archive/stored.h"
#include "archive/unimplode.h"
#include "archive/unreduce.h"
#include "archive/unshrink.h"

namespace zeapi {

ArchiveStatus MemberExtractor::ReadLocalHeader(const ArchiveMember& member, MemberFacts* facts,
                                               std::string* name) {
  if (member.position < 0) return kArchiveBadStructure;
  file_.Seek(member.position);
  const ArchiveStatus status = ReadLocalEntry(file_, facts, name);
  if (status == kArchiveOk && (facts->flags & kZipDataDescriptor) != 0) {
    facts->crc = member.crc;
    facts->compressedSize = member.compressedSize;
    facts->uncompressedSize = member.uncompressedSize;
  }
  return status;
}

Extracted MemberExtractor::Extract(const ArchiveMember& member) {
  Extracted extracted;
  MemberFacts facts;
  std::string stored;
  extracted.status = ReadLocalHeader(member, &facts, &stored);
  if (extracted.status != kArchiveOk) return extracted;
  const LocalName local = MakeLocal(MapMemberName(stored));
  extracted.renamed = local.dropped;
  if (!local.usable || !tree_.Enter(local.folder)) {
    extracted.status = kArchiveBadStructure;
    return extracted;
  }
  if (local.file.empty()) return extracted;
  extracted.isFile = true;
  extracted.name = local.folder + local.file;
  extracted.status = Write(facts, local.file, &extracted);
  return extracted;
}

ArchiveStatus MemberExtractor::Write(const MemberFacts& facts, const std::string& name,
                                     Extracted* extracted) {
  const platform::FileHandle file = tree_.Create(name);
  if (file == platform::kNoFileHandle) return kArchiveCannotCreate;
  MemberOutput output(file);
  const std::int64_t start = file_.position();
  const ArchiveStatus status = Decode(facts, output);
  extracted->read = file_.position() - start;
  extracted->written = output.size();
  if (!output.Close()) return kArchiveDiskFull;
  // A member whose date is none keeps that of its extraction.
  tree_.SetLastWrite(name, facts.date, facts.time);
  return output.crc() == facts.crc ? status : Worse(status, kArchiveWarning);
}

ArchiveStatus MemberExtractor::Decode(const MemberFacts& facts, BlockSink& sink) {
  const std::uint32_t size = facts.uncompressedSize;
  if (size == 0 && facts.compressedSize == 0) return kArchiveOk;
  MemberSource source(file_, facts.compressedSize);
  Window window(std::span<std::uint8_t, Window::kSize>(buffers_.window.get(), Window::kSize), sink);
  ArchiveStatus status = kArchiveOk;
  bool whole = true;
  if (facts.method == kZipStored) {
    const std::span<std::uint8_t> buffer(buffers_.output.get(), ArchiveBuffers::kOutput);
    whole = CopyStored(source, facts.compressedSize, buffer, sink) == facts.compressedSize;
  } else if (facts.method == kZipDeflated) {
    status = Inflate(source, window);
    whole = status == kArchiveOk;
  } else {
    if (facts.method == kZipShrunk) {
      status = Unshrink(source, size, window);
    } else if (facts.method >= kZipReduced1 && facts.method <= kZipReduced4) {
      status = Unreduce(source, facts.method - 1U, size, window);
    } else if (facts.method == kZipImploded) {
      const ImplodeForm form = {(facts.flags & kZipLiteralTree) != 0,
                                (facts.flags & kZipLargeWindow) != 0};
      status = StatusOf(Unimplode(source, form, facts.compressedSize, size, window));
    } else {
      return kArchiveWarning;
    }
    whole = window.total() == size;
  }
  return !whole && source.ArchiveEnded() ? Worse(status, kArchiveUnexpectedEnd) : status;
}

}  // namespace zeapi
