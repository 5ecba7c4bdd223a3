#include "archive/unshrink_model.h"

#include <algorithm>

namespace zeapi::testing {

unsigned UnshrinkModel::LowestFree() const {
  return static_cast<unsigned>(std::find(parents_.begin() + kFirst, parents_.end(), -1) -
                               parents_.begin());
}

std::optional<std::string> UnshrinkModel::Known(unsigned code) const {
  std::string text;
  for (; code >= kFirst; code = static_cast<unsigned>(parents_[code])) {
    if (IsFree(code) || text.size() == kEnd - 1) return std::nullopt;
    text += last_[code];
  }
  text += static_cast<char>(code);
  std::reverse(text.begin(), text.end());
  return text;
}

std::optional<std::string> UnshrinkModel::Code(unsigned code) {
  const unsigned next = LowestFree();
  std::optional<std::string> text;
  if (code < kFirst || (previous_ >= 0 && !IsFree(code))) {
    text = Known(code);
  } else if (previous_ >= 0 && code == next) {
    text = Known(static_cast<unsigned>(previous_));
    if (text) *text += text->front();
  }
  if (!text) return std::nullopt;
  if (previous_ >= 0 && next < kEnd) {
    parents_[next] = previous_;
    last_[next] = text->front();
    end_ = std::max(end_, next + 1);
  }
  previous_ = static_cast<int>(code);
  return text;
}

void UnshrinkModel::Clear() {
  std::vector<bool> isParent(kEnd);
  for (unsigned code = kFirst; code < end_; ++code) {
    if (!IsFree(code)) isParent[static_cast<unsigned>(parents_[code])] = true;
  }
  for (unsigned code = kFirst; code < end_; ++code) {
    if (!isParent[code]) parents_[code] = -1;
  }
}

}  // namespace zeapi::testing
