#include "support/tfm_file.h"

#include <algorithm>

#include "support/byte_order.h"

namespace zeapi::testing {

std::string TfmFile::File() const {
  const auto u16 = [this](std::uint32_t value) { return bigEndian ? Be16(value) : Le16(value); };
  const auto u32 = [this](std::uint32_t value) { return bigEndian ? Be32(value) : Le32(value); };
  const auto words = [&](const std::vector<std::uint16_t>& values) {
    std::string bytes;
    for (const std::uint16_t value : values) bytes += u16(value);
    return bytes;
  };
  struct Entry {
    std::uint16_t tag;
    std::uint16_t type;  // 1 byte, 2 text, 3 u16, 5 rational, 17 s16
    std::uint32_t count;
    std::string bytes;
  };
  const auto text = [](std::uint16_t tag, const std::string& value) {
    return Entry{tag, 2, static_cast<std::uint32_t>(value.size() + 1), value + '\0'};
  };
  const auto word = [&](std::uint16_t tag, std::uint32_t value) {
    return Entry{tag, 3, 1, u16(value)};
  };
  std::string kerning = u16(static_cast<std::uint32_t>(pairs.size()));
  for (const Pair& pair : pairs)
    kerning += u16(pair.first) + u16(pair.second) + u16(static_cast<std::uint16_t>(pair.amount));
  std::vector<Entry> entries = {
      word(400, symbolType),
      {403, 3, static_cast<std::uint32_t>(symbols.size()), words(symbols)},
      {404, 1, 14, std::string(14, '\0')},
      {408, 5, 1, u32(units) + u32(1)},
      {411, 1, 1, std::string(1, static_cast<char>(strokeWeight))},
      word(412, spacing),
      {413, 17, 1, u16(static_cast<std::uint16_t>(slant))},
      text(417, typeface),
      text(418, source),
      word(421, 2500),
      word(423, 6100),
      word(424, 4400),
      word(425, 7800),
      word(426, 2100),
      word(427, 6500),
      {428, 17, 1, u16(0xFFFF - 1999)},  // -2000
      {429, 17, 1, u16(0xFFFF - 899)},   // -900
      word(430, 400),
      {433, 3, static_cast<std::uint32_t>(escapements.size()), words(escapements)},
      {439, 1, static_cast<std::uint32_t>(kerning.size()), kerning},
      text(442, "4148"),
  };
  std::erase_if(entries, [this](const Entry& entry) {
    return std::find(without.begin(), without.end(), entry.tag) != without.end();
  });
  const std::size_t dataStart = 8 + 2 + entries.size() * 12;

  // The symbol set's name, code and rows stand first.
  unsigned last = 0;
  for (const auto& row : rows) last = std::max(last, row.first);
  std::vector<std::uint16_t> index(last + 1, 0xFFFF);
  for (const auto& [code, row] : rows) index[code] = row;
  const std::string setName = std::string("Set") + '\0';
  std::string data = setName + symbolSet + '\0';
  const auto rowsOffset = static_cast<std::uint32_t>(dataStart + data.size());
  data += words(index);
  const std::string set = u32(static_cast<std::uint32_t>(dataStart)) +
                          u32(static_cast<std::uint32_t>(dataStart + setName.size())) +
                          u32(rowsOffset) + u16(static_cast<std::uint32_t>(index.size()));

  std::string directory = u16(static_cast<std::uint32_t>(entries.size()));
  for (Entry& entry : entries) {
    if (entry.tag == 404) entry.bytes = set;
    directory += u16(entry.tag) + u16(entry.type) + u32(entry.count);
    if (entry.bytes.size() <= 4) {
      directory += entry.bytes + std::string(4 - entry.bytes.size(), '\0');
    } else {
      directory += u32(static_cast<std::uint32_t>(dataStart + data.size()));
      data += entry.bytes;
    }
  }
  return std::string(bigEndian ? "MM" : "II") + u16(0x0103) + u32(8) + directory + data;
}

}  // namespace zeapi::testing
