#include "output/send_stream.h"

#include "base/stream.h"
#include "platform/files.h"
#include "support/job.h"

namespace zeapi::testing {
namespace {

using Calls = std::vector<std::string>;

class SendStreamTest : public JobTest {
 protected:
  static constexpr char kInput[] = "input.dat";

  // Streams a file of these bytes to the spooler double.
  Result Send(std::string_view bytes, int encoding, int failingWrite = 0) {
    WriteFile(kInput, bytes);
    return SendFile(kInput, "rb", encoding, failingWrite);
  }

  Result SendFile(const char* path, const char* mode, int encoding, int failingWrite = 0) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failingWrite;
    GenQueContext ctx;
    ctx.destination = &destination;
    const Stream file(platform::OpenStream(path, mode));
    EXPECT_NE(file, nullptr);
    EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
    const Result result = SendStream(file.get(), &ctx, static_cast<StreamEncoding>(encoding));
    position = std::ftell(file.get());
    GenQueClose(&ctx);
    return result;
  }

  static Calls Writes() {
    Calls writes;
    for (const std::string& call : Spooler().calls) {
      if (call.starts_with("write")) writes.push_back(call);
    }
    return writes;
  }

  long position = 0;
};

TEST_F(SendStreamTest, EmptyFileSendsNothing) {
  for (const int encoding : {kRawBytes, kHexadecimal}) {
    EXPECT_EQ(Send("", encoding), ZE_OK);
    EXPECT_BYTES(Spooler().data, "");
  }
}

TEST_F(SendStreamTest, RawBytesGoInBlocksOf2048) {
  const std::string bytes(5000, 'r');
  EXPECT_EQ(Send(bytes, kRawBytes), ZE_OK);
  EXPECT_BYTES(Spooler().data, bytes);
  EXPECT_EQ(Writes(), (Calls{"write 2048", "write 2048", "write 904"}));
}

TEST_F(SendStreamTest, EndOfFileShowsOnlyToARead) {
  EXPECT_EQ(Send(std::string(2048, 'r'), kRawBytes), ZE_OK);
  EXPECT_EQ(Writes(), (Calls{"write 2048", "write 0"}));
}

TEST_F(SendStreamTest, HexadecimalGoesInBlocksOf2048Characters) {
  EXPECT_EQ(Send(std::string(2500, '\x5A'), kHexadecimal), ZE_OK);
  EXPECT_EQ(Writes(), (Calls{"write 2048", "write 2048", "write 904"}));
  std::string digits;
  for (int i = 0; i < 2500; ++i) digits += "5A";
  EXPECT_BYTES(Spooler().data, digits);
}

TEST_F(SendStreamTest, HexadecimalIsTwoUppercaseDigitsAByte) {
  EXPECT_EQ(Send(Bytes("\x00\xAB\xFF"), kHexadecimal), ZE_OK);
  EXPECT_BYTES(Spooler().data, "00ABFF");
}

TEST_F(SendStreamTest, RawBytesAreUnchanged) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(Send(bytes, kRawBytes), ZE_OK);
  EXPECT_BYTES(Spooler().data, bytes);
}

TEST_F(SendStreamTest, SendsTheRestOfAPositionedFile) {
  WriteFile(kInput, "skipped,sent");
  UsePrinter();
  GenQueContext ctx;
  ctx.destination = &destination;
  const Stream file(platform::OpenStream(kInput, "rb"));
  std::fseek(file.get(), 8, SEEK_SET);
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(SendStream(file.get(), &ctx, kRawBytes), ZE_OK);
  GenQueClose(&ctx);
  EXPECT_BYTES(Spooler().data, "sent");
}

TEST_F(SendStreamTest, UnknownEncodingReadsNothing) {
  for (const int encoding : {-1, 2, 100}) {
    EXPECT_EQ(Send("data", encoding), ZE_UNSUPPORTED);
    EXPECT_EQ(position, 0);
    EXPECT_TRUE(Writes().empty());
  }
}

TEST_F(SendStreamTest, StopsAtARefusedWrite) {
  for (const int encoding : {kRawBytes, kHexadecimal}) {
    EXPECT_EQ(Send(std::string(10000, 'x'), encoding, 2), ZE_PRINTER_WRITE_FAILED);
    EXPECT_EQ(Writes().size(), 2U);
  }
}

TEST_F(SendStreamTest, StreamThatCannotBeReadGivesReadFailed) {
  for (const int encoding : {kRawBytes, kHexadecimal}) {
    EXPECT_EQ(SendFile("written.dat", "wb", encoding), ZE_READ_FAILED);
    EXPECT_TRUE(Writes().empty());
  }
}

}  // namespace
}  // namespace zeapi::testing
