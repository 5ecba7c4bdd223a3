// Counting the records of a keyed data file, beside reading the file line by line.

#include <cstdio>
#include <string>

#include "base/stream.h"
#include "paired.h"
#include "platform/files.h"
#include "temporary_folder.h"
#include "zeapi.h"

namespace zeapi::bench {
namespace {

constexpr int kRecords = 100000;

std::int64_t WriteRecords(const std::string& path) {
  const Stream file(std::fopen(path.c_str(), "wb"));
  std::int64_t size = 0;
  for (int i = 0; i < kRecords; ++i) {
    size += std::fprintf(file.get(),
                         "\"%c%04d\",\"Setting number %d of the printer\",\"PCL\",\"1B266C%04dC\","
                         "\"%%d\",%d,%d.5,0.25,\"P\"\n",
                         "AFGPST"[i % 6], i % 10000, i, i % 10000, i % 100, i % 1000);
  }
  return size;
}

int CountLines(const std::string& path) {
  const Stream file(platform::OpenStream(path.c_str(), "r"));
  char line[1024];
  int lines = 0;
  while (std::fgets(line, sizeof(line), file.get()) != nullptr) ++lines;
  return lines;
}

void DataCounts(benchmark::State& state) {
  const TemporaryFolder folder;
  const std::string path = folder.File("data.txt");
  const std::int64_t size = WriteRecords(path);
  bool whole = true;
  RunPaired(
      state, size, [&] { whole &= CountLines(path) == kRecords; },
      [&] {
        ZeDatCounts counts;
        whole &= ZeDatQueryCounts(path.c_str(), &counts, ZE_DAT_READ) == ZE_DAT_OK;
        whole &= counts.first[0] == (kRecords + 5) / 6;
      });
  if (!whole) state.SkipWithError("the file was not read to its end");
}
BENCHMARK(DataCounts)->UseManualTime()->Iterations(31)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
