// Type 1 fonts on their way to PostScript and PPDS printers.
#include "download/font_job.h"
#include "download/font_senders.h"
#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

class FontType1Test : public FontJobTest {
 protected:
  void SetUp() override {
    FontJobTest::SetUp();
    destination.language = ZE_LANGUAGE_POSTSCRIPT;
  }

  // What comes between the exit-server header and the end of the job.
  std::string SentOf(const std::string& file, const char* name = "font.pfb") {
    WriteFile(name, file);
    const std::string job = JobOf(name);
    EXPECT_GE(job.size(), kHeader.size() + kEnd.size());
    if (job.size() < kHeader.size() + kEnd.size()) return job;
    EXPECT_BYTES(job.substr(0, kHeader.size()), kHeader);
    EXPECT_BYTES(job.substr(job.size() - kEnd.size()), kEnd);
    return job.substr(kHeader.size(), job.size() - kHeader.size() - kEnd.size());
  }

  static inline const std::string kHeader = Bytes(
      "%% BeginExitServer 0\n"
      "% Adobe Type 1 download\r\n\r\n"
      " serverdict begin   0   exitserver  \n"
      "%% EndExitServer\n\0");
  static inline const std::string kEnd = "%!\x04";
};

TEST_F(FontType1Test, KeepsTheZeroByteAtTheEndOfTheHeader) {
  EXPECT_EQ(kHeader.size(), 103U);
  WriteFile("font.pfa", kFontName);
  UsePrinter();
  EXPECT_EQ(Download("font.pfa"), ZE_OK);
  EXPECT_BYTES(Spooler().data, kHeader + kFontName + kEnd);
  EXPECT_EQ(Spooler().calls, (Calls{"open job.prn", "start Vantrel Job", "write 103", "write 19",
                                    "write 3", "end", "close"}));
}

TEST_F(FontType1Test, TextFontGoesAsItIs) {
  const std::string font = kFontName + "\x80\x01 is no segment here\r\n" + std::string(3000, 'x');
  EXPECT_BYTES(SentOf(font, "font.pfa"), font);
}

TEST_F(FontType1Test, EveryLanguageButPpdsGetsPostScript) {
  WriteFile("font.pfa", kFontName);
  for (const std::int32_t language : {1, 3, 4, 5, 6}) {
    destination.language = language;
    EXPECT_BYTES(JobOf("font.pfa"), kHeader + kFontName + kEnd);
  }
}

// --- Segments

TEST_F(FontType1Test, SegmentedFontLosesItsHeadersAndItsBinaryPartBecomesHexadecimal) {
  EXPECT_BYTES(SentOf(Segment(1, kFontName + "currentfile eexec\r") +
                      Segment(2, Bytes("\0\x0F\xF0\xAB\xff")) + Segment(1, "0000\rcleartomark") +
                      LastSegment() + "what follows the end"),
               kFontName + "currentfile eexec\r" + "000FF0ABFF" + "0000\rcleartomark");
}

TEST_F(FontType1Test, SegmentsGoInPiecesOf1024Bytes) {
  WriteFile("font.pfb", Segment(1, kFontName + std::string(2048 - 19, 't')) +
                            Segment(2, std::string(1030, '\xC5')) + Segment(1, "") + LastSegment());
  UsePrinter();
  EXPECT_EQ(Download("font.pfb"), ZE_OK);
  EXPECT_EQ(Spooler().calls,
            (Calls{"open job.prn", "start Vantrel Job", "write 103", "write 1024", "write 1024",
                   "write 2048", "write 12", "write 3", "end", "close"}));
  std::string digits;
  for (int i = 0; i < 1030; ++i) digits += "C5";
  EXPECT_BYTES(Spooler().data, kHeader + kFontName + std::string(2048 - 19, 't') + digits + kEnd);
}

// The end of the job is still sent.
TEST_F(FontType1Test, WriteThatFallsShortEndsTheFont) {
  WriteFile("font.pfb", Segment(1, kFontName + std::string(3000, 't')) +
                            Segment(2, std::string(1500, '\xC5')) + LastSegment());
  UseBidi();
  Bidi().reportedShort = 1;
  EXPECT_EQ(Download("font.pfb"), ZE_OK);
  EXPECT_BYTES(Bidi().data, kHeader + kFontName + std::string(1024 - 19, 't') + kEnd);
}

