#include "pclxl/filter_stream.h"

#include <cstring>

namespace zeapi::filter {

Result FilterStream::Open(std::FILE* source, FilterSink* sink) {
  std::rewind(source);
  source_ = source;
  block_ = CHeapBytes<std::uint8_t>(kLookAhead + kBlockSize);
  if (block_ == nullptr) return ZE_OUT_OF_MEMORY;
  return writer_.Open(sink);
}

Result FilterStream::Close() {
  FlushKept();
  writer_.Close();
  return failed_ ? ZE_READ_FAILED : ZE_OK;
}

// What was not looked at yet moves to the front, and blocks of the file follow it.
void FilterStream::Refill() {
  FlushKept();
  end_ -= at_;
  std::memmove(block_.get(), block_.get() + at_, end_);
  kept_ = at_ = 0;
  while (end_ < kLookAhead && !ended_) {
    const std::size_t count = std::fread(block_.get() + end_, 1, kBlockSize, source_);
    end_ += count;
    ended_ = count == 0;
  }
  // Nothing, and not the end: an error, even of a stream that does not say so.
  failed_ = ended_ && (std::ferror(source_) != 0 || std::feof(source_) == 0);
}

void FilterStream::KeepData(std::uint64_t count) {
  while (count > 0) {
    const std::size_t shown = Ahead().size();
    if (shown == 0) return;
    const auto part = static_cast<std::size_t>(std::min<std::uint64_t>(count, shown));
    Keep(part);
    count -= part;
  }
}

void FilterStream::DropData(std::uint64_t count) {
  while (count > 0) {
    const std::size_t shown = Ahead().size();
    if (shown == 0) return;
    const auto part = static_cast<std::size_t>(std::min<std::uint64_t>(count, shown));
    Drop(part);
    count -= part;
  }
}

// Of what is shown, how much belongs to the line; 0 at the end of the file.
std::size_t FilterStream::LineLength() {
  const ByteSpan ahead = Ahead();
  if (ahead.empty()) return 0;
  const void* found = std::memchr(ahead.data(), '\n', ahead.size());
  if (found == nullptr) return ahead.size();
  return static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - ahead.data()) + 1;
}

void FilterStream::KeepLine() {
  while (const std::size_t length = LineLength()) {
    Keep(length);
    if (block_[at_ - 1] == '\n') return;
  }
}

void FilterStream::DropLine() {
  while (const std::size_t length = LineLength()) {
    Drop(length);
    if (block_[at_ - 1] == '\n') return;
  }
}

}  // namespace zeapi::filter
