#include "config/name_hash.h"

#include <bit>
#include <exception>
#include <random>

#include "base/text.h"

namespace zeapi {
namespace {

// The four words that every eight bytes of the name are mixed into, named as the algorithm's authors do.
class SipState {
 public:
  explicit SipState(const HashKey& key)
      : v0_(key[0] ^ 0x736F6D6570736575),
        v1_(key[1] ^ 0x646F72616E646F6D),
        v2_(key[0] ^ 0x6C7967656E657261),
        v3_(key[1] ^ 0x7465646279746573) {}

  void Mix(std::uint64_t word) {
    v3_ ^= word;
    Rounds(2);
    v0_ ^= word;
  }

  std::uint64_t Finish() {
    v2_ ^= 0xFF;
    Rounds(4);
    return v0_ ^ v1_ ^ v2_ ^ v3_;
  }

 private:
  void Rounds(int count) {
    for (; count > 0; --count) {
      v0_ += v1_;
      v1_ = std::rotl(v1_, 13) ^ v0_;
      v0_ = std::rotl(v0_, 32);
      v2_ += v3_;
      v3_ = std::rotl(v3_, 16) ^ v2_;
      v0_ += v3_;
      v3_ = std::rotl(v3_, 21) ^ v0_;
      v2_ += v1_;
      v1_ = std::rotl(v1_, 17) ^ v2_;
      v2_ = std::rotl(v2_, 32);
    }
  }

  std::uint64_t v0_;
  std::uint64_t v1_;
  std::uint64_t v2_;
  std::uint64_t v3_;
};

HashKey RandomKey() {
  HashKey key;
  // Where a system has no random numbers to give, an address has to do.
  key.fill(reinterpret_cast<std::uintptr_t>(&key));
  try {
    std::random_device random;
    for (std::uint64_t& half : key) half = std::uint64_t{random()} << 32 | random();
  } catch (const std::exception&) {
  }
  return key;
}

}  // namespace

std::uint64_t NameHash(std::string_view name, const HashKey& key) {
  SipState state(key);
  std::uint64_t word = 0;
  unsigned shift = 0;
  for (const char c : name) {
    word |= std::uint64_t{static_cast<std::uint8_t>(AsciiUpper(c))} << shift;
    shift += 8;
    if (shift < 64) continue;
    state.Mix(word);
    word = 0;
    shift = 0;
  }
  // The last word has the length in its highest byte.
  state.Mix(word | std::uint64_t{name.size()} << 56);
  return state.Finish();
}

const HashKey& ProcessHashKey() {
  static const HashKey kKey = RandomKey();
  return kKey;
}

}  // namespace zeapi
