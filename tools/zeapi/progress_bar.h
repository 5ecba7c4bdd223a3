// A bar for work that takes long: drawn on one line, over and over, and wiped away at the end.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>

namespace tool {

class ProgressBar {
 public:
  // Nothing is drawn before `patience` has passed, so that short work leaves no trace.
  ProgressBar(std::ostream& out, std::chrono::milliseconds patience);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Draws when the percentage is another one than before.
  void Show(std::uint32_t percent);

 private:
  std::ostream& out_;
  std::chrono::steady_clock::time_point from_;
  std::uint32_t shown_ = kNothing;

  static constexpr std::uint32_t kNothing = 101;
};

}  // namespace tool
