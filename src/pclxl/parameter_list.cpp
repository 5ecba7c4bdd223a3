#include "pclxl/parameter_list.h"

#include "zeapi.h"

namespace zeapi::filter {
namespace {

struct Prefix {
  std::uint8_t first;
  std::uint8_t second;
  std::string_view entries;
};

constexpr Prefix kPrefixTable[] = {
    {'&', 'l', "F# P#"}, {'&', 'a', ""},      {'&', 'b', "M#"},       {'&', 'f', "X6 X7 X10"},
    {'&', 'p', "X!"},    {'&', 'r', ""},      {'(', 'f', "W!"},       {'(', 's', "W!"},
    {')', 's', "W!"},    {'*', 'b', "W! V!"}, {'*', 'c', "W! F0 F1"},
};

struct Option {
  std::uint32_t bit;
  std::uint8_t first;
  std::uint8_t second;
  std::string_view entries;
};

constexpr Option kOptionTable[] = {
    {ZE_FIXUP_PAPER_SIZE, '&', 'l', "A#"},     {ZE_FIXUP_PAPER_SOURCE, '&', 'l', "H#"},
    {ZE_FIXUP_DUPLEX, '&', 'l', "S#"},         {ZE_FIXUP_ORIENTATION, '&', 'l', "O#"},
    {ZE_FIXUP_JOB_SEPARATION, '&', 'l', "T1"}, {ZE_FIXUP_COPIES, '&', 'l', "X#"},
    {ZE_FIXUP_PERFORATION, '&', 'l', "L#"},    {ZE_FIXUP_OUTPUT_BIN, '&', 'l', "G#"},
    {ZE_FIXUP_DUPLEX, '&', 'a', "G#"},         {ZE_FIXUP_MACRO_CONTROL, '&', 'f', "X0 X1"},
    {ZE_FIXUP_FLUSH, '&', 'r', "F#"},
};

constexpr std::size_t kNoPrefix = std::size(kPrefixTable);

constexpr std::size_t PrefixIndex(std::uint8_t first, std::uint8_t second) {
  for (std::size_t i = 0; i < std::size(kPrefixTable); ++i) {
    if (kPrefixTable[i].first == first && kPrefixTable[i].second == second) return i;
  }
  return kNoPrefix;
}

}  // namespace

void ParameterList::Add(std::string_view entries) {
  for (std::size_t at = 0; at < entries.size(); ++at) {
    Rule& rule = rules_[static_cast<std::size_t>(entries[at] - '@')];
    unsigned value = 0;
    Kind kind = Kind::kValues;
    while (++at < entries.size() && entries[at] != ' ') {
      if (entries[at] == '#') {
        kind = Kind::kDrop;
      } else if (entries[at] == '!') {
        kind = Kind::kData;
      } else {
        value = 10 * value + static_cast<unsigned>(entries[at] - '0');
      }
    }
    if (rule.kind == Kind::kNone) rule.kind = kind;
    if (rule.kind == Kind::kValues && kind == Kind::kValues) rule.values |= 1U << value;
  }
}

Verdict ParameterList::Judge(std::uint8_t letter, std::int64_t value) const {
  if (letter >= 0x60 && letter <= 0x7E) letter = static_cast<std::uint8_t>(letter - 0x20);
  if (letter < '@' || letter > '_') return Verdict::kKeep;
  const Rule& rule = rules_[static_cast<std::size_t>(letter - '@')];
  switch (rule.kind) {
    case Kind::kDrop:
      return Verdict::kDrop;
    case Kind::kData:
      return Verdict::kKeepWithData;
    case Kind::kValues: {
      const bool listed = value >= 0 && value < 32 && (rule.values >> value & 1U) != 0;
      return listed ? Verdict::kDrop : Verdict::kKeep;
    }
    case Kind::kNone:
      break;
  }
  return Verdict::kKeep;
}

ParameterLists::ParameterLists(std::uint32_t options) {
  static_assert(std::size(kPrefixTable) == kPrefixes);
  for (std::size_t i = 0; i < kPrefixes; ++i) lists_[i].Add(kPrefixTable[i].entries);
  for (const Option& option : kOptionTable) {
    if ((options & option.bit) == 0) continue;
    lists_[PrefixIndex(option.first, option.second)].Add(option.entries);
  }
}

const ParameterList* ParameterLists::Find(std::uint8_t first, std::uint8_t second) const {
  const std::size_t index = PrefixIndex(first, second);
  return index == kNoPrefix ? nullptr : &lists_[index];
}

}  // namespace zeapi::filter
