// Where things stand in a file of Windows printer font metrics, and how long they are.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zeapi {

inline constexpr std::uint32_t kPfmShortestFile = 256;
inline constexpr std::size_t kPfmCopyrightSize = 60;

inline constexpr std::size_t kPfmSizeOffset = 2;
inline constexpr std::size_t kPfmCopyrightOffset = 6;
inline constexpr std::size_t kPfmItalicOffset = 80;
inline constexpr std::size_t kPfmWeightOffset = 83;
inline constexpr std::size_t kPfmDeviceOffset = 101;
inline constexpr std::size_t kPfmFaceOffset = 105;

}  // namespace zeapi
