#include "pclxl/rebuilt_sequence.h"

#include <algorithm>

namespace zeapi::filter {

RebuiltSequence::RebuiltSequence(FilterStream* stream) : stream_(*stream) {
  std::copy_n(stream_.Ahead().begin(), kPrefixLength, prefix_.begin());
  stream_.Drop(kPrefixLength);
}

void RebuiltSequence::KeepGroup(std::size_t length, bool last) {
  WriteWaiting();
  const ByteSpan group = stream_.Ahead().first(length);
  if (last) {
    WritePrefix();
    stream_.Insert(group);
  } else {
    std::copy(group.begin(), group.end(), waiting_.begin());
    waitingLength_ = length;
  }
  stream_.Drop(length);
}

void RebuiltSequence::DropGroup(std::size_t length, bool last) {
  stream_.Drop(length);
  if (last) EndWithWaiting();
}

void RebuiltSequence::BreakOff() {
  WriteWaiting();
  if (!stream_.Ahead().empty()) WritePrefix();
}

void RebuiltSequence::WritePrefix() {
  if (!prefixWritten_) stream_.Insert(prefix_);
  prefixWritten_ = true;
}

void RebuiltSequence::WriteWaiting() {
  if (waitingLength_ == 0) return;
  WritePrefix();
  stream_.Insert(ByteSpan(waiting_).first(waitingLength_));
  waitingLength_ = 0;
}

// The letter in upper case ends the sequence.
void RebuiltSequence::EndWithWaiting() {
  if (waitingLength_ == 0) return;
  std::uint8_t& letter = waiting_[waitingLength_ - 1];
  letter = static_cast<std::uint8_t>(letter - 0x20);
  WriteWaiting();
}

}  // namespace zeapi::filter
