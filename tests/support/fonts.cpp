#include "support/fonts.h"

#include <algorithm>
#include <cstring>

#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

std::string Padded(std::string text, std::size_t size, char pad) {
  text.resize(size, pad);
  return text;
}

void Put(std::string* bytes, std::size_t offset, std::string_view part) {
  if (offset >= bytes->size()) return;
  bytes->replace(offset, std::min(part.size(), bytes->size() - offset), part, 0,
                 std::min(part.size(), bytes->size() - offset));
}

}  // namespace

std::string PclFontFile::Descriptor() const {
  std::string bytes(64, '\0');
  const auto byte = [](unsigned value) { return std::string(1, static_cast<char>(value)); };
  Put(&bytes, 0, Be16(size));
  Put(&bytes, 2, byte(headerFormat) + byte(fontType));
  Put(&bytes, 4, byte(style >> 8));
  Put(&bytes, 13, byte(spacing) + Be16(symbolSet) + Be16(pitch) + Be16(height));
  Put(&bytes, 23, byte(style & 0xFF) + byte(static_cast<std::uint8_t>(strokeWeight)));
  Put(&bytes, 25, Le16(typeface));
  Put(&bytes, 40, byte(pitchExtended) + byte(heightExtended));
  Put(&bytes, 44, Be32(std::uint32_t{vendorLetter} << 24 | fontNumber));
  Put(&bytes, 48, name.substr(0, 16));
  return bytes;
}

std::string PclFontFile::File() const { return "\x1B)s" + digits + "W" + Descriptor() + rest; }

std::string PfmFile::File() const {
  std::string bytes(length, '\0');
  Put(&bytes, 0, Bytes("\0\1"));
  Put(&bytes, 2,
      Le32(static_cast<std::uint32_t>(size < 0 ? static_cast<std::int64_t>(length) : size)));
  Put(&bytes, 80, std::string(1, static_cast<char>(italic)));
  Put(&bytes, 83, Le16(weight));
  Put(&bytes, 105, Le32(faceOffset));
  Put(&bytes, faceOffset, face);
  return bytes;
}

std::string PcmFile::File() const {
  std::string fonts;
  for (const std::string& entry : entries) fonts += entry;
  const std::size_t first = 16 + 80;
  const auto endOffset =
      static_cast<std::uint32_t>(end < 0 ? static_cast<std::int64_t>(first + fonts.size()) : end);
  return Le32(0) + Le32(endOffset) + Le32(16) + Le32(first) + Padded(name, 80, '\0') + fonts;
}

std::string DlfFile::File() const {
  std::string record(referenced ? 14 : 34, '\0');
  record[0] = referenced ? 1 : 0;
  record[1] = static_cast<char>(flags);
  Put(&record, 2, Be16(codePage));
  if (referenced) {
    Put(&record, 10, Be32((flags & 1) != 0 ? divisor : points));
  } else {
    Put(&record, 6, Be32(points));
    Put(&record, 26, Be32(divisor));
    record[30] = static_cast<char>(letter);
  }
  return "\x1B=" + Le16(length) + "1" + (referenced ? "\x0A" : "\x01") + record +
         Padded(name, 24, ' ');
}

std::string FmfFile(std::string_view name) {
  std::string bytes(184, '\0');
  Put(&bytes, 52, name);
  return bytes;
}

void FontTest::SetUp() {
  ScratchTest::SetUp();
  std::filesystem::remove(DumpFile());
}

void FontTest::TearDown() {
  FreeCartridgeByHand();
  std::filesystem::remove(DumpFile());
  ScratchTest::TearDown();
}

std::uint32_t FontTest::Query(const std::string& path, std::uint32_t option) {
  return QueryInto(path, option, 1);
}

void FontTest::WriteAfmWithInf() {
  WriteFile("font.afm",
            "FontName Test-Roman\nStartCharMetrics 1\nC 65 ; WX 700 ; N A ;\nEndCharMetrics\n"
            "EndFontMetrics\n");
  WriteFile("font.INF", "MSMenuName (Test)\n");
}

void FontTest::SetMetricsFile(std::string_view path) {
  *std::copy(path.begin(), path.end(), info.metricsFile) = '\0';
}

std::uint32_t FontTest::QueryWithoutMetricFiles(const std::string& path) {
  return QueryInto(path, 0, 0);
}

std::uint32_t FontTest::QueryInto(const std::string& path, std::uint32_t option,
                                  std::uint32_t include) {
  FreeCartridgeByHand();
  std::memset(&info, 0xFF, sizeof(info));
  return ZeFonQueryInfo(path.c_str(), &info, option, include);
}

// As a direct caller has to do it.
void FontTest::FreeCartridgeByHand() {
  if (info.cartridge == nullptr) return;
  for (ZeCartridgeFont* font = info.cartridge->fonts; font != nullptr;) {
    ZeCartridgeFont* next = font->next;
    ZeMemFree(font->name);
    ZeMemFree(font);
    font = next;
  }
  ZeMemFree(info.cartridge->name);
  ZeMemFree(info.cartridge);
  info.cartridge = nullptr;
}

::testing::AssertionResult FontTest::OnlyScreened() const {
  ZeFontInfo expected = {};
  expected.flags = ZE_FONT_STANDARD;
  expected.fileSize = info.fileSize;
  if (std::memcmp(&info, &expected, sizeof(info)) == 0) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "more than flags and size is set: flags " << info.flags;
}

::testing::AssertionResult FontTest::AllZero() const {
  const ZeFontInfo expected = {};
  if (std::memcmp(&info, &expected, sizeof(info)) == 0) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "something is set: flags " << info.flags;
}

void FontTest::ExpectOfEachBeginning(const std::string& path, const std::string& file,
                                     std::uint32_t expected, std::uint32_t option) {
  for (std::size_t length = 0; length < file.size(); ++length) {
    WriteFile(path, file.substr(0, length));
    ASSERT_EQ(Query(path, option), expected) << length << " bytes of " << file.size();
  }
}

}  // namespace zeapi::testing
