// Names of members: the mapping with what it promises, and the choice by a pattern with its rules said
// recursively.
//
// Input: a pattern, a line; the rest is the name.

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "archive/member_name.h"
#include "archive/wildcard.h"
#include "support/input.h"
#include "support/target.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kLongest = 64;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// One place of a pattern: any run, or the characters that may stand there.
struct Place {
  bool run = false;
  std::vector<bool> takes = std::vector<bool>(256);
};

// The places of a pattern; none when a set is no good.
std::optional<std::vector<Place>> Parse(std::string_view pattern) {
  std::vector<Place> places;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    Place place;
    const char c = pattern[i];
    if (c == '*') {
      place.run = true;
    } else if (c == '?') {
      place.takes.assign(256, true);
    } else if (c != '[') {
      for (int other = 0; other < 256; ++other)
        place.takes[static_cast<std::size_t>(other)] = Lower(static_cast<char>(other)) == Lower(c);
    } else {
      ++i;
      const bool others = i < pattern.size() && (pattern[i] == '!' || pattern[i] == '^');
      if (others) ++i;
      std::vector<std::optional<char>> members;  // without a value: a "-" that makes a range
      bool closed = false;
      for (; i < pattern.size(); ++i) {
        if (pattern[i] == ']') {
          closed = true;
          break;
        }
        const bool dash = pattern[i] == '-';
        if (pattern[i] == '\\' && ++i == pattern.size()) break;
        if (dash)
          members.push_back(std::nullopt);
        else
          members.push_back(pattern[i]);
      }
      if (!closed || members.empty()) return std::nullopt;
      for (std::size_t m = 0; m < members.size(); ++m) {
        const unsigned char first = Byte(members[m].value_or('-'));
        unsigned char last = first;
        if (m + 2 < members.size() && !members[m + 1]) {
          last = Byte(members[m + 2].value_or('-'));
          m += 2;
        }
        for (int between = std::min(first, last); between <= std::max(first, last); ++between)
          place.takes[static_cast<std::size_t>(between)] = true;
      }
      if (others) place.takes.flip();
    }
    places.push_back(place);
  }
  return places;
}

bool Matches(std::string_view name, const std::vector<Place>& places) {
  // reached[n]: the places so far can take the first n characters.
  std::vector<bool> reached(name.size() + 1);
  reached[0] = true;
  for (const Place& place : places) {
    std::vector<bool> next(name.size() + 1);
    for (std::size_t n = 0; n <= name.size(); ++n) {
      if (place.run)
        next[n] = reached[n] || (n > 0 && next[n - 1]);
      else
        next[n] = n > 0 && reached[n - 1] && place.takes[Byte(name[n - 1])];
    }
    reached = next;
  }
  return reached[name.size()];
}

void CheckLocal(const LocalName& local) {
  std::string_view rest = local.folder;
  Check(rest.empty() || rest.back() == '/', "a folder ends in its separator");
  const auto checkComponent = [](std::string_view component) {
    Check(!component.empty() && component != "." && component != "..", "components are names");
    Check(component.find_first_of("/\\:") == component.npos, "no character leads elsewhere");
    Check(component.back() != '.' && component.back() != ' ', "nothing at the end is cut off");
  };
  while (!rest.empty()) {
    const std::size_t end = rest.find('/');
    checkComponent(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  if (!local.file.empty()) {
    Check(local.usable, "a file is usable");
    checkComponent(local.file);
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const std::string_view pattern = input.Line().substr(0, kLongest);
  const std::string_view stored = input.Rest().substr(0, kLongest);
  const std::string mapped = zeapi::MapMemberName(stored);
  Check(mapped.size() <= stored.size(), "a mapped name is no longer");
  const zeapi::LocalName local = zeapi::MakeLocal(mapped);
  CheckLocal(local);
  const zeapi::LocalName again = zeapi::MakeLocal(local.folder + local.file);
  Check(again.folder == local.folder && again.file == local.file && !again.dropped,
        "a harmless name stays as it is");
  const auto places = Parse(pattern);
  Check(zeapi::MatchesWildcard(mapped, pattern) == (places && Matches(mapped, *places)),
        "the pattern takes what its rules say");
  return 0;
}
