#include "fonts/type1_metrics.h"

#include <algorithm>
#include <string_view>

#include "fonts/metrics_notice.h"
#include "fonts/scalable_selection.h"
#include "fonts/typeface_table.h"
#include "fonts/windows_metrics_codes.h"

namespace zeapi {
namespace {

constexpr int kUnitsPerEm = 1000;
constexpr std::uint8_t kBullet = 149;
constexpr std::uint8_t kSpace = 32;

const AfmCharacter* Characters(const AfmMetrics& afm) {
  return afm.standardEncoding ? afm.byWindowsCode : afm.byFontCode;
}

// False when no character has a code.
bool SetRange(const AfmMetrics& afm, WindowsMetrics* metrics) {
  const AfmCharacter* all = Characters(afm);
  int first = 255;
  int last = -1;
  for (int code = 0; code < 256; ++code) {
    if (!all[code].present) continue;
    first = std::min(first, code);
    last = code;
  }
  if (last < 0) return false;
  if (afm.standardEncoding) {
    first = afm.firstCharacter;
    last = afm.lastCharacter;
  }
  metrics->first = static_cast<std::uint8_t>(first);
  metrics->last = static_cast<std::uint8_t>(last);
  const bool hasSpace = first <= kSpace && last >= kSpace;
  metrics->breakCharacter = hasSpace ? kSpace : metrics->first;
  const bool hasBullet = afm.standardEncoding && all[kBullet].present;
  metrics->defaultCharacter = hasBullet ? kBullet : metrics->breakCharacter;
  return true;
}

void SetStyle(const AfmMetrics& afm, WindowsMetrics* metrics) {
  const bool bold = afm.style == 'B' || afm.style == 'T';
  metrics->weight = static_cast<std::uint16_t>(bold ? 700 : afm.weight);
  metrics->italic = afm.style == 'I' || afm.style == 'T' || afm.italicAngle != 0;
  metrics->fixedPitch = afm.fixedPitch;
  if (afm.fixedPitch) {
    metrics->family = kFamilyModern;
  } else if (afm.pi) {
    metrics->family = kFamilyDecorative;
  } else {
    metrics->family = afm.serif ? kFamilyRoman : kFamilySwiss;
  }
}

// Top or bottom of a letter's box; another measure when the font has no such letter.
int BoxOr(const AfmCharacter& letter, int side, int otherwise) {
  return letter.present ? letter.box[side] : otherwise;
}

void SetExtended(const AfmMetrics& afm, ExtendedTextMetrics* extended) {
  const auto letter = [&afm](char name) -> const AfmCharacter& {
    return afm.byWindowsCode[static_cast<unsigned char>(name)];
  };
  const int thickness = afm.underlineThickness;
  const int underline =
      -afm.underlinePosition - thickness / 2;  // the font says where its middle is
  extended->masterHeight = kUnitsPerEm;
  extended->minScale = 3;
  extended->maxScale = 1000;
  extended->masterUnits = kUnitsPerEm;
  extended->capHeight =
      ToS16(afm.capHeight != 0 ? afm.capHeight : BoxOr(letter('H'), 3, afm.ascender));
  extended->xHeight = ToS16(BoxOr(letter('x'), 3, 0));
  extended->lowerCaseAscent = ToS16(BoxOr(letter('d'), 3, afm.ascender));
  extended->lowerCaseDescent = ToS16(std::max(0, -BoxOr(letter('p'), 1, afm.descender)));
  extended->slant = ToS16(-afm.italicAngle);
  extended->superScript = -500;
  extended->subScript = 250;
  extended->superScriptSize = 500;
  extended->subScriptSize = 500;
  extended->underlineOffset = ToS16(underline);
  extended->underlineWidth = ToS16(thickness);
  extended->doubleUpperOffset = ToS16(underline / 2);
  extended->doubleLowerOffset = ToS16(underline);
  extended->doubleUpperWidth = ToS16(thickness / 2);
  extended->doubleLowerWidth = ToS16(thickness / 2);
  extended->strikeOutOffset = 500;
  extended->strikeOutWidth = 100;
}

void SetKerning(const AfmMetrics& afm, WindowsMetrics* metrics) {
  const auto inRange = [metrics](std::uint8_t code) {
    return code >= metrics->first && code <= metrics->last;
  };
  for (std::uint32_t i = 0; i < afm.kernPairCount; ++i) {
    const AfmKernPair& pair = afm.kernPairs[i];
    if (pair.amount != 0 && inRange(pair.first) && inRange(pair.second))
      metrics->kernPairs.push_back(pair);
  }
}

// The menu name of the INF file; without one the font's name up to its style.
std::string_view FaceOf(const AfmMetrics& afm) {
  if (afm.menuName[0] != '\0') return afm.menuName;
  const std::string_view name = afm.fontName;
  const std::string_view family = name.substr(0, name.find('-'));
  return family.empty() ? name : family;
}

}  // namespace

Result DescribeType1(const AfmMetrics& afm, WindowsMetrics* metrics) {
  if (afm.fontName[0] == '\0' || !SetRange(afm, metrics)) return ZE_BAD_FORMAT;
  metrics->copyright = kMetricsNotice;
  metrics->type = kPfmVectorFont;
  metrics->points = 10;
  metrics->ascent = ToU16(afm.box[3]);
  metrics->internalLeading = ToU16(std::max(0, afm.box[3] - afm.box[1] - kUnitsPerEm));
  metrics->externalLeading = 196;
  metrics->characterSet = afm.standardEncoding ? kAnsiCharacters : kSymbolCharacters;
  SetStyle(afm, metrics);
  metrics->device = "PostScript";
  metrics->face = WindowsFace(FaceOf(afm), "");
  metrics->postScriptName = afm.fontName;
  const AfmCharacter* all = Characters(afm);
  for (unsigned code = 0; code < 256; ++code) metrics->extents[code] = ToU16(all[code].width);
  metrics->hasExtents = true;
  SetWidthSummary(metrics->extents, metrics);
  SetExtended(afm, &metrics->extended);
  SetKerning(afm, metrics);
  return ZE_OK;
}

void AdjustToPclDevice(const AfmMetrics& afm, WindowsMetrics* metrics) {
  const auto dots = [](int units) { return ToU16(DotsAtDefaultSize(units, kUnitsPerEm)); };
  metrics->type = kPfmDeviceFont;
  metrics->device = kPcl5Device;
  metrics->postScriptName.clear();
  metrics->selection =
      ScalableSelection{afm.symbolSet, !afm.fixedPitch, afm.pclStyle, afm.pclStrokeWeight,
                        static_cast<unsigned>(std::max(0, afm.pclTypeface))}
          .Text();
  metrics->translationClass = 17;  // Windows codes are the printer's
  metrics->ascent = dots(metrics->ascent);
  metrics->internalLeading = dots(metrics->internalLeading);
  metrics->externalLeading = dots(metrics->externalLeading);
  metrics->pixelHeight = dots(afm.box[3] - afm.box[1]);
  SetDefaultSize(metrics);
}

}  // namespace zeapi
