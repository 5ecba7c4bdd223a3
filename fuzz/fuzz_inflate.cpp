// Deflate beside zlib: the same data is good or bad, and gives the same bytes.
//
// Input: a line with the level, strategy, window and memory of an encoder and the size of the blocks.
// The rest is taken as Deflate data, and again as data that zlib deflates.

#include <zlib.h>

#include <string>

#include "archive/inflate.h"
#include "archive/memory_io.h"
#include "support/input.h"
#include "support/target.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kMostPlain = 4U << 20;

struct Plain {
  bool good;
  std::string text;
};

Plain Ours(std::string_view packed, std::size_t blockSize) {
  testing::MemorySource source(packed, blockSize);
  testing::MemoryWindow memory(kMostPlain);
  const bool good = Inflate(source, memory.window) == kArchiveOk;
  return {good, memory.sink.text};
}

Plain Theirs(std::string_view packed) {
  z_stream stream = {};
  Check(inflateInit2(&stream, -15) == Z_OK, "zlib starts");
  std::string in(packed);
  stream.next_in = reinterpret_cast<Bytef*>(in.data());
  stream.avail_in = static_cast<uInt>(in.size());
  Plain plain = {false, {}};
  int result = Z_OK;
  while (result == Z_OK && plain.text.size() <= kMostPlain) {
    char out[32768];
    stream.next_out = reinterpret_cast<Bytef*>(out);
    stream.avail_out = sizeof(out);
    result = inflate(&stream, Z_NO_FLUSH);
    plain.text.append(out, sizeof(out) - stream.avail_out);
  }
  plain.good = result == Z_STREAM_END;
  inflateEnd(&stream);
  return plain;
}

std::string Deflated(std::string_view text, Numbers& numbers) {
  z_stream stream = {};
  const int level = static_cast<int>(numbers.Below(10));
  const int strategy = static_cast<int>(numbers.Below(5));
  const int window = 9 + static_cast<int>(numbers.Below(7));
  const int memory = 1 + static_cast<int>(numbers.Below(9));
  Check(deflateInit2(&stream, level, Z_DEFLATED, -window, memory, strategy) == Z_OK, "zlib starts");
  std::string in(text);
  // The stated bound is too low for some small windows.
  std::string packed(deflateBound(&stream, static_cast<uLong>(in.size())) + in.size() + 1000, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(in.data());
  stream.avail_in = static_cast<uInt>(in.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  Check(deflate(&stream, Z_FINISH) == Z_STREAM_END, "zlib deflates");
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  Numbers numbers(input.Line());
  const std::string_view rest = input.Rest();
  const std::string deflated = Deflated(rest, numbers);
  const std::size_t blockSize = 1 + numbers.Below(2048);
  const Plain back = Ours(deflated, blockSize);
  Check(back.good && back.text == rest, "what zlib deflates comes back");
  const Plain ours = Ours(rest, blockSize);
  const Plain theirs = Theirs(rest);
  if (theirs.text.size() > kMostPlain) return 0;
  Check(ours.good == theirs.good, "data is good or bad for both");
  if (ours.good) Check(ours.text == theirs.text, "both get the same bytes");
  return 0;
}
