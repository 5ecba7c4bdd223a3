// A fresh, empty folder for each test, made the current directory: the library writes fixed names
// there.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zeapi::testing {

class ScratchTest : public ::testing::Test {
 public:
  static std::string ReadFile(const std::filesystem::path& path);
  static void WriteFile(const std::filesystem::path& path, std::string_view bytes);

  // Folder of drive C as the library sees it: a folder of this test, or under Windows the real
  // drive.
  static std::filesystem::path DriveC();

  // A drive path ("c:\...") for a name inside a folder of this test alone, which exists.
  std::string OnDriveC(std::string_view name) const;
  // The same place as the test sees it.
  std::filesystem::path UnderDriveC(std::string_view name) const;

  // Lines of the debug log since the test began, without line ends.
  static std::vector<std::string> LogLines();
  static std::filesystem::path LogFile();

 protected:
  void SetUp() override;
  void TearDown() override;

  const std::filesystem::path& folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
  std::filesystem::path before_;
  std::string driveFolder_;
};

}  // namespace zeapi::testing
