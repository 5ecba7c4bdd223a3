// The decoders of packed members, one target for all: they share bit reader, window and code tables, so
// what the engine learns of one serves the others.
//
// Input: a line with the method (0 to 8), flags, the size of the plain data, the size of the input blocks,
// and how many bytes the output takes before it fails (0: all). The rest is the packed data.
//
// The data is unpacked in two ways of cutting it into blocks, which must not show.

#include <memory>
#include <string>

#include "archive/inflate.h"
#include "archive/memory_io.h"
#include "archive/stored.h"
#include "archive/unimplode.h"
#include "archive/unreduce.h"
#include "archive/unshrink.h"
#include "support/input.h"
#include "support/target.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kMostPlain = 1U << 20;

class Output : public BlockSink {
 public:
  explicit Output(std::size_t room) : room_(room) {}
  bool Write(std::span<const std::uint8_t> bytes) override {
    Check(!failed_, "nothing is written after a failed write");
    failed_ = bytes.size() > room_ - text.size();
    if (!failed_) text.append(bytes.begin(), bytes.end());
    return !failed_;
  }
  std::string text;

 private:
  std::size_t room_;
  bool failed_ = false;
};

struct Order {
  unsigned method;
  unsigned flags;
  std::uint64_t size;
  std::size_t room;
};

struct Outcome {
  int status;
  std::string text;
  bool operator==(const Outcome&) const = default;
};

Outcome Unpack(const Order& order, std::string_view packed, std::size_t blockSize) {
  testing::MemorySource source(packed, blockSize);
  Output output(order.room);
  const std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[Window::kSize]);
  Window window(std::span<std::uint8_t, Window::kSize>(bytes.get(), Window::kSize), output);
  int status = 0;
  switch (order.method) {
    case 0: {
      std::uint8_t buffer[2048];
      CopyStored(source, order.size, buffer, output);
      break;
    }
    case 1:
      status = Unshrink(source, order.size, window);
      break;
    case 2:
    case 3:
    case 4:
    case 5:
      status = Unreduce(source, order.method - 1, order.size, window);
      break;
    case 6:
      status = Unimplode(source, {(order.flags & 4) != 0, (order.flags & 2) != 0}, packed.size(),
                         order.size, window);
      break;
    default:
      status = Inflate(source, window);
  }
  return {status, output.text};
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  Numbers numbers(input.Line());
  Order order = {};
  order.method = numbers.Below(9);
  order.flags = numbers.Below(8);
  order.size = numbers.Below(kMostPlain);
  const std::size_t blockSize = 1 + numbers.Below(2048);
  const unsigned room = numbers.Below(kMostPlain);
  order.room = room == 0 ? SIZE_MAX : room;
  const Outcome outcome = Unpack(order, input.Rest(), blockSize);
  if (order.method < 7)
    Check(outcome.text.size() <= order.size, "no more comes out than the size that is stated");
  Check(outcome == Unpack(order, input.Rest(), 2048), "the input's blocks do not show");
  return 0;
}
