#include "fonts/intellifont_reader.h"

#include <algorithm>
#include <charconv>

#include "fonts/field_text.h"
#include "fonts/font_stream.h"
#include "fonts/tagged_file.h"

namespace zeapi {
namespace {

// Larger files are not metrics: all characters of a typeface with all its pairs take a tenth of it.
constexpr std::uint32_t kLargestMetricsFile = 4U << 20;
constexpr std::size_t kLongestName = 80;

enum Tag : unsigned {
  kSymbolType = 400,
  kSymbolMap = 403,
  kSymbolSets = 404,
  kUnitsPerEm = 408,
  kPosture = 409,
  kStructure = 410,
  kStrokeWeight = 411,
  kSpacing = 412,
  kSlant = 413,
  kAppearance = 414,
  kSerifStyle = 415,
  kTypeface = 417,
  kSource = 418,
  kWordSpacing = 421,
  kCapHeight = 423,
  kXHeight = 424,
  kAscent = 425,
  kDescent = 426,
  kLowerCaseAscent = 427,
  kLowerCaseDescent = 428,
  kUnderscoreDepth = 429,
  kUnderscoreThickness = 430,
  kEscapements = 433,
  kKernPairs = 439,
  kPclTypeface = 442
};

constexpr std::uint32_t kUnicodeSymbols = 2;
constexpr std::string_view kVendors[] = {"VGC", "ITC", "LSC", "L&C"};

// A weight of 0 to 255 in PCL's steps.
int PclStrokeWeight(std::int64_t weight) {
  return weight <= 0 ? -7 : static_cast<int>(std::min<std::int64_t>((weight - 1) / 17 - 7, 7));
}

// Width class of PCL's style word.
int PclAppearance(std::int64_t width) {
  struct Row {
    int upTo;
    int appearance;
  };
  constexpr Row kRows[] = {{20, 4}, {47, 3}, {74, 2}, {101, 1}, {182, 0}, {209, 6}};
  if (width == 0) return 0;  // not said
  for (const Row& row : kRows) {
    if (width <= row.upTo) return row.appearance;
  }
  return 7;
}

std::string NameIn(const TaggedFile& file, unsigned tag) {
  std::string name = file.Text(tag).substr(0, kLongestName);
  name.resize(name.find_last_not_of(' ') + 1);
  return name;
}

std::string VendorIn(const TaggedFile& file) {
  const std::string source = file.Text(kSource);
  for (const std::string_view vendor : kVendors) {
    if (source.starts_with(vendor)) return std::string(vendor);
  }
  return {};
}

int NumberIn(const TaggedFile& file, unsigned tag) {
  return static_cast<int>(std::clamp<std::int64_t>(file.Number(tag), -32768, 65535));
}

void ReadMeasures(const TaggedFile& file, IntellifontMetrics* metrics) {
  metrics->posture = NumberIn(file, kPosture);
  metrics->slant = NumberIn(file, kSlant);
  metrics->structure = NumberIn(file, kStructure) / 8;
  metrics->appearance = PclAppearance(file.Number(kAppearance));
  // Where no weight is said the font is a medium one.
  if (!file.Bytes(kStrokeWeight).empty())
    metrics->strokeWeight = PclStrokeWeight(file.Number(kStrokeWeight));
  metrics->fixedPitch = file.Number(kSpacing) != 0;
  metrics->serifStyle = NumberIn(file, kSerifStyle);
  metrics->wordSpacing = NumberIn(file, kWordSpacing);
  metrics->capHeight = NumberIn(file, kCapHeight);
  metrics->xHeight = NumberIn(file, kXHeight);
  metrics->ascent = NumberIn(file, kAscent);
  metrics->descent = NumberIn(file, kDescent);
  metrics->lowerCaseAscent = NumberIn(file, kLowerCaseAscent);
  metrics->lowerCaseDescent = NumberIn(file, kLowerCaseDescent);
  metrics->underscoreDepth = NumberIn(file, kUnderscoreDepth);
  metrics->underscoreThickness = NumberIn(file, kUnderscoreThickness);
  const std::string number = file.Text(kPclTypeface);
  std::from_chars(number.data(), number.data() + number.size(), metrics->typefaceNumber);
  metrics->typefaceNumber = std::clamp(metrics->typefaceNumber, 0, 65535);
}

bool ReadKernPairs(const TaggedFile& file, IntellifontMetrics* metrics) {
  const auto bytes = file.Bytes(kKernPairs);
  if (bytes.empty()) return true;
  ByteReader reader(bytes);
  const std::uint16_t count = file.U16(&reader);
  if (reader.remaining() < count * std::size_t{6}) return false;
  for (unsigned i = 0; i < count; ++i) {
    const std::uint16_t first = file.U16(&reader);
    const std::uint16_t second = file.U16(&reader);
    metrics->kernPairs.push_back({first, second, static_cast<std::int16_t>(file.U16(&reader))});
  }
  return true;
}

// 14 bytes a set: offsets of its name, its code text and its rows, and the number of rows. False when
// the set that was asked for leads out of the file.
bool ReadSymbolSet(const TaggedFile& file, std::string_view wanted, IntellifontMetrics* metrics) {
  ByteReader directory(file.Bytes(kSymbolSets));
  while (directory.remaining() >= 14) {
    directory.Skip(4);
    const std::uint32_t codeOffset = file.U32(&directory);
    const std::uint32_t rowsOffset = file.U32(&directory);
    const std::uint16_t count = file.U16(&directory);
    ByteReader code(file.all());
    code.Seek(codeOffset);
    if (!code.ok() || TextIn(code.Bytes(std::min(code.remaining(), std::size_t{6}))) != wanted)
      continue;
    ByteReader rows(file.all());
    rows.Seek(rowsOffset);
    for (unsigned i = 0; i < count; ++i) metrics->rows.push_back(file.U16(&rows));
    metrics->hasSymbolSet = rows.ok();
    return rows.ok();
  }
  return true;
}

}  // namespace

bool ReadIntellifont(std::FILE* stream, std::string_view symbolSet, IntellifontMetrics* metrics) {
  const std::uint32_t size = StreamSize(stream);
  if (size == 0 || size > kLargestMetricsFile) return false;
  std::vector<std::uint8_t> bytes(size);
  if (ReadUpTo(stream, bytes).size() != size) return false;
  TaggedFile file(bytes);
  if (!file.ReadDirectory()) return false;
  metrics->typeface = NameIn(file, kTypeface);
  metrics->vendor = VendorIn(file);
  metrics->unitsPerEm =
      static_cast<std::uint32_t>(std::clamp<std::int64_t>(file.Number(kUnitsPerEm), 0, 32767));
  metrics->escapements = file.Words(kEscapements);
  metrics->symbols = file.Words(kSymbolMap);
  if (metrics->escapements.size() > kNoRow || metrics->symbols.size() > kNoRow) return false;
  metrics->hasUnicode = file.Number(kSymbolType) == kUnicodeSymbols;
  ReadMeasures(file, metrics);
  if (!ReadKernPairs(file, metrics)) return false;
  if (!symbolSet.empty() && !ReadSymbolSet(file, symbolSet, metrics)) return false;
  return !metrics->typeface.empty() && metrics->unitsPerEm != 0 && !metrics->escapements.empty();
}

}  // namespace zeapi
