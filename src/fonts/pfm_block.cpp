#include "fonts/pfm_block.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "base/byte_reader.h"
#include "fonts/field_text.h"
#include "fonts/font_stream.h"
#include "fonts/pfm_layout.h"

namespace zeapi {
namespace {

constexpr std::size_t kZeroWordOffset = 117;  // of the layout that is 32 bytes longer than it says
constexpr std::uint32_t kLongerBy = 32;
constexpr std::uint16_t kBold = 700;
constexpr std::size_t kLongestFace = 80;

std::uint32_t U32At(std::span<const std::uint8_t> bytes, std::size_t offset) {
  ByteReader reader(bytes);
  reader.Seek(offset);
  return reader.U32Le();
}

bool IsValid(std::span<const std::uint8_t> block, std::uint32_t fileSize) {
  const std::uint32_t size = PfmSize(block);
  if (size == fileSize && FaceOffsetInRange(PfmFaceOffset(block))) return true;
  ByteReader reader(block);
  reader.Seek(kZeroWordOffset);
  return std::uint64_t{size} + kLongerBy == fileSize && reader.U16Le() == 0 && reader.ok();
}

}  // namespace

std::uint32_t PfmSize(std::span<const std::uint8_t> block) { return U32At(block, kPfmSizeOffset); }

std::uint32_t PfmFaceOffset(std::span<const std::uint8_t> block) {
  return U32At(block, kPfmFaceOffset);
}

bool FaceOffsetInRange(std::uint32_t offset) { return offset > 34 && offset < 2048; }

bool ReadPfmBlock(std::FILE* stream, PfmBlock* block) {
  const std::uint32_t fileSize = StreamSize(stream);
  if (fileSize < kPfmShortestFile) return false;
  block->room = CHeapBytes<std::uint8_t>(kPfmBlock);
  if (block->room == nullptr) return false;
  block->bytes = ReadUpTo(stream, std::span(block->room.get(), kPfmBlock));
  return IsValid(block->bytes, fileSize);
}

PfmName PfmFontName(std::span<const std::uint8_t> block) {
  PfmName name = {};
  ByteReader header(block);
  header.Seek(kPfmItalicOffset);
  const bool italic = header.U8() != 0;
  header.Seek(kPfmWeightOffset);
  const bool bold = header.U16Le() >= kBold;
  header.Seek(kPfmFaceOffset);
  header.Seek(header.U32Le());
  if (!header.ok()) return name;
  const std::string_view face = TextIn(header.Bytes(header.remaining())).substr(0, kLongestFace);
  if (face.empty()) return name;
  std::snprintf(name.text, sizeof(name.text), "%.*s%s%s", static_cast<int>(face.size()),
                face.data(), italic ? " (It)" : "", bold ? " (Bd)" : "");
  return name;
}

std::string PfmDeviceName(std::FILE* stream, std::span<const std::uint8_t> block) {
  std::array<std::uint8_t, 32> name;
  const std::uint32_t offset = U32At(block, kPfmDeviceOffset);
  if (offset == 0 || !SeekTo(stream, offset)) return {};
  return std::string(TextIn(ReadUpTo(stream, name)));
}

}  // namespace zeapi
