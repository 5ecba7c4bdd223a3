// A file on its way through a filter of macros. The filter looks at what comes next and says what
// becomes of it; runs that it keeps go to the output in one piece.
//
// What it looks at lies together in memory, always far enough for the longest sequence that it
// knows, so that nothing ever has to be given back.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

#include "pclxl/filter_io.h"

namespace zeapi::filter {

using ByteSpan = std::span<const std::uint8_t>;

inline bool StartsWith(ByteSpan bytes, std::string_view text) {
  return bytes.size() >= text.size() &&
         std::equal(text.begin(), text.end(), bytes.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

inline ByteSpan BytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

class FilterStream {
 public:
  // Longest sequence that is looked at as a whole.
  static constexpr std::size_t kLookAhead = 248;

  // Starts at the beginning of the file, which stays the caller's. Returns 0 or 11.
  Result Open(std::FILE* source, FilterSink* sink);

  // Writes what is left. Returns 0, or 6 when the input ended because it could not be read.
  Result Close();

  // What comes next: at least kLookAhead bytes unless the file ends before. Empty at its end. Valid
  // until the next call of any function but Keep().
  ByteSpan Ahead() {
    if (end_ - at_ < kLookAhead && !ended_) Refill();
    return {block_.get() + at_, end_ - at_};
  }

  // Passes the next bytes on, as many as Ahead() has shown or fewer.
  void Keep(std::size_t count) { at_ += count; }

  // Leaves the next bytes out, as many as Ahead() has shown or fewer.
  void Drop(std::size_t count) {
    FlushKept();
    kept_ = at_ += count;
  }

  // Writes bytes that do not stand in the file here.
  void Insert(ByteSpan bytes) {
    FlushKept();
    writer_.Write(bytes);
  }

  // Pass on or leave out any number of bytes, or all that are left.
  void KeepData(std::uint64_t count);
  void DropData(std::uint64_t count);

  // Pass on or leave out everything through the next line feed, or all that is left.
  void KeepLine();
  void DropLine();

 private:
  void FlushKept() {
    if (at_ != kept_) writer_.Write({block_.get() + kept_, at_ - kept_});
    kept_ = at_;
  }
  void Refill();
  std::size_t LineLength();

  std::FILE* source_ = nullptr;
  CHeapPtr<std::uint8_t[]> block_;
  std::size_t kept_ = 0;  // from here to at_: passed on, not yet written
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  bool ended_ = false;
  bool failed_ = false;
  BlockWriter writer_;
};

}  // namespace zeapi::filter
