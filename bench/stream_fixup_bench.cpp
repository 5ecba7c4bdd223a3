// The PCL XL stream fixup of a page of 100 MiB, beside copying as many bytes through as many files
// in the same blocks: the job to "in.str" (flushed writes of 1024 bytes, as the queue makes them),
// the page to "temp.str" and from there to "out.str" (1024 bytes), the result to the output
// (flushed writes of 2048 bytes). No log is written.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/stream.h"
#include "paired.h"
#include "pclxl/stream_fixup.h"
#include "temporary_folder.h"

namespace zeapi::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPageSize = std::size_t{100} << 20;

// ReadImage with a block of 64 KiB, as drivers send pictures.
std::string ImagePiece() {
  const std::string attributes("\xC1\x00\x00\xF8\x6D\xC1\x20\x00\xF8\x63\xB1", 11);
  const std::string data("\xFA\x00\x00\x01\x00", 5);
  return attributes + data + std::string(65536, '\x42');
}

// A line of a drawing: a new path, two points, a stroke.
std::string DrawingPiece() {
  return {"\x85\xD1\x10\x00\x20\x00\xF8\x4C\x6B\xD1\x30\x00\x40\x00\xF8\x45\x9B\x86", 18};
}

std::string JobOf(const std::string& piece) {
  std::string job = "\x1B%-12345X@PJL ENTER LANGUAGE=PCLXL\n) HP-PCL XL;1;1;\n";
  job += std::string("\xD1\x58\x02\x58\x02\xF8\x89\x41\xC0\x00\xF8\x28\x43", 13);
  while (job.size() < kPageSize) job += piece;
  return job + "\x44\x42\x1B%-12345X";
}

// Copies in blocks of this size.
void Copy(const char* from, const char* to, std::size_t block, bool flush) {
  const Stream in(std::fopen(from, "rb"));
  const Stream out(std::fopen(to, "wb"));
  std::vector<char> bytes(block);
  while (const std::size_t count = std::fread(bytes.data(), 1, block, in.get())) {
    std::fwrite(bytes.data(), 1, count, out.get());
    if (flush) std::fflush(out.get());
  }
}

void CopyThroughFiles() {
  Copy("job", "copy1", 1024, true);
  Copy("copy1", "copy2", 1024, false);
  Copy("copy2", "copy3", 1024, false);
  Copy("copy3", "copy4", 2048, true);
}

Result FixUp() {
  const ZeDestination destination = {};
  GenQueContext ctx;
  ctx.destination = &destination;
  const Stream job(std::fopen("job", "rb"));
  const Result opened = GenQueOpen("output", &ctx);
  if (opened != ZE_OK) return opened;
  const Result result = StreamFixupSend(job.get(), &ctx, 0, "Page", false);
  GenQueClose(&ctx);
  return result;
}

void StreamFixup(benchmark::State& state, const std::string& piece) {
  const TemporaryFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.File(""));
  unsetenv("ZEAPI_DRIVES");
  const std::string job = JobOf(piece);
  {
    const Stream file(std::fopen("job", "wb"));
    std::fwrite(job.data(), 1, job.size(), file.get());
  }
  bool fixed = true;
  RunPaired(state, static_cast<std::int64_t>(job.size()), CopyThroughFiles, [&] {
    fixed &= FixUp() == ZE_OK;
    fixed &= fs::file_size("output") > kPageSize;
  });
  fs::current_path(before);
  if (!fixed) state.SkipWithError("the job was not fixed up");
}

BENCHMARK_CAPTURE(StreamFixup, image, ImagePiece())
    ->UseManualTime()
    ->Iterations(11)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StreamFixup, drawing, DrawingPiece())
    ->UseManualTime()
    ->Iterations(11)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
