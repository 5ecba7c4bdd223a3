#include "fonts/dlf_font.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/byte_reader.h"
#include "fonts/font_stream.h"
#include "fonts/round_tenths.h"

namespace zeapi {
namespace {

constexpr std::uint8_t kPlain = 0x01;
constexpr std::uint8_t kReferenced = 0x0A;
constexpr std::size_t kLongestName = sizeof(DlfFont::name) - 1;
constexpr std::size_t kLongestRecord = 58;

// Where a record of either form has what the library reads.
struct Form {
  std::uint8_t firstByte;
  std::size_t longest;      // bytes of the record that are read
  std::size_t shortest;     // and that must be there; the name follows
  std::size_t pointOffset;  // point size times 100
  std::size_t pitchOffset;  // what 72000 is divided by
};
constexpr Form kPlainForm = {0, 58, 34, 6, 26};
constexpr Form kReferencedForm = {1, 38, 14, 10, 10};

void ReadName(std::span<const std::uint8_t> bytes, unsigned recordLength, DlfFont* font) {
  // 36 bytes of the length are not the name's. A length that cannot be means the longest name.
  std::size_t length = recordLength < 36 ? kLongestName : recordLength - 36;
  length = std::min({length, kLongestName, bytes.size()});
  std::transform(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length), font->name,
                 [](std::uint8_t c) { return c < 0x20 ? ' ' : static_cast<char>(c); });
}

std::uint32_t NumberAt(std::span<const std::uint8_t> record, std::size_t offset) {
  ByteReader reader(record);
  reader.Seek(offset);
  return reader.U32Be();
}

// The plain form alone has a letter. Referenced proportional fonts end with the number.
struct Letter {
  char text[2];
};

Letter LetterOf(const DlfFont& font) {
  if (font.referenced && !font.fixedPitch) return {};
  return {{font.codePageLetter, '\0'}};
}

const char* RemarkOf(const DlfFont& font) { return font.referenced ? "  Referenced" : ""; }

void FormatFixed(const DlfFont& font, char* text, std::size_t size) {
  char pitch[24] = "";
  if (font.divisor != 0) {
    const Tenths value = RoundTenths(static_cast<double>(kDlfPitchUnits) / font.divisor);
    std::snprintf(pitch, sizeof(pitch), "%3u.%1u", value.whole, value.tenth);
  }
  std::snprintf(text, size, "%-26s %6s pitch%s  cp:%4u%s", font.name, pitch, RemarkOf(font),
                unsigned{font.codePage}, LetterOf(font).text);
}

void FormatProportional(const DlfFont& font, char* text, std::size_t size) {
  char label[32];
  const int nameLength = font.referenced ? 20 : 22;
  std::snprintf(label, sizeof(label), "%.*s%s", nameLength, font.name, font.ps ? " PS  " : " Typo");
  const Tenths points = RoundTenths(font.points / 100.0);
  std::snprintf(text, size, "%-26s %3u.%1u point%s  cp:%4u%s", label, points.whole, points.tenth,
                RemarkOf(font), unsigned{font.codePage}, LetterOf(font).text);
}

}  // namespace

bool ReadDlfFont(std::FILE* stream, DlfFont* font) {
  std::array<std::uint8_t, 6> startBytes;
  ByteReader start(ReadUpTo(stream, startBytes));
  const bool isDlf = start.U8() == 0x1B && start.U8() == '=';
  const std::uint16_t length = start.U16Le();
  const bool hasOne = start.U8() == '1';
  const std::uint8_t variant = start.U8();
  if (!start.ok() || !isDlf || !hasOne) return false;
  if (variant != kPlain && variant != kReferenced) return false;
  const Form& form = variant == kPlain ? kPlainForm : kReferencedForm;

  std::array<std::uint8_t, kLongestRecord> recordBytes;
  const auto record = ReadUpTo(stream, std::span(recordBytes).first(form.longest));
  if (record.size() < form.shortest || record[0] != form.firstByte) return false;
  font->referenced = variant == kReferenced;
  font->fixedPitch = (record[1] & 1) != 0;
  font->ps = (record[1] & 2) != 0;
  font->codePage = static_cast<std::uint16_t>(record[2] << 8 | record[3]);
  if (!font->referenced || !font->fixedPitch) font->points = NumberAt(record, form.pointOffset);
  if (!font->referenced || font->fixedPitch) font->divisor = NumberAt(record, form.pitchOffset);
  const unsigned letter = font->referenced ? 0U : record[30] >> 4U;
  if (letter != 0) font->codePageLetter = static_cast<char>(0x40 + letter);
  ReadName(record.subspan(form.shortest), length, font);
  return true;
}

void DescribeDlfFont(std::FILE* stream, char* description, std::size_t size) {
  description[0] = '\0';
  DlfFont font;
  if (!ReadDlfFont(stream, &font)) return;
  (font.fixedPitch ? FormatFixed : FormatProportional)(font, description, size);
}

}  // namespace zeapi
