#include "fonts/afm_reader.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "fonts/afm_glyph_names.h"
#include "fonts/afm_number.h"
#include "fonts/field_text.h"
#include "fonts/text_lines.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kMostKernPairs = 65535;  // what Windows metrics can count

bool IsTrue(std::string_view value) { return UpToWhiteSpace(value) == "true"; }

int WeightOf(std::string_view name) {
  if (name.find("Bold") != std::string_view::npos) return 700;
  return name.find("Light") != std::string_view::npos ? 250 : 400;
}

template <typename Number>
void ReadBox(std::string_view text, Number (&box)[4]) {
  for (Number& side : box) side = static_cast<Number>(WholeOf(TakeWord(&text)));
}

enum class AfmScope { kAll, kHeader };

class AfmFile {
 public:
  AfmFile(std::FILE* stream, AfmMetrics* metrics, AfmScope scope)
      : stream_(stream), metrics_(*metrics), scope_(scope) {}

  Result Read() {
    TextLines lines(stream_);
    Result result = ZE_OK;
    for (std::string_view line; result == ZE_OK && lines.Next(&line);) {
      const std::string_view keyword = TakeWord(&line);
      if (keyword == "EndFontMetrics") break;
      result = ReadLine(keyword, line);
    }
    return result == ZE_OK && std::ferror(stream_) != 0 ? Result{ZE_BAD_FORMAT} : result;
  }

 private:
  enum class Section { kHeader, kCharacters, kKerning, kKernPairs };

  Result ReadLine(std::string_view keyword, std::string_view value) {
    if (keyword == "StartCharMetrics") {
      section_ = Section::kCharacters;
    } else if (keyword == "StartKernData" ||
               (keyword == "EndKernPairs" && section_ == Section::kKernPairs)) {
      section_ = Section::kKerning;
    } else if (keyword == "StartKernPairs" && section_ == Section::kKerning) {
      section_ = Section::kKernPairs;
    } else if (keyword == "EndCharMetrics" || keyword == "EndKernData") {
      section_ = Section::kHeader;
    } else if (section_ == Section::kHeader) {
      ReadHeader(keyword, value);
    } else if (scope_ == AfmScope::kHeader) {
      return ZE_OK;
    } else if (section_ == Section::kCharacters && (keyword == "C" || keyword == "CH")) {
      ReadCharacter(keyword == "C" ? WholeOf(value) : HexadecimalOf(value), value);
    } else if (section_ == Section::kKernPairs && keyword == "KPX") {
      return ReadKernPair(value);
    }
    return ZE_OK;
  }

  void ReadHeader(std::string_view keyword, std::string_view value) {
    if (keyword == "FontName") {
      SetField(metrics_.fontName, UpToWhiteSpace(value));
    } else if (keyword == "Weight") {
      metrics_.weight = WeightOf(value);
    } else if (keyword == "EncodingScheme") {
      metrics_.standardEncoding = UpToWhiteSpace(value) == "AdobeStandardEncoding";
    } else if (keyword == "IsFixedPitch") {
      metrics_.fixedPitch = IsTrue(value);
    } else if (keyword == "FontBBox") {
      ReadBox(value, metrics_.box);
    } else if (keyword == "ItalicAngle") {
      metrics_.italicAngle = TenthsOf(value);
    } else if (keyword == "UnderlinePosition") {
      metrics_.underlinePosition = WholeOf(value);
    } else if (keyword == "UnderlineThickness") {
      metrics_.underlineThickness = WholeOf(value);
    } else if (keyword == "CapHeight") {
      metrics_.capHeight = WholeOf(value);
    } else if (keyword == "Ascender") {
      metrics_.ascender = WholeOf(value);
    } else if (keyword == "Descender") {
      metrics_.descender = WholeOf(value);
    }
  }

  // The items of a character line are separated by semicolons and come in any order.
  void ReadCharacter(int fontCode, std::string_view line) {
    AfmCharacter character = {true, 0, {}};
    std::string_view name;
    while (!line.empty()) {
      const std::size_t end = std::min(line.find(';'), line.size());
      std::string_view item = line.substr(0, end);
      line.remove_prefix(std::min(end + 1, line.size()));
      item.remove_prefix(std::min(item.find_first_not_of(" \t"), item.size()));
      const std::string_view key = TakeWord(&item);
      if (key == "WX") {
        character.width = static_cast<std::int16_t>(WholeOf(item));
      } else if (key == "N") {
        name = UpToWhiteSpace(item);
      } else if (key == "B") {
        ReadBox(item, character.box);
      }
    }
    const int windowsCode = WindowsCodeOfGlyph(name);
    if (windowsCode >= 0) metrics_.byWindowsCode[windowsCode] = character;
    if (fontCode < 0 || fontCode > 255) return;
    AfmCharacter& coded = metrics_.byFontCode[fontCode];
    // One name a code, so a file cannot make up more names than there are codes.
    if (!metrics_.standardEncoding && !coded.present) fontCodes_.emplace(name, fontCode);
    coded = character;
  }

  // -1 for a glyph without a code.
  int KernCodeOf(std::string_view name) const {
    if (metrics_.standardEncoding) return WindowsCodeOfGlyph(name);
    const auto found = fontCodes_.find(name);
    return found != fontCodes_.end() ? found->second : -1;
  }

  Result ReadKernPair(std::string_view value) {
    const int first = KernCodeOf(TakeWord(&value));
    const int second = KernCodeOf(TakeWord(&value));
    if (first < 0 || second < 0 || metrics_.kernPairCount == kMostKernPairs) return ZE_OK;
    if (metrics_.kernPairCount == capacity_ && !Grow()) return ZE_OUT_OF_MEMORY;
    metrics_.kernPairs[metrics_.kernPairCount++] = {static_cast<std::uint8_t>(first),
                                                    static_cast<std::uint8_t>(second),
                                                    static_cast<std::int16_t>(WholeOf(value))};
    return ZE_OK;
  }

  bool Grow() {
    const std::uint32_t capacity = capacity_ == 0 ? 512 : capacity_ * 2;
    auto* pairs = static_cast<AfmKernPair*>(std::calloc(capacity, sizeof(AfmKernPair)));
    if (pairs == nullptr) return false;
    std::copy_n(metrics_.kernPairs, metrics_.kernPairCount, pairs);
    std::free(metrics_.kernPairs);
    metrics_.kernPairs = pairs;
    capacity_ = capacity;
    return true;
  }

  std::FILE* stream_;
  AfmMetrics& metrics_;
  AfmScope scope_;
  Section section_ = Section::kHeader;
  std::uint32_t capacity_ = 0;
  std::map<std::string, int, std::less<>> fontCodes_;  // of an encoding of the font's own
};

}  // namespace

AfmMetricsPtr NewAfmMetrics(const char* fontFile) {
  AfmMetricsPtr metrics(static_cast<AfmMetrics*>(std::calloc(1, sizeof(AfmMetrics))));
  if (metrics == nullptr) return nullptr;
  metrics->firstCharacter = 32;
  metrics->lastCharacter = 255;
  metrics->weight = 400;
  metrics->standardEncoding = true;
  SetField(metrics->fontFile, fontFile);
  SetField(metrics->symbolSet, "9U");
  return metrics;
}

Result ReadAfm(std::FILE* stream, AfmMetrics* metrics) {
  return AfmFile(stream, metrics, AfmScope::kAll).Read();
}

Result ReadAfmHeader(std::FILE* stream, AfmMetrics* metrics) {
  return AfmFile(stream, metrics, AfmScope::kHeader).Read();
}

}  // namespace zeapi
