#include "pclxl/macro_filter_case.h"
#include "support/bytes.h"

namespace zeapi::testing {
namespace {

constexpr std::uint32_t kAll = 0xFFF;

class PclFilterTest : public MacroFilterTest {
 protected:
  std::string Pcl(std::string_view input, std::uint32_t options = ZE_FIXUP_DEFAULT) {
    return Filtered(input, ZE_LANGUAGE_PCL, options);
  }

  // The same bytes come out, also with something before and behind, and across every border of the
  // reader's blocks.
  void ExpectKept(std::string_view input, std::uint32_t options = ZE_FIXUP_DEFAULT) {
    Expect(input, input, options);
  }
  void ExpectDropped(std::string_view input, std::uint32_t options = ZE_FIXUP_DEFAULT) {
    Expect(input, "", options);
  }
  void Expect(std::string_view input, std::string_view output,
              std::uint32_t options = ZE_FIXUP_DEFAULT) {
    EXPECT_BYTES(Pcl(input, options), output);
    const std::string in(input);
    const std::string out(output);
    EXPECT_BYTES(Pcl("ab" + in + "yz", options), "ab" + out + "yz");
    for (const std::size_t at :
         {770U, 775U, 776U, 777U, 1010U, 1020U, 1021U, 1022U, 1023U, 1024U}) {
      const std::string text(at, 't');
      EXPECT_BYTES(Pcl(text + in + "yz", options), text + out + "yz");
    }
  }
};

// --- What is no command

TEST_F(PclFilterTest, EmptyFileGivesNothing) { EXPECT_BYTES(Pcl(""), ""); }

TEST_F(PclFilterTest, TextIsKept) {
  std::string every;
  for (int c = 0; c < 256; ++c) {
    if (c != 0x0C && c != 0x1B) every += static_cast<char>(c);
  }
  ExpectKept(every);
  ExpectKept("@ @P @PJ @PjL user@host");
}

TEST_F(PclFilterTest, OutputComesInBlocksOf1024) {
  Pcl(std::string(5000, 'x'));
  EXPECT_EQ(sink.sizes, (std::vector<std::size_t>{1024, 1024, 1024, 1024, 904}));
  Pcl("\x1B"
      "E" +
      std::string(2048, 'x'));
  EXPECT_EQ(sink.sizes, (std::vector<std::size_t>{1024, 1024}));
}

TEST_F(PclFilterTest, UnknownEscapesAreKept) {
  ExpectKept("\x1B");
  ExpectKept("\x1B\x1B\x1B");
  ExpectKept(
      "\x1B"
      "9\x1B=\x1BY\x1BZ");
  ExpectKept("\x1B(8U\x1B)0N\x1B(3@");
  ExpectKept("\x1B*t300R\x1B&k2G\x1B*p10x20Y\x1B*r1A\x1B*rB\x1B*v6W");
  ExpectKept("\x1B&\x1B*\x1B(");
}

// --- Job control

TEST_F(PclFilterTest, UniversalExitIsDropped) {
  ExpectDropped("\x1B%-12345X");
  ExpectDropped("\x1B%-12345X\x1B%-12345X");
  ExpectKept("\x1B%-12345");
  ExpectKept("\x1B%-12345x\x1B%-12346X\x1B%-1234X");
}

TEST_F(PclFilterTest, PjlLineIsDroppedThroughItsLineFeed) {
  ExpectDropped("@PJL\n");
  ExpectDropped(
      "@PJL SET COPIES = 3\x1B"
      "E\x0C\r\n");
  Expect("@PJL ENTER LANGUAGE = PCL\nx@PJL\ny", "xy");
}

TEST_F(PclFilterTest, PjlLineOfAnyLengthIsDropped) {
  Expect("@PJL " + std::string(5000, 'c') + "\nx", "x");
}

TEST_F(PclFilterTest, PjlLineWithoutLineFeedIsDroppedToTheEnd) {
  EXPECT_BYTES(Pcl("x@PJL SET A = B"), "x");
  EXPECT_BYTES(Pcl("x@PJL"), "x");
  EXPECT_BYTES(Pcl("x@PJ"), "x@PJ");
}

TEST_F(PclFilterTest, BracketKBlockIsDroppedWhole) {
  ExpectDropped(Bytes("\x1B[K\x03\0\x06\x31\x02"));
  ExpectDropped(Bytes("\x1B[K\0\0"));
  Expect(Bytes("\x1B[K\x02\0\x1B"
               "Ex"),
         "x", 0);
  Expect(Bytes("\x1B[K\x2C\x01") + std::string(300, '\x1B') + "x", "x");
}

TEST_F(PclFilterTest, LengthOfABracketKBlockHasItsLowByteFirst) {
  EXPECT_BYTES(Pcl(Bytes("\x1B[K\xFF\xFF") + std::string(65535, 'b') + "x"), "x");
}

TEST_F(PclFilterTest, BracketKBlockThatIsCutOff) {
  EXPECT_BYTES(Pcl(Bytes("x\x1B[K\x05\0ab")), "x");
  for (const std::string& header : {Bytes("\x1B["), Bytes("\x1B[K"), Bytes("\x1B[K\x05")}) {
    EXPECT_BYTES(Pcl("x" + header), "x" + header);
  }
}

TEST_F(PclFilterTest, OtherBracketSequencesAreKept) { ExpectKept("\x1B[l\x1B[D\x1B[k"); }

// --- Resets and form feeds

TEST_F(PclFilterTest, ResetGoesByItsOption) {
  ExpectDropped(
      "\x1B"
      "E",
      ZE_FIXUP_RESET);
  ExpectKept(
      "\x1B"
      "E",
      kAll & ~std::uint32_t{ZE_FIXUP_RESET});
  ExpectKept(
      "\x1B"
      "e");
}

TEST_F(PclFilterTest, FormFeedGoesByItsOption) {
  ExpectDropped("\x0C\x0C", ZE_FIXUP_FORM_FEED);
  ExpectKept("\x0C", kAll & ~std::uint32_t{ZE_FIXUP_FORM_FEED});
}

// --- Lists and options

struct ListRow {
  const char* sequence;  // dropped with the option, kept without
  std::uint32_t option;  // 0: always dropped
};

constexpr ListRow kDroppedByList[] = {
    {"\x1B&l60F", 0},
    {"\x1B&l66P", 0},
    {"\x1B&l2A", ZE_FIXUP_PAPER_SIZE},
    {"\x1B&l1H", ZE_FIXUP_PAPER_SOURCE},
    {"\x1B&l1S", ZE_FIXUP_DUPLEX},
    {"\x1B&l1O", ZE_FIXUP_ORIENTATION},
    {"\x1B&l1T", ZE_FIXUP_JOB_SEPARATION},
    {"\x1B&l3X", ZE_FIXUP_COPIES},
    {"\x1B&l1L", ZE_FIXUP_PERFORATION},
    {"\x1B&l1G", ZE_FIXUP_OUTPUT_BIN},
    {"\x1B&a1G", ZE_FIXUP_DUPLEX},
    {"\x1B&b3M", 0},
    {"\x1B&f6X", 0},
    {"\x1B&f7X", 0},
    {"\x1B&f10X", 0},
    {"\x1B&f0X", ZE_FIXUP_MACRO_CONTROL},
    {"\x1B&f1X", ZE_FIXUP_MACRO_CONTROL},
    {"\x1B&r1F", ZE_FIXUP_FLUSH},
    {"\x1B*c0F", 0},
    {"\x1B*c1F", 0},
};

TEST_F(PclFilterTest, ListedParametersAreDroppedByTheirOptionAlone) {
  for (const ListRow& row : kDroppedByList) {
    SCOPED_TRACE(Printable(row.sequence));
    EXPECT_BYTES(Pcl(row.sequence, kAll), "");
    EXPECT_BYTES(Pcl(row.sequence, row.option), "");
    const std::uint32_t others = kAll & ~row.option;
    EXPECT_BYTES(Pcl(row.sequence, others), row.option == 0 ? "" : row.sequence);
    EXPECT_BYTES(Pcl(row.sequence, 0), row.option == 0 ? "" : row.sequence);
  }
}

TEST_F(PclFilterTest, DefaultOptionsAre0x33F) {
  for (const ListRow& row : kDroppedByList) {
    const bool dropped = row.option == 0 || (0x33F & row.option) != 0;
    EXPECT_BYTES(Pcl(row.sequence), dropped ? "" : row.sequence);
  }
  EXPECT_EQ(ZE_FIXUP_DEFAULT, 831);
}

TEST_F(PclFilterTest, OtherParametersOfListedPrefixesAreKept) {
  for (const char* sequence :
       {"\x1B&l6D", "\x1B&l8C", "\x1B&l2E", "\x1B&l0T", "\x1B&l2T",  "\x1B&a10L", "\x1B&a100V",
        "\x1B&b2G", "\x1B&f2X", "\x1B&f5Y", "\x1B&f8X", "\x1B&f60X", "\x1B&r2G",  "\x1B(s0P",
        "\x1B)s3T", "\x1B(f3X", "\x1B*b0M", "\x1B*c2F", "\x1B*c10F", "\x1B*c5D",  "\x1B*c-1F"}) {
    SCOPED_TRACE(Printable(sequence));
    ExpectKept(sequence, kAll);
  }
}

TEST_F(PclFilterTest, ListsAreOfTheirPrefixAlone) {
  ExpectKept("\x1B&k3A\x1B&a1A\x1B*p6X\x1B)f1X\x1B(l1O", kAll);
}

TEST_F(PclFilterTest, ValuesAreWholeNumbers) {
  ExpectDropped("\x1B*c01F\x1B*c+1F\x1B*c1.5F\x1B*c-0F\x1B*cF");
  ExpectKept("\x1B*c99999999999999999999F\x1B*c4294967297F");
  ExpectDropped("\x1B&f006X\x1B&l-1P\x1B&lP");
}

// --- Combined sequences

TEST_F(PclFilterTest, SequenceThatLosesAllGroupsIsGone) {
  ExpectDropped("\x1B&l1o2A");
  ExpectDropped("\x1B&l0o66P");
  ExpectDropped("\x1B&l1o2a3h1S");
}

// k: kept, d: dropped; upper case is the last group.
TEST_F(PclFilterTest, EveryMixOfKeptAndDroppedGroups) {
  for (unsigned count = 1; count <= 5; ++count) {
    for (unsigned mix = 0; mix < 1U << count; ++mix) {
      std::string input = "\x1B&l";
      std::string kept;
      for (unsigned i = 0; i < count; ++i) {
        const bool keep = (mix >> i & 1U) != 0;
        const std::string value = std::to_string(10 + i);
        const char letter = keep ? 'c' : 'o';
        input += value + static_cast<char>(i + 1 < count ? letter : letter - 0x20);
        if (keep) kept += value + 'c';
      }
      if (!kept.empty()) {
        kept = "\x1B&l" + kept;
        kept.back() = 'C';
      }
      SCOPED_TRACE(Printable(input));
      EXPECT_BYTES(Pcl(input), kept);
      EXPECT_BYTES(Pcl("a" + input + "b"), "a" + kept + "b");
    }
  }
}

TEST_F(PclFilterTest, ValueTextsStayAsTheyWere) {
  Expect("\x1B&l+05.50c1o-3.0E", "\x1B&l+05.50c-3.0E");
}

TEST_F(PclFilterTest, LastKeptGroupTakesTheUpperCaseOfADroppedEnd) {
  Expect("\x1B&l5e1O", "\x1B&l5E");
  Expect("\x1B&l1o5E", "\x1B&l5E");
  Expect("\x1B&l5`1O", "\x1B&l5@");
  Expect("\x1B&l5~1O", "\x1B&l5^");
}

TEST_F(PclFilterTest, StopAndStartInAnyPosition) {
  const auto options = std::uint32_t{ZE_FIXUP_MACRO_CONTROL};
  ExpectDropped("\x1B&f1X", options);
  Expect("\x1B&f3y1X", "\x1B&f3Y", options);
  Expect("\x1B&f1x3Y", "\x1B&f3Y", options);
  Expect("\x1B&f3y0x1x4X", "\x1B&f3y4X", options);
  ExpectKept("\x1B&f3y1X");
}

TEST_F(PclFilterTest, AnyOtherCharacterEndsASequence) {
  Expect("\x1B&l1o5 x", "\x1B&l5 x");
  Expect("\x1B&l1o5\nx", "\x1B&l5\nx");
  Expect("\x1B&l1o5\x7Fx", "\x1B&l5\x7Fx");
  Expect(Bytes("\x1B&l1o5\x80x"), Bytes("\x1B&l5\x80x"));
}

TEST_F(PclFilterTest, EscapeEndsASequenceLikeAnyOtherCharacter) {
  ExpectKept(
      "\x1B&l5\x1B"
      "E");
  Expect(
      "\x1B&l1o5\x1B"
      "E",
      "\x1B&l5\x1B"
      "E");
  Expect("\x1B&l5e1o\x1B&l1O", "\x1B&l5e\x1B&l1O");
  Expect("\x1B&l1o\x1B&l1O", "\x1B&l\x1B&l1O");
  ExpectKept("\x1B&l\x1B&l5E");
}

TEST_F(PclFilterTest, SequencesLongerThanTheLookAheadAreFiltered) {
  std::string input = "\x1B&l";
  std::string output = "\x1B&l";
  for (int i = 0; i < 1000; ++i) {
    input += "1o" + std::to_string(i) + "c";
    output += std::to_string(i) + "c";
  }
  Expect(input + "1O", output.substr(0, output.size() - 1) + "C");
  Expect(input + "2E", output + "2E");
  std::string dropped = "\x1B&l";
  for (int i = 0; i < 1000; ++i) dropped += "1o";
  ExpectDropped(dropped + "1O");
}

TEST_F(PclFilterTest, ValueLongerThanTheLookAheadEndsTheFiltering) {
  const std::string digits(300, '1');
  ExpectKept("\x1B&l" + digits + "O");
  Expect("\x1B&l1o2c" + digits + "O", "\x1B&l2c" + digits + "O");
  ExpectKept("\x1B%" + digits + "B");
  ExpectKept("\x1B&n" + digits + "W");
  ExpectDropped("\x1B&l" + std::string(240, '1') + "O");
}

// --- Data

TEST_F(PclFilterTest, DataIsKeptWhateverItHolds) {
  std::string data;
  for (int i = 0; i < 100; ++i)
    data +=
        "\x1B"
        "E\x0C@PJL\n\x1B&l1O\x1B%-12345X";
  const std::string count = std::to_string(data.size());
  for (const std::string prefix : {"\x1B*b", "\x1B(s", "\x1B)s", "\x1B(f", "\x1B*c"}) {
    ExpectKept(prefix + count + "W" + data);
  }
  ExpectKept("\x1B*b" + count + "V" + data);
  ExpectKept("\x1B&p" + count + "X" + data);
}

TEST_F(PclFilterTest, DataEndsWithItsCount) {
  Expect(
      "\x1B*b2W\x1B"
      "E\x1B"
      "E",
      "\x1B*b2W\x1B"
      "E");
  Expect(
      "\x1B*b0W\x1B"
      "E",
      "\x1B*b0W");
  Expect(
      "\x1B*bW\x1B"
      "E",
      "\x1B*bW");
  Expect(
      "\x1B*b-5W\x1B"
      "E",
      "\x1B*b-5W");
  Expect("\x1B*b1.9W\x0C\x0C", "\x1B*b1.9W\x0C");
}

TEST_F(PclFilterTest, CountsOfACombinedSequenceAreAdded) {
  Expect("\x1B*b3m1v2W\x0C\x0C\x0C\x0C", "\x1B*b3m1v2W\x0C\x0C\x0C");
  Expect("\x1B*c1f3W\x0C\x0C\x0C\x0C", "\x1B*c3W\x0C\x0C\x0C");
  Expect("\x1B*c3w1F\x0C\x0C\x0C\x0C", "\x1B*c3W\x0C\x0C\x0C");
}

TEST_F(PclFilterTest, DataOfOtherSequencesIsLookedAt) {
  Expect(
      "\x1B*v2W\x1B"
      "E",
      "\x1B*v2W");
  Expect("\x1B*r1W\x0C", "\x1B*r1W");
}

TEST_F(PclFilterTest, LongDataIsKept) {
  const std::string data(100000, '\x1B');
  EXPECT_BYTES(Pcl("\x1B*b100000W" + data +
                   "\x1B"
                   "E"),
               "\x1B*b100000W" + data);
}

// --- Cut off by the end of the file

TEST_F(PclFilterTest, SequenceCutOffStaysAsItStands) {
  for (const char* sequence :
       {"\x1B&", "\x1B&l", "\x1B&l1", "\x1B&l1o", "\x1B&l1o5", "\x1B&l5e1", "\x1B*b100", "\x1B%",
        "\x1B%-12345", "\x1B%0", "\x1B&n", "\x1B&n5", "\x1B("}) {
    EXPECT_BYTES(Pcl(sequence), sequence);
    EXPECT_BYTES(Pcl(std::string(1000, 'x') + sequence), std::string(1000, 'x') + sequence);
  }
}

TEST_F(PclFilterTest, DataCutOffStaysAsItStands) {
  EXPECT_BYTES(Pcl("\x1B*b100W\x1B"
                   "E"),
               "\x1B*b100W\x1B"
               "E");
  EXPECT_BYTES(Pcl("\x1B*b9223372036854775807v9223372036854775807v2W\x0C"),
               "\x1B*b9223372036854775807v9223372036854775807v2W\x0C");
  EXPECT_BYTES(Pcl("\x1B*b99999999999999999999W\x0C"), "\x1B*b99999999999999999999W\x0C");
}

TEST_F(PclFilterTest, LongSequenceCutOffKeepsWhatWasDecided) {
  std::string input = "\x1B&l";
  std::string output = "\x1B&l";
  for (int i = 0; i < 200; ++i) {
    input += "1o2c";
    output += "2c";
  }
  EXPECT_BYTES(Pcl(input + "3"), output + "3");
}

TEST_F(PclFilterTest, EveryTruncationOfAJobEnds) {
  const std::string job = Bytes(
      "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n\x1B"
      "E\x1B&l1o2a5E\x1B*b3W\x1B\x0C"
      "a"
      "\x1B%0BIN;SP1;\x1B%0A\x1B[K\x03\0abc\x1B&n3Wabc\x1B&n3X\x0C\x1B%-12345X");
  for (std::size_t length = 0; length <= job.size(); ++length) {
    EXPECT_LE(Pcl(job.substr(0, length)).size(), length);
  }
}

// --- HP-GL/2

TEST_F(PclFilterTest, GraphicsAreKept) {
  ExpectKept("\x1B%0BIN;SP1;\x0C@PJL x\n\x1B&l1O\x1B%0A");
  ExpectKept("\x1B%1B\x1B%1A");
  ExpectKept("\x1B%-1B\x1B%A");
  ExpectKept("\x1B%BIN\x1B%A");
}

TEST_F(PclFilterTest, GraphicsEndWithTheirCommand) {
  Expect("\x1B%0B\x0C\x1B%0A\x0C", "\x1B%0B\x0C\x1B%0A");
  Expect("\x0C\x1B%0A\x0C", "\x1B%0A");
  ExpectKept("\x1B%0B\x1B%0B\x0C");
}

TEST_F(PclFilterTest, GraphicsEndWithAResetThatGoesByItsOption) {
  Expect(
      "\x1B%0B\x0C\x1B"
      "E\x0C",
      "\x1B%0B\x0C");
  Expect(
      "\x1B%0B\x0C\x1B"
      "E\x0C",
      "\x1B%0B\x0C\x1B"
      "E",
      ZE_FIXUP_FORM_FEED);
}

TEST_F(PclFilterTest, KeepsJobControlWithinGraphics) {
  ExpectKept("\x1B%0B\x1B%-12345X@PJL\n\x0C");
  ExpectKept(Bytes("\x1B%0B\x1B[K\x01\0a"));
}

TEST_F(PclFilterTest, PercentSequencesThatDoNotSwitchAreKept) {
  Expect("\x1B%0C\x0C\x1B%1b\x0C", "\x1B%0C\x1B%1b");
}

// --- ESC & n

TEST_F(PclFilterTest, AlphanumericIdIsDroppedWithItsData) {
  ExpectDropped("\x1B&n5Wabcde");
  ExpectDropped(
      "\x1B&n5W\x1B"
      "E\x1B"
      "E\x1B",
      0);
  Expect("\x1B&n5Wabcdef", "f");
  EXPECT_BYTES(Pcl("\x1B&n3000W" + std::string(3000, 'n') + "x"), "x");
  EXPECT_BYTES(Pcl("\x1B&n99999999999999999999Wabc"), "");
}

TEST_F(PclFilterTest, KeepsTheLossOfItsEscape) {
  Expect("\x1B&n5X", "&n5X");
  Expect("\x1B&n0W", "&n0W");
  Expect("\x1B&nW", "&nW");
  Expect("\x1B&n5w", "&n5w");
  Expect("\x1B&n5\x0C", "&n5\x0C");
  Expect("\x1B&n-5W", "&n-5W");
}

TEST_F(PclFilterTest, EscapeBehindAnAlphanumericIdEndsIt) {
  Expect(
      "\x1B&n5\x1B"
      "E",
      "&n5\x1B"
      "E");
}

// --- Other languages

TEST_F(PclFilterTest, OtherLanguagesPassUnchanged) {
  const std::string file = Bytes(
      "\x1B%-12345X@PJL\n\x1B"
      "E\x0C\x04\x1B[K\0\0%!PS\n");
  for (const std::int32_t language : {0, 1, 2, 4, 6, 7, -1}) {
    EXPECT_BYTES(Filtered(file, language, kAll, "overlay"), file);
  }
}

}  // namespace
}  // namespace zeapi::testing
