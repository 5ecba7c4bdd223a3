// Loading INI files, and looking values up in them.

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "base/stream.h"
#include "paired.h"
#include "platform/files.h"
#include "temporary_folder.h"
#include "zeapi.h"

namespace zeapi::bench {
namespace {

constexpr int kSections = 1000;
constexpr int kLookUps = 100000;

std::string SectionName(int section) { return "Section " + std::to_string(section); }
std::string KeyName(int key) { return "Key number " + std::to_string(key); }

// A file of 1,000 sections of this many keys each, about 43 bytes a line.
std::int64_t WriteSections(const std::string& path, int keys) {
  const Stream file(std::fopen(path.c_str(), "wb"));
  std::int64_t size = 0;
  for (int section = 0; section < kSections; ++section) {
    size += std::fprintf(file.get(), "[%s]\n", SectionName(section).c_str());
    for (int key = 0; key < keys; ++key) {
      size += std::fprintf(file.get(), "%s=value %06d of the section\n", KeyName(key).c_str(), key);
    }
    size += std::fprintf(file.get(), "\n");
  }
  return size;
}

int KeysFor(std::int64_t mebibytes) { return static_cast<int>(mebibytes * 25); }

// The whole text into memory, as loading must.
bool ReadAsText(const std::string& path, std::int64_t size) {
  const Stream file(platform::OpenStream(path.c_str(), "r"));
  const auto text = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(size));
  const std::size_t count = std::fread(text.get(), 1, static_cast<std::size_t>(size), file.get());
  benchmark::DoNotOptimize(text.get());
  return count == static_cast<std::size_t>(size);
}

void IniLoad(benchmark::State& state) {
  const TemporaryFolder folder;
  const std::string path = folder.File("file.ini");
  const std::int64_t size = WriteSections(path, KeysFor(state.range(0)));
  bool whole = true;
  RunPaired(
      state, size, [&] { whole &= ReadAsText(path, size); },
      [&] { whole &= ZeIniClose(ZeIniOpen2(path.c_str(), ZE_INI_UPDATE)) == 1; });
  if (!whole) state.SkipWithError("a file was not read");
}
BENCHMARK(IniLoad)->Arg(1)->Arg(10)->UseManualTime()->Iterations(31)->Unit(benchmark::kMillisecond);

// A file and the names of the look-ups, spread over all its sections and keys.
class LookUps {
 public:
  LookUps(const std::string& path, std::int64_t mebibytes) {
    const int keys = KeysFor(mebibytes);
    WriteSections(path, keys);
    handle_ = ZeIniOpen(path.c_str());
    for (int i = 0; i < kLookUps; ++i) {
      sections_.push_back(SectionName(i * 7 % kSections));
      keys_.push_back(KeyName(i * 13 % keys));
    }
  }
  ~LookUps() { ZeIniClose(handle_); }
  LookUps(const LookUps&) = delete;
  LookUps& operator=(const LookUps&) = delete;

  bool Run() const {
    bool found = true;
    for (std::size_t i = 0; i < kLookUps; ++i) {
      char value[64];
      std::uint32_t count = 0;
      found &= ZeIniRead2(handle_, sections_[i].c_str(), keys_[i].c_str(), nullptr, value,
                          sizeof(value), &count) == ZE_OK;
    }
    return found;
  }

 private:
  void* handle_ = nullptr;
  std::vector<std::string> sections_;
  std::vector<std::string> keys_;
};

// Ten times the file beside the file. The first round, which makes the index, is part of neither.
void IniLookUp(benchmark::State& state) {
  const TemporaryFolder folder;
  const LookUps small(folder.File("small.ini"), 1);
  const LookUps large(folder.File("large.ini"), 10);
  bool found = small.Run() && large.Run();
  RunPaired(
      state, kLookUps, [&] { found &= small.Run(); }, [&] { found &= large.Run(); });
  if (!found) state.SkipWithError("a value was not found");
}
BENCHMARK(IniLookUp)->UseManualTime()->Iterations(31)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
