// The macro fixup from memory into memory, beside copying the same bytes in memory or scanning them
// for ESC. The pages are those of make_pages.sh, repeated to 100 MiB; $ZEAPI_BENCH_PAGES is their
// folder.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "base/stream.h"
#include "paired.h"
#include "pclxl/macro_fixup.h"

namespace zeapi::bench {
namespace {

constexpr std::size_t kSourceSize = std::size_t{100} << 20;

std::string RepeatedPage(const char* name) {
  const char* folder = std::getenv("ZEAPI_BENCH_PAGES");
  if (folder == nullptr) return {};
  std::ifstream file(std::string(folder) + "/" + name, std::ios::binary);
  const std::string page(std::istreambuf_iterator<char>(file), {});
  std::string pages;
  while (!page.empty() && pages.size() < kSourceSize) pages += page;
  return pages;
}

// A stream that reads from memory: reading a file is not the fixup's work.
struct MemorySource {
  const std::string* bytes;
  std::size_t at = 0;
};

ssize_t ReadMemory(void* cookie, char* buffer, std::size_t size) {
  auto* source = static_cast<MemorySource*>(cookie);
  const std::size_t count = std::min(size, source->bytes->size() - source->at);
  std::memcpy(buffer, source->bytes->data() + source->at, count);
  source->at += count;
  return static_cast<ssize_t>(count);
}

int SeekMemory(void* cookie, off64_t* offset, int) {
  static_cast<MemorySource*>(cookie)->at = static_cast<std::size_t>(*offset);
  return 0;
}

std::FILE* OpenMemory(MemorySource* source) {
  std::FILE* file = fopencookie(source, "rb", {ReadMemory, nullptr, SeekMemory, nullptr});
  // Blocks of the fixup go straight to where it wants them.
  std::setvbuf(file, nullptr, _IOFBF, filter::kBlockSize);
  return file;
}

// Takes each block into the next place of a memory of 64 KiB, over and over, as a printer's buffer
// does.
class MemorySink final : public filter::FilterSink {
 public:
  void Take(std::span<const std::uint8_t> block) override {
    if (at_ + block.size() > memory_.size()) at_ = 0;
    std::memcpy(memory_.data() + at_, block.data(), block.size());
    at_ += block.size();
    taken_ += block.size();
  }
  std::size_t taken() const { return taken_; }

 private:
  std::vector<std::uint8_t> memory_ = std::vector<std::uint8_t>(std::size_t{64} << 10);
  std::size_t at_ = 0;
  std::size_t taken_ = 0;
};

std::size_t CountEscapes(const std::string& pages) {
  std::size_t count = 0;
  const char* at = pages.data();
  const char* const end = at + pages.size();
  while (const void* found = std::memchr(at, '\x1B', static_cast<std::size_t>(end - at))) {
    ++count;
    at = static_cast<const char*>(found) + 1;
  }
  return count;
}

enum class Peer { kCopy, kScan };

void MacroFixup(benchmark::State& state, const char* page, std::int32_t language, Peer peer) {
  const std::string pages = RepeatedPage(page);
  if (pages.empty()) return state.SkipWithError("$ZEAPI_BENCH_PAGES has no such page");
  std::string copy(pages.size(), '\0');
  std::size_t escapes = 0;
  std::size_t kept = 0;
  RunPaired(
      state, static_cast<std::int64_t>(pages.size()),
      [&] {
        if (peer == Peer::kCopy) {
          std::memcpy(copy.data(), pages.data(), pages.size());
          benchmark::DoNotOptimize(copy.data());
        } else {
          benchmark::DoNotOptimize(escapes = CountEscapes(pages));
        }
      },
      [&] {
        MemorySource source{&pages};
        const Stream file(OpenMemory(&source));
        MemorySink sink;
        FilterMacro(file.get(), language, ZE_FIXUP_DEFAULT, nullptr, &sink);
        kept = sink.taken();
      });
  if (kept < pages.size() / 2) state.SkipWithError("most of the pages is missing");
}

void Args(benchmark::internal::Benchmark* run) {
  run->UseManualTime()->Iterations(21)->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(MacroFixup, raster_pcl, "raster.pcl", ZE_LANGUAGE_PCL, Peer::kCopy)->Apply(Args);
BENCHMARK_CAPTURE(MacroFixup, text_pcl, "text.pcl", ZE_LANGUAGE_PCL, Peer::kScan)->Apply(Args);
BENCHMARK_CAPTURE(MacroFixup, text_ps, "text.ps", ZE_LANGUAGE_POSTSCRIPT, Peer::kScan)->Apply(Args);
BENCHMARK_CAPTURE(MacroFixup, image_ps, "image.ps", ZE_LANGUAGE_POSTSCRIPT, Peer::kScan)
    ->Apply(Args);

}  // namespace
}  // namespace zeapi::bench
