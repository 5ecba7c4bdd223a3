// Shrink's table as it is defined, without regard to time: clearing looks at every string.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zeapi::testing {

class UnshrinkModel {
 public:
  // The string of a code, which then makes its own; none for a code that is not valid here.
  std::optional<std::string> Code(unsigned code);
  void Clear();

  bool IsFree(unsigned code) const { return parents_[code] < 0; }
  unsigned LowestFree() const;

 private:
  static constexpr unsigned kFirst = 257;
  static constexpr unsigned kEnd = 8192;

  std::optional<std::string> Known(unsigned code) const;

  std::vector<int> parents_ = std::vector<int>(kEnd, -1);
  std::vector<char> last_ = std::vector<char>(kEnd);
  unsigned end_ = kFirst;  // no string has this number or a greater one yet
  int previous_ = -1;
};

}  // namespace zeapi::testing
