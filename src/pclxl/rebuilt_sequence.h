// A parameterised PCL sequence that loses some of its groups.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "pclxl/filter_stream.h"
#include "pclxl/pcl_sequence.h"

namespace zeapi::filter {

// Takes the groups out of the stream one by one and writes those that are kept. Each waits until it
// is known whether another follows: the last one has to end the sequence.
class RebuiltSequence {
 public:
  // Takes the prefix, which is written only if a group is.
  explicit RebuiltSequence(FilterStream* stream);

  // Takes the next `length` bytes of the stream, a group with its letter.
  void KeepGroup(std::size_t length, bool last);
  void DropGroup(std::size_t length, bool last);

  // What follows in the stream is not looked into.
  void BreakOff();

 private:
  void WritePrefix();
  void WriteWaiting();
  void EndWithWaiting();

  FilterStream& stream_;
  std::array<std::uint8_t, kPrefixLength> prefix_ = {};
  bool prefixWritten_ = false;
  std::array<std::uint8_t, FilterStream::kLookAhead> waiting_;
  std::size_t waitingLength_ = 0;
};

}  // namespace zeapi::filter
