// What an archive's directory promises.
#pragma once

#include <cstdint>
#include <string>

namespace tool {

// Files that an extraction is to make, as far as the directory can be read. Members that would be asked
// about are not counted: nobody knows the answer. The name is one that ZeZipExplode() has taken.
std::uint32_t CountFiles(const std::string& archive, const std::string& pattern);

}  // namespace tool
