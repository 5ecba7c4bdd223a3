#include "job/pcl_commands.h"

namespace tool {
namespace {

constexpr PclCommand kPclCommands[] = {
    // Job and page
    {"&lX", "copies", ""},
    {"&lA", "paper size", ""},
    {"&lC", "line spacing, 1/48 inch", ""},
    {"&lD", "lines an inch", ""},
    {"&lE", "top margin, lines", ""},
    {"&lF", "text length, lines", ""},
    {"&lG", "output bin", ""},
    {"&lH", "paper source", ""},
    {"&lL", "skip the perforation", ""},
    {"&lM", "media type", ""},
    {"&lO", "orientation", ""},
    {"&lP", "page length, lines", ""},
    {"&lS", "duplex", ""},
    {"&lT", "job separation", ""},
    {"&lU", "left offset, 1/720 inch", ""},
    {"&lZ", "top offset, 1/720 inch", ""},
    {"&aC", "column", ""},
    {"&aG", "side of the sheet", ""},
    {"&aH", "horizontal position, 1/720 inch", ""},
    {"&aL", "left margin, columns", ""},
    {"&aM", "right margin, columns", ""},
    {"&aP", "print direction", ""},
    {"&aR", "row", ""},
    {"&aV", "vertical position, 1/720 inch", ""},
    {"&bW", "configuration data", "configuration data"},
    {"&dD", "underline on", ""},
    {"&d@", "underline off", ""},
    {"&kG", "line ends", ""},
    {"&kH", "character width, 1/120 inch", ""},
    {"&kS", "pitch", ""},
    {"&nW", "name of a resource", "name"},
    {"&pX", "transparent text", "text to print as it is"},
    {"&sC", "wrapping at line ends", ""},
    {"&uD", "units an inch", ""},
    {"%A", "PCL from here on", ""},
    {"%B", "GL from here on", ""},
    {"%X", "exit the language", ""},
    // Macros
    {"&fS", "push or pop the position", ""},
    {"&fX", "macro control", ""},
    {"&fY", "macro ID", ""},
    // Fonts
    {"(@", "default primary font", ""},
    {")@", "default secondary font", ""},
    {"(X", "primary font by ID", ""},
    {")X", "secondary font by ID", ""},
    {"(E", "primary symbol set", ""},
    {"(J", "primary symbol set", ""},
    {"(M", "primary symbol set", ""},
    {"(N", "primary symbol set", ""},
    {"(U", "primary symbol set", ""},
    {"(sB", "primary stroke weight", ""},
    {"(sH", "primary pitch", ""},
    {"(sP", "primary spacing", ""},
    {"(sS", "primary style", ""},
    {"(sT", "primary typeface", ""},
    {"(sV", "primary height, points", ""},
    {")sB", "secondary stroke weight", ""},
    {")sH", "secondary pitch", ""},
    {")sP", "secondary spacing", ""},
    {")sS", "secondary style", ""},
    {")sT", "secondary typeface", ""},
    {")sV", "secondary height, points", ""},
    {"(fW", "symbol set", "symbol set"},
    {"(sW", "character", "character"},
    {")sW", "font header", "font header"},
    {"*cD", "font ID", ""},
    {"*cE", "character code", ""},
    {"*cF", "font control", ""},
    {"*cR", "symbol set ID", ""},
    {"*cS", "symbol set control", ""},
    // Areas and patterns
    {"*cA", "rectangle width, units", ""},
    {"*cB", "rectangle height, units", ""},
    {"*cG", "pattern ID", ""},
    {"*cH", "rectangle width, 1/720 inch", ""},
    {"*cP", "fill the rectangle", ""},
    {"*cQ", "pattern control", ""},
    {"*cV", "rectangle height, 1/720 inch", ""},
    {"*cW", "pattern", "pattern"},
    {"*lO", "logical operation", ""},
    {"*lW", "colour table", "colour table"},
    {"*pP", "push or pop the palette", ""},
    {"*pR", "pattern origin", ""},
    {"*pX", "horizontal position, units", ""},
    {"*pY", "vertical position, units", ""},
    {"*vA", "first colour component", ""},
    {"*vB", "second colour component", ""},
    {"*vC", "third colour component", ""},
    {"*vI", "colour number", ""},
    {"*vN", "transparent source", ""},
    {"*vO", "transparent pattern", ""},
    {"*vS", "colour", ""},
    {"*vT", "current pattern", ""},
    {"*vW", "image set-up", "image set-up"},
    // Pictures
    {"*bM", "compression", ""},
    {"*bV", "plane of a picture", "plane of a row"},
    {"*bW", "row of a picture", "row"},
    {"*bY", "skip rows", ""},
    {"*gW", "picture set-up", "picture set-up"},
    {"*iW", "viewing conditions", "viewing conditions"},
    {"*mW", "dither matrix", "dither matrix"},
    {"*oW", "driver set-up", "driver set-up"},
    {"*rA", "begin a picture", ""},
    {"*rB", "end the picture", ""},
    {"*rC", "end the picture", ""},
    {"*rF", "picture orientation", ""},
    {"*rQ", "picture quality", ""},
    {"*rS", "picture width, dots", ""},
    {"*rT", "picture height, dots", ""},
    {"*rU", "colour planes", ""},
    {"*tH", "picture width, 1/720 inch", ""},
    {"*tR", "dots an inch", ""},
    {"*tV", "picture height, 1/720 inch", ""},
};

struct Escape {
  std::string_view characters;
  std::string_view meaning;
};

constexpr Escape kEscapes[] = {
    {"E", "reset"},         {"9", "clear the side margins"}, {"=", "half a line down"},
    {"Y", "show commands"}, {"Z", "stop showing commands"},
};

}  // namespace

const PclCommand* FindPclCommand(std::string_view command) {
  for (const PclCommand& known : kPclCommands) {
    if (known.command == command) return &known;
  }
  return nullptr;
}

std::string_view EscapeMeaning(std::string_view characters) {
  for (const Escape& escape : kEscapes) {
    if (escape.characters == characters) return escape.meaning;
  }
  return "";
}

}  // namespace tool
