// Turns one member of an archive into a file.
#pragma once

#include <string>

#include "archive/archive_file.h"
#include "archive/archive_status.h"
#include "archive/window.h"
#include "archive/zip_records.h"
#include "base/c_heap.h"
#include "platform/local_tree.h"

namespace zeapi {

// Working storage of one call.
struct ArchiveBuffers {
  static constexpr std::size_t kOutput = 2048;

  CHeapPtr<std::uint8_t[]> window = CHeapBytes<std::uint8_t>(Window::kSize);
  CHeapPtr<std::uint8_t[]> input =
      CHeapBytes<std::uint8_t>(ArchiveFile::kBlock + ArchiveFile::kSpare);
  CHeapPtr<std::uint8_t[]> output = CHeapBytes<std::uint8_t>(kOutput + 1);

  bool ok() const { return window && input && output; }
};

// What the directory tells about a member.
struct ArchiveMember {
  std::uint32_t crc;
  std::uint32_t compressedSize;
  std::uint32_t uncompressedSize;
  std::int64_t position;  // of its local header
};

struct Extracted {
  ArchiveStatus status = kArchiveOk;
  std::int64_t read = 0;     // bytes of packed data, a block ahead perhaps
  std::int64_t written = 0;  // and what became of them
  bool isFile = false;       // the member got as far as a file, which `name` is
  bool renamed = false;      // its name would have left the current directory
  std::string name;
};

class MemberExtractor {
 public:
  // The archive has been opened.
  MemberExtractor(ArchiveFile& file, ArchiveBuffers& buffers)
      : file_(file), buffers_(buffers), tree_(file.handle()) {}

  Extracted Extract(const ArchiveMember& member);

 private:
  ArchiveStatus ReadLocalHeader(const ArchiveMember& member, MemberFacts* facts, std::string* name);
  ArchiveStatus Write(const MemberFacts& facts, const std::string& name, Extracted* extracted);
  ArchiveStatus Decode(const MemberFacts& facts, BlockSink& sink);

  ArchiveFile& file_;
  ArchiveBuffers& buffers_;
  platform::LocalTree tree_;
};

}  // namespace zeapi
