// PCL and DLF fonts on their way to a printer.
#include "download/font_job.h"
#include "download/font_senders.h"

namespace zeapi::testing {
namespace {

using FontPclTest = FontJobTest;

const std::string kPermanent = "\x1B*c5F";

PclFontFile ScalableFont() { return PclFontOf(15, 72); }

// --- IDs

TEST_F(FontPclTest, PclIdIsDecimal) {
  const std::string font = WriteBitmap();
  for (const auto id : std::initializer_list<std::uint16_t>{0, 99, 100, 65535}) {
    destination.resourceId = id;
    EXPECT_BYTES(JobOf(kBitmap), "\x1B*c" + std::to_string(id) + "D" + font + kPermanent);
  }
}

TEST_F(FontPclTest, PpdsIdHasOneByteBelow100AndTwoFromThereOn) {
  const std::string font = DlfFile{}.File();
  WriteFile("font.dlf", font);
  const auto jobWithId = [&](std::uint16_t id) {
    destination.resourceId = id;
    return JobOf("font.dlf");
  };
  EXPECT_BYTES(jobWithId(0), Bytes("\x1B=\x03\0\x31\x08\0") + font);
  EXPECT_BYTES(jobWithId(99), Bytes("\x1B=\x03\0\x31\x08\x63") + font);
  EXPECT_BYTES(jobWithId(100), Bytes("\x1B=\x04\0\x31\x0E\0\x64") + font);
  EXPECT_BYTES(jobWithId(0x1234), Bytes("\x1B=\x04\0\x31\x0E\x12\x34") + font);
}

// --- Writes

TEST_F(FontPclTest, FontGoesUnchangedInBlocks) {
  PclFontFile font = PclFontOf(0, 64);
  for (int i = 0; i < 5000; ++i) font.rest += static_cast<char>(i * 7);
  const std::string file = font.File();
  WriteFile(kBitmap, file);
  UsePrinter();
  EXPECT_EQ(Download(kBitmap), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B*c10D" + file + kPermanent);
  EXPECT_EQ(Spooler().calls, (Calls{"open job.prn", "start Vantrel Job", "write 6", "write 2048",
                                    "write 2048", "write 984", "write 5", "end", "close"}));
}

TEST_F(FontPclTest, CheckedFontGoesInOtherWritesButTheSameBytes) {
  const std::string font = WriteBitmap();
  destination.language = ZE_LANGUAGE_PCLXL;
  UsePrinter();
  EXPECT_EQ(Download(kBitmap), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B*c10D" + font + kPermanent);
  // ID; ESC ")s64W"; the descriptor; the rest; permanent
  EXPECT_EQ(Spooler().calls, (Calls{"open job.prn", "start Vantrel Job", "write 6", "write 6",
                                    "write 64", "write 10", "write 5", "end", "close"}));
}

TEST_F(FontPclTest, KeepsTheIdOfAScalableFontInThreeWrites) {
  const std::string font = ScalableFont().File();
  WriteFile("font.sfs", font);
  destination.resourceId = 321;
  UsePrinter();
  EXPECT_EQ(Download("font.sfs"), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B*c321D" + font + kPermanent);
  EXPECT_EQ(Spooler().calls, (Calls{"open job.prn", "start Vantrel Job", "write 3", "write 3",
                                    "write 1", "write 88", "write 5", "end", "close"}));
}

TEST_F(FontPclTest, CheckedScalableFontGoesInOtherWritesButTheSameBytes) {
  const std::string font = ScalableFont().File();
  WriteFile("font.sfs", font);
  destination.language = ZE_LANGUAGE_PCLXL;
  UsePrinter();
  EXPECT_EQ(Download("font.sfs"), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B*c10D" + font + kPermanent);
  EXPECT_EQ(Spooler().calls,
            (Calls{"open job.prn", "start Vantrel Job", "write 3", "write 2", "write 1", "write 6",
                   "write 64", "write 18", "write 5", "end", "close"}));
}

TEST_F(FontPclTest, DlfFontIsNotMadePermanent) {
  const std::string font = DlfFile{}.File();
  WriteFile("font.dlf", font);
  UsePrinter();
  EXPECT_EQ(Download("font.dlf"), ZE_OK);
  EXPECT_BYTES(Spooler().data, Bytes("\x1B=\x03\0\x31\x08\x0A") + font);
}

TEST_F(FontPclTest, KeepsRefusingDlfFontsForPclXlInsideAWholeFrame) {
  WriteFile("font.dlf", DlfFile{}.File());
  destination.language = ZE_LANGUAGE_PCLXL;
  destination.flags = ZE_FLAG_PJL;
  EXPECT_BYTES(JobOf("font.dlf", ZE_DEVICE_RAM, ZE_OPEN_FAILED),
               "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

// --- The senders on files that are not, or no longer, what the query saw

class FontSenderTest : public FontPclTest {
 protected:
  void SetUp() override {
    FontPclTest::SetUp();
    UsePrinter();
    context_.destination = &destination;
    ASSERT_EQ(GenQueOpen(kOutput, &context_), ZE_OK);
  }
  void TearDown() override {
    GenQueClose(&context_);
    FontPclTest::TearDown();
  }
  GenQueContext* queue() { return &context_; }

 private:
  GenQueContext context_;
};

TEST_F(FontSenderTest, FileThatDoesNotOpenGives2OnThePclAndPpdsRoadsAnd3OnTheOthers) {
  for (const std::int32_t language : {ZE_LANGUAGE_PCL, ZE_LANGUAGE_PCLXL}) {
    destination.language = language;
    EXPECT_EQ(SendPclFont("gone", FontIdForm::kPcl, queue()), ZE_FILE_NOT_FOUND);
    EXPECT_EQ(SendPclFont("gone", FontIdForm::kPpds, queue()), ZE_FILE_NOT_FOUND);
    EXPECT_EQ(SendScalableFont("gone", queue()), ZE_OPEN_FAILED);
  }
  EXPECT_EQ(SendPpdsBlocks("gone", 1, queue()), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(SendType1Font("gone", false, queue()), ZE_OPEN_FAILED);
  EXPECT_EQ(SendType1Font("gone", true, queue()), ZE_OPEN_FAILED);
  EXPECT_BYTES(Spooler().data, "");
}

TEST_F(FontSenderTest, CheckRefusesWhatDoesNotBeginAsAPclFont) {
  destination.language = ZE_LANGUAGE_PCLXL;
  const std::string descriptor(64, 'd');
  for (const std::string& start :
       {Bytes(""), Bytes("\x1B)"), Bytes("\x1B)S64W"), Bytes("\x1B(s64W"), Bytes(" )s64W"),
        Bytes("\x1B)s1234567W"), Bytes("\x1B)s123456W"), Bytes("\x1B)s64")}) {
    WriteFile("font", start.size() < 5 ? start : start + descriptor);
    EXPECT_EQ(SendPclFont("font", FontIdForm::kPcl, queue()), ZE_OPEN_FAILED) << start;
    EXPECT_EQ(SendScalableFont("font", queue()), ZE_OPEN_FAILED) << start;
  }
  EXPECT_BYTES(Spooler().data, "");
}

TEST_F(FontSenderTest, CheckAcceptsAWAmongTheFirst6Characters) {
  destination.language = ZE_LANGUAGE_PCLXL;
  for (const std::string& start : {Bytes("\x1B)sW"), Bytes("\x1B)s12345W")}) {
    const std::string file = start + std::string(64, 'd') + "rest";
    WriteFile("font", file);
    Spooler().data.clear();
    EXPECT_EQ(SendPclFont("font", FontIdForm::kPcl, queue()), ZE_OK);
    EXPECT_BYTES(Spooler().data, "\x1B*c10D" + file + kPermanent);
  }
}

TEST_F(FontSenderTest, CheckSendsAShortDescriptorAsItIs) {
  destination.language = ZE_LANGUAGE_PCLXL;
  WriteFile("font", "\x1B)s64Wshort");
  EXPECT_EQ(SendPclFont("font", FontIdForm::kPcl, queue()), ZE_OK);
  EXPECT_BYTES(Spooler().data, "\x1B*c10D\x1B)s64Wshort" + kPermanent);
}

TEST_F(FontSenderTest, OnlyPclXlIsChecked) {
  WriteFile("font", "anything");
  EXPECT_EQ(SendPclFont("font", FontIdForm::kPcl, queue()), ZE_OK);
  EXPECT_EQ(SendScalableFont("font", queue()), ZE_OK);
  const std::string once = "\x1B*c10Danything" + kPermanent;
  EXPECT_BYTES(Spooler().data, once + once);
}

// --- Refused writes: nothing more of the font is sent

class FontRefusedTest : public FontPclTest {
 protected:
  // Refuses each write of a job without a frame in turn and wants nothing after it.
  void ExpectEachRefusedWriteToBeTheLast(const char* font, int writes) {
    for (int failing = 1; failing <= writes; ++failing) {
      ResetSpooler();
      UsePrinter();
      Spooler().failingWrite = failing;
      EXPECT_EQ(Download(font), ZE_PRINTER_WRITE_FAILED) << failing;
      EXPECT_EQ(Spooler().writes, failing);
      EXPECT_EQ(Spooler().calls.back(), "close");
    }
    ResetSpooler();
    UsePrinter();
    EXPECT_EQ(Download(font), ZE_OK);
    EXPECT_EQ(Spooler().writes, writes);
  }
};

TEST_F(FontRefusedTest, PclBitmap) {
  WriteBitmap();
  ExpectEachRefusedWriteToBeTheLast(kBitmap, 3);
  destination.language = ZE_LANGUAGE_PCLXL;
  ExpectEachRefusedWriteToBeTheLast(kBitmap, 5);
}

TEST_F(FontRefusedTest, ScalablePcl) {
  WriteFile("font.sfs", ScalableFont().File());
  ExpectEachRefusedWriteToBeTheLast("font.sfs", 5);
  destination.language = ZE_LANGUAGE_PCLXL;
  ExpectEachRefusedWriteToBeTheLast("font.sfs", 7);
}

TEST_F(FontRefusedTest, Dlf) {
  WriteFile("font.dlf", DlfFile{}.File());
  ExpectEachRefusedWriteToBeTheLast("font.dlf", 2);
}

TEST_F(FontRefusedTest, Type1) {
  WriteFile("font.pfa", "%!PS\n" + kFontName);
  ExpectEachRefusedWriteToBeTheLast("font.pfa", 3);
  WriteFile("font.pfb", Segment(1, kFontName + std::string(2000, 't')) +
                            Segment(2, std::string(1025, 'b')) + LastSegment());
  ExpectEachRefusedWriteToBeTheLast("font.pfb", 1 + 2 + 2 + 1);
}

TEST_F(FontRefusedTest, PpdsBlocks) {
  WriteFile("font.pfa", "%!PS\n" + kFontName + std::string(4000, 'x'));
  destination.language = ZE_LANGUAGE_PPDS;
  ExpectEachRefusedWriteToBeTheLast("font.pfa", 1 + 2 * 2);
}

}  // namespace
}  // namespace zeapi::testing
