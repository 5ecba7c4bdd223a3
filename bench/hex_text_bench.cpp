// Expanding bytes into hexadecimal digits, beside a plain loop over a table of digits.

#include <cstring>
#include <vector>

#include "output/hex_text.h"
#include "paired.h"

namespace zeapi::bench {
namespace {

// One block of the stream sender, expanded as often as it takes for a time that can be measured.
constexpr std::size_t kBlock = 1024;
constexpr int kRounds = 20000;

void ExpandByTable(std::uint8_t* block, std::size_t count) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  for (std::size_t i = count; i-- > 0;) {
    const std::uint8_t byte = block[i];
    block[2 * i] = static_cast<std::uint8_t>(kDigits[byte >> 4]);
    block[2 * i + 1] = static_cast<std::uint8_t>(kDigits[byte & 0x0F]);
  }
}

// The digits are the next round's bytes; what they are makes no difference to either.
template <typename Expand>
void Repeat(std::vector<std::uint8_t>* block, Expand expand) {
  for (int round = 0; round < kRounds; ++round) {
    expand(block->data(), kBlock);
    benchmark::DoNotOptimize(block->data());
    benchmark::ClobberMemory();
  }
}

void HexText(benchmark::State& state) {
  std::vector<std::uint8_t> subject(2 * kBlock);
  for (std::size_t i = 0; i < kBlock; ++i) subject[i] = static_cast<std::uint8_t>(i * 37);
  std::vector<std::uint8_t> peer = subject;
  RunPaired(
      state, std::int64_t{kBlock} * kRounds, [&] { Repeat(&peer, ExpandByTable); },
      [&] { Repeat(&subject, ExpandToHex); });
  if (subject != peer) state.SkipWithError("the digits differ");
}
BENCHMARK(HexText)->UseManualTime()->Iterations(101)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
