#include "pclxl/job_control.h"

#include <array>
#include <cstring>
#include <string_view>

namespace zeapi {
namespace {

constexpr std::uint8_t kEscape = 0x1B;
constexpr std::string_view kAfterEscape = "%-12345X";
constexpr std::string_view kAfterAt = "PJL";

// Bytes that were read to look ahead.
class LookAhead {
 public:
  explicit LookAhead(filter::PushBackReader* reader) : reader_(reader) {}

  // Reads up to `count` more bytes, fewer at the end of the input.
  void Read(std::size_t count) {
    for (; count != 0; --count) {
      const std::uint8_t byte = reader_->Read();
      if (reader_->AtEnd()) return;
      bytes_[size_++] = byte;
    }
  }
  void GiveBack() { reader_->PushBack(std::span(bytes_).first(size_)); }

  std::string_view text() const { return {reinterpret_cast<const char*>(bytes_.data()), size_}; }

 private:
  filter::PushBackReader* reader_;
  std::array<std::uint8_t, 8> bytes_ = {};
  std::size_t size_ = 0;
};

// Looks at what follows an escape. True for a universal exit, which is then read; otherwise nothing
// is.
bool TakeUniversalExit(filter::PushBackReader* reader) {
  LookAhead ahead(reader);
  ahead.Read(1);
  if (ahead.text() == "%") {
    ahead.Read(kAfterEscape.size() - 1);
    if (kAfterEscape.starts_with(ahead.text())) return true;
  }
  ahead.GiveBack();
  return false;
}

// Looks at what follows an "@". True for a line of job control, which is then read.
bool TakePjlLine(filter::PushBackReader* reader) {
  LookAhead ahead(reader);
  ahead.Read(kAfterAt.size());
  if (ahead.text() != kAfterAt) {
    ahead.GiveBack();
    return false;
  }
  while (reader->Read() != '\n') {
    if (reader->AtEnd()) break;
  }
  return true;
}

// How many bytes stand before the first that is `byte`; all, when none is.
std::size_t CountBefore(std::uint8_t byte, std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return 0;
  const void* const found = std::memchr(bytes.data(), byte, bytes.size());
  if (found == nullptr) return bytes.size();
  return static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - bytes.data());
}

// How many bytes stand before the first `start` that `next` follows, or nothing at hand.
std::size_t CountBefore(std::uint8_t start, std::uint8_t next,
                        std::span<const std::uint8_t> bytes) {
  std::size_t count = CountBefore(start, bytes);
  while (count + 1 < bytes.size() && bytes[count + 1] != next)
    count += 1 + CountBefore(start, bytes.subspan(count + 1));
  return count;
}

// Copies what is at hand up to the next byte that may begin job control.
void CopyPlainBytes(filter::PushBackReader* reader, filter::BlockWriter* writer) {
  const std::span<const std::uint8_t> bytes = reader->AtHand();
  std::size_t count = CountBefore('@', 'P', bytes);
  count = CountBefore(kEscape, '%', bytes.first(count));
  const auto plain = bytes.first(count);
  writer->Write(plain);
  reader->Skip(plain.size());
}

void SkipPrefix(filter::PushBackReader* reader) {
  LookAhead first(reader);
  first.Read(1);
  if (first.text() == std::string_view("\0", 1)) {
    first.Read(3);
  } else {
    first.GiveBack();
  }
}

}  // namespace

void StripJobControl(filter::PushBackReader* reader, filter::BlockWriter* writer) {
  SkipPrefix(reader);
  while (!reader->AtEnd()) {
    CopyPlainBytes(reader, writer);
    const std::uint8_t byte = reader->Read();
    if (reader->AtEnd()) break;
    if (byte == kEscape && TakeUniversalExit(reader)) continue;
    if (byte == '@' && TakePjlLine(reader)) continue;
    writer->Write(byte);
  }
}

}  // namespace zeapi