TEST_F(FontType1Test, EveryByteHasItsTwoDigits) {
  std::string bytes;
  std::string digits;
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
    digits += "0123456789ABCDEF"[i / 16];
    digits += "0123456789ABCDEF"[i % 16];
  }
  EXPECT_BYTES(SentOf(Segment(2, bytes) + Segment(1, kFontName) + LastSegment()),
               digits + kFontName);
}

TEST_F(FontType1Test, FileMayEndWithoutAnEndSegment) {
  EXPECT_BYTES(SentOf(Segment(1, kFontName)), kFontName);
}

TEST_F(FontType1Test, KeepsTheEndOfTheJobAfterASegmentThatDoesNotStart) {
  const std::string first = Segment(1, kFontName);
  const std::string more = Segment(2, "more");
  std::string wrongStart = more;
  wrongStart[0] = '\x81';
  EXPECT_BYTES(SentOf(first + wrongStart), kFontName);
  for (const char type : {'\x00', '\x04', '\x7F', '\xFF'}) {
    EXPECT_BYTES(SentOf(first + Segment(type, "more") + more), kFontName);
  }
}

TEST_F(FontType1Test, FontThatIsNotSegmentedAtAllSendsNothingOfIt) {
  EXPECT_BYTES(SentOf("%!PS\n" + kFontName), "");
}

TEST_F(FontType1Test, CutOffAtEachByteTheJobStillEndsAsItShould) {
  const std::string text = kFontName + "eexec\r";
  const std::string file = Segment(1, text) + Segment(2, Bytes("\x01\x02")) + LastSegment();
  const std::size_t binaryStart = 6 + text.size();
  for (std::size_t length = 6 + kFontName.size(); length <= file.size(); ++length) {
    // A piece that is not whole is not sent.
    const std::string expected = length < binaryStart       ? ""
                                 : length < binaryStart + 8 ? text
                                                            : text + "0102";
    EXPECT_BYTES(SentOf(file.substr(0, length)), expected) << length;
  }
}

TEST_F(FontType1Test, LengthThatLiesEndsTheFontAfterTheWholePieces) {
  const std::string body = kFontName + std::string(1500, 'x');
  EXPECT_BYTES(SentOf("\x80\x01" + Le32(0xFFFFFFFF) + body), body.substr(0, 1024));
  EXPECT_BYTES(SentOf("\x80\x01" + Le32(0x7FFFFFFF) + body), body.substr(0, 1024));
}

// --- PPDS

class FontPpdsTest : public FontJobTest {
 protected:
  void SetUp() override {
    FontJobTest::SetUp();
    destination.language = ZE_LANGUAGE_PPDS;
    destination.ppdsFontCode = 0x1302;
    destination.ppdsFontSlot = 0xABCD;
  }

  static std::string FontOfSize(std::size_t size) {
    return kFontName + std::string(size - kFontName.size(), 'x');
  }
  // The header of a block: the count, the code less 256, the slot, and whether more blocks come.
  static std::string BlockHeader(std::size_t length, char last) {
    return "\x1B=" + Le16(static_cast<std::uint32_t>(length + 8)) + "\x41\x01\x01\x12\x02\xAB\xCD" +
           last;
  }
  static inline const std::string kId = Bytes("\x1B=\x04\0\x41\x0E\0\x0A");
};

TEST_F(FontPpdsTest, FontOf5000BytesGoesInBlocksOf2048And2048And904) {
  const std::string font = FontOfSize(5000);
  WriteFile("font.pfa", font);
  UsePrinter();
  EXPECT_EQ(Download("font.pfa"), ZE_OK);
  EXPECT_BYTES(Spooler().data,
               kId + "\x1B=" + Bytes("\x08\x08") + "\x41\x01\x01\x12\x02\xAB\xCD\x02" +
                   font.substr(0, 2048) + "\x1B=" + Bytes("\x08\x08") +
                   "\x41\x01\x01\x12\x02\xAB\xCD\x02" + font.substr(2048, 2048) + "\x1B=" +
                   Bytes("\x90\x03") + "\x41\x01\x01\x12\x02\xAB\xCD\x01" + font.substr(4096));
  EXPECT_EQ(Spooler().calls,
            (Calls{"open job.prn", "start Vantrel Job", "write 8", "write 12", "write 2048",
                   "write 12", "write 2048", "write 12", "write 904", "end", "close"}));
}

