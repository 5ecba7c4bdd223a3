#include "fonts/pcl_naming.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "fonts/field_text.h"
#include "fonts/pcl_font.h"
#include "fonts/round_tenths.h"
#include "fonts/symbol_set_names.h"

namespace zeapi {
namespace {

constexpr const char* kWeightCodes[] = {"Ut", "Et", "Tn", "Xl", "Lt", "Dl", "Sl", "",
                                        "Sb", "Db", "Bd", "Xb", "Bk", "Ek", "Uk"};
constexpr unsigned kBitmapResolution = 300;  // of formats that name none, dots per inch

const char* WeightCode(std::int8_t strokeWeight) {
  return strokeWeight < -7 || strokeWeight > 7 ? "" : kWeightCodes[strokeWeight + 7];
}

// All bytes of the font name, which may hold zeros.
std::string_view NameBytes(const PclDescriptor& descriptor) { return {descriptor.name, 16}; }

const char* PostureCode(const PclDescriptor& descriptor) {
  switch (descriptor.style & 3) {
    case 1:
      return NameBytes(descriptor).find("Italic") == std::string_view::npos ? "It" : "";
    case 2:
      return "Al";
    default:
      return "";
  }
}

// A text that grows by formatted pieces and is cut at its room.
class TextBuilder {
 public:
  template <typename... Arguments>
  void Append(const char* format, Arguments... arguments) {
    const int length =
        std::snprintf(text_ + length_, sizeof(text_) - length_, format, arguments...);
    if (length > 0)
      length_ = std::min(length_ + static_cast<std::size_t>(length), sizeof(text_) - 1);
  }
  std::string_view view() const { return {text_, length_}; }

 private:
  char text_[160] = {};
  std::size_t length_ = 0;
};

void AppendBitmapName(const PclDescriptor& descriptor, const ZeFontInfo& info, TextBuilder* text) {
  text->Append("%-.13s%4s", descriptor.name, StyleSuffix(descriptor).text);
  const unsigned resolution =
      info.format == ZE_FONT_PCL_RESOLUTION ? info.yResolution : kBitmapResolution;
  const Tenths points = RoundTenths(static_cast<double>(descriptor.height * 18) / resolution);
  text->Append(" [%2u.%1u Pt.]", points.whole, points.tenth);
}

void AppendOutlineName(const PclDescriptor& descriptor, TextBuilder* text) {
  char name[18] = {};
  for (int i = 0; i < 17; ++i) name[i] = descriptor.name[i] != '\0' ? descriptor.name[i] : ' ';
  text->Append("%s [Outline] ", name);
}

void AppendSymbolSet(const PclDescriptor& descriptor, ZeFontInfo* info, TextBuilder* text) {
  if (descriptor.fontType == 10 || descriptor.fontType == 11) {
    text->Append("%s", " (unbound)");
    return;
  }
  const SymbolSetText code = SymbolSetCode(descriptor.symbolSet);
  SetField(info->symbolSet, code.text);
  const std::string_view name = SymbolSetName(code.text);
  text->Append(" (%s)", name.empty() ? code.text : name.data());
}

}  // namespace

SymbolSetText SymbolSetCode(std::uint16_t symbolSet) {
  SymbolSetText code;
  std::snprintf(code.text, sizeof(code.text), "%d%c", symbolSet >> 5, (symbolSet & 31) + 64);
  return code;
}

StyleText StyleSuffix(const PclDescriptor& descriptor) {
  StyleText suffix;
  std::snprintf(suffix.text, sizeof(suffix.text), "%s%s", WeightCode(descriptor.strokeWeight),
                PostureCode(descriptor));
  return suffix;
}

void DescribePclFont(const PclDescriptor& descriptor, ZeFontInfo* info) {
  const std::uint32_t format = info->format;
  TextBuilder text;
  if (IsScalablePcl(format)) {
    AppendOutlineName(descriptor, &text);
  } else {
    AppendBitmapName(descriptor, *info, &text);
  }
  AppendSymbolSet(descriptor, info, &text);
  const bool mayLackTypeface = format == ZE_FONT_PCL_BITMAP || format == ZE_FONT_PCL_BITMAP_13 ||
                               format == ZE_FONT_PCL_BITMAP_15;
  if (mayLackTypeface && descriptor.TypefaceNumber() == 0 &&
      !text.view().starts_with("Line Printer")) {
    text.Append("%s", " *TF:0");
  }
  SetField(info->description, text.view());

  TextBuilder detail;
  detail.Append("Ven:%u  Typ:%u  Fon:%c%lu", static_cast<unsigned>(descriptor.typeface >> 12),
                static_cast<unsigned>(descriptor.typeface & 0xFFF),
                descriptor.vendorLetter != 0 ? descriptor.vendorLetter : '?',
                static_cast<unsigned long>(descriptor.fontNumber));
  SetField(info->detail, detail.view());
}

SelectionText PclSelectionString(const PclDescriptor& descriptor) {
  const long height = descriptor.height * 256L + descriptor.heightExtended;
  const long points = height * 72 / 3072;  // times 100
  // 95 becomes 100, which prints three digits: 12.95 points select as 12.100.
  const long hundredths = (points % 100 + 9) / 10 * 10;
  char size[64];
  int length = std::snprintf(size, sizeof(size), "%ld.%02ldv", points / 100, hundredths);
  const long pitch = descriptor.pitch * 256L + descriptor.pitchExtended;
  if (descriptor.spacing == 0 && pitch != 0) {
    const long perInch = 30720000 / pitch;  // characters, times 100
    std::snprintf(size + length, sizeof(size) - static_cast<std::size_t>(length), "%ld.%02ldh",
                  perInch / 100, perInch % 100);
  }
  SelectionText selection;
  std::snprintf(selection.text, sizeof(selection.text), "\x1B(%d%c\x1B(s%dp%s%ds%db%uT",
                descriptor.symbolSet >> 5, (descriptor.symbolSet & 31) + 64, descriptor.spacing,
                size, descriptor.style, descriptor.strokeWeight,
                static_cast<unsigned>(descriptor.typeface));
  return selection;
}

}  // namespace zeapi
