#include "fonts/pcl_metrics.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "fonts/metrics_notice.h"
#include "fonts/pcl_naming.h"
#include "fonts/pcl_translation.h"
#include "fonts/printer_memory.h"
#include "fonts/typeface_table.h"
#include "fonts/windows_metrics_codes.h"

namespace zeapi {
namespace {

// Quarter-dots into dots, rounded.
int Dots(int quarterDots) { return (quarterDots + 2) >> 2; }

class PclDescription {
 public:
  PclDescription(const PclSoftFont& softFont, WindowsMetrics* metrics)
      : font_(softFont.font),
        descriptor_(softFont.font.descriptor),
        characters_(softFont.characters),
        pitch_{softFont.characters.pitch, 0, 0},
        fileSize_(softFont.fileSize),
        metrics_(*metrics),
        symbolSet_(WindowsSymbolSetOf(descriptor_.symbolSet, descriptor_.fontType)),
        numbers_(NumbersOfFont(descriptor_.fontType, symbolSet_.translationClass)) {}

  bool Describe() {
    if (!SetRange()) return false;
    SetNames();
    if (characters_.masterUnits != 0) {
      DescribeScalable();
    } else {
      DescribeBitmap();
    }
    return true;
  }

 private:
  // The character of a Windows code; null when the font has none. A font without a space moves on
  // by its pitch.
  const PclCharacter* Find(int windowsCode) const {
    const int number = NumberOfCharacter(numbers_, static_cast<std::uint8_t>(windowsCode));
    const auto found = number < 0 ? characters_.byCode.end()
                                  : characters_.byCode.find(static_cast<std::uint16_t>(number));
    if (found != characters_.byCode.end()) return &found->second;
    return windowsCode == ' ' ? &pitch_ : nullptr;
  }

  bool SetRange() {
    int first = 256;
    int last = -1;
    bool hasCharacters = false;
    for (int code = 0; code < 256; ++code) {
      const PclCharacter* character = Find(code);
      if (character == nullptr) continue;
      hasCharacters |= character != &pitch_;
      first = std::min(first, code);
      last = code;
    }
    if (!hasCharacters) return false;
    metrics_.first = static_cast<std::uint8_t>(first);
    metrics_.last = static_cast<std::uint8_t>(last);
    metrics_.breakCharacter = 32;
    metrics_.defaultCharacter = last >= 127 ? 127 : 32;
    return true;
  }

  // The face with the symbol set in parentheses.
  void SetNames() {
    char face[64];
    metrics_.family = TypefaceFace(descriptor_.TypefaceNumber(), face, sizeof(face));
    std::string name = face[0] != '\0' ? face : descriptor_.name;
    name.resize(name.find_last_not_of(' ') + 1);
    const std::string_view suffix = symbolSet_.faceSuffix;
    const std::string text =
        suffix.empty() ? "(" + std::string(SymbolSetCode(descriptor_.symbolSet).text) + ")"
                       : std::string(suffix);
    metrics_.face = WindowsFace(name, text);

    metrics_.copyright = kMetricsNotice;
    metrics_.device = "PCL / HP LaserJet";
    const int posture = descriptor_.style & 3;
    metrics_.italic = posture == 1 || posture == 2;
    metrics_.weight = WindowsWeight(descriptor_.strokeWeight);
    metrics_.characterSet = symbolSet_.characterSet;
    metrics_.translationClass = symbolSet_.translationClass;
    metrics_.fixedPitch = descriptor_.spacing == 0;
    metrics_.selection = PclSelectionString(descriptor_).text;
    metrics_.printerMemory = fileSize_ + kPrinterOverhead;
  }

  void DescribeBitmap() {
    WindowsMetrics& m = metrics_;
    if (font_.format == ZE_FONT_PCL_RESOLUTION) {
      m.horizontalResolution = font_.xResolution;
      m.verticalResolution = font_.yResolution;
    }
    for (int code = m.first; code <= m.last; ++code) {
      const PclCharacter* character = Find(code);
      if (character != nullptr)
        m.widths[static_cast<std::size_t>(code)] = ToU16(Dots(character->advance));
    }
    SetWidthSummary(m.widths, &m);
    SetPixelWidth(ToU16(Pitch()), &m);
    if (!m.hasWidths) {
      m.averageWidth = m.pixelWidth;
      m.maximumWidth = m.pixelWidth;
    }

    const int twips = descriptor_.height * 360 / m.verticalResolution;
    m.points = ToU16((twips + 10) / 20);
    m.pixelHeight = descriptor_.cellHeight;
    m.ascent = descriptor_.baseline;
    m.internalLeading = ToU16(std::max(0, m.pixelHeight - Dots(descriptor_.height)));

    ExtendedTextMetrics& e = m.extended;
    e.pointSize = ToS16(twips);
    SetOrientation();
    e.masterHeight = e.minScale = e.maxScale = e.masterUnits = ToS16(m.pixelHeight);
    SetLetters();
    SetRules();
  }

