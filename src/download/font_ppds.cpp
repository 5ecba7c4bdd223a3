// Type 1 fonts for PPDS printers: the file in blocks, each behind a header of its own.
#include <algorithm>
#include <array>

#include "base/c_heap.h"
#include "base/stream.h"
#include "download/font_senders.h"
#include "files/regular_file.h"
#include "fonts/font_stream.h"
#include "output/pjl.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kBlock = 2048;
constexpr std::uint32_t kCountedOfHeader = 8;  // bytes of the header that its count includes

std::uint8_t LowByte(std::uint32_t value) { return static_cast<std::uint8_t>(value & 0xFF); }
std::uint8_t HighByte(std::uint32_t value) { return static_cast<std::uint8_t>(value >> 8 & 0xFF); }

bool WriteBlock(const std::uint8_t* block, std::uint32_t length, bool last, GenQueContext* ctx) {
  const std::uint32_t count = length + kCountedOfHeader;
  const std::uint32_t code = ctx->destination->ppdsFontCode - std::uint32_t{256};
  const std::uint32_t slot = ctx->destination->ppdsFontSlot;
  const std::uint8_t position = last ? 0x01 : 0x02;
  WriteSequence<12>(ctx, {0x1B, '=', LowByte(count), HighByte(count), 0x41, 0x01, 0x01,
                          HighByte(code), LowByte(code), HighByte(slot), LowByte(slot), position});
  if (ctx->error == ZE_OK) GenQueWrite(block, length, ctx);
  return ctx->error == ZE_OK;
}

}  // namespace

Result SendPpdsBlocks(const char* path, std::uint32_t fileSize, GenQueContext* ctx) {
  const CHeapPtr<std::uint8_t[]> block = CHeapBytes<std::uint8_t>(kBlock);
  if (block == nullptr) return ZE_OUT_OF_MEMORY;
  const Stream file(OpenRegularFile(path, "rb"));
  if (file == nullptr) return ZE_FILE_NOT_FOUND;
  // A font is never empty; the system did not tell its size.
  if (fileSize == 0) return ZE_READ_FAILED;
  if (!FontIdCommand(FontIdForm::kPpdsAlternate, ctx)) return ZE_OK;

  for (std::uint32_t remaining = fileSize; remaining != 0;) {
    const std::uint32_t length = std::min(remaining, kBlock);
    // Of a file that is shorter than it was, or cannot be read, no block is made up.
    if (std::fread(block.get(), 1, length, file.get()) != length) return ZE_READ_FAILED;
    remaining -= length;
    if (!WriteBlock(block.get(), length, remaining == 0, ctx)) return ZE_PRINTER_WRITE_FAILED;
  }
  return ZE_OK;
}

}  // namespace zeapi
