#include "config/qsf_section.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <string>

#include "base/big_endian.h"
#include "config/text_numbers.h"
#include "config/text_pieces.h"
#include "output/hex_text.h"

namespace zeapi {
namespace {

constexpr const char* kListWords[] = {"REQUIRED", "OPTIONAL", "EXCLUDE", "ORDER"};
constexpr std::uint32_t kFirstListWithFallback = 3;

// The room for a value is that of the longest line that was loaded or added.
Result Read(IniFile* file, const std::string& section, const std::string& key,
            std::string_view* value) {
  return IniReadView(file, section.c_str(), key.c_str(), nullptr, file->longest, value);
}

Result ReadNumber(IniFile* file, const std::string& section, const std::string& key,
                  std::int32_t* number) {
  std::string_view value;
  const Result result = Read(file, section, key, &value);
  *number = DecimalAtStart(value);
  return result;
}

// Every character that is no hexadecimal digit is passed over, an "x" too.
std::uint16_t Variable(std::string_view piece) {
  std::uint32_t value = 0;
  for (const char c : piece) {
    if (const int digit = HexDigitValue(c); digit >= 0) {
      value = value << 4 | static_cast<std::uint32_t>(digit);
    }
  }
  return static_cast<std::uint16_t>(value);
}

}  // namespace

Result QsfReadSection(IniFile* file, std::uint32_t kind, std::uint8_t model,
                      CHeapPtr<std::uint8_t[]>* variables, std::uint16_t* count) {
  if (kind < 1 || kind > std::size(kListWords)) return ZE_INVALID_ARGUMENT;
  const char* word = kListWords[kind - 1];
  char modelSection[16];
  std::snprintf(modelSection, sizeof(modelSection), "%03d%s", model, word);
  std::string section = modelSection;

  std::int32_t expected = 0;
  Result result = ReadNumber(file, section, "NUMVARS", &expected);
  if (result == ZE_SECTION_NOT_FOUND && kind >= kFirstListWithFallback) {
    section = std::string("DEFAULT") + word;
    result = ReadNumber(file, section, "NUMVARS", &expected);
  }
  if (result != ZE_OK) return result;
  if (expected < 1 || expected > std::numeric_limits<std::uint16_t>::max()) return ZE_BAD_FORMAT;
  std::int32_t entries = 0;
  result = ReadNumber(file, section, "NUMENTRIES", &entries);
  if (result != ZE_OK) return result;
  if (entries < 1) return ZE_BAD_FORMAT;

  CHeapPtr<std::uint8_t[]> room = CHeapBytes<std::uint8_t>(static_cast<std::size_t>(expected) * 2);
  if (room == nullptr) return ZE_OUT_OF_MEMORY;
  std::int32_t stored = 0;
  for (std::int32_t entry = 1; entry <= entries; ++entry) {
    std::string_view rest;
    result = Read(file, section, "OMVARS" + std::to_string(entry), &rest);
    if (result != ZE_OK) return result;
    if (rest.empty()) return ZE_BAD_FORMAT;
    for (std::string_view piece; TakePiece(&rest, ' ', &piece); ++stored) {
      if (stored == expected) return ZE_BAD_FORMAT;
      const auto bytes = BigEndianBytes(Variable(piece));
      std::copy(bytes.begin(), bytes.end(), room.get() + std::ptrdiff_t{2} * stored);
    }
  }
  if (stored != expected) return ZE_BAD_FORMAT;
  *variables = std::move(room);
  *count = static_cast<std::uint16_t>(expected);
  return ZE_OK;
}

}  // namespace zeapi
