#include "temporary_folder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace zeapi::bench {

TemporaryFolder::TemporaryFolder()
    : path_(std::filesystem::temp_directory_path() / "zeapi-bench-XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::MakeDriveC() const {
  std::filesystem::create_directory(File("c"));
  setenv("ZEAPI_DRIVES", path_.c_str(), 1);
  return File("c/zeapiw32.log");
}

void WriteNoise(const std::string& path, std::int64_t size) {
  std::ofstream file(path, std::ios::binary);
  std::mt19937_64 random;
  std::array<std::uint64_t, 8192> block;
  for (std::int64_t left = size; left > 0; left -= static_cast<std::int64_t>(sizeof(block))) {
    for (std::uint64_t& word : block) word = random();
    file.write(reinterpret_cast<const char*>(block.data()),
               std::min<std::streamsize>(left, sizeof(block)));
  }
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

}  // namespace zeapi::bench
