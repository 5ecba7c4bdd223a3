#include "pclxl/job_control.h"

#include "base/stream.h"
#include "pclxl/block_collector.h"
#include "platform/files.h"
#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

class JobControlTest : public ScratchTest {
 protected:
  static std::string Strip(std::string_view job) {
    WriteFile("job", job);
    const Stream file(platform::OpenStream("job", "rb"));
    filter::PushBackReader reader;
    EXPECT_EQ(reader.Open(file.get()), ZE_OK);
    BlockCollector sink;
    filter::BlockWriter writer;
    EXPECT_EQ(writer.Open(&sink), ZE_OK);
    StripJobControl(&reader, &writer);
    writer.Close();
    return sink.bytes;
  }
};

TEST_F(JobControlTest, OrdinaryBytesPass) {
  std::string all;
  for (int i = 1; i < 256; ++i) all += static_cast<char>(i);
  EXPECT_BYTES(Strip(all), all);
  EXPECT_BYTES(Strip(""), "");
}

TEST_F(JobControlTest, UniversalExitIsDroppedWhereverItStands) {
  EXPECT_BYTES(Strip("\x1B%-12345Xa\x1B%-12345X\x1B%-12345Xb\x1B%-12345X"), "ab");
}

TEST_F(JobControlTest, UniversalExitCutShortByTheEndIsDropped) {
  const std::string exit = "\x1B%-12345X";
  EXPECT_BYTES(Strip("a"
                     "\x1B"),
               "a\x1B");
  for (std::size_t size = 2; size <= exit.size(); ++size)
    EXPECT_BYTES(Strip("a" + exit.substr(0, size)), "a");
}

TEST_F(JobControlTest, OtherEscapesPass) {
  for (const char* text : {"\x1B(X", "\x1B%0A", "\x1B%-12345Y", "\x1B%-1234", "\x1B%-12345x...",
                           "\x1B\x1B", "\x1B&l0E", "\x1B%-1234?X"}) {
    const std::string job = std::string(text) + " and more bytes";
    EXPECT_BYTES(Strip(job), job);
  }
}

TEST_F(JobControlTest, EscapeBeforeAUniversalExitPasses) {
  EXPECT_BYTES(Strip("\x1B\x1B%-12345Xa"),
               "\x1B"
               "a");
  EXPECT_BYTES(Strip("\x1B%\x1B%-12345Xa"), "\x1B%a");
}

TEST_F(JobControlTest, PjlLinesAreDroppedThroughTheirLineFeed) {
  EXPECT_BYTES(Strip("@PJL SET X=1\r\n@PJL\na@PJLANYTHING\nb"), "ab");
  EXPECT_BYTES(Strip("a@PJL without an end"), "a");
}

TEST_F(JobControlTest, OtherAtSignsPass) {
  for (const char* text : {"@", "@P", "@PJ", "@PJM\n", "@pjl\n", "@@PJ", "a@b", "@PJ@PJ@"})
    EXPECT_BYTES(Strip(text), text);
  EXPECT_BYTES(Strip("@@PJL x\na"), "@a");
  EXPECT_BYTES(Strip("@P@PJL x\na"), "@Pa");
}

TEST_F(JobControlTest, ZeroByteAtTheStartGoesWithThreeMore) {
  EXPECT_BYTES(Strip(Bytes("\0abcdef")), "def");
  EXPECT_BYTES(Strip(Bytes("\0\0\0\0\0x")), Bytes("\0x"));
  EXPECT_BYTES(Strip(Bytes("\0ab")), "");
  EXPECT_BYTES(Strip(Bytes("\0@PJL\na")), "L\na");
}

TEST_F(JobControlTest, ZeroByteLaterPasses) {
  EXPECT_BYTES(Strip(Bytes("a\0bcd")), Bytes("a\0bcd"));
  EXPECT_BYTES(Strip(Bytes("\x1B%-12345X\0bcd")), Bytes("\0bcd"));
}

TEST_F(JobControlTest, JobControlAcrossTheBordersOfBlocksIsFound) {
  for (std::size_t before = 1010; before <= 1030; ++before) {
    const std::string text(before, 'x');
    EXPECT_BYTES(Strip(text + "\x1B%-12345X@PJL A\n@PJK\x1B%-12345Yend"),
                 text + "@PJK\x1B%-12345Yend");
  }
}

TEST_F(JobControlTest, BytesThatBeginNothingPassAtTheBordersOfBlocks) {
  for (std::size_t before = 1020; before <= 1026; ++before) {
    const std::string text(before, 'x');
    for (const char* bytes : {"@", "\x1B", "@a", "\x1B(X", "@P", "\x1B%", "@@", "\x1B@", "@\x1B"}) {
      const std::string job = text + bytes + "more";
      EXPECT_BYTES(Strip(job), job);
    }
  }
}

TEST_F(JobControlTest, JobControlBehindManyThatBeginNothingIsFound) {
  std::string text;
  for (int i = 0; i < 400; ++i) text += "@x\x1B(";
  EXPECT_BYTES(Strip(text + "@PJL A\n" + text + "\x1B%-12345X" + text), text + text + text);
  EXPECT_BYTES(Strip("\x1B@PJL x\na"),
               "\x1B"
               "a");
  EXPECT_BYTES(Strip("@\x1B%-12345Xa"), "@a");
}

}  // namespace
}  // namespace zeapi::testing
