// CRC-32 by carry-less multiplication on x86.
//
// The register and the bytes are one long polynomial, of which only the remainder counts. 128 bits of
// it can stand for what they are worth some blocks further on: their two halves, each multiplied by
// the remainder of the power of x that lies between. So the whole is folded into its last 128 bits,
// whose CRC the tables give.
#include "archive/crc32.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))

#include <immintrin.h>

namespace zeapi {
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
constexpr std::size_t kLanes = 4;

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

// At least one block for each lane.
ZEAPI_MULTIPLIES std::uint32_t FoldAll(std::uint32_t crc, std::span<const std::uint8_t> bytes) {
  const std::uint8_t* at = bytes.data();
  std::size_t left = bytes.size();
  __m128i a = _mm_xor_si128(Load(at), _mm_cvtsi32_si128(static_cast<int>(crc)));
  __m128i b = Load(at + kBlock);
  __m128i c = Load(at + 2 * kBlock);
  __m128i d = Load(at + 3 * kBlock);
  const __m128i overLanes = Load(kOverLanes);
  for (at += kLanes * kBlock, left -= kLanes * kBlock; left >= kLanes * kBlock;
       at += kLanes * kBlock, left -= kLanes * kBlock) {
    a = Fold(a, overLanes, Load(at));
    b = Fold(b, overLanes, Load(at + kBlock));
    c = Fold(c, overLanes, Load(at + 2 * kBlock));
    d = Fold(d, overLanes, Load(at + 3 * kBlock));
  }
  const __m128i overOne = Load(kOverOne);
  a = Fold(Fold(Fold(a, overOne, b), overOne, c), overOne, d);
  for (; left >= kBlock; at += kBlock, left -= kBlock) a = Fold(a, overOne, Load(at));
  std::uint8_t last[kBlock];
  _mm_storeu_si128(reinterpret_cast<__m128i*>(last), a);
  return Crc32WithTables(Crc32WithTables(0, last), {at, left});
}

}  // namespace

bool CanMultiplyWithoutCarry() {
  return __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("sse4.1") != 0;
}

std::uint32_t Crc32WithMultiply(std::uint32_t crc, std::span<const std::uint8_t> bytes) {
  if (bytes.size() < kLanes * kBlock) return Crc32WithTables(crc, bytes);
  return FoldAll(crc, bytes);
}

}  // namespace zeapi

#else

namespace zeapi {

bool CanMultiplyWithoutCarry() { return false; }

std::uint32_t Crc32WithMultiply(std::uint32_t crc, std::span<const std::uint8_t> bytes) {
  return Crc32WithTables(crc, bytes);
}

}  // namespace zeapi

#endif
