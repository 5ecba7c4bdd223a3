// Archives made by `zip -6` of files that the system has, or of many small ones.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zeapi::bench {

struct PackedMember {
  std::vector<std::uint8_t> packed;  // Deflate data
  std::uint32_t size;                // of the plain data
};

// Packs texts, programs, libraries and whatever else is below /usr/share, /usr/lib and /usr/bin, at least
// 100 MiB of it, every so many-th file: always the same ones on the same system. False without zip.
bool ZipSystemFiles(const std::string& archive, const std::string& listFile);

// Packs `count` files of some hundred bytes, a hundred a folder.
bool ZipSmallFiles(const std::string& archive, const std::string& folder, int count);

// The deflated members of an archive.
std::vector<PackedMember> ReadPacked(const std::string& archive);

}  // namespace zeapi::bench
