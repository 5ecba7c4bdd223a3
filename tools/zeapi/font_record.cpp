#include "font_record.h"

#include <iomanip>
#include <sstream>

#include "choice.h"

namespace tool {
namespace {

constexpr Choice kKinds[] = {
    {"metrics", ZE_FONT_KIND_METRICS},
    {"downloadable", ZE_FONT_KIND_DOWNLOADABLE},
    {"Type 1 metrics", ZE_FONT_KIND_TYPE1_METRICS},
    {"TrueType", ZE_FONT_KIND_TRUETYPE},
};

constexpr Choice kFormats[] = {
    {"Type 1", ZE_FONT_TYPE1},
    {"DLF", ZE_FONT_DLF},
    {"PCL bitmap with resolution", ZE_FONT_PCL_RESOLUTION},
    {"PCL bitmap", ZE_FONT_PCL_BITMAP},
    {"PCL bitmap, older layout", ZE_FONT_PCL_OLD_BITMAP},
    {"PCL bitmap 13", ZE_FONT_PCL_BITMAP_13},
    {"PCL bitmap 15", ZE_FONT_PCL_BITMAP_15},
    {"PCL scalable, bound", ZE_FONT_PCL_BOUND},
    {"PCL scalable, unbound", ZE_FONT_PCL_UNBOUND},
    {"PCL TrueType", ZE_FONT_PCL_TRUETYPE},
    {"TrueType of the host", ZE_FONT_HOST_TRUETYPE},
    {"Intellifont metrics", ZE_FONT_TFM},
    {"metrics of a DLF font", ZE_FONT_FMF},
    {"Windows printer font metrics", ZE_FONT_PFM},
    {"font cartridge", ZE_FONT_CARTRIDGE},
};

constexpr Choice kFlags[] = {
    {"binary", ZE_FONT_BINARY},
    {"standard", ZE_FONT_STANDARD},
    {"proportional", ZE_FONT_PROPORTIONAL},
    {"bit3", ZE_FONT_BIT_3},
    {"bit5", ZE_FONT_BIT_5},
};

std::string NameOrUnknown(std::span<const Choice> choices, std::uint32_t value) {
  const std::string name = NameOf(choices, static_cast<std::int32_t>(value));
  return name.empty() ? "unknown" : name;
}

Json FlagNames(std::uint32_t flags) {
  Json names = Json::array();
  for (const Choice& flag : kFlags) {
    if ((flags & static_cast<std::uint32_t>(flag.value)) != 0) names.push_back(flag.name);
  }
  return names;
}

Json CartridgeJson(const ZeCartridge& cartridge) {
  Json fonts = Json::array();
  for (const ZeCartridgeFont* font = cartridge.fonts; font != nullptr; font = font->next) {
    fonts.push_back(font->name);
  }
  return {{"name", cartridge.name}, {"fonts", fonts}};
}

void AddLine(std::ostream& text, const char* label, const std::string& value) {
  if (!value.empty()) text << "\n  " << std::left << std::setw(16) << label << value;
}

}  // namespace

std::string FormatName(std::uint32_t format) { return NameOrUnknown(kFormats, format); }

std::string KindName(std::uint32_t kind) { return NameOrUnknown(kKinds, kind); }

std::string RecordText(const ZeFontInfo& info) {
  std::ostringstream text;
  text << info.description;
  AddLine(text, "kind", KindName(info.kind));
  AddLine(text, "format", FormatName(info.format));
  AddLine(text, "detail", info.detail);
  AddLine(text, "symbol set", info.symbolSet);
  if (info.xResolution != 0 || info.yResolution != 0) {
    AddLine(text, "resolution",
            std::to_string(info.xResolution) + " x " + std::to_string(info.yResolution) + " dpi");
  }
  std::string flags;
  for (const Json& name : FlagNames(info.flags)) {
    flags += (flags.empty() ? "" : ", ") + name.get<std::string>();
  }
  AddLine(text, "flags", flags);
  AddLine(text, "file size", std::to_string(info.fileSize) + " bytes");
  if (info.printerMemory != 0) {
    AddLine(text, "printer memory", std::to_string(info.printerMemory) + " bytes");
  }
  AddLine(text, "companion file", info.companionFile);
  AddLine(text, "metrics file", info.metricsFile);
  if (info.cartridge != nullptr) {
    const ZeCartridgeFont* font = info.cartridge->fonts;
    for (; font != nullptr; font = font->next) AddLine(text, "font", font->name);
  }
  return text.str();
}

const char* const kRecordFields =
    "\"kind\" (2 metrics, 3 downloadable, 4 Type 1 metrics, 5 TrueType) and \"kindName\",\n"
    "\"format\" and \"formatName\", \"flags\" (names), \"xResolution\", \"yResolution\" (dots per "
    "inch),\n\"fileSize\", \"printerMemory\" (bytes), \"description\", \"detail\", \"symbolSet\",\n"
    "\"companionFile\", \"metricsFile\", \"cartridge\" (null, or its \"name\" and \"fonts\")";

// The "+" makes values of fields that may not be aligned.
Json RecordJson(const ZeFontInfo& info) {
  return {{"kind", +info.kind},
          {"kindName", KindName(info.kind)},
          {"format", +info.format},
          {"formatName", FormatName(info.format)},
          {"flags", FlagNames(info.flags)},
          {"xResolution", +info.xResolution},
          {"yResolution", +info.yResolution},
          {"fileSize", +info.fileSize},
          {"printerMemory", +info.printerMemory},
          {"description", info.description},
          {"detail", info.detail},
          {"symbolSet", info.symbolSet},
          {"companionFile", info.companionFile},
          {"metricsFile", info.metricsFile},
          {"cartridge", info.cartridge != nullptr ? CartridgeJson(*info.cartridge) : Json()}};
}

}  // namespace tool
