// Each byte has a set of up to 32 bytes that like to follow it. The sets stand first, that of byte 255
// before all others: a count of 6 bits and the bytes. Then, after a byte with an empty set, come bytes
// of 8 bits; after any other, a bit: 1 and a byte of 8 bits, or 0 and the place of the byte in the set.
//
// The bytes told so are the plain ones, but for 144, which starts a repeat: 0 is a plain 144, anything
// else holds the low bits of a length (if they are all ones, a byte follows to be added) above which
// stand those of a distance, whose low byte follows.
#include "archive/unreduce.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <new>

#include "archive/bit_reader.h"

namespace zeapi {
namespace {

constexpr std::uint8_t kMarker = 144;
constexpr unsigned kMostFollowers = 32;
constexpr unsigned kLeastLength = 3;

struct FollowerSet {
  std::uint8_t count;
  std::uint8_t indexBits;
  std::uint8_t bytes[kMostFollowers];
};

class Unreducer {
 public:
  Unreducer(BlockSource& source, unsigned factor, Window& window)
      : bits_(source), window_(window), lengthBits_(8 - factor) {}

  bool ReadSets() {
    for (unsigned byte = 256; byte-- > 0;) {
      FollowerSet& set = sets_[byte];
      set.count = static_cast<std::uint8_t>(bits_.Bits(6));
      if (!bits_.ok() || set.count > kMostFollowers) return false;
      // One follower takes a bit all the same.
      set.indexBits = static_cast<std::uint8_t>(
          std::max(1U, static_cast<unsigned>(std::bit_width(set.count - 1U))));
      for (unsigned i = 0; i < set.count; ++i)
        set.bytes[i] = static_cast<std::uint8_t>(bits_.Bits(8));
    }
    return bits_.ok();
  }

  void Run(std::uint64_t size) {
    while (window_.total() < size && window_.ok()) {
      std::uint8_t byte;
      if (!Next(&byte)) return;
      if (byte != kMarker)
        window_.Put(byte);
      else if (!Repeat(size))
        return;
    }
  }

 private:
  // The next byte of the lower layer, markers and numbers included.
  bool Next(std::uint8_t* byte) {
    const FollowerSet& set = sets_[before_];
    bits_.Refill();
    if (set.count == 0 || bits_.Take(1) != 0) {
      *byte = static_cast<std::uint8_t>(bits_.Take(8));
    } else {
      const unsigned index = bits_.Take(set.indexBits);
      if (index >= set.count) return false;
      *byte = set.bytes[index];
    }
    before_ = *byte;
    return bits_.ok();
  }

  bool Repeat(std::uint64_t size) {
    std::uint8_t value;
    if (!Next(&value)) return false;
    if (value == 0) {
      window_.Put(kMarker);
      return true;
    }
    const unsigned most = (1U << lengthBits_) - 1;
    std::size_t length = value & most;
    std::uint8_t more;
    if (length == most) {
      if (!Next(&more)) return false;
      length += more;
    }
    if (!Next(&more)) return false;
    const std::size_t distance = (std::size_t{value} >> lengthBits_) * 256 + more + 1;
    const std::uint64_t left = size - window_.total();
    window_.Copy(distance,
                 static_cast<std::size_t>(std::min<std::uint64_t>(length + kLeastLength, left)));
    return true;
  }

  BitReader bits_;
  Window& window_;
  unsigned lengthBits_;
  std::uint8_t before_ = 0;
  FollowerSet sets_[256];
};

}  // namespace

ArchiveStatus Unreduce(BlockSource& source, unsigned factor, std::uint64_t size, Window& window) {
  const std::unique_ptr<Unreducer> unreducer(new (std::nothrow) Unreducer(source, factor, window));
  if (unreducer == nullptr) return kArchiveNoMemory;
  if (unreducer->ReadSets()) unreducer->Run(size);
  window.Flush();
  return kArchiveOk;
}

}  // namespace zeapi
