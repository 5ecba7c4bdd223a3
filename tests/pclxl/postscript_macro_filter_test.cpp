#include "pclxl/macro_filter_case.h"
#include "support/bytes.h"

namespace zeapi::testing {
namespace {

constexpr char kOverlay[] = "%%Velquist Overlay: LOGO\n";

class PostScriptFilterTest : public MacroFilterTest {
 protected:
  std::string PostScript(std::string_view input, const char* overlayHeader = kOverlay) {
    return Filtered(input, ZE_LANGUAGE_POSTSCRIPT, 0xFFF, overlayHeader);
  }

  // Also behind text that puts the bytes across the borders of the reader's blocks.
  void Expect(const std::string& input, const std::string& output) {
    EXPECT_BYTES(PostScript(input), output);
    for (const std::size_t at :
         {770U, 775U, 776U, 777U, 1010U, 1020U, 1021U, 1022U, 1023U, 1024U}) {
      const std::string text(at, 't');
      EXPECT_BYTES(PostScript(text + input + "z"), text + output + "z");
    }
  }
};

TEST_F(PostScriptFilterTest, OverlayLineFollowsTheFirstLine) {
  EXPECT_BYTES(
      PostScript("\x1B%-12345X@PJL ENTER LANGUAGE = POSTSCRIPT\n%!PS-Adobe-3.0\nshowpage\n"),
      std::string("%!PS-Adobe-3.0\n") + kOverlay + "showpage\n");
}

TEST_F(PostScriptFilterTest, WithoutOverlayLineTheFirstLineStays) {
  EXPECT_BYTES(PostScript("%!PS\nx", nullptr), "%!PS\nx");
}

TEST_F(PostScriptFilterTest, FirstLineOfAnyLengthIsKept) {
  const std::string line = "%!PS" + std::string(5000, 'c') + "\n";
  EXPECT_BYTES(PostScript(line + "x"), line + kOverlay + "x");
}

TEST_F(PostScriptFilterTest, LineWithoutLineFeedIsFollowedByTheOverlayLineAllTheSame) {
  EXPECT_BYTES(PostScript("%!PS-Adobe"), std::string("%!PS-Adobe") + kOverlay);
  EXPECT_BYTES(PostScript("%!PS"), std::string("%!PS") + kOverlay);
  EXPECT_BYTES(PostScript("%!PS\rshowpage\r"), std::string("%!PS\rshowpage\r") + kOverlay);
}

TEST_F(PostScriptFilterTest, RestOfTheLineIsNotLookedInto) {
  Expect("%!PS \x04@PJL\x1B%-12345X\n", std::string("%!PS \x04@PJL\x1B%-12345X\n") + kOverlay);
}

TEST_F(PostScriptFilterTest, KeepsAnOverlayLineBehindEachSuchLine) {
  EXPECT_BYTES(PostScript("%!PS\na %!PS\nb"),
               std::string("%!PS\n") + kOverlay + "a %!PS\n" + kOverlay + "b");
}

TEST_F(PostScriptFilterTest, OtherCommentsAreKept) {
  Expect("%!P\n%!\n%%Title: x\n%PS\n%", "%!P\n%!\n%%Title: x\n%PS\n%");
}

TEST_F(PostScriptFilterTest, EndOfJobCharacterIsDropped) {
  Expect("\x04", "");
  Expect(
      "a\x04\x04"
      "b",
      "ab");
}

TEST_F(PostScriptFilterTest, UniversalExitIsDropped) {
  Expect("a\x1B%-12345Xb", "ab");
  Expect("\x1B%-12345x", "\x1B%-12345x");
  EXPECT_BYTES(PostScript("\x1B%-12345"), "\x1B%-12345");
}

TEST_F(PostScriptFilterTest, PercentBehindAnEscapeIsLookedAtAgain) {
  Expect("\x1B%!PS\n", std::string("\x1B%!PS\n") + kOverlay);
}

TEST_F(PostScriptFilterTest, BracketKBlockIsDroppedWhole) {
  Expect(Bytes("a\x1B[K\x02\0\x04\x1B"
               "b"),
         "ab");
  Expect("\x1B[k\x1B[", "\x1B[k\x1B[");
  EXPECT_BYTES(PostScript(Bytes("a\x1B[K\x09\0b")), "a");
  EXPECT_BYTES(PostScript(Bytes("a\x1B[K\x09")), Bytes("a\x1B[K\x09"));
}

TEST_F(PostScriptFilterTest, PjlLineIsDropped) {
  Expect("@PJL SET X = Y\nb", "b");
  Expect("a@PJ b@", "a@PJ b@");
  EXPECT_BYTES(PostScript("a@PJL b"), "a");
}

TEST_F(PostScriptFilterTest, PclCommandsAndFormFeedsAreKept) {
  Expect(
      "\x1B"
      "E\x0C\x1B&l1O\x1B*b1W",
      "\x1B"
      "E\x0C\x1B&l1O\x1B*b1W");
}

TEST_F(PostScriptFilterTest, EveryOtherByteIsKept) {
  std::string every;
  for (int c = 0; c < 256; ++c) {
    if (c != 4) every += static_cast<char>(c);
  }
  Expect(every, every);
}

}  // namespace
}  // namespace zeapi::testing
