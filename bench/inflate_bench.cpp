// Unpacking a corpus of the system's files in memory, beside zlib in the same blocks and libdeflate with
// whole buffers; and the CRC of as many bytes.

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <memory>

#include "archive/crc32.h"
#include "archive/inflate.h"
#include "archive_corpus.h"
#include "paired.h"
#include "temporary_folder.h"

namespace zeapi::bench {
namespace {

constexpr std::size_t kBlock = 2048;

struct Corpus {
  std::vector<PackedMember> members;
  std::int64_t size = 0;
  std::uint32_t largest = 0;
};

const Corpus& TheCorpus() {
  static const Corpus corpus = [] {
    const TemporaryFolder folder;
    Corpus made;
    const std::string archive = folder.File("corpus.zip");
    if (ZipSystemFiles(archive, folder.File("list"))) made.members = ReadPacked(archive);
    for (const PackedMember& member : made.members) {
      made.size += member.size;
      made.largest = std::max(made.largest, member.size);
    }
    return made;
  }();
  return corpus;
}

class Blocks : public BlockSource {
 public:
  explicit Blocks(std::span<const std::uint8_t> bytes) : rest_(bytes) {}
  std::span<const std::uint8_t> Next() override {
    const auto block = rest_.first(std::min(kBlock, rest_.size()));
    rest_ = rest_.subspan(block.size());
    return block;
  }

 private:
  std::span<const std::uint8_t> rest_;
};

class Count : public BlockSink {
 public:
  bool Write(std::span<const std::uint8_t> bytes) override {
    total += static_cast<std::int64_t>(bytes.size());
    benchmark::DoNotOptimize(bytes.data());
    return true;
  }
  std::int64_t total = 0;
};

std::int64_t Ours(const Corpus& corpus) {
  static std::uint8_t bytes[Window::kSize];
  Count count;
  for (const PackedMember& member : corpus.members) {
    Blocks blocks(member.packed);
    Window window(bytes, count);
    if (Inflate(blocks, window) != kArchiveOk) return -1;
  }
  return count.total;
}

std::int64_t Zlibs(const Corpus& corpus) {
  static std::uint8_t window[Window::kSize];
  std::int64_t total = 0;
  for (const PackedMember& member : corpus.members) {
    z_stream stream = {};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return -1;
    Blocks blocks(member.packed);
    int result = Z_OK;
    while (result == Z_OK) {
      const auto block = blocks.Next();
      stream.next_in = const_cast<Bytef*>(block.data());
      stream.avail_in = static_cast<uInt>(block.size());
      do {
        stream.next_out = window;
        stream.avail_out = sizeof(window);
        result = inflate(&stream, Z_NO_FLUSH);
        total += static_cast<std::int64_t>(sizeof(window) - stream.avail_out);
      } while (result == Z_OK && stream.avail_out == 0);
    }
    inflateEnd(&stream);
  }
  return total;
}

std::int64_t Libdeflates(const Corpus& corpus) {
  static std::vector<std::uint8_t> plain(corpus.largest);
  libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
  std::int64_t total = 0;
  for (const PackedMember& member : corpus.members) {
    std::size_t size = 0;
    libdeflate_deflate_decompress(decompressor, member.packed.data(), member.packed.size(),
                                  plain.data(), plain.size(), &size);
    total += static_cast<std::int64_t>(size);
  }
  libdeflate_free_decompressor(decompressor);
  return total;
}

template <std::int64_t (*peer)(const Corpus&)>
void Inflating(benchmark::State& state) {
  const Corpus& corpus = TheCorpus();
  bool whole = corpus.size > 0;
  RunPaired(
      state, corpus.size, [&] { whole &= peer(corpus) == corpus.size; },
      [&] { whole &= Ours(corpus) == corpus.size; });
  if (!whole) state.SkipWithError("the corpus was not unpacked whole");
}
BENCHMARK(Inflating<Zlibs>)
    ->Name("InflateBesideZlib")
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Inflating<Libdeflates>)
    ->Name("InflateBesideLibdeflate")
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);

// In pieces as the window gives them.
template <typename Update>
std::uint32_t InPieces(const std::vector<std::uint8_t>& bytes, std::uint32_t crc, Update update) {
  for (std::size_t at = 0; at < bytes.size(); at += Window::kSize)
    crc = update(crc, bytes.data() + at, Window::kSize);
  return crc;
}

template <bool libdeflate>
void Crc(benchmark::State& state) {
  constexpr std::size_t kSize = 64U << 20;
  std::vector<std::uint8_t> bytes(kSize);
  std::uint32_t noise = 1;
  for (std::uint8_t& byte : bytes)
    byte = static_cast<std::uint8_t>((noise = noise * 69069 + 1) >> 24);
  std::uint32_t theirs = 0;
  std::uint32_t ours = 0;
  RunPaired(
      state, kSize,
      [&] {
        theirs =
            InPieces(bytes, 0, [](std::uint32_t crc, const std::uint8_t* at, std::size_t size) {
              if constexpr (libdeflate) return libdeflate_crc32(crc, at, size);
              return static_cast<std::uint32_t>(crc32(crc, at, static_cast<uInt>(size)));
            });
      },
      [&] {
        Crc32 running;
        InPieces(bytes, 0, [&](std::uint32_t, const std::uint8_t* at, std::size_t size) {
          running.Update({at, size});
          return 0U;
        });
        ours = running.Value();
      });
  if (ours != theirs) state.SkipWithError("the sums differ");
}
BENCHMARK(Crc<false>)
    ->Name("CrcBesideZlib")
    ->UseManualTime()
    ->Iterations(31)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Crc<true>)
    ->Name("CrcBesideLibdeflate")
    ->UseManualTime()
    ->Iterations(31)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeapi::bench
