#include "support/metrics.h"

#include "support/byte_order.h"

namespace zeapi::testing {
std::string PostScriptPfm::File() const {
  const auto at = [](const std::string& bytes) {
    return Le32(static_cast<std::uint32_t>(bytes.size()));
  };
  std::string bytes(147, '\0');
  const auto put = [&bytes](std::size_t offset, const std::string& part) {
    bytes.replace(offset, part.size(), part);
  };
  put(0, Le16(0x0100));
  put(6, copyright.substr(0, 60));
  put(66, Le16(0x81));
  put(74, Le16(ascent));
  put(83, Le16(weight) + Byte(charSet));
  put(90,
      Byte(pitchAndFamily) + Le16(averageWidth) + Le16(maximumWidth) + Byte(first) + Byte(last));
  put(117, Le16(30) + Le32(147));
  std::string extended(52, '\0');
  extended.replace(0, 2, Le16(52));
  extended.replace(
      14, 8, Le16(capHeight) + Le16(xHeight) + Le16(lowerCaseAscent) + Le16(lowerCaseDescent));
  bytes += extended;
  put(101, at(bytes));
  bytes += std::string("PostScript") + '\0';
  if (!face.empty()) put(105, at(bytes));
  bytes += face + '\0';
  put(139, at(bytes));
  bytes += name + '\0';
  if (hasExtents) {
    put(123, at(bytes));
    for (unsigned code = first; code <= last; ++code) {
      const auto found = widths.find(code);
      bytes += Le16(found != widths.end() ? found->second : 0U);
    }
  }
  bytes += std::string(gap, '\0');
  if (hasKerning) {
    put(131, at(bytes));
    bytes += Le16(static_cast<std::uint32_t>(pairs.size()));
    for (const Pair& pair : pairs)
      bytes += Byte(pair.first) + Byte(pair.second) + Le16(static_cast<std::uint16_t>(pair.amount));
  }
  if (bytes.size() < 256) bytes.resize(256);
  put(2, at(bytes));
  return bytes;
}

unsigned MetricsView::U8(std::size_t offset) const {
  if (offset >= bytes_.size()) {
    ADD_FAILURE() << "offset " << offset << " of " << bytes_.size() << " bytes";
    return 0;
  }
  return static_cast<std::uint8_t>(bytes_[offset]);
}
unsigned MetricsView::U16(std::size_t offset) const { return U8(offset) | U8(offset + 1) << 8; }
int MetricsView::S16(std::size_t offset) const { return static_cast<std::int16_t>(U16(offset)); }
unsigned MetricsView::U32(std::size_t offset) const { return U16(offset) | U16(offset + 2) << 16; }
std::string MetricsView::Text(std::size_t offset) const {
  std::string text;
  for (unsigned c = U8(offset); c != 0; c = U8(++offset)) text += static_cast<char>(c);
  return text;
}

bool MetricsView::HasWidthTable() const { return Device() != "PostScript" && U16(86) == 0; }

std::size_t MetricsView::Extension() const {
  return HasWidthTable() ? 117 + 2 * (U8(96) - U8(95) + 2U) : 117;
}

unsigned MetricsView::Extent(unsigned code) const {
  return U16(U32(Extension() + 6) + 2 * (code - U8(95)));
}

unsigned MetricsView::Width(unsigned code) const { return U16(117 + 2 * (code - U8(95))); }

std::vector<PostScriptPfm::Pair> MetricsView::Pairs() const {
  std::vector<PostScriptPfm::Pair> pairs;
  const std::size_t table = U32(Extension() + 14);
  if (table == 0) return pairs;
  for (std::size_t i = 0; i < U16(table); ++i) {
    const std::size_t entry = table + 2 + 4 * i;
    pairs.push_back({static_cast<std::uint8_t>(U8(entry)), static_cast<std::uint8_t>(U8(entry + 1)),
                     static_cast<std::int16_t>(S16(entry + 2))});
  }
  return pairs;
}

::testing::AssertionResult MetricsView::IsWellFormed() const {
  if (bytes_.size() < 256) return ::testing::AssertionFailure() << bytes_.size() << " bytes";
  if (U32(2) != bytes_.size())
    return ::testing::AssertionFailure() << "says " << U32(2) << " bytes";
  if (U32(105) <= 34 || U32(105) >= 2048)
    return ::testing::AssertionFailure() << "face name at " << U32(105);
  if (U16(Extension()) != 30) return ::testing::AssertionFailure() << "no extension";
  for (const std::size_t field : {2U, 6U, 14U, 22U}) {
    if (U32(Extension() + field) >= bytes_.size())
      return ::testing::AssertionFailure() << "offset at " << field << " of the extension";
  }
  if (U16(Extended()) != 52) return ::testing::AssertionFailure() << "no extended metrics";
  return ::testing::AssertionSuccess();
}

}  // namespace zeapi::testing
