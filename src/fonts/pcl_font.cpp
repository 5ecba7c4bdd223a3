#include "fonts/pcl_font.h"

#include <algorithm>

#include "base/byte_reader.h"
#include "files/regular_file.h"
#include "fonts/font_stream.h"
#include "fonts/pcl_dump.h"

namespace zeapi {
namespace {

constexpr std::array<std::uint8_t, 3> kHeaderStart = {0x1B, ')', 's'};

struct Layout {
  std::uint8_t headerFormat;
  std::uint16_t descriptorSize;
  std::uint32_t format;
  int descriptorClass;
};

constexpr Layout kLayouts[] = {
    {0, 64, ZE_FONT_PCL_BITMAP, 0},      {5, 72, ZE_FONT_PCL_OLD_BITMAP, 1},
    {5, 74, ZE_FONT_PCL_OLD_BITMAP, 1},  {5, 92, ZE_FONT_PCL_OLD_BITMAP, 1},
    {9, 72, ZE_FONT_PCL_OLD_BITMAP, 2},  {9, 74, ZE_FONT_PCL_OLD_BITMAP, 2},
    {9, 92, ZE_FONT_PCL_OLD_BITMAP, 2},  {12, 72, ZE_FONT_PCL_OLD_BITMAP, 2},
    {12, 74, ZE_FONT_PCL_OLD_BITMAP, 2}, {12, 92, ZE_FONT_PCL_OLD_BITMAP, 2},
    {10, 80, ZE_FONT_PCL_BOUND, 4},      {11, 88, ZE_FONT_PCL_UNBOUND, 4},
    {15, 72, ZE_FONT_PCL_TRUETYPE, 4},   {20, 68, ZE_FONT_PCL_RESOLUTION, 4},
};

constexpr std::uint8_t kFontTypes[] = {0, 1, 2, 10, 11};

int lastDescriptorClass = 0;

// The y resolution turns heights into points, so a font that says 0 cannot be described.
bool ReadResolution(std::FILE* stream, PclFont* font) {
  std::array<std::uint8_t, 4> bytes;
  ByteReader reader(ReadUpTo(stream, bytes));
  font->xResolution = reader.U16Be();
  font->yResolution = reader.U16Be();
  return reader.ok() && font->yResolution != 0;
}

}  // namespace

bool IsScalablePcl(std::uint32_t format) {
  return format == ZE_FONT_PCL_BOUND || format == ZE_FONT_PCL_UNBOUND ||
         format == ZE_FONT_PCL_TRUETYPE;
}

bool ReadFontHeaderCommand(std::FILE* stream, FontHeaderCommand* command) {
  const std::span start = std::span(command->room).first(kHeaderStart.size());
  if (!std::ranges::equal(ReadUpTo(stream, start), kHeaderStart)) return false;
  command->length = start.size();
  while (command->length < command->room.size()) {
    const int c = std::getc(stream);
    if (c == EOF) return false;
    command->room[command->length++] = static_cast<std::uint8_t>(c);
    if (c == 'W') return true;
  }
  return false;
}

bool SkipPclHeaderCommand(std::FILE* stream, std::uint32_t* headerSize) {
  FontHeaderCommand command;
  if (!ReadFontHeaderCommand(stream, &command)) return false;
  *headerSize = 0;
  std::uint32_t size = 0;
  const auto digits =
      command.Bytes().subspan(kHeaderStart.size()).first(command.length - kHeaderStart.size() - 1);
  for (const std::uint8_t digit : digits) {
    if (digit < '0' || digit > '9') return true;
    size = size * 10 + digit - '0';
  }
  *headerSize = size;
  return true;
}

Stream OpenPclFont(const char* path) {
  Stream stream(OpenRegularFile(path, "rb"));
  FontHeaderCommand command;
  if (stream != nullptr && !ReadFontHeaderCommand(stream.get(), &command)) stream.reset();
  return stream;
}

bool ReadPclFont(std::FILE* stream, PclFont* font) {
  font->raw = {};
  const std::size_t length = ReadUpTo(stream, font->raw).size();
  DumpPclDescriptor(font->raw);
  if (length != font->raw.size()) return false;
  font->descriptor = ParsePclDescriptor(font->raw);
  const PclDescriptor& descriptor = font->descriptor;

  const auto layout =
      std::find_if(std::begin(kLayouts), std::end(kLayouts), [&](const Layout& candidate) {
        return candidate.headerFormat == descriptor.headerFormat &&
               candidate.descriptorSize == descriptor.size;
      });
  if (layout == std::end(kLayouts)) return false;
  font->format = layout->format;
  lastDescriptorClass = layout->descriptorClass;
  if (font->format == ZE_FONT_PCL_RESOLUTION && !ReadResolution(stream, font)) return false;
  return std::find(std::begin(kFontTypes), std::end(kFontTypes), descriptor.fontType) !=
         std::end(kFontTypes);
}

int LastPclDescriptorClass() { return lastDescriptorClass; }

}  // namespace zeapi
