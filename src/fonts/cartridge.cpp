#include "fonts/cartridge.h"

#include <array>
#include <cstring>

#include "base/byte_reader.h"
#include "base/c_heap.h"
#include "fonts/font_stream.h"
#include "fonts/pfm_block.h"

namespace zeapi {
namespace {

constexpr std::size_t kNameSize = 80;
constexpr std::uint32_t kLastOffset = 0x7FFFFFFF;  // no file reaches further
constexpr int kMostFonts = 1024;  // far beyond any cartridge; bounds what a hostile file can take

struct Header {
  std::uint32_t endOffset;    // of the entries
  std::uint32_t nameOffset;   // of the cartridge name
  std::uint32_t firstOffset;  // of the first entry
};

bool ReadHeader(std::FILE* stream, Header* header) {
  std::array<std::uint8_t, 16> bytes;
  ByteReader reader(ReadUpTo(stream, bytes));
  reader.Skip(4);
  header->endOffset = reader.U32Le();
  header->nameOffset = reader.U32Le();
  header->firstOffset = reader.U32Le();
  return reader.ok();
}

// A name of `size` bytes in the C heap; null when there is no memory.
template <std::size_t size>
char* NewName(const char (&name)[size]) {
  char* copy = static_cast<char*>(std::malloc(size));
  if (copy != nullptr) std::memcpy(copy, name, size);
  return copy;
}

CartridgePtr NewCartridge(std::FILE* stream, std::uint32_t nameOffset) {
  std::array<std::uint8_t, kNameSize> bytes;
  if (!SeekTo(stream, nameOffset) || ReadUpTo(stream, bytes).size() != kNameSize) return nullptr;
  if (bytes[0] == 0) return nullptr;
  char name[kNameSize];
  std::memcpy(name, bytes.data(), kNameSize);
  name[kNameSize - 1] = '\0';
  CartridgePtr cartridge(static_cast<ZeCartridge*>(std::calloc(1, sizeof(ZeCartridge))));
  if (cartridge == nullptr) return nullptr;
  cartridge->name = NewName(name);
  return cartridge->name != nullptr ? std::move(cartridge) : nullptr;
}

// Null when there is no memory.
ZeCartridgeFont* NewFont(const PfmName& name) {
  CHeapPtr<ZeCartridgeFont> font(
      static_cast<ZeCartridgeFont*>(std::calloc(1, sizeof(ZeCartridgeFont))));
  if (font == nullptr) return nullptr;
  font->name = NewName(name.text);
  return font->name != nullptr ? font.release() : nullptr;
}

// Appends the fonts in the order of the file. False when there is no memory or a read fails.
bool ReadFonts(std::FILE* stream, const Header& header, ZeCartridge* cartridge) {
  const CHeapPtr<std::uint8_t[]> room = CHeapBytes<std::uint8_t>(kPfmBlock);
  if (room == nullptr) return false;
  ZeCartridgeFont* last = nullptr;
  std::uint32_t offset = header.firstOffset;
  for (int count = 0; offset < header.endOffset && count < kMostFonts; ++count) {
    if (offset > kLastOffset) break;
    if (!SeekTo(stream, offset)) return false;
    const auto entry = ReadUpTo(stream, std::span(room.get(), kPfmBlock));
    const PfmName name = FaceOffsetInRange(PfmFaceOffset(entry)) ? PfmFontName(entry) : PfmName{};
    if (name.text[0] != '\0') {
      ZeCartridgeFont* font = NewFont(name);
      if (font == nullptr) return false;
      (last == nullptr ? cartridge->fonts : last->next) = font;
      last = font;
    }
    const std::uint32_t size = PfmSize(entry);
    if (size == 0 || size > header.endOffset - offset) break;
    offset += size;
  }
  return std::ferror(stream) == 0;
}

}  // namespace

CartridgePtr ReadCartridge(std::FILE* stream) {
  Header header;
  if (!ReadHeader(stream, &header)) return nullptr;
  CartridgePtr cartridge = NewCartridge(stream, header.nameOffset);
  if (cartridge != nullptr && !ReadFonts(stream, header, cartridge.get())) return nullptr;
  return cartridge;
}

}  // namespace zeapi
