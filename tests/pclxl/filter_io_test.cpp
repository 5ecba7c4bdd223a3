#include "pclxl/filter_io.h"

#include "base/stream.h"
#include "output/plain_file_queue.h"
#include "pclxl/block_collector.h"
#include "platform/files.h"
#include "support/job.h"

namespace zeapi::testing {
namespace {

using Sizes = std::vector<std::size_t>;

std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string Pattern(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7 % 251);
  return bytes;
}

class FilterReaderTest : public ScratchTest {
 protected:
  // The folder goes away only when none of its files is open.
  void TearDown() override {
    file.reset();
    ScratchTest::TearDown();
  }

  void OpenOn(std::string_view bytes) {
    WriteFile("source", bytes);
    file.reset(platform::OpenStream("source", "rb"));
    ASSERT_EQ(reader.Open(file.get()), ZE_OK);
  }

  // Reads to the end.
  std::string Rest() {
    std::string bytes;
    for (;;) {
      const std::uint8_t byte = reader.Read();
      if (reader.AtEnd()) return bytes;
      bytes += static_cast<char>(byte);
    }
  }

  Stream file;
  filter::PushBackReader reader;
};

TEST_F(FilterReaderTest, NoFileIsAnInvalidArgument) {
  EXPECT_EQ(reader.Open(nullptr), ZE_INVALID_ARGUMENT);
}

TEST_F(FilterReaderTest, EmptyFileIsAtItsEndWithTheFirstRead) {
  OpenOn("");
  EXPECT_FALSE(reader.AtEnd());
  EXPECT_EQ(reader.Read(), 0);
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_FALSE(reader.Failed());
}

TEST_F(FilterReaderTest, ReadsFilesOfEverySizeAroundTheBlock) {
  for (const std::size_t size : {1U, 1023U, 1024U, 1025U, 2048U, 5000U}) {
    OpenOn(Pattern(size));
    EXPECT_BYTES(Rest(), Pattern(size)) << size;
    EXPECT_FALSE(reader.Failed());
    reader.Close();
  }
}

TEST_F(FilterReaderTest, ReadsFromThePositionOfTheFile) {
  WriteFile("source", "skipped,read");
  file.reset(platform::OpenStream("source", "rb"));
  std::fseek(file.get(), 8, SEEK_SET);
  ASSERT_EQ(reader.Open(file.get()), ZE_OK);
  EXPECT_BYTES(Rest(), "read");
}

TEST_F(FilterReaderTest, BytesGivenBackComeInTheirOrderAndBeforeTheFile) {
  OpenOn("XYZ");
  EXPECT_EQ(reader.Read(), 'X');
  EXPECT_TRUE(reader.PushBack(AsBytes("abc")));
  EXPECT_EQ(reader.Read(), 'a');
  EXPECT_TRUE(reader.PushBack('1'));
  EXPECT_TRUE(reader.PushBack(AsBytes("23")));
  EXPECT_BYTES(Rest(), "231bcYZ");
}

TEST_F(FilterReaderTest, GivingBackAtTheEndClearsTheEnd) {
  OpenOn("X");
  EXPECT_BYTES(Rest(), "X");
  EXPECT_TRUE(reader.PushBack('Y'));
  EXPECT_FALSE(reader.AtEnd());
  EXPECT_EQ(reader.Read(), 'Y');
  EXPECT_FALSE(reader.AtEnd());
  reader.Read();
  EXPECT_TRUE(reader.AtEnd());
}

TEST_F(FilterReaderTest, GivingNothingBackKeepsTheEnd) {
  OpenOn("");
  reader.Read();
  EXPECT_TRUE(reader.PushBack(AsBytes("")));
  EXPECT_TRUE(reader.AtEnd());
}

TEST_F(FilterReaderTest, TakesAsMuchBackAsTheLongestLookAheadAndRefusesMore) {
  OpenOn("end");
  const std::string bytes = Pattern(filter::PushBackReader::kPushBackSize);
  EXPECT_TRUE(reader.PushBack(AsBytes(bytes)));
  EXPECT_FALSE(reader.PushBack('!'));
  EXPECT_BYTES(Rest(), bytes + "end");
  EXPECT_FALSE(reader.PushBack(AsBytes(Pattern(filter::PushBackReader::kPushBackSize + 1))));
  EXPECT_TRUE(reader.AtEnd());
}

TEST_F(FilterReaderTest, BytesAtHandAreTheRestOfTheBlock) {
  const std::string bytes = Pattern(1500);
  OpenOn(bytes);
  EXPECT_EQ(reader.AtHand().size(), 1024U);
  reader.Read();
  const auto atHand = reader.AtHand();
  EXPECT_BYTES((std::string(atHand.begin(), atHand.end())), bytes.substr(1, 1023));
  reader.Skip(1000);
  EXPECT_EQ(reader.AtHand().size(), 23U);
  reader.Skip(23);
  EXPECT_EQ(reader.AtHand().size(), 476U);
  EXPECT_BYTES(Rest(), bytes.substr(1024));
  EXPECT_TRUE(reader.AtHand().empty());
}

TEST_F(FilterReaderTest, NothingIsAtHandWhileBytesGivenBackWait) {
  OpenOn("XYZ");
  EXPECT_TRUE(reader.PushBack('a'));
  EXPECT_TRUE(reader.AtHand().empty());
  EXPECT_EQ(reader.Read(), 'a');
  EXPECT_EQ(reader.AtHand().size(), 3U);
}

TEST_F(FilterReaderTest, StreamThatCannotBeReadEndsAndSaysSo) {
  file.reset(platform::OpenStream("written", "wb"));
  ASSERT_EQ(reader.Open(file.get()), ZE_OK);
  reader.Read();
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_TRUE(reader.Failed());
}

TEST_F(FilterReaderTest, ClosedReaderHasNothingAndTakesNothing) {
  OpenOn("data");
  reader.Close();
  EXPECT_TRUE(reader.AtEnd());
  reader.Read();
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_FALSE(reader.PushBack('a'));
}

class FilterWriterTest : public JobTest {
 protected:
  void SetUp() override {
    JobTest::SetUp();
    ASSERT_EQ(writer.Open(&sink), ZE_OK);
  }
  void WriteEach(std::string_view bytes) {
    for (const char byte : bytes) writer.Write(static_cast<std::uint8_t>(byte));
  }

