// Which members of an archive are extracted, in the order in which it is asked: whether the version will do,
// whether standard input confirms what AsksFirst(), and whether the data can be unpacked.
#pragma once

#include "archive/zip_records.h"

namespace zeapi {

inline constexpr std::uint8_t kAskingHost = 2;
inline constexpr std::uint8_t kNewestVersion = 20;
inline constexpr std::uint8_t kNewestVersionOfAskingHost = 42;

inline bool AsksFirst(const CentralHeader& header) { return header.neededHost == kAskingHost; }

inline bool VersionWillDo(const CentralHeader& header) {
  return header.neededVersion <= (AsksFirst(header) ? kNewestVersionOfAskingHost : kNewestVersion);
}

inline bool IsUnpackable(const MemberFacts& facts) {
  return (facts.method <= kZipImploded || facts.method == kZipDeflated) &&
         (facts.flags & kZipEncrypted) == 0;
}

}  // namespace zeapi
