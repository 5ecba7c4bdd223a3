#include "fonts/pcl_characters.h"

#include <algorithm>
#include <span>
#include <vector>

#include "base/byte_reader.h"
#include "fonts/font_stream.h"
#include "fonts/pcl_commands.h"
#include "fonts/truetype_segment.h"

namespace zeapi {
namespace {

constexpr std::size_t kScaleFactorOffset = 64;
constexpr std::uint8_t kBitmapFormat = 4;
constexpr std::uint8_t kIntellifontFormat = 10;
constexpr std::uint8_t kTrueTypeFormat = 15;
constexpr std::uint8_t kOutlineClass = 3;
constexpr std::uint8_t kCompoundClass = 4;

// One character block: a format, whether it continues the block before, and the rest by format.
class CharacterReader {
 public:
  CharacterReader(const PclDescriptor& descriptor, std::span<const std::uint8_t> header)
      : descriptor_(descriptor), header_(header) {}

  // False when the scalable font's header does not say what its characters need.
  bool Prepare(PclCharacters* characters) {
    characters->pitch = descriptor_.pitch + (descriptor_.pitchExtended >= 128 ? 1 : 0);
    const int descriptorClass = LastPclDescriptorClass();
    isOld_ = descriptorClass == 1 || descriptorClass == 2;
    if (isOld_ || !IsScalable()) return true;
    ByteReader reader(header_);
    reader.Seek(kScaleFactorOffset);
    characters->masterUnits = reader.U16Be();
    if (descriptor_.headerFormat == kTrueTypeFormat && !advances_.Read(header_, descriptor_.size))
      return false;
    return characters->masterUnits != 0;
  }

  // False when the block is cut short.
  bool Read(std::span<const std::uint8_t> block, std::uint16_t code,
            PclCharacters* characters) const {
    ByteReader reader(block);
    const std::uint8_t format = reader.U8();
    const bool continues = reader.U8() != 0;
    if (!reader.ok()) return false;
    if (continues) return true;
    PclCharacter character = {characters->pitch, 0, 0};
    if (isOld_) {
      // The layout is not published.
    } else if (format == kBitmapFormat && !IsScalable()) {
      ReadBitmap(&reader, &character);
    } else if (format == kIntellifontFormat && IsScalable()) {
      ReadIntellifont(&reader, &character);
    } else if (format == kTrueTypeFormat && descriptor_.headerFormat == kTrueTypeFormat) {
      ReadTrueType(&reader, &character);
    }
    if (!reader.ok()) return false;
    character.advance = std::max(character.advance, 0);
    characters->byCode[code] = character;
    return true;
  }

 private:
  bool IsScalable() const {
    return descriptor_.headerFormat == 10 || descriptor_.headerFormat == 11 ||
           descriptor_.headerFormat == 15;
  }

  void ReadBitmap(ByteReader* reader, PclCharacter* character) const {
    reader->Seek(8);
    character->top = static_cast<std::int16_t>(reader->U16Be());
    reader->Skip(2);
    character->height = reader->U16Be();
    const int advance = static_cast<std::int16_t>(reader->U16Be());
    if (descriptor_.spacing != 0) character->advance = advance;
  }

  // An outline's metric data begins with its box and the box of its escapement, each left, bottom,
  // right and top; a compound character names its escapement itself.
  static void ReadIntellifont(ByteReader* reader, PclCharacter* character) {
    constexpr std::size_t kData = 4;
    reader->Skip(1);
    const std::uint8_t characterClass = reader->U8();
    if (characterClass == kCompoundClass) {
      character->advance = static_cast<std::int16_t>(reader->U16Be());
    } else if (characterClass == kOutlineClass) {
      reader->Skip(2);
      const int metrics = static_cast<std::int16_t>(reader->U16Be());
      reader->Seek(static_cast<std::size_t>(std::max(metrics, 0)) + kData + 8);
      const int left = static_cast<std::int16_t>(reader->U16Be());
      reader->Skip(2);
      character->advance = static_cast<std::int16_t>(reader->U16Be()) - left;
    }
  }

  void ReadTrueType(ByteReader* reader, PclCharacter* character) const {
    constexpr std::size_t kDescriptor = 2;
    const std::uint8_t descriptorSize = reader->U8();
    reader->Seek(kDescriptor + descriptorSize + 2U);
    const std::uint16_t glyph = reader->U16Be();
    if (reader->ok()) character->advance = advances_.Of(glyph);
  }

  const PclDescriptor& descriptor_;
  std::span<const std::uint8_t> header_;
  TrueTypeAdvances advances_;
  bool isOld_ = false;
};

bool ReadCharacters(PclCommands* commands, CharacterReader* reader, PclCharacters* characters) {
  std::uint16_t code = 0;
  std::vector<std::uint8_t> block;
  for (PclCommand command; commands->Next(&command);) {
    if (command.Is('*', 'c', 'E')) {
      code = static_cast<std::uint16_t>(command.value);
    } else if (command.Is(')', 's', 'W')) {
      break;  // the next font
    } else if (command.Is('(', 's', 'W')) {
      if (!commands->ReadData(command, &block) || !reader->Read(block, code, characters))
        return false;
    } else if (command.HasData() && !commands->SkipData(command)) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool ReadPclSoftFont(std::FILE* stream, PclSoftFont* softFont) {
  softFont->fileSize = StreamSize(stream);
  std::uint32_t headerSize;
  if (!SkipPclHeaderCommand(stream, &headerSize)) return false;
  const auto start = static_cast<std::uint32_t>(std::ftell(stream));
  if (!ReadPclFont(stream, &softFont->font)) return false;
  const PclDescriptor& descriptor = softFont->font.descriptor;
  if (headerSize < descriptor.size || !SeekTo(stream, start)) return false;
  std::vector<std::uint8_t> header(headerSize);
  if (ReadUpTo(stream, header).size() != headerSize) return false;

  CharacterReader reader(descriptor, header);
  if (softFont->fileSize < start + headerSize) return false;
  PclCommands commands(stream, softFont->fileSize - start - headerSize);
  if (!reader.Prepare(&softFont->characters) ||
      !ReadCharacters(&commands, &reader, &softFont->characters)) {
    return false;
  }
  if (softFont->characters.byCode.empty()) return false;
  return std::ferror(stream) == 0;
}

}  // namespace zeapi
