// Folders that may only be read, as a user has them in a folder of the system.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <vector>

namespace zeapi::testing {

// Why a test of them is left out.
inline constexpr char kUnbound[] = "permissions do not bind this process";

// While one lives, these folders may only be read. Permissions do not bind the superuser, whose
// process therefore steps down meanwhile.
class ReadOnly {
 public:
  ReadOnly(std::initializer_list<std::filesystem::path> folders) : folders_(folders) {
    namespace fs = std::filesystem;
    for (const fs::path& folder : folders_) {
      fs::permissions(folder, fs::perms::all ^ kWrite);
    }
    if (geteuid() == 0) steppedDown_ = seteuid(kNobody) == 0;
  }
  ~ReadOnly() {
    EXPECT_TRUE(!steppedDown_ || seteuid(0) == 0);
    for (const std::filesystem::path& folder : folders_) {
      std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    }
  }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;

  // False where the host lets the process write all the same.
  bool Binds() const {
    for (const std::filesystem::path& folder : folders_) {
      if (std::ofstream(folder / "written").is_open()) return false;
    }
    return true;
  }

 private:
  static constexpr auto kWrite = std::filesystem::perms::owner_write |
                                 std::filesystem::perms::group_write |
                                 std::filesystem::perms::others_write;
  static constexpr uid_t kNobody = 65534;

  std::vector<std::filesystem::path> folders_;
  bool steppedDown_ = false;
};

}  // namespace zeapi::testing
