// Daemons run with their standard streams closed.
#pragma once

#include <unistd.h>

namespace zeapi::testing {

class ClosedInput {
 public:
  ClosedInput() : kept_(dup(STDIN_FILENO)) { close(STDIN_FILENO); }
  ~ClosedInput() {
    dup2(kept_, STDIN_FILENO);
    close(kept_);
  }
  ClosedInput(const ClosedInput&) = delete;
  ClosedInput& operator=(const ClosedInput&) = delete;

 private:
  int kept_;
};

}  // namespace zeapi::testing
