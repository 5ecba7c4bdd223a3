#include "fonts/intellifont_metrics.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "fonts/metrics_notice.h"
#include "fonts/pcl_translation.h"
#include "fonts/scalable_selection.h"
#include "fonts/typeface_table.h"
#include "fonts/windows_metrics_codes.h"

namespace zeapi {
namespace {

constexpr std::uint8_t kEightBitType = 1;
constexpr char kWindowsSymbolSet[] = "9U";

// The value of a code text such as "8U"; 0 when it is none.
std::uint16_t SymbolSetValue(std::string_view code) {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(code.data(), code.data() + code.size(), number);
  if (error != std::errc() || end + 1 != code.data() + code.size() || number > 2047) return 0;
  if (*end <= '@' || *end > 'Z') return 0;
  return static_cast<std::uint16_t>(number * 32 + static_cast<unsigned>(*end - '@'));
}

class IntellifontDescription {
 public:
  IntellifontDescription(const IntellifontMetrics& font, const IntellifontTarget& target,
                         WindowsMetrics* metrics)
      : font_(font), target_(target), metrics_(*metrics) {}

  bool Describe() {
    rows_.fill(kNoRow);
    symbolSet_ = target_.symbolSet.empty() ? kWindowsSymbolSet : target_.symbolSet;
    const WindowsSymbolSet windows = WindowsSymbolSetOf(SymbolSetValue(symbolSet_), kEightBitType);
    if (font_.hasSymbolSet) {
      FindRowsBySymbolSet(windows.translationClass);
    } else {
      FindRowsBySymbol();
    }
    if (!SetRange()) return false;
    metrics_.characterSet = windows.characterSet;
    metrics_.translationClass = windows.translationClass;
    SetNames(windows.faceSuffix);
    SetMeasures();
    SetKerning();
    return true;
  }

 private:
  void FindRowsBySymbolSet(std::uint16_t translationClass) {
    const CharacterNumbers numbers = NumbersOfFont(kEightBitType, translationClass);
    for (unsigned code = 0; code < 256; ++code) {
      const int number = NumberOfCharacter(numbers, static_cast<std::uint8_t>(code));
      if (number < 0 || static_cast<std::size_t>(number) >= font_.rows.size()) continue;
      SetRow(code, font_.rows[static_cast<std::size_t>(number)]);
    }
  }

  void FindRowsBySymbol() {
    const CharacterNumbers numbers =
        font_.hasUnicode ? CharacterNumbers::kUnicode : CharacterNumbers::kMasterSymbolList;
    std::vector<std::uint16_t> rowOf(0x10000, kNoRow);
    // From the last row to the first: of rows with the same symbol the first counts.
    for (std::size_t row = font_.symbols.size(); row-- != 0;)
      rowOf[font_.symbols[row]] = static_cast<std::uint16_t>(row);
    for (unsigned code = 0; code < 256; ++code) {
      const int number = NumberOfCharacter(numbers, static_cast<std::uint8_t>(code));
      if (number >= 0) SetRow(code, rowOf[static_cast<std::uint16_t>(number)]);
    }
  }

  void SetRow(unsigned code, std::uint16_t row) {
    if (row < font_.escapements.size()) rows_[code] = row;
  }

  bool SetRange() {
    const auto hasRow = [](std::uint16_t row) { return row != kNoRow; };
    const auto first = std::find_if(rows_.begin(), rows_.end(), hasRow);
    if (first == rows_.end()) return false;
    const auto last = std::find_if(rows_.rbegin(), rows_.rend(), hasRow);
    metrics_.first = static_cast<std::uint8_t>(std::min<std::ptrdiff_t>(first - rows_.begin(), 32));
    metrics_.last =
        static_cast<std::uint8_t>(std::max<std::ptrdiff_t>(rows_.rend() - last - 1, 32));
    metrics_.breakCharacter = 32;
    metrics_.defaultCharacter = metrics_.last >= 127 ? 127 : 32;
    return true;
  }