  BlockCollector sink;
  filter::BlockWriter writer;
};

TEST_F(FilterWriterTest, NothingWrittenHandsNothingOn) {
  writer.Close();
  EXPECT_TRUE(sink.sizes.empty());
}

TEST_F(FilterWriterTest, FullBlocksGoAtOnceAndTheRestWhenItCloses) {
  const std::string bytes = Pattern(2500);
  WriteEach(std::string_view(bytes).substr(0, 1023));
  EXPECT_TRUE(sink.sizes.empty());
  WriteEach(std::string_view(bytes).substr(1023));
  EXPECT_EQ(sink.sizes, (Sizes{1024, 1024}));
  writer.Close();
  EXPECT_EQ(sink.sizes, (Sizes{1024, 1024, 452}));
  EXPECT_BYTES(sink.bytes, bytes);
}

TEST_F(FilterWriterTest, FullBlockLeavesNoEmptyRest) {
  WriteEach(Pattern(1024));
  writer.Close();
  EXPECT_EQ(sink.sizes, Sizes{1024});
}

TEST_F(FilterWriterTest, ManyBytesAtOnceMakeTheSameBlocks) {
  for (const std::size_t first : {0U, 1U, 500U, 1023U, 1024U}) {
    for (const std::size_t more : {0U, 1U, 524U, 1023U, 1024U, 1025U, 3000U}) {
      BlockCollector blocks;
      filter::BlockWriter other;
      ASSERT_EQ(other.Open(&blocks), ZE_OK);
      const std::string bytes = Pattern(first + more);
      for (std::size_t i = 0; i < first; ++i) other.Write(static_cast<std::uint8_t>(bytes[i]));
      other.Write(AsBytes(bytes).subspan(first));
      other.Close();
      EXPECT_BYTES(blocks.bytes, bytes);
      const Sizes full((first + more) / 1024, 1024);
      for (std::size_t i = 0; i < full.size(); ++i) EXPECT_EQ(blocks.sizes[i], 1024U);
      EXPECT_EQ(blocks.sizes.size(), full.size() + ((first + more) % 1024 != 0 ? 1 : 0));
    }
  }
}

TEST_F(FilterWriterTest, QueueGetsOneWriteABlock) {
  UsePrinter();
  GenQueContext ctx;
  ctx.destination = &destination;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  filter::QueueSink queue(&ctx);
  filter::BlockWriter other;
  ASSERT_EQ(other.Open(&queue), ZE_OK);
  other.Write(AsBytes(Pattern(1500)));
  other.Close();
  GenQueClose(&ctx);
  EXPECT_EQ(Spooler().calls, (std::vector<std::string>{"open job.prn", "start Vantrel Job",
                                                       "write 1024", "write 476", "end", "close"}));
  EXPECT_BYTES(Spooler().data, Pattern(1500));
}

TEST_F(FilterWriterTest, FailedWriteShowsInTheQueue) {
  UsePrinter();
  Spooler().failingWrite = 1;
  GenQueContext ctx;
  ctx.destination = &destination;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  filter::QueueSink queue(&ctx);
  filter::BlockWriter other;
  ASSERT_EQ(other.Open(&queue), ZE_OK);
  other.Write(AsBytes(Pattern(1024)));
  EXPECT_EQ(ctx.error, ZE_PRINTER_WRITE_FAILED);
  other.Close();
  GenQueClose(&ctx);
}

}  // namespace
}  // namespace zeapi::testing
