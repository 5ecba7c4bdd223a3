#include "progress_bar.h"

#include <algorithm>
#include <string>

#include "file_progress.h"

namespace tool {

ProgressBar::ProgressBar(std::ostream& out, std::chrono::milliseconds patience)
    : out_(out), from_(std::chrono::steady_clock::now() + patience) {}

ProgressBar::~ProgressBar() {
  if (shown_ == kNothing) return;
  out_ << '\r' << std::string(FileProgressLine(0, 100, "").size(), ' ') << '\r' << std::flush;
}

void ProgressBar::Show(std::uint32_t percent) {
  percent = std::min<std::uint32_t>(percent, 100);
  if (percent == shown_ || std::chrono::steady_clock::now() < from_) return;
  shown_ = percent;
  out_ << '\r' << FileProgressLine(percent, 100, "") << std::flush;
}

}  // namespace tool
