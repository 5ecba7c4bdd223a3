#include "pclxl/filter_io.h"

#include <algorithm>
#include <cstring>

namespace zeapi::filter {

Result PushBackReader::Open(std::FILE* source) {
  if (source == nullptr) return ZE_INVALID_ARGUMENT;
  block_ = CHeapBytes<std::uint8_t>(kBlockSize);
  pushedBack_ = CHeapBytes<std::uint8_t>(kPushBackSize);
  if (block_ == nullptr || pushedBack_ == nullptr) {
    Close();
    return ZE_OUT_OF_MEMORY;
  }
  source_ = source;
  atEnd_ = failed_ = false;
  return ZE_OK;
}

void PushBackReader::Close() {
  block_.reset();
  pushedBack_.reset();
  source_ = nullptr;
  position_ = fill_ = depth_ = 0;
  atEnd_ = true;
}

// A stream that reads nothing without having come to its end has failed, even one that does not
// say so.
bool PushBackReader::Refill() {
  position_ = 0;
  fill_ = source_ == nullptr ? 0 : std::fread(block_.get(), 1, kBlockSize, source_);
  if (fill_ == kBlockSize) return true;
  if (source_ != nullptr) {
    failed_ |= std::ferror(source_) != 0 || (fill_ == 0 && std::feof(source_) == 0);
  }
  atEnd_ = fill_ == 0;
  return !atEnd_;
}

bool PushBackReader::PushBack(std::span<const std::uint8_t> bytes) {
  if (pushedBack_ == nullptr || bytes.size() > kPushBackSize - depth_) return false;
  depth_ += bytes.size();
  std::reverse_copy(bytes.begin(), bytes.end(), pushedBack_.get() + (depth_ - bytes.size()));
  if (!bytes.empty()) atEnd_ = false;
  return true;
}

std::span<const std::uint8_t> PushBackReader::AtHand() {
  if (depth_ != 0 || (position_ == fill_ && !Refill())) return {};
  return {block_.get() + position_, fill_ - position_};
}

Result BlockWriter::Open(FilterSink* sink) {
  block_ = CHeapBytes<std::uint8_t>(kBlockSize);
  sink_ = sink;
  return block_ == nullptr ? ZE_OUT_OF_MEMORY : ZE_OK;
}

void BlockWriter::Close() {
  if (fill_ != 0) Flush();
  block_.reset();
}

void BlockWriter::Flush() {
  sink_->Take({block_.get(), fill_});
  fill_ = 0;
}

// Whole blocks go straight from the caller's bytes.
void BlockWriter::Write(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    if (fill_ == 0 && bytes.size() >= kBlockSize) {
      sink_->Take(bytes.first(kBlockSize));
      bytes = bytes.subspan(kBlockSize);
      continue;
    }
    const std::size_t count = std::min(bytes.size(), kBlockSize - fill_);
    std::memcpy(block_.get() + fill_, bytes.data(), count);
    fill_ += count;
    bytes = bytes.subspan(count);
    if (fill_ == kBlockSize) Flush();
  }
}

}  // namespace zeapi::filter
