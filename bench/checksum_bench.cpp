// The checksum of a large file, beside reading the file in the same calls and doing nothing with
// it.

#include <vector>

#include "files/checksum.h"
#include "paired.h"
#include "platform/handle_files.h"
#include "temporary_folder.h"

namespace zeapi::bench {
namespace {

constexpr std::int64_t kSize = std::int64_t{256} << 20;
constexpr std::uint32_t kBlock = 32768;  // as the checksum reads

std::int64_t ReadAll(const char* path) {
  const platform::FileHandle file = platform::HandleOpen(path, platform::FileAccess::kRead);
  std::uint8_t block[kBlock];
  std::int64_t total = 0;
  while (const std::int32_t count = platform::HandleRead(file, block, kBlock)) {
    if (count < 0) break;
    total += count;
    benchmark::DoNotOptimize(block);
  }
  platform::HandleClose(file);
  return total;
}

void Checksum(benchmark::State& state) {
  const TemporaryFolder folder;
  const std::string path = folder.File("source");
  WriteNoise(path, kSize);
  bool whole = true;
  RunPaired(
      state, kSize, [&] { whole &= ReadAll(path.c_str()) == kSize; },
      [&] {
        std::uint16_t sum = 0;
        whole &= FilChecksum(path.c_str(), 0, 0, &sum) == ZE_OK;
        benchmark::DoNotOptimize(sum);
      });
  if (!whole) state.SkipWithError("the file was not read to its end");
}
BENCHMARK(Checksum)->UseManualTime()->Iterations(31)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
