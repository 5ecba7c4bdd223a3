#include "fonts/afm_writer.h"

#include <algorithm>
#include <array>
#include <string>

#include "fonts/windows_characters.h"

namespace zeapi {
namespace {

constexpr unsigned kSpace = 32;

const char* WeightName(std::uint16_t weight) {
  if (weight >= 1 && weight <= 324) return "Light";
  return weight < 476 ? "Medium" : "Bold";
}

class AfmText {
 public:
  AfmText(const PfmMetrics& metrics, std::FILE* stream)
      : metrics_(metrics), widths_(metrics.widths), stream_(stream) {}

  bool Write() {
    Header();
    CharacterMetrics();
    if (metrics_.hasKerning) Kerning();
    Text("EndFontMetrics\n");
    return written_;
  }

 private:
  void Text(const char* text) { written_ &= std::fputs(text, stream_) >= 0; }
  template <typename... Arguments>
  void Format(const char* format, Arguments... arguments) {
    written_ &= std::fprintf(stream_, format, arguments...) >= 0;
  }
  void Number(int number) { Format(" %d", number); }

  bool IsStandard() const { return metrics_.characterSet == 0; }

  void Header() {
    const PfmMetrics& m = metrics_;
    Text("StartFontMetrics 2.0\n");
    Format("Comment %s\n", m.copyright.c_str());
    Format("FontName %s", m.name.c_str());
    Text("\nEncodingScheme ");
    Text(IsStandard() ? "AdobeStandardEncoding\n" : "FontSpecific\n");
    std::string fullName = m.name;
    std::replace(fullName.begin(), fullName.end(), '-', ' ');
    Format("FullName %s", fullName.c_str());
    if (m.hasFace) Format("\nFamilyName %s", m.face.c_str());
    Format("\nWeight %s", WeightName(m.weight));
    const bool fixedPitch = (m.pitchAndFamily & 1) == 0 || m.averageWidth == m.maximumWidth;
    Format("\nIsFixedPitch %s", fixedPitch ? "true" : "false");
    Text("\nFontBBox");
    Number(fixedPitch ? -20 : -100);
    Number(-(m.lowerCaseDescent + 5));
    Number(m.maximumWidth + 10);
    Number(m.ascent + 5);
    Text("\nCapHeight");
    Number(m.capHeight);
    Text("\nXHeight");
    Number(m.xHeight);
    Text("\nDescender");
    Number(m.lowerCaseDescent);
    Text("\nAscender");
    Number(m.lowerCaseAscent);
    Text("\n");
  }

  void CharacterMetrics() {
    int count = metrics_.last - metrics_.first + 1;
    if (IsStandard()) count -= PrepareStandardCharacters();
    Text("StartCharMetrics");
    Number(count);
    Text("\n");
    if (IsStandard()) {
      StandardCharacters();
    } else {
      for (unsigned code = metrics_.first; code <= metrics_.last; ++code) {
        if (widths_[code] == 0) continue;
        Format("C  %u ; WX  %u ;\n", code, unsigned{widths_[code]});
      }
    }
    Text("EndCharMetrics\n");
  }

  // Finds the character that has each standard code and drops those that have none and need not be
  // kept. Returns how many were dropped.
  int PrepareStandardCharacters() {
    // The space counts only in a font of nothing else; other fonts compare with a width of 0.
    const bool spaceAlone = metrics_.first > 31 && metrics_.last < 33;
    const unsigned spaceWidth = spaceAlone ? widths_[kSpace] : 0;
    int dropped = 0;
    for (unsigned code = metrics_.first; code <= metrics_.last; ++code) {
      const auto windowsCode = static_cast<std::uint8_t>(code);
      const std::uint8_t standardCode = StandardCodeOf(windowsCode);
      if (standardCode != 0) {
        carriers_[standardCode] = windowsCode;  // a later one takes the code over
        continue;
      }
      const unsigned keepClass = KeepClassOf(windowsCode);
      const bool drop = widths_[code] == spaceWidth ? keepClass % 2 == 0 : keepClass == 0;
      if (!drop) continue;
      widths_[code] = 0;
      ++dropped;
    }
    return dropped;
  }

  void StandardCharacters() {
    for (unsigned standardCode = 0; standardCode < 256; ++standardCode) {
      const std::uint8_t code = carriers_[standardCode];
      if (code == 0) continue;
      NamedCharacter(static_cast<int>(standardCode), code);
      widths_[code] = 0;
    }
    for (unsigned code = metrics_.first; code <= metrics_.last; ++code) {
      if (widths_[code] != 0) NamedCharacter(-1, static_cast<std::uint8_t>(code));
    }
  }

  void NamedCharacter(int standardCode, std::uint8_t code) {
    Format("C  %d ; WX  %u ; N %s ;\n", standardCode, unsigned{widths_[code]},
           GlyphNameOf(code).text);
  }

  void Kerning() {
    const auto counts = [](const AfmKernPair& pair) { return pair.amount != 0; };
    Text("StartKernData\nStartKernPairs");
    Number(static_cast<int>(
        std::count_if(metrics_.kernPairs.begin(), metrics_.kernPairs.end(), counts)));
    Text("\n");
    for (const AfmKernPair& pair : metrics_.kernPairs) {
      if (!counts(pair)) continue;
      Format("KPX %s %s %d\n", GlyphNameOf(pair.first).text, GlyphNameOf(pair.second).text,
             pair.amount);
    }
    Text("EndKernPairs\nEndKernData\n");
  }

  const PfmMetrics& metrics_;
  std::array<std::uint16_t, 256> widths_;        // 0: written or dropped
  std::array<std::uint8_t, 256> carriers_ = {};  // Windows code by standard code
  std::FILE* stream_;
  bool written_ = true;
};

}  // namespace

bool WriteAfm(const PfmMetrics& metrics, std::FILE* stream) {
  return AfmText(metrics, stream).Write();
}

}  // namespace zeapi
