#include "fonts/dlf_metrics.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "fonts/metrics_notice.h"
#include "fonts/printer_memory.h"
#include "fonts/typeface_table.h"

namespace zeapi {
namespace {

constexpr std::uint16_t kDefaultPoints = 12;
constexpr std::uint16_t kWindowsCodePages[] = {1004, 1252};

// The width of a character in dots. The divisor is a pitch in 1/72000 of an inch.
std::uint16_t WidthOf(const DlfFont& font, std::uint16_t emDots) {
  if (font.divisor == 0) return static_cast<std::uint16_t>(emDots / 2);
  constexpr std::uint32_t kUnitsPerDot = kDlfPitchUnits / kMetricsResolution;
  return ToU16((std::int64_t{font.divisor} + kUnitsPerDot / 2) / kUnitsPerDot);
}

// Takes a word off the end of a name, with the blanks before it. True when it stood there.
bool TakeStyle(std::string_view style, std::string* name) {
  name->resize(name->find_last_not_of(' ') + 1);
  if (!name->ends_with(style)) return false;
  const std::size_t start = name->size() - style.size();
  if (start == 0 || (*name)[start - 1] != ' ') return false;
  name->resize(start);
  name->resize(name->find_last_not_of(' ') + 1);
  return true;
}

struct Style {
  bool italic = false;
  bool bold = false;
};

// The name is all that tells a font's style.
Style TakeStyles(std::string* name) {
  Style style;
  for (bool more = true; more;) {
    const bool italic = TakeStyle("Italic", name);
    const bool bold = TakeStyle("Bold", name);
    style.italic |= italic;
    style.bold |= bold;
    more = italic || bold;
  }
  return style;
}

}  // namespace

bool DescribeDlf(const DlfFont& font, std::uint32_t fileSize, WindowsMetrics* metrics) {
  std::string face = font.name;
  const Style style = TakeStyles(&face);
  face.erase(0, std::min(face.find_first_not_of(' '), face.size()));
  if (face.empty()) return false;
  metrics->italic = style.italic;
  metrics->weight = style.bold ? 700 : 400;
  metrics->face = face + (style.italic ? " Italic" : "") + (style.bold ? " Bold" : "");

  const std::uint32_t points = font.points != 0 ? font.points : kDefaultPoints * 100U;
  const std::uint16_t em = ToU16(std::int64_t{points} * kMetricsResolution / 7200);
  const std::uint16_t width = WidthOf(font, em);
  metrics->copyright = kMetricsNotice;
  metrics->device = "Velquist LaserPrinter";
  metrics->points = ToU16(points / 100);
  metrics->pixelHeight = em;
  metrics->ascent = ToU16(em * 3 / 4);
  metrics->characterSet = std::find(std::begin(kWindowsCodePages), std::end(kWindowsCodePages),
                                    font.codePage) != std::end(kWindowsCodePages)
                              ? kAnsiCharacters
                              : kOemCharacters;
  metrics->fixedPitch = font.fixedPitch;
  metrics->family = font.fixedPitch ? kFamilyModern : kFamilyDontCare;
  metrics->widths.fill(width);
  SetPixelWidth(width, metrics);
  metrics->averageWidth = width;
  metrics->maximumWidth = width;
  metrics->printerMemory = fileSize + kPrinterOverhead;
  metrics->translationClass = 17;

  ExtendedTextMetrics& extended = metrics->extended;
  const std::int16_t height = ToS16(em);
  extended.pointSize = ToS16(points / 5);
  extended.masterHeight = height;
  extended.minScale = height;
  extended.maxScale = height;
  extended.masterUnits = height;
  extended.capHeight = ToS16(metrics->ascent);
  extended.lowerCaseAscent = ToS16(metrics->ascent);
  extended.lowerCaseDescent = ToS16(em - metrics->ascent);
  return true;
}

}  // namespace zeapi
