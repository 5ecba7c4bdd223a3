// Named pipes that nobody writes to, where the library looks for files.
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

// Ends a test that waits for a pipe after all.
template <typename Base>
class PipeTest : public Base {
 protected:
  void SetUp() override {
    Base::SetUp();
    alarm(120);
  }
  void TearDown() override {
    alarm(0);
    Base::TearDown();
  }
};

}  // namespace zeapi::testing
