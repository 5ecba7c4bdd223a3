// Field types that no exported record has.
#include "data/record_reader.h"

#include <cstring>

#include "base/stream.h"
#include "platform/files.h"
#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

class RecordReaderTest : public ScratchTest {
 protected:
  // Reads a record of one field; its bytes are in `bytes`. Without keeping it the result is the
  // same.
  ZeDatReading Read(std::int32_t type, std::int32_t size, std::string_view text) {
    WriteFile("file", text);
    bytes.clear();
    const ZeDatReading unkept = ReadInto(type, size);
    bytes.assign(static_cast<std::size_t>(size), '#');
    const ZeDatReading kept = ReadInto(type, size);
    EXPECT_EQ(unkept, kept);
    return kept;
  }

  // Reads the record with each of its characters in turn the first behind the first block that is
  // read. The results are the same, and the bytes of a record that is good.
  ZeDatReading ReadAcross(std::int32_t type, std::int32_t size, const std::string& text) {
    constexpr std::size_t kBlock = 16384;
    const ZeDatReading expected = Read(type, size, text);
    const std::string expectedBytes = bytes;
    for (std::size_t split = 0; split < text.size(); ++split) {
      const std::string before = "#" + std::string(kBlock - split - 2, '#') + "\n";
      EXPECT_EQ(Read(type, size, before + text), expected) << split << ' ' << text;
      if (expected != kDatRecord) continue;
      EXPECT_EQ(bytes, expectedBytes) << split << ' ' << text;
    }
    return expected;
  }