TEST_F(FontPpdsTest, LastBlockIsMarkedAtEverySize) {
  for (const std::size_t size : {20U, 2047U, 2048U, 2049U, 4096U}) {
    const std::string font = FontOfSize(size);
    WriteFile("font.pfa", font);
    std::string expected = kId;
    for (std::size_t at = 0; at < size; at += 2048) {
      const std::string piece = font.substr(at, 2048);
      expected += BlockHeader(piece.size(), at + 2048 >= size ? '\x01' : '\x02') + piece;
    }
    EXPECT_BYTES(JobOf("font.pfa"), expected);
  }
}

TEST_F(FontPpdsTest, SegmentedFontGoesWithItsHeaders) {
  const std::string font = Segment(1, kFontName) + Segment(2, "\x01\x02") + LastSegment();
  WriteFile("font.pfb", font);
  EXPECT_BYTES(JobOf("font.pfb"), kId + BlockHeader(font.size(), '\x01') + font);
}

TEST_F(FontPpdsTest, FontCodeIsSentLess256) {
  WriteFile("font.pfa", kFontName);
  destination.ppdsFontSlot = 0;
  const auto blockWithCode = [&](std::uint16_t code) {
    destination.ppdsFontCode = code;
    return JobOf("font.pfa").substr(kId.size(), 12);
  };
  EXPECT_BYTES(blockWithCode(256), Bytes("\x1B=\x1B\0\x41\x01\x01\0\0\0\0\x01"));
  EXPECT_BYTES(blockWithCode(257), Bytes("\x1B=\x1B\0\x41\x01\x01\0\x01\0\0\x01"));
  EXPECT_BYTES(blockWithCode(255), Bytes("\x1B=\x1B\0\x41\x01\x01\xFF\xFF\0\0\x01"));
  EXPECT_BYTES(blockWithCode(0), Bytes("\x1B=\x1B\0\x41\x01\x01\xFF\0\0\0\x01"));
}

TEST_F(FontPpdsTest, KeepsTheLongAlternateIdBelow100) {
  WriteFile("font.pfa", kFontName);
  destination.resourceId = 5;
  EXPECT_BYTES(JobOf("font.pfa").substr(0, 8), Bytes("\x1B=\x04\0\x41\x0E\0\x05"));
  destination.resourceId = 0x1234;
  EXPECT_BYTES(JobOf("font.pfa").substr(0, 8), Bytes("\x1B=\x04\0\x41\x0E\x12\x34"));
}

TEST_F(FontPpdsTest, NoBlockIsMadeUpOfAFileThatShrank) {
  WriteFile("font.pfa", std::string(2100, 'x'));
  GenQueContext ctx;
  ctx.destination = &destination;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  EXPECT_EQ(SendPpdsBlocks("font.pfa", 5000, &ctx), ZE_READ_FAILED);
  GenQueClose(&ctx);
  EXPECT_BYTES(Job(), kId + BlockHeader(2048, '\x02') + std::string(2048, 'x'));
}

TEST_F(FontPpdsTest, RefusedIdIsReportedByTheJobNotByTheSender) {
  WriteFile("font.pfa", kFontName);
  UsePrinter();
  GenQueContext ctx;
  ctx.destination = &destination;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  Spooler().failingWrite = 1;
  EXPECT_EQ(SendPpdsBlocks("font.pfa", 19, &ctx), ZE_OK);
  EXPECT_EQ(ctx.error, ZE_PRINTER_WRITE_FAILED);
  GenQueClose(&ctx);
  for (const std::uint32_t flags : {0U, std::uint32_t{ZE_FLAG_PJL}}) {
    ResetSpooler();
    UsePrinter();
    destination.flags = flags;
    Spooler().failingWrite = flags == 0 ? 1 : 3;
    EXPECT_EQ(Download("font.pfa"), ZE_PRINTER_WRITE_FAILED) << flags;
  }
}

}  // namespace
}  // namespace zeapi::testing
