#include <algorithm>
#include <cstdio>
#include <string_view>

#include "base/byte_reader.h"
#include "fonts/pcl_naming.h"

namespace zeapi {
namespace {

constexpr std::size_t kLength = 16;

// Room for the longest name before it is shortened: 16 + 4 + 4 + 5 characters.
struct LongName {
  char text[48] = {};
  std::size_t length = 0;
};

// Drops characters of a set from left to right, as many as the name is too long by.
void DropExcess(LongName* name, std::string_view characters) {
  std::size_t kept = 0;
  std::size_t excess = name->length > kLength ? name->length - kLength : 0;
  for (std::size_t i = 0; i < name->length; ++i) {
    if (excess > 0 && characters.find(name->text[i]) != std::string_view::npos) {
      --excess;
    } else {
      name->text[kept++] = name->text[i];
    }
  }
  name->length = kept;
}

bool IsBitmap(std::uint8_t headerFormat) {
  return headerFormat != 10 && headerFormat != 11 && headerFormat != 15;
}

}  // namespace

ShortName ShortFontName(const PclRawDescriptor& raw) {
  const PclDescriptor descriptor = ParsePclDescriptor(raw);
  std::string_view fontName = descriptor.name;
  fontName = fontName.substr(0, fontName.find_last_not_of(' ') + 1);
  LongName name;
  std::copy(fontName.begin(), fontName.end(), name.text);
  name.length = fontName.size();

  const auto append = [&name](const char* format, auto... arguments) {
    name.length += static_cast<std::size_t>(std::snprintf(
        name.text + name.length, sizeof(name.text) - name.length, format, arguments...));
  };
  if (IsBitmap(descriptor.headerFormat)) {
    // The height is taken with its bytes exchanged; stored names are built on that.
    ByteReader reader(raw);
    reader.Seek(18);
    append("%d%s", reader.U16Le() >> 4, StyleSuffix(descriptor).text);
  }
  append("%s", SymbolSetCode(descriptor.symbolSet).text);
  DropExcess(&name, " ,.:;");
  DropExcess(&name, "aeiouy");

  ShortName result = {};
  std::fill_n(result.text, kLength, ' ');
  std::copy_n(name.text, std::min(name.length, kLength), result.text);
  return result;
}

}  // namespace zeapi
