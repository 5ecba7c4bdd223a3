// Streaming a file to the file back end, beside what the contract itself costs: one flushed write
// of 2048 bytes a block, and three lines of the debug log, each of which opens and closes the log.

#include <cstdio>
#include <filesystem>

#include "base/stream.h"
#include "output/queue_log.h"
#include "output/send_stream.h"
#include "paired.h"
#include "temporary_folder.h"

namespace zeapi::bench {
namespace {

constexpr std::int64_t kSourceSize = std::int64_t{64} << 20;
constexpr std::size_t kWriteSize = 2048;

void AppendLine(const char* log, const LogEvent& event) {
  std::FILE* file = std::fopen(log, "a");
  std::fprintf(file, "%s (%u): %s\n", queue_log::kModule, event.line, event.message);
  std::fclose(file);
}

void WriteFloor(const std::string& output, const std::string& log, std::int64_t writes) {
  const Stream file(std::fopen(output.c_str(), "wb"));
  const char block[kWriteSize] = {};
  for (std::int64_t i = 0; i < writes; ++i) {
    AppendLine(log.c_str(), queue_log::kWriteEnter);
    AppendLine(log.c_str(), queue_log::kFileWrite);
    std::fwrite(block, 1, sizeof(block), file.get());
    std::fflush(file.get());
    AppendLine(log.c_str(), queue_log::kWriteLeave);
  }
}

Result Send(const std::string& source, const std::string& output, StreamEncoding encoding) {
  const ZeDestination destination = {};
  GenQueContext ctx;
  ctx.destination = &destination;
  const Stream file(std::fopen(source.c_str(), "rb"));
  const Result opened = GenQueOpen(output.c_str(), &ctx);
  if (opened != ZE_OK) return opened;
  const Result result = SendStream(file.get(), &ctx, encoding);
  GenQueClose(&ctx);
  return result;
}

void SendStreamToFile(benchmark::State& state, StreamEncoding encoding) {
  const TemporaryFolder folder;
  const std::string log = folder.MakeDriveC();
  const std::string source = folder.File("source");
  const std::string output = folder.File("output");
  const std::string floorOutput = folder.File("floor");
  WriteNoise(source, kSourceSize);
  const std::int64_t outputSize = kSourceSize * (encoding == kHexadecimal ? 2 : 1);
  const std::int64_t writes = outputSize / static_cast<std::int64_t>(kWriteSize);

  const auto startOver = [&] {
    std::filesystem::remove(log);
    std::filesystem::remove(output);
    std::filesystem::remove(floorOutput);
  };
  bool sent = true;
  RunPaired(
      state, kSourceSize,
      [&] {
        startOver();
        WriteFloor(floorOutput, log, writes);
      },
      [&] {
        startOver();
        sent &= Send(source, output, encoding) == ZE_OK;
        sent &= static_cast<std::int64_t>(std::filesystem::file_size(output)) == outputSize;
        sent &= std::filesystem::exists(log);
      });
  if (!sent) state.SkipWithError("the file did not arrive, or no log was written");
}

BENCHMARK_CAPTURE(SendStreamToFile, raw, kRawBytes)
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SendStreamToFile, hexadecimal, kHexadecimal)
    ->UseManualTime()
    ->Iterations(11)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
