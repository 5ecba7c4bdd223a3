// Which parameters of PCL sequences a macro may not keep.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zeapi::filter {

// What becomes of one group, a value and its letter, of a sequence.
enum class Verdict : std::uint8_t {
  kKeep,
  kKeepWithData,  // the value counts data bytes behind the sequence
  kDrop
};

// The parameters of one prefix that are treated specially.
class ParameterList {
 public:
  // Adds entries separated by blanks, each an upper-case letter and "#" (drop it), "!" (it counts
  // data bytes) or a number below 32 (drop it with that value). The first entry of a letter
  // decides; of numbers, each that matches.
  void Add(std::string_view entries);

  // The verdict on a group whose letter stands in either case.
  Verdict Judge(std::uint8_t letter, std::int64_t value) const;

 private:
  enum class Kind : std::uint8_t { kNone, kDrop, kData, kValues };
  struct Rule {
    Kind kind = Kind::kNone;
    std::uint32_t values = 0;  // bit n: dropped with the value n
  };
  std::array<Rule, 32> rules_;  // by letter, from "@"
};

// The lists of one run of the filter, which depend on its options.
class ParameterLists {
 public:
  explicit ParameterLists(std::uint32_t options);

  // The list of the sequences "ESC first second"; null when they are not looked into.
  const ParameterList* Find(std::uint8_t first, std::uint8_t second) const;

 private:
  static constexpr std::size_t kPrefixes = 11;
  std::array<ParameterList, kPrefixes> lists_;
};

}  // namespace zeapi::filter
