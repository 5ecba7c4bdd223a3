#include "fonts/dlf_font.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "base/byte_reader.h"
#include "fonts/font_stream.h"
#include "fonts/round_tenths.h"

namespace zeapi {
namespace {

constexpr std::uint8_t kPlain = 0x01;
constexpr std::uint8_t kReferenced = 0x0A;
constexpr std::size_t kLongestName = 24;
constexpr std::size_t kLongestRecord = 58;

// Where a record of either form has what the description tells.
struct Form {
  std::uint8_t firstByte;
  std::size_t longest;      // bytes of the record that are read
  std::size_t shortest;     // and that must be there; the name follows
  std::size_t pointOffset;  // point size times 100
  std::size_t pitchOffset;  // what 72000 is divided by
  std::size_t proportionalNameLength;
  const char* remark;
};
constexpr Form kPlainForm = {0, 58, 34, 6, 26, 22, ""};
constexpr Form kReferencedForm = {1, 38, 14, 10, 10, 20, "  Referenced"};

struct Name {
  char text[kLongestName + 1] = {};
};

Name NameOf(std::span<const std::uint8_t> bytes, unsigned recordLength) {
  // 36 bytes of the length are not the name's. A length that cannot be means the longest name.
  std::size_t length = recordLength < 36 ? kLongestName : recordLength - 36;
  length = std::min({length, kLongestName, bytes.size()});
  Name name;
  std::transform(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length), name.text,
                 [](std::uint8_t c) { return c < 0x20 ? ' ' : static_cast<char>(c); });
  return name;
}

std::uint32_t NumberAt(std::span<const std::uint8_t> record, std::size_t offset) {
  ByteReader reader(record);
  reader.Seek(offset);
  return reader.U32Be();
}

// The code page and its letter, which only the plain form has. Referenced proportional fonts end
// with the number.
struct CodePage {
  unsigned number;
  char letter[2];
};

CodePage CodePageOf(const Form& form, bool fixedPitch, std::span<const std::uint8_t> record) {
  ByteReader reader(record);
  reader.Skip(2);
  CodePage page = {reader.U16Be(), " "};
  if (&form == &kPlainForm) {
    const unsigned letter = record[30] >> 4;
    if (letter != 0) page.letter[0] = static_cast<char>(0x40 + letter);
  } else if (!fixedPitch) {
    page.letter[0] = '\0';
  }
  return page;
}

void FormatFixed(const Form& form, const Name& name, std::span<const std::uint8_t> record,
                 const CodePage& page, char* text, std::size_t size) {
  char pitch[24] = "";
  const std::uint32_t divisor = NumberAt(record, form.pitchOffset);
  if (divisor != 0) {
    const Tenths value = RoundTenths(72000.0 / divisor);
    std::snprintf(pitch, sizeof(pitch), "%3u.%1u", value.whole, value.tenth);
  }
  std::snprintf(text, size, "%-26s %6s pitch%s  cp:%4u%s", name.text, pitch, form.remark,
                page.number, page.letter);
}

void FormatProportional(const Form& form, const Name& name, std::span<const std::uint8_t> record,
                        const CodePage& page, char* text, std::size_t size) {
  char label[32];
  std::snprintf(label, sizeof(label), "%.*s%s", static_cast<int>(form.proportionalNameLength),
                name.text, (record[1] & 2) != 0 ? " PS  " : " Typo");
  const Tenths points = RoundTenths(NumberAt(record, form.pointOffset) / 100.0);
  std::snprintf(text, size, "%-26s %3u.%1u point%s  cp:%4u%s", label, points.whole, points.tenth,
                form.remark, page.number, page.letter);
}

}  // namespace

void DescribeDlfFont(std::FILE* stream, char* description, std::size_t size) {
  description[0] = '\0';
  std::array<std::uint8_t, 6> startBytes;
  ByteReader start(ReadUpTo(stream, startBytes));
  const bool isDlf = start.U8() == 0x1B && start.U8() == '=';
  const std::uint16_t length = start.U16Le();
  const bool hasOne = start.U8() == '1';
  const std::uint8_t variant = start.U8();
  if (!start.ok() || !isDlf || !hasOne) return;
  if (variant != kPlain && variant != kReferenced) return;
  const Form& form = variant == kPlain ? kPlainForm : kReferencedForm;

  std::array<std::uint8_t, kLongestRecord> recordBytes;
  const auto record = ReadUpTo(stream, std::span(recordBytes).first(form.longest));
  if (record.size() < form.shortest || record[0] != form.firstByte) return;
  const bool fixedPitch = (record[1] & 1) != 0;
  const Name name = NameOf(record.subspan(form.shortest), length);
  const CodePage page = CodePageOf(form, fixedPitch, record);
  const auto format = fixedPitch ? FormatFixed : FormatProportional;
  format(form, name, record, page, description, size);
}

}  // namespace zeapi
