#include "output/send_stream.h"

#include "base/c_heap.h"
#include "output/hex_text.h"

namespace zeapi {
namespace {

constexpr std::size_t kBlock = 2048;

}  // namespace

Result SendStream(std::FILE* file, GenQueContext* ctx, StreamEncoding encoding) {
  const CHeapPtr<std::uint8_t[]> block = CHeapBytes<std::uint8_t>(kBlock);
  if (block == nullptr) return ZE_OUT_OF_MEMORY;
  if (encoding != kRawBytes && encoding != kHexadecimal) return ZE_UNSUPPORTED;

  const bool expand = encoding == kHexadecimal;
  while (std::feof(file) == 0) {
    std::size_t count = std::fread(block.get(), 1, expand ? kBlock / 2 : kBlock, file);
    // Nothing, and not the end: an error, even of a stream that does not say so.
    if (count == 0 && (std::ferror(file) != 0 || std::feof(file) == 0)) return ZE_READ_FAILED;
    if (expand) {
      ExpandToHex(block.get(), count);
      count *= 2;
    }
    GenQueWrite(block.get(), static_cast<std::uint32_t>(count), ctx);
    if (ctx->error != ZE_OK) break;
  }
  return ctx->error;
}

}  // namespace zeapi
