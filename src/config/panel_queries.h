// What a panel configuration file says about the controls and pages of a printer's panel.
#pragma once

#include <cstdint>

#include "config/ini_file.h"

namespace zeapi {

// Answers of the queries that give lists.
inline constexpr std::int16_t kOpcTooSmall = -1;  // the size needed is in the room's first word
inline constexpr std::int16_t kOpcMissing = -2;
inline constexpr std::int16_t kOpcNoMemory = -3;

// Where a query stores its list: null to ask for the bytes that it needs.
struct OpcRoom {
  void* bytes;
  std::int16_t size;
};

struct OpcSpinLimits {
  std::int32_t minimum = 0;
  std::int32_t maximum = 0;
  std::int32_t third = 0;
  bool hasThird = false;
};

// The number of the file's style; 0 when it has none.
std::int16_t OpcStyle(IniFile* file);

OpcSpinLimits OpcSpinControlLimits(IniFile* file, std::int16_t control);

// 16-bit text identifiers. Returns their number, the bytes needed for a null room, or one of the
// codes above.
std::int16_t OpcTextListing(IniFile* file, std::int16_t control, std::uint32_t subIndex,
                            const OpcRoom& room);

std::int16_t OpcMaxEditLength(IniFile* file, std::int16_t control);

// Records of 6 bytes: identifier, default value. Answers like OpcTextListing.
std::int16_t OpcPageDefaults(IniFile* file, std::int16_t page, const OpcRoom& room);

// Identifiers of 2 bytes, high byte first; as many as the file has and the room holds.
std::int16_t OpcPageOmVars(IniFile* file, std::int16_t page, const OpcRoom& room);

}  // namespace zeapi
