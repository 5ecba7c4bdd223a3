// Named pipes that nobody writes to, for tests that the library does not wait for them.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace zeapi::testing {

inline void MakePipe(const std::string& name) {
  std::filesystem::remove(name);
  ASSERT_EQ(mkfifo(name.c_str(), 0600), 0) << name;
}

// While one lives, a test that waits after all is ended.
class WaitLimit {
 public:
  WaitLimit() { alarm(120); }
  ~WaitLimit() { alarm(0); }
  WaitLimit(const WaitLimit&) = delete;
  WaitLimit& operator=(const WaitLimit&) = delete;
};

}  // namespace zeapi::testing
