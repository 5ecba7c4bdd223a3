// PCL soft fonts: finding and classifying the font descriptor of a file.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>

#include "base/stream.h"
#include "fonts/pcl_descriptor.h"
#include "zeapi.h"

namespace zeapi {

struct PclFont {
  PclRawDescriptor raw = {};
  PclDescriptor descriptor;
  std::uint32_t format = 0;       // ZE_FONT_PCL_...
  std::uint16_t xResolution = 0;  // dots per inch, ZE_FONT_PCL_RESOLUTION only
  std::uint16_t yResolution = 0;
};

// True for ZE_FONT_PCL_BOUND, ZE_FONT_PCL_UNBOUND and ZE_FONT_PCL_TRUETYPE.
bool IsScalablePcl(std::uint32_t format);

// The command that a PCL soft font begins with: ESC ")s", at most 6 characters that end with "W".
struct FontHeaderCommand {
  std::array<std::uint8_t, 9> room = {};
  std::size_t length = 0;

  std::span<const std::uint8_t> Bytes() const { return std::span(room).first(length); }
};

// Reads the command and leaves the stream behind it; false when the stream does not begin so.
bool ReadFontHeaderCommand(std::FILE* stream, FontHeaderCommand* command);
// Stands a stream behind the font header command with which the file begins, and tells how many bytes
// the command says the header has: 0 when it says something else. False when there is no such command.
bool SkipPclHeaderCommand(std::FILE* stream, std::uint32_t* headerSize);

// Opens a file that begins with the font header command and stands the stream behind it. Null when
// it cannot be opened or does not begin so.
Stream OpenPclFont(const char* path);

// Reads the descriptor where OpenPclFont left the stream, and lists it (DumpPclDescriptor). False
// when it is cut short or of no known format, size or font type.
bool ReadPclFont(std::FILE* stream, PclFont* font);

// Layout class (0, 1, 2 or 4) of the last descriptor that had a known format and size; process-wide
// state. It selects the layout of the characters that follow.
int LastPclDescriptorClass();

}  // namespace zeapi
