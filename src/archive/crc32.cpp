#include "archive/crc32.h"

#include <array>

#include "base/little_endian.h"
#include "platform/crc32_fold.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;
constexpr std::size_t kStep = 16;

// kTables[n][b]: the register after byte b and n zero bytes.
constexpr std::array<std::array<std::uint32_t, 256>, kStep> MakeTables() {
  std::array<std::array<std::uint32_t, 256>, kStep> tables = {};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) value = value >> 1 ^ ((value & 1) != 0 ? kPolynomial : 0);
    tables[0][byte] = value;
  }
  for (std::size_t n = 1; n < kStep; ++n) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t before = tables[n - 1][byte];
      tables[n][byte] = before >> 8 ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}

constexpr auto kTables = MakeTables();

// What one of eight bytes, with `after` more behind the eight, adds to the register.
template <std::size_t after, unsigned place>
std::uint32_t Share(std::uint64_t bytes) {
  return kTables[after + 7 - place][static_cast<std::uint8_t>(bytes >> 8 * place)];
}

template <std::size_t after>
std::uint32_t Shares(std::uint64_t bytes) {
  return Share<after, 0>(bytes) ^ Share<after, 1>(bytes) ^ Share<after, 2>(bytes) ^
         Share<after, 3>(bytes) ^ Share<after, 4>(bytes) ^ Share<after, 5>(bytes) ^
         Share<after, 6>(bytes) ^ Share<after, 7>(bytes);
}

}  // namespace

// Sixteen bytes a step: each byte's share of the register sixteen bytes on has a table of its own.
std::uint32_t Crc32WithTables(std::uint32_t crc, std::span<const std::uint8_t> bytes) {
  for (; bytes.size() >= kStep; bytes = bytes.subspan(kStep)) {
    const std::uint64_t first = LoadLe64(bytes.data()) ^ crc;
    const std::uint64_t second = LoadLe64(bytes.data() + 8);
    crc = Shares<8>(first) ^ Shares<0>(second);
  }
  for (const std::uint8_t byte : bytes) crc = crc >> 8 ^ kTables[0][(crc ^ byte) & 0xFF];
  return crc;
}

std::uint32_t Crc32ByFolding(std::uint32_t crc, std::span<const std::uint8_t> bytes) {
  if (bytes.size() < platform::kLeastFold) return Crc32WithTables(crc, bytes);
  std::uint8_t folded[platform::kFolded];
  const std::size_t done = platform::FoldCrc32(crc, bytes, folded);
  return Crc32WithTables(Crc32WithTables(0, folded), bytes.subspan(done));
}

void Crc32::Update(std::span<const std::uint8_t> bytes) {
  static const bool kFolds = platform::CanFoldCrc32();
  register_ = kFolds ? Crc32ByFolding(register_, bytes) : Crc32WithTables(register_, bytes);
}

}  // namespace zeapi
