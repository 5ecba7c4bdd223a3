#include "files/checksum.h"

#include "files/fil_access.h"
#include "platform/files.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kReadBlock = 32768;
static_assert(kReadBlock % 2 == 0);

// Sums words that come in pieces of any size.
class WordSum {
 public:
  explicit WordSum(std::uint16_t skip) : skip_(skip) {}

  // Takes an even number of bytes.
  void AddWords(const std::uint8_t* bytes, std::uint32_t count) {
    // Sums of 16 bits are all that counts, and make the widest vectors of the loop.
    std::uint16_t low = 0;
    std::uint16_t high = 0;
    for (std::size_t i = 0; i < count / 2; ++i) {
      low = static_cast<std::uint16_t>(low + bytes[2 * i]);
      high = static_cast<std::uint16_t>(high + bytes[2 * i + 1]);
    }
    sum_ -= Word(low, high);
    // Word numbers are 16 bits wide, so in long files the skip comes again every 65536 words.
    if (skip_ != 0) {
      const std::size_t words = count / 2;
      for (std::size_t at = static_cast<std::uint16_t>(skip_ - words_ - 1); at < words;
           at += 65536) {
        sum_ += Word(bytes[2 * at], bytes[2 * at + 1]);
      }
    }
    words_ += count / 2;
    if (count > 0) lastHigh_ = bytes[count - 1];
  }

  // The odd byte at the end replaces the low byte of the word before and is taken with that word's
  // high byte: the checksums that are stored in files were made so.
  void AddLastByte(std::uint8_t byte) {
    ++words_;
    if (skip_ == 0 || static_cast<std::uint16_t>(words_) != skip_) sum_ -= Word(byte, lastHigh_);
  }

  std::uint16_t value() const { return static_cast<std::uint16_t>(sum_); }

 private:
  static std::uint32_t Word(std::uint32_t low, std::uint32_t high) { return low + (high << 8); }

  std::uint16_t skip_;
  std::uint32_t sum_ = 0;    // its low 16 bits count
  std::uint32_t words_ = 0;  // words so far, modulo 2^32
  std::uint8_t lastHigh_ = 0;
};

// Sums the whole file and clears the mark of its end.
std::uint16_t SumFile(FilAccess* file, std::uint16_t skip) {
  WordSum sum(skip);
  std::uint8_t block[kReadBlock];
  std::uint32_t held = 0;  // 1 when an odd byte of the last read waits for its other half
  FilSeek(file, 0, platform::SeekOrigin::kStart);
  while (const std::uint32_t count = FilRead(file, block + held, kReadBlock - held)) {
    const std::uint32_t available = held + count;
    sum.AddWords(block, available & ~1U);
    held = available & 1U;
    if (held != 0) block[0] = block[available - 1];
  }
  if (held != 0) sum.AddLastByte(block[0]);
  if (file->error == kFilEndOfFile) file->error = kFilGood;
  return sum.value();
}

}  // namespace

Result FilChecksum(const char* path, std::int32_t handle, std::uint16_t skip,
                   std::uint16_t* result) {
  FilAccess file;
  file.mode = kFilRead;
  if (path != nullptr && path[0] != '\0') {
    if (platform::QueryPath(path) != platform::PathKind::kRegularFile) return ZE_OPEN_FAILED;
    FilOpen(path, &file);
    if (file.error != kFilGood) return ZE_OPEN_FAILED;
  } else if (handle != 0) {
    file.handle = static_cast<std::uint32_t>(handle);
  } else {
    return ZE_INVALID_ARGUMENT;
  }
  *result = SumFile(&file, skip);
  // Whether the file is closed hangs on the path pointer alone: an empty path closes the caller's
  // handle too, and callers count on it.
  if (path != nullptr) FilClose(&file);
  return file.error;
}

}  // namespace zeapi