  void SetNames(std::string_view suffix) {
    metrics_.copyright = kMetricsNotice;
    metrics_.device = kPcl5Device;
    const bool isNamed =
        font_.vendor.empty() || font_.typeface.find(font_.vendor) != std::string::npos;
    metrics_.face =
        WindowsFace(isNamed ? font_.typeface : font_.vendor + " " + font_.typeface, suffix);
    metrics_.italic = font_.posture != 0 || font_.slant != 0;
    metrics_.weight = WindowsWeight(static_cast<std::int8_t>(font_.strokeWeight));
    metrics_.fixedPitch = font_.fixedPitch;
    metrics_.family = FamilyOf();
    metrics_.printerMemory = target_.printerMemory;
    const int posture = metrics_.italic ? std::clamp(font_.posture, 1, 2) : 0;
    const int style = posture | font_.appearance << 2 | (font_.structure & 31) << 5;
    metrics_.selection = ScalableSelection{symbolSet_, !font_.fixedPitch, style, font_.strokeWeight,
                                           static_cast<unsigned>(font_.typefaceNumber)}
                             .Text();
    if (!target_.shortName.empty()) {
      metrics_.shortName = target_.shortName;
      metrics_.symbolSet = symbolSet_;
    }
  }

  std::uint8_t FamilyOf() const {
    if (font_.fixedPitch) return kFamilyModern;
    char face[4];
    const FontFamily family =
        TypefaceFace(static_cast<unsigned>(font_.typefaceNumber & 0x1FF), face, sizeof(face));
    if (family != kFamilyDontCare) return family;
    if ((font_.serifStyle & 0x80) != 0) return kFamilyRoman;
    return (font_.serifStyle & 0x40) != 0 ? kFamilySwiss : kFamilyDontCare;
  }

  void SetMeasures() {
    WindowsMetrics& m = metrics_;
    for (unsigned code = 0; code < 256; ++code) {
      if (rows_[code] != kNoRow) m.extents[code] = font_.escapements[rows_[code]];
    }
    if (m.extents[32] == 0) m.extents[32] = ToU16(font_.wordSpacing);
    const int em = static_cast<int>(font_.unitsPerEm);
    ExtendedTextMetrics& e = m.extended;
    e.masterUnits = ToS16(em);
    SetDefaultSize(&m);
    const auto dots = [em](int measure) { return ToU16(DotsAtDefaultSize(measure, em)); };
    const int descent = std::abs(font_.descent);
    m.ascent = dots(font_.ascent);
    m.pixelHeight = dots(font_.ascent + descent);
    m.internalLeading = dots(std::max(0, font_.ascent + descent - em));
    e.capHeight = ToS16(font_.capHeight);
    e.xHeight = ToS16(font_.xHeight);
    e.lowerCaseAscent = ToS16(font_.lowerCaseAscent);
    e.lowerCaseDescent = ToS16(std::abs(font_.lowerCaseDescent));
    e.slant = ToS16(font_.slant / 10);
    e.superScript = ToS16(-(em / 2));
    e.subScript = ToS16(em / 4);
    e.superScriptSize = e.subScriptSize = ToS16(em / 2);
    e.underlineOffset = ToS16(std::abs(font_.underscoreDepth));
    e.underlineWidth = ToS16(font_.underscoreThickness);
    e.doubleUpperOffset = e.underlineOffset;
    e.doubleLowerOffset = ToS16(e.underlineOffset + 2 * e.underlineWidth);
    e.doubleUpperWidth = e.doubleLowerWidth = e.underlineWidth;
    e.strikeOutOffset = ToS16(font_.xHeight / 2);
    e.strikeOutWidth = e.underlineWidth;
  }

  // A row may have several codes, and a pair is good for each of them.
  void SetKerning() {
    std::vector<std::vector<std::uint8_t>> codes(font_.escapements.size());
    for (unsigned code = 0; code < 256; ++code) {
      if (rows_[code] != kNoRow) codes[rows_[code]].push_back(static_cast<std::uint8_t>(code));
    }
    for (const IntellifontKernPair& pair : font_.kernPairs) {
      if (pair.amount == 0 || pair.first >= codes.size() || pair.second >= codes.size()) continue;
      for (const std::uint8_t first : codes[pair.first]) {
        for (const std::uint8_t second : codes[pair.second]) {
          if (metrics_.kernPairs.size() == 65535) return;
          metrics_.kernPairs.push_back({first, second, pair.amount});
        }
      }
    }
  }

  const IntellifontMetrics& font_;
  const IntellifontTarget& target_;
  WindowsMetrics& metrics_;
  std::string_view symbolSet_;
  std::array<std::uint16_t, 256> rows_;  // by Windows code
};

}  // namespace

bool DescribeIntellifont(const IntellifontMetrics& font, const IntellifontTarget& target,
                         WindowsMetrics* metrics) {
  return IntellifontDescription(font, target, metrics).Describe();
}

}  // namespace zeapi
