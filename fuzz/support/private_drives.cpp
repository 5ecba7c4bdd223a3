#include "support/private_drives.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "support/input.h"
#include "support/target.h"

namespace fs = std::filesystem;

namespace zeapi::fuzz {

PrivateDrives::PrivateDrives(std::string_view letters) {
  std::string folder = fs::temp_directory_path() / "zeapi-fuzz-XXXXXX";
  Check(mkdtemp(folder.data()) != nullptr, "there is a temporary folder");
  root_ = folder;
  for (const char letter : letters) fs::create_directory(root_ / std::string(1, letter));
  fs::create_directory(root_ / "tmp");
  folders_ = letters.size() + 1;
  setenv("ZEAPI_DRIVES", root_.c_str(), 1);
  setenv("TMPDIR", (root_ / "tmp").c_str(), 1);
}

PrivateDrives::~PrivateDrives() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

bool PrivateDrives::NothingOutside() const { return NamesIn(root_).size() == folders_; }

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

void WriteWhole(const fs::path& file, std::string_view content) {
  std::ofstream stream(file, std::ios::binary);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
}

std::string ReadWhole(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

std::string WithoutSeparators(std::string_view name) {
  std::string safe(UpToZero(name));
  std::replace(safe.begin(), safe.end(), '/', '_');
  std::replace(safe.begin(), safe.end(), '\\', '_');
  return safe;
}

}  // namespace zeapi::fuzz