  ZeDatReading ReadInto(std::int32_t type, std::int32_t size) {
    const Stream stream(platform::OpenStream("file", "r"));
    TextSource source(stream.get());
    const ZeDatField fields[] = {{"field", type, size, ""}};
    return DatReadRecord(&source, fields,
                         {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
  }

  std::string bytes;
};

TEST_F(RecordReaderTest, DoubledQuotesStandForOne) {
  for (const int type : {5, 7}) {
    EXPECT_EQ(Read(type, 6, "\"a\"\"b\"\"\"\n"), kDatRecord);
    EXPECT_BYTES(bytes, Bytes("a\"b\"\0\0"));
    EXPECT_EQ(Read(type, 3, "\"a\"\"\"\"b\"\n"), kDatRecord);
    EXPECT_BYTES(bytes, Bytes("a\"\0"));
    EXPECT_EQ(Read(type, 6, "\"a\"\""), kDatEndOfFile);
    EXPECT_EQ(Read(type, 6, "a\n"), kDatBadFormat);
  }
}

TEST_F(RecordReaderTest, DoubledQuotesMayBePartedByTheReadingBlocks) {
  for (const int type : {5, 7}) {
    EXPECT_EQ(ReadAcross(type, 6, "\"a\"\"b\"\"\"\n"), kDatRecord);
    EXPECT_BYTES(bytes, Bytes("a\"b\"\0\0"));
    EXPECT_EQ(ReadAcross(type, 3, "\"a\"\"\"\"b\"\n"), kDatRecord);
    EXPECT_EQ(ReadAcross(type, 6, "\"\"\"\"\n"), kDatRecord);
    EXPECT_EQ(ReadAcross(type, 6, "\"a\" \"\"\n"), kDatBadFormat);
    EXPECT_EQ(ReadAcross(type, 6, "\"a\"\""), kDatEndOfFile);
  }
}

TEST_F(RecordReaderTest, TokensMayBePartedByTheReadingBlocks) {
  const std::string zeros(23, '0');
  for (const int type : {1, 2, 8}) {
    EXPECT_EQ(ReadAcross(type, 4, "-0123456\n"), kDatRecord);
    EXPECT_EQ(ReadAcross(type, 4, zeros + "1\n"), kDatRecord);
    EXPECT_EQ(ReadAcross(type, 4, zeros + "01\n"), kDatBadFormat);
  }
  for (const int size : {4, 8}) {
    EXPECT_EQ(ReadAcross(4, size, "-1234.5\n"), kDatRecord);
    EXPECT_EQ(ReadAcross(4, size, zeros + "1,\n"), kDatRecord);
    EXPECT_EQ(ReadAcross(4, size, zeros + "01\n"), kDatBadFormat);
    EXPECT_EQ(ReadAcross(4, size, "0.0001" + zeros + "\n"), kDatBadFormat);
    EXPECT_EQ(ReadAcross(4, size, "1.2.3\n"), kDatBadFormat);
  }
}

TEST_F(RecordReaderTest, WholeNumbersOfTwoAndFourBytes) {
  for (const int type : {1, 2, 8}) {
    EXPECT_EQ(Read(type, 4, "-2\n"), kDatRecord);
    EXPECT_BYTES(bytes, "\xFE\xFF\xFF\xFF");
    EXPECT_EQ(Read(type, 2, "+258;\n"), kDatRecord);
    EXPECT_BYTES(bytes, "\x02\x01");
    EXPECT_EQ(Read(type, 2, "32768\n"), kDatBadFormat);
    EXPECT_EQ(Read(type, 4, "2147483648\n"), kDatBadFormat);
    EXPECT_EQ(Read(type, 4, "1.5\n"), kDatBadFormat);
    EXPECT_EQ(Read(type, 4, "\n5\n"), kDatRecord);
    EXPECT_EQ(Read(type, 4, "5"), kDatBadFormat);
  }
}

TEST_F(RecordReaderTest, TextOfFourBytesWithDoubledQuotesIsAWholeNumber) {
  EXPECT_EQ(Read(5, 4, "7\n"), kDatRecord);
  EXPECT_BYTES(bytes, Bytes("\x07\0\0\0"));
}

TEST_F(RecordReaderTest, NumbersOfSingleAndDoublePrecision) {
  for (const int type : {3, 4}) {
    EXPECT_EQ(Read(type, 4, "1.5\n"), kDatRecord);
    float single = 0;
    std::memcpy(&single, bytes.data(), sizeof(single));
    EXPECT_EQ(single, 1.5F);
    EXPECT_EQ(Read(type, 4, "1e100\n"), kDatBadFormat);
    EXPECT_EQ(Read(type, 4, "123456789012345e25\n"), kDatBadFormat);
    EXPECT_EQ(Read(type, 4, "-1e-100\n"), kDatRecord);
    EXPECT_BYTES(bytes, Bytes("\0\0\0\x80"));
    EXPECT_EQ(Read(type, 4, "1e-40\n"), kDatRecord);
    std::memcpy(&single, bytes.data(), sizeof(single));
    EXPECT_EQ(single, 1e-40F);
    EXPECT_EQ(Read(type, 8, "1e100\n"), kDatRecord);
    EXPECT_EQ(Read(type, 2, "1\n"), kDatBadFormat);
  }
}

TEST_F(RecordReaderTest, NumbersAreCheckedWhetherOrNotTheyAreKept) {
  for (const char* good : {"0", "-0", "5.", "-.5", "123456789012345", "1234567890123456",
                           "-12345678901234.5", "+1", "1e5", "000000000000000000000001"}) {
    EXPECT_EQ(Read(4, 8, good + std::string("\n")), kDatRecord) << good;
  }
  for (const char* bad : {"-", ".", "-.", "1.2.3", "--1", "+-1", "1-", "1 ", "1x", "x", "1e999",
                          "1\"", "0000000000000000000000001"}) {
    EXPECT_EQ(Read(4, 8, bad + std::string("\n")), kDatBadFormat) << bad;
  }
  EXPECT_EQ(Read(4, 8, "1"), kDatBadFormat);
  EXPECT_EQ(Read(4, 9, "1\n"), kDatBadFormat);
  EXPECT_EQ(Read(1, 9, "1\n"), kDatBadFormat);
}

TEST_F(RecordReaderTest, UnknownTypeIsNotInTheFileAndHoldsZeros) {
  for (const int type : {-1, 6, 9, INT32_MAX}) {
    EXPECT_EQ(Read(type, 3, "\x01\n"), kDatEndOfFile) << type;
    EXPECT_EQ(Read(type, 3, "x"), kDatBadFormat) << type;
  }
  EXPECT_EQ(Read(6, 3, " x\n"), kDatBadFormat);  // nothing is read for it
  EXPECT_EQ(Read(6, 3, "x"), kDatBadFormat);
  EXPECT_BYTES(bytes, Bytes("\0\0\0"));
}

TEST_F(RecordReaderTest, EmptyFileHasNoRecord) { EXPECT_EQ(Read(0, 3, "# c"), kDatEndOfFile); }

}  // namespace
}  // namespace zeapi::testing
