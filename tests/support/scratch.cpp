#include "support/scratch.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

fs::path MakeFolder() {
  std::random_device random;
  for (;;) {
    const fs::path folder = fs::temp_directory_path() / ("zeapi-test-" + std::to_string(random()));
    if (fs::create_directory(folder)) return folder;
  }
}

}  // namespace

std::string ScratchTest::ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

void ScratchTest::WriteFile(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(file.good()) << "cannot write " << path;
}

fs::path ScratchTest::DriveC() {
#ifdef _WIN32
  return "c:\\";
#else
  return fs::path(std::getenv("ZEAPI_DRIVES")) / "c";
#endif
}

std::string ScratchTest::OnDriveC(std::string_view name) const {
  return "c:\\" + driveFolder_ + "\\" + std::string(name);
}

fs::path ScratchTest::UnderDriveC(std::string_view name) const {
  return DriveC() / driveFolder_ / name;
}

fs::path ScratchTest::LogFile() { return DriveC() / "zeapiw32.log"; }

std::vector<std::string> ScratchTest::LogLines() {
  std::vector<std::string> lines;
  std::ifstream log(LogFile());
  for (std::string line; std::getline(log, line);) lines.push_back(line);
  return lines;
}

void ScratchTest::SetUp() {
  before_ = fs::current_path();
  folder_ = MakeFolder();
  fs::create_directory(folder_ / "work");
  fs::current_path(folder_ / "work");
#ifndef _WIN32
  fs::create_directories(folder_ / "drives" / "c");
  setenv("ZEAPI_DRIVES", (folder_ / "drives").c_str(), 1);
#endif
  driveFolder_ = folder_.filename().string();
  fs::create_directory(DriveC() / driveFolder_);
  fs::remove(LogFile());
}

void ScratchTest::TearDown() {
  fs::current_path(before_);
  fs::remove_all(DriveC() / driveFolder_);
  fs::remove(LogFile());
  fs::remove_all(folder_);
}

}  // namespace zeapi::testing
