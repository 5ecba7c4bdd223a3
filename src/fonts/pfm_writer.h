// Windows printer font metrics as the library writes them: PFM, PSM and PBM files.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/result.h"
#include "fonts/afm_reader.h"

namespace zeapi {

// Values of WindowsMetrics::type: what kind of device has the font.
inline constexpr std::uint16_t kPfmVectorFont = 0x0081;
inline constexpr std::uint16_t kPfmDeviceFont = 0x0080;

// Character sets of Windows.
inline constexpr std::uint8_t kAnsiCharacters = 0;
inline constexpr std::uint8_t kSymbolCharacters = 2;
inline constexpr std::uint8_t kOemCharacters = 255;

// Resolution of the devices unless a font is made for another, dots per inch.
inline constexpr std::uint16_t kMetricsResolution = 300;

// The extended text metrics, in the order of the file. Master units, but for the first six.
struct ExtendedTextMetrics {
  std::int16_t pointSize = 240;   // twentieths of a point
  std::int16_t orientation = 0;   // 0 either, 1 portrait, 2 landscape
  std::int16_t masterHeight = 0;  // dots at which the extents are exact
  std::int16_t minScale = 0;      // smallest and largest size, dots
  std::int16_t maxScale = 0;
  std::int16_t masterUnits = 0;  // units per em
  std::int16_t capHeight = 0;
  std::int16_t xHeight = 0;
  std::int16_t lowerCaseAscent = 0;
  std::int16_t lowerCaseDescent = 0;  // below the baseline positive
  std::int16_t slant = 0;             // tenths of a degree, leaning to the right positive
  std::int16_t superScript = 0;       // upward negative
  std::int16_t subScript = 0;
  std::int16_t superScriptSize = 0;
  std::int16_t subScriptSize = 0;
  std::int16_t underlineOffset = 0;  // from the baseline down to the top of the rule
  std::int16_t underlineWidth = 0;
  std::int16_t doubleUpperOffset = 0;
  std::int16_t doubleLowerOffset = 0;
  std::int16_t doubleUpperWidth = 0;
  std::int16_t doubleLowerWidth = 0;
  std::int16_t strikeOutOffset = 0;  // from the baseline up
  std::int16_t strikeOutWidth = 0;
};

// Everything that a metrics file says. Measures of the header are in dots, for a PostScript device
// in thousandths of the point size.
struct WindowsMetrics {
  std::string copyright;
  std::uint16_t type = kPfmDeviceFont;
  std::uint16_t points = 0;
  std::uint16_t verticalResolution = kMetricsResolution;
  std::uint16_t horizontalResolution = kMetricsResolution;
  std::uint16_t ascent = 0;
  std::uint16_t internalLeading = 0;
  std::uint16_t externalLeading = 0;
  bool italic = false;
  std::uint16_t weight = 400;
  std::uint8_t characterSet = kAnsiCharacters;
  std::uint16_t pixelWidth = 0;  // 0 when characters differ
  std::uint16_t pixelHeight = 0;
  bool fixedPitch = false;
  std::uint8_t family = 0;  // FontFamily
  std::uint16_t averageWidth = 0;
  std::uint16_t maximumWidth = 0;
  std::uint8_t first = 32;
  std::uint8_t last = 255;
  std::uint8_t defaultCharacter = 32;  // a code, first to last
  std::uint8_t breakCharacter = 32;
  std::string device;
  std::string face;

  bool hasWidths = false;  // a table of dots, right behind the header
  std::array<std::uint16_t, 256> widths = {};
  bool hasExtents = false;  // a table of master units
  std::array<std::uint16_t, 256> extents = {};
  ExtendedTextMetrics extended;
  std::vector<AfmKernPair> kernPairs;  // between first and last; in any order

  // Driver information: the font's name for a PostScript device, else what a PCL driver needs.
  std::string postScriptName;
  std::uint32_t printerMemory = 0;     // bytes
  std::uint16_t translationClass = 0;  // from Windows codes to the font's
  std::string selection;               // the escape sequence; may be empty
  std::string shortName;               // the font's stored name and its symbol set; may be empty
  std::string symbolSet;
};

// Nearest number that a field can hold.
std::uint16_t ToU16(std::int64_t value);
std::int16_t ToS16(std::int64_t value);

// Brings a number of master units into dots of a 12-point font, rounded.
int DotsAtDefaultSize(int units, int masterUnits);

// Sets the header and the width table of a scalable font from its extents, which are for `em`
// units: what they are at 12 points.
void SetDefaultSize(WindowsMetrics* metrics);

// Gives a PCL device one width for all characters of a fixed-pitch font, else a table: readers expect
// one wherever there is no such width.
void SetPixelWidth(std::uint16_t fixedWidth, WindowsMetrics* metrics);

// Sets averageWidth and maximumWidth from those entries of a table that are not 0: first to last.
void SetWidthSummary(const std::array<std::uint16_t, 256>& table, WindowsMetrics* metrics);

// The bytes of the file. At least 256, which is what readers ask for.
std::vector<std::uint8_t> PfmBytes(const WindowsMetrics& metrics);

// Creates the file, or empties it, and writes the metrics. Returns 0; 3 when it cannot be created;
// 36 when it took fewer bytes than the metrics say that they have.
Result WritePfm(const char* path, const WindowsMetrics& metrics);

}  // namespace zeapi
