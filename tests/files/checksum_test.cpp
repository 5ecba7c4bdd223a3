#include "files/checksum.h"

#include "platform/handle_files.h"
#include "support/byte_order.h"
#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

constexpr std::uint16_t kUntouched = 0x1234;

// The rule as it stands: two bytes at a time into a word that keeps its high byte.
std::uint16_t TwoBytesAtATime(std::string_view bytes, std::uint16_t skip) {
  std::uint16_t sum = 0;
  std::uint16_t counter = 0;
  std::uint8_t low = 0;
  std::uint8_t high = 0;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    low = static_cast<std::uint8_t>(bytes[i]);
    if (i + 1 < bytes.size()) high = static_cast<std::uint8_t>(bytes[i + 1]);
    ++counter;
    if (skip == 0 || skip != counter) sum = static_cast<std::uint16_t>(sum - (high << 8 | low));
  }
  return sum;
}

std::string Pattern(std::size_t size) {
  std::string bytes(size, '\0');
  std::uint32_t state = 1;
  for (char& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

class ChecksumTest : public ScratchTest {
 protected:
  std::uint16_t Checksum(std::string_view bytes, std::uint32_t skip = 0) {
    WriteFile("data", bytes);
    std::uint16_t result = kUntouched;
    EXPECT_EQ(ZeFilChecksum("data", 0, skip, &result), ZE_OK);
    return result;
  }
};

TEST_F(ChecksumTest, NegatedSumOfTheWords) {
  EXPECT_EQ(Checksum(Bytes("\1\0\2\0")), 65533);
  EXPECT_EQ(Checksum(Bytes("\1\0\2\0"), 2), 65535);
  EXPECT_EQ(Checksum(Bytes("\1\0\2\0"), 1), 65534);
  EXPECT_EQ(Checksum(Bytes("\1\0\2\0"), 3), 65533);
  EXPECT_EQ(Checksum(""), 0);
}

TEST_F(ChecksumTest, KeepsTheHighByteOfTheWordBeforeForAnOddLastByte) {
  EXPECT_EQ(Checksum(Bytes("\x01\x02\x03")), static_cast<std::uint16_t>(-(0x0201 + 0x0203)));
  EXPECT_EQ(Checksum(Bytes("\x01\x02\x03"), 2), static_cast<std::uint16_t>(-0x0201));
  EXPECT_EQ(Checksum(Bytes("\x01\x02\x03"), 1), static_cast<std::uint16_t>(-0x0203));
}

TEST_F(ChecksumTest, HighByteOfASingleByteIsZero) {
  EXPECT_EQ(Checksum("\x05"), 65531);
  EXPECT_EQ(Checksum("\x05", 1), 0);
}

TEST_F(ChecksumTest, AnyLengthFollowsTheRule) {
  for (const std::size_t size :
       {2U, 3U, 255U, 4095U, 32767U, 32768U, 32769U, 65535U, 65536U, 65537U, 200001U}) {
    const std::string bytes = Pattern(size);
    for (const std::uint16_t skip :
         std::initializer_list<std::uint16_t>{0, 1, 2, 100, 16384, 16385, 32768}) {
      EXPECT_EQ(Checksum(bytes, skip), TwoBytesAtATime(bytes, skip)) << size << ' ' << skip;
    }
  }
}

TEST_F(ChecksumTest, KeepsSkippingEvery65536WordsInLongFiles) {
  const std::string bytes = Pattern(3 * 131072 + 5);
  for (const std::uint16_t skip : std::initializer_list<std::uint16_t>{1, 2, 3, 65535}) {
    EXPECT_EQ(Checksum(bytes, skip), TwoBytesAtATime(bytes, skip)) << skip;
  }
}

TEST_F(ChecksumTest, SkipIsA16BitValue) {
  EXPECT_EQ(Checksum(Bytes("\1\0\2\0"), 0x10000), 65533);
  EXPECT_EQ(Checksum(Bytes("\1\0\2\0"), 0x10002), 65535);
}

TEST_F(ChecksumTest, MissingFileGivesOpenFailedAndLeavesTheResult) {
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum("missing", 0, 0, &result), ZE_OPEN_FAILED);
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeFilChecksum("folder", 0, 0, &result), ZE_OPEN_FAILED);
  EXPECT_EQ(result, kUntouched);
}

TEST_F(ChecksumTest, NeitherPathNorHandleIsInvalidAndLeavesTheResult) {
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum(nullptr, 0, 0, &result), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeFilChecksum("", 0, 0, &result), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(result, kUntouched);
}

TEST_F(ChecksumTest, NullResultIsInvalid) {
  WriteFile("data", "x");
  EXPECT_EQ(ZeFilChecksum("data", 0, 0, nullptr), ZE_INVALID_ARGUMENT);
}

TEST_F(ChecksumTest, HandleIsReadFromItsStartAndLeftOpen) {
  WriteFile("data", Bytes("\1\0\2\0"));
  const platform::FileHandle file = platform::HandleOpen("data", platform::FileAccess::kRead);
  platform::HandleSeek(file, 3, platform::SeekOrigin::kStart);
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum(nullptr, file, 0, &result), ZE_OK);
  EXPECT_EQ(result, 65533);
  EXPECT_TRUE(platform::HandleClose(file));
}

TEST_F(ChecksumTest, KeepsClosingTheHandleWhenThePathIsEmptyButNotNull) {
  WriteFile("data", Bytes("\1\0\2\0"));
  const platform::FileHandle file = platform::HandleOpen("data", platform::FileAccess::kRead);
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum("", file, 0, &result), ZE_OK);
  EXPECT_EQ(result, 65533);
  char byte;
  EXPECT_EQ(platform::HandleRead(file, &byte, 1), -1);
}

TEST_F(ChecksumTest, PathGoesBeforeTheHandle) {
  WriteFile("other", Bytes("\7\0"));
  const platform::FileHandle file = platform::HandleOpen("other", platform::FileAccess::kRead);
  WriteFile("data", Bytes("\1\0"));
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum("data", file, 0, &result), ZE_OK);
  EXPECT_EQ(result, 65535);
  EXPECT_TRUE(platform::HandleClose(file));
}

TEST_F(ChecksumTest, HandleThatCannotBeReadGivesReadFailed) {
  WriteFile("data", "x");
  const platform::FileHandle file = platform::HandleOpen("data", platform::FileAccess::kWrite);
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum(nullptr, file, 0, &result), ZE_READ_FAILED);
  platform::HandleClose(file);
  EXPECT_EQ(ZeFilChecksum(nullptr, 0x7FFFFFF0, 0, &result), ZE_READ_FAILED);
}

TEST_F(ChecksumTest, HandleThatCannotBeClosedGivesCloseFailed) {
  std::uint16_t result = kUntouched;
  EXPECT_EQ(ZeFilChecksum("", 0x7FFFFFF0, 0, &result), ZE_CLOSE_FAILED);
}

TEST_F(ChecksumTest, AFileAndItsChecksumAddUpToZero) {
  const std::string bytes = Pattern(1000);
  const std::uint16_t sum = Checksum(bytes);
  EXPECT_EQ(Checksum(bytes + Le16(sum)), 0);
}

}  // namespace
}  // namespace zeapi::testing
