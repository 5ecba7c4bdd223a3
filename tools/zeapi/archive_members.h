// What an archive's directory promises.
#pragma once

#include <cstdint>
#include <string>

namespace tool {

// The file that ZeZipExplode() takes for an archive of that name, before it extracts anything.
std::string ArchivePath(const std::string& archive);

// Files that an extraction is to make, as far as the directory can be read. Members that would be asked
// about are not counted: nobody knows the answer.
std::uint32_t CountFiles(const std::string& path, const std::string& pattern);

}  // namespace tool
