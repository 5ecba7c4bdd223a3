#include "archive/wildcard.h"

#include <algorithm>

#include "base/text.h"

namespace zeapi {
namespace {

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

// Reads the characters of a set that begins behind its "[".
class Set {
 public:
  explicit Set(std::string_view text) : text_(text) {}

  // Whether it has the character; false for a set that is no good. The set is read to its end.
  bool Has(char c) {
    const bool others = Skip('!') || Skip('^');
    bool has = false;
    bool any = false;
    while (at_ < text_.size() && text_[at_] != ']') {
      char first;
      if (!Character(&first)) return false;
      char last = first;
      if (IsRange()) {
        ++at_;
        if (!Character(&last)) return false;
      }
      any = true;
      has |= Byte(c) >= std::min(Byte(first), Byte(last)) &&
             Byte(c) <= std::max(Byte(first), Byte(last));
    }
    const bool good = any && Skip(']');
    return good && has != others;
  }

  std::size_t end() const { return at_; }

 private:
  bool Skip(char c) {
    const bool there = at_ < text_.size() && text_[at_] == c;
    at_ += there ? 1 : 0;
    return there;
  }

  bool Character(char* c) {
    Skip('\\');
    if (at_ == text_.size()) return false;
    *c = text_[at_++];
    return true;
  }

  // A "-" that ends the set stands for itself.
  bool IsRange() const {
    return at_ + 1 < text_.size() && text_[at_] == '-' && text_[at_ + 1] != ']';
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// Matches one character with what stands at `at` of the pattern, and moves behind that.
bool MatchOne(char c, std::string_view pattern, std::size_t* at) {
  const char p = pattern[(*at)++];
  if (p == '?') return true;
  if (p != '[') return AsciiUpper(p) == AsciiUpper(c);
  Set set(pattern.substr(*at));
  if (!set.Has(c)) return false;
  *at += set.end();
  return true;
}

}  // namespace

// After a mismatch only the last "*" need take one character more: what stood before it has matched
// already, as early as it can.
bool MatchesWildcard(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;  // behind the last "*"
  std::size_t taken = 0;                      // where in the name its run ends
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = ++p;
      taken = n;
    } else if (std::size_t next = p; p < pattern.size() && MatchOne(name[n], pattern, &next)) {
      p = next;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star;
      n = ++taken;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace zeapi