  // Dots; the extension counts 1/1024 of them.
  int Pitch() const { return (descriptor_.pitch * 256 + descriptor_.pitchExtended + 512) / 1024; }

  void SetOrientation() { metrics_.extended.orientation = descriptor_.orientation != 0 ? 2 : 1; }

  void SetLetters() {
    ExtendedTextMetrics& e = metrics_.extended;
    const auto top = [this](char letter, int otherwise) {
      const PclCharacter* character = Find(letter);
      return ToS16(character != nullptr && character->height != 0 ? character->top : otherwise);
    };
    const int capitals = std::max(0, metrics_.ascent - metrics_.internalLeading);
    e.capHeight = top('H', capitals);
    e.xHeight = top('x', Dots(descriptor_.xHeight));
    e.lowerCaseAscent = top('d', capitals);
    const PclCharacter* p = Find('p');
    e.lowerCaseDescent = p != nullptr && p->height != 0
                             ? ToS16(std::max(0, p->height - p->top))
                             : ToS16(std::max(0, metrics_.pixelHeight - metrics_.ascent));
    SetScripts();
  }

  void SetScripts() {
    ExtendedTextMetrics& e = metrics_.extended;
    e.superScript = ToS16(e.xHeight - e.capHeight);
    e.subScript = ToS16(e.capHeight - e.xHeight);
    e.superScriptSize = e.subScriptSize = ToS16(e.masterUnits);
  }

  // The characters "_" and "-" are the rules of the font.
  void SetRules() {
    ExtendedTextMetrics& e = metrics_.extended;
    const PclCharacter* underscore = Find('_');
    if (underscore != nullptr && underscore->height != 0) {
      e.underlineOffset = ToS16(-underscore->top);
      e.underlineWidth = ToS16(underscore->height);
    } else {
      e.underlineOffset = ToS16(-descriptor_.underlinePosition);
      e.underlineWidth = descriptor_.underlineThickness;
    }
    SetDoubleUnderline();
    const PclCharacter* hyphen = Find('-');
    if (hyphen != nullptr && hyphen->height != 0) {
      e.strikeOutOffset = ToS16(hyphen->top);
      e.strikeOutWidth = ToS16(hyphen->height);
    } else {
      e.strikeOutOffset = ToS16(e.xHeight / 2);
      e.strikeOutWidth = e.underlineWidth;
    }
  }

  void SetDoubleUnderline() {
    ExtendedTextMetrics& e = metrics_.extended;
    e.doubleUpperOffset = e.underlineOffset;
    e.doubleLowerOffset = ToS16(e.underlineOffset + 2 * e.underlineWidth);
    e.doubleUpperWidth = e.doubleLowerWidth = e.underlineWidth;
  }

  void DescribeScalable() {
    WindowsMetrics& m = metrics_;
    for (int code = m.first; code <= m.last; ++code) {
      const PclCharacter* character = Find(code);
      if (character != nullptr)
        m.extents[static_cast<std::size_t>(code)] = ToU16(character->advance);
    }
    const int em = characters_.masterUnits;
    ExtendedTextMetrics& e = m.extended;
    e.masterUnits = ToS16(em);
    SetDefaultSize(&m);
    const auto dots = [em](int measure) { return ToU16(DotsAtDefaultSize(measure, em)); };
    m.ascent = dots(descriptor_.baseline);
    m.pixelHeight = dots(descriptor_.cellHeight);
    m.internalLeading = dots(std::max(0, descriptor_.cellHeight - em));
    SetOrientation();
    e.capHeight = ToS16(descriptor_.capHeight);
    e.xHeight = ToS16(descriptor_.xHeight);
    e.lowerCaseAscent = ToS16(descriptor_.capHeight);
    e.lowerCaseDescent = ToS16(std::max(0, descriptor_.cellHeight - descriptor_.baseline));
    SetScripts();
    // Both bytes are 0 in scalable fonts; a tenth and a twentieth of the em are usual.
    e.underlineOffset = ToS16(em / 10);
    e.underlineWidth = ToS16(em / 20);
    SetDoubleUnderline();
    e.strikeOutOffset = ToS16(descriptor_.xHeight / 2);
    e.strikeOutWidth = e.underlineWidth;
  }

  const PclFont& font_;
  const PclDescriptor& descriptor_;
  const PclCharacters& characters_;
  const PclCharacter pitch_;
  const std::uint32_t fileSize_;
  WindowsMetrics& metrics_;
  const WindowsSymbolSet symbolSet_;
  const CharacterNumbers numbers_;
};

}  // namespace

bool DescribePclSoftFont(const PclSoftFont& softFont, WindowsMetrics* metrics) {
  return PclDescription(softFont, metrics).Describe();
}

}  // namespace zeapi
