// CRC-32 by carry-less multiplication on x86.
//
// The register and the bytes are one long polynomial, of which only the remainder counts. 128 bits of
// it can stand for what they are worth some blocks further on: their two halves, each multiplied by
// the remainder of the power of x that lies between. So the whole is folded into its last 128 bits.
#include "platform/crc32_fold.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))

#include <immintrin.h>

namespace zeapi::platform {
namespace {

// x^power modulo the polynomial, bits reflected (x^31 lowest), as a factor: reflected products come
// out one bit too low, which the shift makes good.
constexpr std::uint64_t FoldFactor(unsigned power) {
  constexpr std::uint32_t kPolynomial = 0xEDB88320;
  std::uint32_t value = 0x80000000;  // x^0
  for (unsigned i = 0; i < power; ++i) value = value >> 1 ^ ((value & 1) != 0 ? kPolynomial : 0);
  return std::uint64_t{value} << 1;
}

constexpr std::size_t kBlock = 16;
constexpr std::size_t kLanes = 8;  // as many multiplications as can be under way at once

// The low half is worth 64 bits more than the high half; a product of 64 and 32 bits is worth 32 less
// than its width says.
struct Factors {
  std::uint64_t low;
  std::uint64_t high;
};
constexpr Factors FactorsFor(unsigned bits) {
  return {FoldFactor(bits + 32), FoldFactor(bits - 32)};
}

constexpr Factors kOverLanes = FactorsFor(8 * kBlock * kLanes);
constexpr Factors kOverOne = FactorsFor(8 * kBlock);

#define ZEAPI_MULTIPLIES __attribute__((target("pclmul,sse4.1")))

ZEAPI_MULTIPLIES inline __m128i Load(const std::uint8_t* bytes) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

ZEAPI_MULTIPLIES inline __m128i Load(const Factors& factors) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(&factors));
}

ZEAPI_MULTIPLIES inline __m128i Fold(__m128i value, __m128i factors, __m128i next) {
  const __m128i low = _mm_clmulepi64_si128(value, factors, 0x00);
  const __m128i high = _mm_clmulepi64_si128(value, factors, 0x11);
  return _mm_xor_si128(_mm_xor_si128(low, high), next);
}

}  // namespace

bool CanFoldCrc32() {
  return __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("sse4.1") != 0;
}

ZEAPI_MULTIPLIES std::size_t FoldCrc32(std::uint32_t crc, std::span<const std::uint8_t> bytes,
                                       std::uint8_t* folded) {
  constexpr std::size_t kRound = kLanes * kBlock;
  static_assert(kRound == kLeastFold && kBlock == kFolded);
  const std::uint8_t* at = bytes.data();
  std::size_t left = bytes.size();
  __m128i lanes[kLanes];
  for (std::size_t i = 0; i < kLanes; ++i) lanes[i] = Load(at + i * kBlock);
  lanes[0] = _mm_xor_si128(lanes[0], _mm_cvtsi32_si128(static_cast<int>(crc)));
  const __m128i overLanes = Load(kOverLanes);
  for (at += kRound, left -= kRound; left >= kRound; at += kRound, left -= kRound) {
    for (std::size_t i = 0; i < kLanes; ++i)
      lanes[i] = Fold(lanes[i], overLanes, Load(at + i * kBlock));
  }
  const __m128i overOne = Load(kOverOne);
  __m128i all = lanes[0];
  for (std::size_t i = 1; i < kLanes; ++i) all = Fold(all, overOne, lanes[i]);
  for (; left >= kBlock; at += kBlock, left -= kBlock) all = Fold(all, overOne, Load(at));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(folded), all);
  return bytes.size() - left;
}

}  // namespace zeapi::platform

#else

namespace zeapi::platform {

bool CanFoldCrc32() { return false; }

std::size_t FoldCrc32(std::uint32_t, std::span<const std::uint8_t>, std::uint8_t*) { return 0; }

}  // namespace zeapi::platform

#endif
