#include "progress_bar.h"

#include <algorithm>
#include <iomanip>
#include <string>

namespace tool {
namespace {

constexpr std::uint32_t kWidth = 40;

}  // namespace

ProgressBar::ProgressBar(std::ostream& out, std::chrono::milliseconds patience)
    : out_(out), from_(std::chrono::steady_clock::now() + patience) {}

ProgressBar::~ProgressBar() {
  if (shown_ != kNothing) out_ << '\r' << std::string(kWidth + 7, ' ') << '\r' << std::flush;
}

void ProgressBar::Show(std::uint32_t percent) {
  percent = std::min<std::uint32_t>(percent, 100);
  if (percent == shown_ || std::chrono::steady_clock::now() < from_) return;
  shown_ = percent;
  const std::uint32_t done = percent * kWidth / 100;
  out_ << "\r[" << std::string(done, '#') << std::string(kWidth - done, '.') << "]" << std::setw(4)
       << percent << "%" << std::flush;
}

}  // namespace tool
