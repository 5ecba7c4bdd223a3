#include "fonts/pfm_reader.h"

#include <algorithm>

#include "base/byte_reader.h"
#include "fonts/field_text.h"
#include "fonts/font_stream.h"
#include "fonts/pfm_block.h"
#include "fonts/pfm_layout.h"

namespace zeapi {
namespace {

constexpr std::size_t kExtendedMetricsRead = 22;  // as far as they are read
constexpr std::size_t kLongestText = 1024;

// Offsets of the tables and texts.
struct Places {
  std::uint32_t face;
  std::uint32_t extendedMetrics;
  std::uint32_t extents;
  std::uint32_t kernPairs;
  std::uint32_t driverInfo;
};

// The extension is looked for right behind the header, where a file without a width table has it.
bool ReadHeader(std::span<const std::uint8_t> block, PfmMetrics* metrics, Places* places) {
  ByteReader reader(block);
  reader.Seek(kPfmCopyrightOffset);
  metrics->copyright = TextIn(reader.Bytes(kPfmCopyrightSize));
  reader.Seek(74);
  metrics->ascent = reader.U16Le();
  reader.Seek(83);
  metrics->weight = reader.U16Le();
  metrics->characterSet = reader.U8();
  reader.Seek(90);
  metrics->pitchAndFamily = reader.U8();
  metrics->averageWidth = reader.U16Le();
  metrics->maximumWidth = reader.U16Le();
  metrics->first = reader.U8();
  metrics->last = reader.U8();
  reader.Seek(105);
  places->face = reader.U32Le();
  reader.Seek(119);
  places->extendedMetrics = reader.U32Le();
  places->extents = reader.U32Le();
  reader.Seek(131);
  places->kernPairs = reader.U32Le();
  reader.Seek(139);
  places->driverInfo = reader.U32Le();
  return reader.ok();
}

// The bytes from an offset on; fewer than `room` when the file ends before.
std::span<const std::uint8_t> ReadAt(std::FILE* stream, std::uint32_t offset,
                                     std::span<std::uint8_t> room) {
  if (!SeekTo(stream, offset)) return {};
  return ReadUpTo(stream, room);
}

// A text ends with the file if it has no other end.
bool ReadText(std::FILE* stream, std::uint32_t offset, std::string* text) {
  if (offset == 0) return true;
  std::array<std::uint8_t, kLongestText> room;
  const auto bytes = ReadAt(stream, offset, room);
  *text = TextIn(bytes);
  return !bytes.empty();
}

// The PostScript name gets blanks for its hyphens where it is loaded, when it is written as the full name:
// a face that has its bytes there is written behind it, and has the blanks too.
void ShareBlanks(const Places& places, PfmMetrics* metrics) {
  const std::uint64_t nameEnd = std::uint64_t{places.driverInfo} + metrics->name.size();
  std::uint64_t at = places.face;
  for (char& c : metrics->face) {
    if (c == '-' && at >= places.driverInfo && at < nameEnd) c = ' ';
    ++at;
  }
}

bool ReadExtendedMetrics(std::FILE* stream, std::uint32_t offset, PfmMetrics* metrics) {
  if (offset == 0) return true;
  std::array<std::uint8_t, kExtendedMetricsRead> room;
  ByteReader reader(ReadAt(stream, offset, room));
  reader.Seek(14);
  metrics->capHeight = reader.U16Le();
  metrics->xHeight = reader.U16Le();
  metrics->lowerCaseAscent = reader.U16Le();
  metrics->lowerCaseDescent = reader.U16Le();
  return reader.ok();
}

bool ReadExtents(std::FILE* stream, std::uint32_t offset, PfmMetrics* metrics) {
  std::array<std::uint8_t, 512> room;
  const std::size_t count =
      metrics->last >= metrics->first ? metrics->last - metrics->first + 1U : 0U;
  if (offset == 0) {
    std::fill_n(metrics->widths.begin() + metrics->first, count, metrics->averageWidth);
    return true;
  }
  ByteReader reader(ReadAt(stream, offset, std::span(room).first(count * 2)));
  for (std::size_t i = 0; i < count; ++i) metrics->widths[metrics->first + i] = reader.U16Le();
  return reader.ok();
}

bool ReadKerning(std::FILE* stream, std::uint32_t offset, PfmMetrics* metrics) {
  if (offset == 0) return true;
  metrics->hasKerning = true;
  std::array<std::uint8_t, 2> countBytes;
  ByteReader countReader(ReadAt(stream, offset, countBytes));
  const std::size_t count = countReader.U16Le();
  if (!countReader.ok()) return false;
  std::vector<std::uint8_t> bytes(count * 4);
  ByteReader reader(ReadUpTo(stream, bytes));
  metrics->kernPairs.reserve(count);
  while (reader.remaining() >= 4) {
    const std::uint8_t first = reader.U8();
    const std::uint8_t second = reader.U8();
    metrics->kernPairs.push_back({first, second, static_cast<std::int16_t>(reader.U16Le())});
  }
  return metrics->kernPairs.size() == count;
}

}  // namespace

bool ReadPfmMetrics(std::FILE* stream, PfmMetrics* metrics) {
  PfmBlock block;
  Places places;
  if (!ReadPfmBlock(stream, &block) || !ReadHeader(block.bytes, metrics, &places)) return false;
  metrics->hasFace = places.face != 0;
  if (!ReadText(stream, places.face, &metrics->face) ||
      !ReadText(stream, places.driverInfo, &metrics->name))
    return false;
  ShareBlanks(places, metrics);
  return ReadExtendedMetrics(stream, places.extendedMetrics, metrics) &&
         ReadExtents(stream, places.extents, metrics) &&
         ReadKerning(stream, places.kernPairs, metrics) && std::ferror(stream) == 0;
}

}  // namespace zeapi
