#include "fonts/truetype_segment.h"

#include <algorithm>

#include "base/byte_reader.h"

namespace zeapi {
namespace {

constexpr std::uint16_t kGlobalTrueType = 0x4754;  // "GT"
constexpr std::uint16_t kNullSegment = 0xFFFF;
constexpr std::uint32_t kHorizontalHeader = 0x68686561;   // "hhea"
constexpr std::uint32_t kHorizontalMetrics = 0x686D7478;  // "hmtx"
constexpr std::size_t kMetricsCountOffset = 34;
constexpr std::size_t kEntrySize = 4;

// Empty when there is none.
std::span<const std::uint8_t> SegmentOf(std::span<const std::uint8_t> header, std::size_t segments,
                                        std::uint16_t wanted) {
  ByteReader reader(header);
  reader.Seek(segments);
  while (reader.ok()) {
    const std::uint16_t identifier = reader.U16Be();
    const auto data = reader.Bytes(reader.U16Be());
    if (!reader.ok() || identifier == kNullSegment) break;
    if (identifier == wanted) return data;
  }
  return {};
}

std::span<const std::uint8_t> TableOf(std::span<const std::uint8_t> font, std::uint32_t wanted) {
  ByteReader directory(font);
  directory.Skip(4);
  const std::uint16_t count = directory.U16Be();
  directory.Skip(6);
  for (unsigned i = 0; i < count && directory.ok(); ++i) {
    const std::uint32_t tag = directory.U32Be();
    directory.Skip(4);
    const std::uint32_t offset = directory.U32Be();
    const std::uint32_t length = directory.U32Be();
    if (!directory.ok() || tag != wanted) continue;
    ByteReader table(font);
    table.Seek(offset);
    return table.Bytes(length);
  }
  return {};
}

}  // namespace

bool TrueTypeAdvances::Read(std::span<const std::uint8_t> header, std::size_t segments) {
  const auto font = SegmentOf(header, segments, kGlobalTrueType);
  ByteReader horizontal(TableOf(font, kHorizontalHeader));
  horizontal.Seek(kMetricsCountOffset);
  count_ = horizontal.U16Be();
  table_ = TableOf(font, kHorizontalMetrics);
  return horizontal.ok() && count_ > 0 && table_.size() >= count_ * kEntrySize;
}

int TrueTypeAdvances::Of(std::uint16_t glyph) const {
  ByteReader reader(table_);
  reader.Seek(std::min<std::size_t>(glyph, count_ - 1U) * kEntrySize);
  return reader.U16Be();
}

}  // namespace zeapi
