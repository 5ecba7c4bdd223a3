#include "pclxl/xl_input.h"

#include <optional>

#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

constexpr std::size_t kBlock = 4096;

class XlInputTest : public ScratchTest {
 protected:
  // A file of bytes that tell where they stand.
  void SetUp() override {
    ScratchTest::SetUp();
    for (std::size_t i = 0; i < 3 * kBlock + 100; ++i) bytes += static_cast<char>(i * 7 % 251);
    WriteFile("file", bytes);
    file_ = std::fopen("file", "rb");
    input.emplace(file_);
  }
  void TearDown() override {
    std::fclose(file_);
    ScratchTest::TearDown();
  }

  std::string Read(std::size_t count) {
    std::string text(count, '\0');
    text.resize(input->Read({reinterpret_cast<std::uint8_t*>(text.data()), count}));
    return text;
  }

  std::string bytes;
  std::optional<XlInput> input;

 private:
  std::FILE* file_ = nullptr;
};

TEST_F(XlInputTest, ReadsBytesAndPiecesAcrossBlocks) {
  EXPECT_EQ(input->Read(), 0);
  EXPECT_BYTES(Read(kBlock), bytes.substr(1, kBlock));
  EXPECT_EQ(input->Position(), kBlock + 1);
  EXPECT_BYTES(Read(bytes.size()), bytes.substr(kBlock + 1));
  EXPECT_EQ(input->Position(), bytes.size());
  EXPECT_EQ(input->Read(), XlInput::kEnd);
  EXPECT_EQ(input->Position(), bytes.size());
  EXPECT_FALSE(input->Failed());
}

TEST_F(XlInputTest, GoesToAnyPositionFromAnyOther) {
  for (const std::size_t from :
       {std::size_t{0}, std::size_t{1}, kBlock, kBlock + 1, 2 * kBlock + 5, bytes.size()}) {
    for (const std::size_t to :
         {std::size_t{0}, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock, bytes.size() - 1}) {
      ASSERT_TRUE(input->SetPosition(from));
      Read(10);
      ASSERT_TRUE(input->SetPosition(to));
      EXPECT_EQ(input->Position(), to);
      EXPECT_EQ(input->Read(), static_cast<unsigned char>(bytes[to])) << from << " to " << to;
    }
  }
}

TEST_F(XlInputTest, GoesBackAsFarAsItReadOn) {
  for (const std::size_t back :
       {std::size_t{1}, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock, 2 * kBlock + 1}) {
    ASSERT_TRUE(input->SetPosition(0));
    for (std::size_t i = 0; i < 2 * kBlock + 1; ++i) input->Read();
    ASSERT_TRUE(input->SetPosition(2 * kBlock + 1 - back));
    EXPECT_BYTES(Read(back + 5), bytes.substr(2 * kBlock + 1 - back, back + 5));
  }
}

TEST_F(XlInputTest, ByteGivenBackIsReadAgainAtTheBordersOfBlocks) {
  for (const std::size_t at : {std::size_t{0}, kBlock - 1, kBlock, 2 * kBlock}) {
    ASSERT_TRUE(input->SetPosition(0));
    Read(at);
    const int byte = input->Read();
    input->PushBack();
    EXPECT_EQ(input->Position(), at);
    EXPECT_EQ(input->Read(), byte);
    ASSERT_TRUE(input->SetPosition(at + kBlock + 1));  // sought
    EXPECT_EQ(input->Read(), static_cast<unsigned char>(bytes[at + kBlock + 1]));
    input->PushBack();
    EXPECT_EQ(input->Position(), at + kBlock + 1);
  }
}

TEST_F(XlInputTest, SkipsToTheEndAndNoFurther) {
  EXPECT_TRUE(input->Skip(0));
  EXPECT_EQ(input->Position(), 0U);
  EXPECT_TRUE(input->Skip(kBlock + 3));
  EXPECT_EQ(input->Read(), static_cast<unsigned char>(bytes[kBlock + 3]));
  EXPECT_TRUE(input->Skip(bytes.size() - input->Position()));
  EXPECT_EQ(input->Read(), XlInput::kEnd);
  EXPECT_FALSE(input->Skip(1));
  ASSERT_TRUE(input->SetPosition(5));
  EXPECT_FALSE(input->Skip(bytes.size() - 4));
  ASSERT_TRUE(input->SetPosition(5));
  EXPECT_FALSE(input->Skip(0xFFFFFFFFU));
}

TEST_F(XlInputTest, AtHandIsWhatTheBlockStillHolds) {
  EXPECT_TRUE(input->AtHand().empty());
  input->Read();
  EXPECT_EQ(input->AtHand().size(), kBlock - 1);
  EXPECT_EQ(input->AtHand().front(), static_cast<unsigned char>(bytes[1]));
  Read(kBlock - 1);
  EXPECT_TRUE(input->AtHand().empty());
}

}  // namespace
}  // namespace zeapi::testing
