#include "fonts/windows_metrics_codes.h"

namespace zeapi {
namespace {

struct WindowsSymbolSetRow {
  std::uint16_t symbolSet;
  WindowsSymbolSet windows;
};

constexpr WindowsSymbolSetRow kSymbolSets[] = {
    {2, {0xB6, 16, "(LineDraw)"}},   // 0B
    {14, {0, 18, ""}},               // 0N
    {21, {0, 4, ""}},                // 0U
    {53, {0xB9, 16, "(US Legal)"}},  // 1U
    {145, {0xB7, 16, "(PC Line)"}},  // 4Q
    {269, {0xB4, 17, "(Math8)"}},    // 8M
    {277, {0, 1, ""}},               // 8U
    {369, {0, 18, ""}},              // 11Q
    {501, {0xB5, 17, "(PI Font)"}},  // 15U
    {529, {0xBA, 19, ""}},           // 16Q
};

constexpr std::size_t kLongestFace = 31;

constexpr std::uint16_t kWeights[] = {100, 100, 200, 200, 300, 300, 400, 400,
                                      500, 600, 700, 700, 800, 800, 900};

}  // namespace

WindowsSymbolSet WindowsSymbolSetOf(std::uint16_t symbolSet, std::uint8_t fontType) {
  for (const WindowsSymbolSetRow& row : kSymbolSets) {
    if (row.symbolSet == symbolSet) return row.windows;
  }
  return {0, static_cast<std::uint8_t>(fontType != 0 ? 17 : 16), ""};
}

std::string WindowsFace(std::string_view name, std::string_view suffix) {
  if (suffix.empty()) return std::string(name.substr(0, kLongestFace));
  std::string face(name.substr(0, kLongestFace - 1 - suffix.size()));
  return face.append(" ").append(suffix);
}

std::uint16_t WindowsWeight(std::int8_t strokeWeight) {
  return strokeWeight < -7 || strokeWeight > 7 ? 0 : kWeights[strokeWeight + 7];
}

}  // namespace zeapi
