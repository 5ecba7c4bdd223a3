// What only a stream of this host can be asked: reads of any size, and what it cannot do.
#include "platform/posix/text_stream.h"

#include <fcntl.h>
#include <unistd.h>

#include "base/stream.h"
#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

class TextStreamTest : public ScratchTest {
 protected:
  static Stream Open(std::string_view bytes) {
    WriteFile("text", bytes);
    return Stream(platform::OpenTextReader(open("text", O_RDONLY | O_CLOEXEC)));
  }
};

TEST_F(TextStreamTest, UnbufferedReadsGiveTheSameTextButForTheirCrs) {
  const Stream stream = Open("a\r\nb\x1Az");
  std::setvbuf(stream.get(), nullptr, _IONBF, 0);
  std::string text;
  for (int c = std::fgetc(stream.get()); c != EOF; c = std::fgetc(stream.get())) {
    text += static_cast<char>(c);
  }
  // A reader of one byte cannot look behind a CR.
  EXPECT_BYTES(text, "a\r\nb");
}

TEST_F(TextStreamTest, PositionsOtherThanTheStartAreRefused) {
  const Stream stream = Open("one\r\ntwo\r\n");
  EXPECT_NE(std::fseek(stream.get(), 4, SEEK_SET), 0);
  EXPECT_NE(std::fseek(stream.get(), 0, SEEK_END), 0);
  EXPECT_EQ(std::fseek(stream.get(), 0, SEEK_SET), 0);
  EXPECT_EQ(std::fgetc(stream.get()), 'o');
}

TEST_F(TextStreamTest, RewindingGoesBackBeforeACtrlZ) {
  const Stream stream = Open("ab\x1A");
  for (int pass = 0; pass < 2; ++pass) {
    EXPECT_EQ(std::fgetc(stream.get()), 'a');
    EXPECT_EQ(std::fgetc(stream.get()), 'b');
    EXPECT_EQ(std::fgetc(stream.get()), EOF);
    std::rewind(stream.get());
  }
}

TEST_F(TextStreamTest, ErrorsOfTheDescriptorAreErrorsOfTheStream) {
  const Stream stream(platform::OpenTextReader(open(".", O_RDONLY | O_CLOEXEC)));
  EXPECT_EQ(std::fgetc(stream.get()), EOF);
  EXPECT_NE(std::ferror(stream.get()), 0);
}

TEST_F(TextStreamTest, PipeCannotBeRewound) {
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  const Stream stream(platform::OpenTextReader(ends[0]));
  ASSERT_EQ(write(ends[1], "x\r\n", 3), 3);
  close(ends[1]);
  EXPECT_EQ(std::fgetc(stream.get()), 'x');
  EXPECT_NE(std::fseek(stream.get(), 0, SEEK_SET), 0);
}

}  // namespace
}  // namespace zeapi::testing
