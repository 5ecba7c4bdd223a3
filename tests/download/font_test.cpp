// The job round a font: what is checked before it, how it begins and ends.
#include <cstring>

#include "download/font_job.h"

namespace zeapi::testing {
namespace {

using FontDownloadTest = FontJobTest;

// --- Arguments

TEST_F(FontDownloadTest, NullArgumentsAreInvalid) {
  WriteBitmap();
  EXPECT_EQ(ZeFonDownload(nullptr, kOutput, &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeFonDownload(kBitmap, nullptr, &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeFonDownload(kBitmap, kOutput, nullptr, 1), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(FontDownloadTest, NamesOf261CharactersAreInvalid) {
  WriteBitmap();
  const std::string name = std::string(257, 'n') + ".sfp";
  EXPECT_EQ(ZeFonDownload(name.c_str(), kOutput, &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeFonDownload(kBitmap, name.c_str(), &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(FontDownloadTest, NamesOf260CharactersAreAccepted) {
  const std::string name = std::string(256, 'n') + ".sfp";
  EXPECT_EQ(ZeFonDownload(name.c_str(), kOutput, &destination, 1), ZE_FILE_NOT_FOUND);
  WriteBitmap();
  Spooler().printer = name;
  EXPECT_EQ(ZeFonDownload(kBitmap, name.c_str(), &destination, 1), ZE_OK);
}

TEST_F(FontDownloadTest, LanguageOutside1To6IsInvalid) {
  WriteBitmap();
  for (const std::int32_t language : {-1, 0, 7, 100}) {
    destination.language = language;
    EXPECT_EQ(Download(kBitmap), ZE_INVALID_ARGUMENT) << language;
  }
  EXPECT_TRUE(NothingSent());
  for (std::int32_t language = 1; language <= 6; ++language) {
    destination.language = language;
    EXPECT_EQ(Download(kBitmap), ZE_OK) << language;
  }
}

TEST_F(FontDownloadTest, TargetOutside1To5IsInvalid) {
  WriteBitmap();
  for (const std::int32_t target : {-1, 0, 6, 100}) {
    EXPECT_EQ(Download(kBitmap, target), ZE_INVALID_ARGUMENT) << target;
  }
  EXPECT_TRUE(NothingSent());
  for (std::int32_t target = 1; target <= 5; ++target) {
    EXPECT_EQ(Download(kBitmap, target), ZE_OK) << target;
  }
}

TEST_F(FontDownloadTest, ArgumentsAreCheckedBeforeTheFont) {
  const std::filesystem::path dump = DriveC() / "apifonts.txt";
  std::filesystem::remove(dump);
  WriteBitmap();
  for (const char* font : {kBitmap, "missing.sfp"}) {
    destination.language = ZE_LANGUAGE_PCL;
    EXPECT_EQ(Download(font, 6), ZE_INVALID_ARGUMENT);
    destination.language = 0;
    EXPECT_EQ(Download(font), ZE_INVALID_ARGUMENT);
  }
  EXPECT_FALSE(std::filesystem::exists(dump));
}

// --- The font and the queue

TEST_F(FontDownloadTest, FontThatTheQueryRefusesGivesItsResult) {
  EXPECT_EQ(Download("missing.sfp"), ZE_FILE_NOT_FOUND);
  WriteFile("font", PclFontFile{}.File());
  EXPECT_EQ(Download("font"), ZE_INVALID_ARGUMENT);
  for (const char* name :
       {"font.txt", "font.fot", "font.pfa", "font.pfb", "font.dlf", "font.sfp"}) {
    WriteFile(name, "not a font");
    EXPECT_EQ(Download(name), ZE_BAD_FORMAT) << name;
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(FontDownloadTest, FolderNamedLikeAFontDoesNotOpen) {
  for (const char* name : {"x.pfa", "x.pfb", "x.dlf"}) {
    std::filesystem::create_directory(name);
    EXPECT_EQ(Download(name), ZE_OPEN_FAILED) << name;
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(FontDownloadTest, MetricFilesAreNoFonts) {
  WriteFile("font.pfm", PfmFile{}.File());
  WriteFile("font.fmf", FmfFile("Courier"));
  WriteFile("font.tfm", "x");
  WriteFile("font.afm", "FontName Courier\nEndFontMetrics\n");
  for (const char* name : {"font.pfm", "font.fmf", "font.tfm", "font.afm"}) {
    EXPECT_EQ(Download(name), ZE_BAD_FORMAT) << name;
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(FontDownloadTest, MissingCompanionIsNoFailure) {
  WriteFile("font.pfa", "%!PS\n" + kFontName);
  for (const std::uint32_t option : {0U, 2U, 4U, 5U}) {
    ZeFontInfo info;
    const std::uint32_t queried = ZeFonQueryInfo("font.pfa", &info, option, 0);
    EXPECT_EQ(queried, option == 2 || option == 4 ? ZE_UNSUPPORTED : ZE_OK);
    destination.fontQueryOption = option;
    EXPECT_EQ(Download("font.pfa"), ZE_OK) << option;
  }
}

TEST_F(FontDownloadTest, QueueThatDoesNotOpenGivesItsResult) {
  WriteBitmap();
  EXPECT_EQ(ZeFonDownload(kBitmap, "missing\\job.prn", &destination, 1), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeFonDownload(kBitmap, "", &destination, 1), ZE_OPEN_FAILED);
  destination.bidiHandle = 1;
  EXPECT_EQ(Download(kBitmap), ZE_UNUSABLE);
}

TEST_F(FontDownloadTest, FontIsQueriedBeforeTheQueueIsOpened) {
  destination.bidiHandle = 1;
  EXPECT_EQ(Download("missing.sfp"), ZE_FILE_NOT_FOUND);
}

TEST_F(FontDownloadTest, JobIsAppendedToAFile) {
  const std::string font = WriteBitmap();
  WriteFile(kOutput, "before ");
  EXPECT_EQ(Download(kBitmap), ZE_OK);
  EXPECT_EQ(Download(kBitmap), ZE_OK);
  const std::string once = "\x1B*c10D" + font + "\x1B*c5F";
  EXPECT_BYTES(Job(), "before " + once + once);
}

TEST_F(FontDownloadTest, FontIsNotAppendedToItself) {
  const std::string font = WriteBitmap();
  EXPECT_EQ(ZeFonDownload(kBitmap, kBitmap, &destination, 1), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeFonDownload(kBitmap, ".\\FONT.SFP", &destination, 1), ZE_OPEN_FAILED);
  EXPECT_BYTES(ReadFile(kBitmap), font);
}

// --- Whole jobs

TEST_F(FontDownloadTest, FontForFlashMemoryOfAPjlPrinter) {
  const std::string font = WriteBitmap();
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Fonts";
  UsePrinter();
  EXPECT_EQ(Download(kBitmap, ZE_DEVICE_FLASH1), ZE_OK);
  EXPECT_BYTES(Spooler().data,
               "\x1B%-12345X"
               "@PJL RDYMSG DISPLAY = \"Fonts\"\n"
               "@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X"
               "@PJL SET LDOWNLOADTARGET = flash1\n"
               "\x1B*c10D" +
                   font +
                   "\x1B*c5F"
                   "\x1B%-12345X"
                   "@PJL SET LDOWNLOADTARGET = ram\n"
                   "\x1B%-12345X"
                   "@PJL RDYMSG DISPLAY = \"\"\n"
                   "\x1B%-12345X");
  EXPECT_EQ(Spooler().calls,
            (Calls{"open job.prn", "start Fonts", "write 9", "write 30", "write 26", "write 9",
                   "write 34", "write 6", "write 80", "write 5", "write 9", "write 31", "write 9",
                   "write 25", "write 9", "end", "close"}));
}

TEST_F(FontDownloadTest, PrinterOfNeitherSetGetsTheFontAlone) {
  const std::string font = WriteBitmap();
  destination.jobName = "ignored";
  destination.copies = 3;
  for (const std::int32_t target : {ZE_DEVICE_RAM, ZE_DEVICE_DISK1}) {
    EXPECT_BYTES(JobOf(kBitmap, target), "\x1B*c10D" + font + "\x1B*c5F");
  }
}

TEST_F(FontDownloadTest, BracketKPrinterGetsCopiesButNoEndOfJob) {
  const std::string font = WriteBitmap();
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.copies = 3;
  EXPECT_BYTES(JobOf(kBitmap, ZE_DEVICE_DISK1), Bytes("\x1B[K\x03\0\x06\x31\x02"
                                                      "\x1B&l3X"
                                                      "\x1B[K\x03\0\x06\xC0\x31"
                                                      "\x1B*c10D") +
                                                    font +
                                                    Bytes("\x1B*c5F"
                                                          "\x1B[K\x03\0\x06\xC0\x32"));
}

TEST_F(FontDownloadTest, KeepsTheChannelOfAnEarlierJob) {
  const std::string once = Bytes(
                               "\x1B[K\x03\0\x06\x32\x02"
                               "\x1B*c10D") +
                           WriteBitmap() + "\x1B*c5F";
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.channel = '2';
  EXPECT_BYTES(JobOf(kBitmap), once);
  destination.channel = 0;
  EXPECT_BYTES(JobOf(kBitmap), once);
}

TEST_F(FontDownloadTest, KeepsBothBeginningsForAPrinterOfBothSets) {
  const std::string font = WriteBitmap();
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.copies = 2;
  EXPECT_BYTES(JobOf(kBitmap, ZE_DEVICE_FLASH2),
               Bytes("\x1B[K\x03\0\x06\x31\x02"
                     "\x1B&l2X"
                     "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
                     "\x1B%-12345X@PJL SET LDOWNLOADTARGET = flash2\n"
                     "\x1B[K\x03\0\x06\xC0\x31"
                     "\x1B*c10D") +
                   font +
                   Bytes("\x1B*c5F"
                         "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
                         "\x1B[K\x03\0\x06\xC0\x32"
                         "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X"));
}

TEST_F(FontDownloadTest, StorageOfClass2GetsInitialConditionsFirst) {
  const std::string font = WriteBitmap();
  destination.deviceClass = 2;
  EXPECT_BYTES(JobOf(kBitmap, ZE_DEVICE_DISK2),
               Bytes("\x1B[K\x01\0\x01\x1B*c10D") + font + "\x1B*c5F");
  EXPECT_BYTES(JobOf(kBitmap, ZE_DEVICE_RAM), "\x1B*c10D" + font + "\x1B*c5F");
}

TEST_F(FontDownloadTest, KeepsTheWholeFrameRoundATrueTypeFontThatIsNotSent) {
  WriteFile("font.ttf", "any bytes");
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Fonts";
  EXPECT_BYTES(JobOf("font.ttf", ZE_DEVICE_DISK2, ZE_BAD_FORMAT),
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"Fonts\"\n"
               "@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk2\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
  UsePrinter();
  EXPECT_EQ(Download("font.ttf"), ZE_BAD_FORMAT);
  EXPECT_EQ(Spooler().calls.back(), "close");
}

// --- Failures

// Which write of a job is refused, and how many more are tried: a font that failed still gets the
// first command of the job's end, whose check then ends the job.
TEST_F(FontDownloadTest, RefusedWriteOfAPjlJobStopsIt) {
  WriteBitmap();
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Fonts";
  constexpr int kFirstOfFont = 6;  // after the header (3 writes) and the download target (2)
  constexpr int kLastOfFont = 8;
  constexpr int kWrites = 13;
  for (int failing = 1; failing <= kWrites; ++failing) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Download(kBitmap, ZE_DEVICE_FLASH1), ZE_PRINTER_WRITE_FAILED) << failing;
    const bool ofFont = failing >= kFirstOfFont && failing <= kLastOfFont;
    EXPECT_EQ(Spooler().writes, ofFont ? failing + 1 : failing);
    EXPECT_EQ(Spooler().calls.back(), "close");
  }
  ResetSpooler();
  UsePrinter();
  EXPECT_EQ(Download(kBitmap, ZE_DEVICE_FLASH1), ZE_OK);
  EXPECT_EQ(Spooler().writes, kWrites);
}

TEST_F(FontDownloadTest, RefusedWriteOfABracketKJobStopsIt) {
  WriteBitmap();
  destination.flags = ZE_FLAG_BRACKET_K;
  constexpr int kWrites = 6;  // language, target; ID, font, permanent; target
  for (int failing = 1; failing <= kWrites; ++failing) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Download(kBitmap, ZE_DEVICE_FLASH1), ZE_PRINTER_WRITE_FAILED) << failing;
    EXPECT_EQ(Spooler().writes, failing);
    EXPECT_EQ(Spooler().calls.back(), "close");
  }
}

TEST_F(FontDownloadTest, RefusedFrameOfATrueTypeFontCountsMoreThanTheFont) {
  WriteFile("font.ttf", "any bytes");
  destination.flags = ZE_FLAG_PJL;
  UsePrinter();
  Spooler().failingWrite = 3;
  EXPECT_EQ(Download("font.ttf"), ZE_PRINTER_WRITE_FAILED);
}

TEST_F(FontDownloadTest, RefusedWriteOfABidiJobStopsItAndFreesTheDll) {
  WriteBitmap();
  destination.flags = ZE_FLAG_PJL;
  constexpr int kWrites = 8;  // exit, language; ID, font, permanent; exit, ready message, exit
  for (int failing = 1; failing <= kWrites + 1; ++failing) {
    ResetBidi();
    UseBidi();
    Bidi().failingWrite = failing;
    EXPECT_EQ(Download(kBitmap), failing <= kWrites ? ZE_PRINTER_WRITE_FAILED : ZE_OK) << failing;
    EXPECT_EQ(Bidi().loaded, 0);
  }
}

// --- What is left alone

TEST_F(FontDownloadTest, DestinationIsNotWrittenTo) {
  WriteBitmap();
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Fonts";
  const ZeDestination before = destination;
  EXPECT_EQ(Download(kBitmap), ZE_OK);
  EXPECT_EQ(std::memcmp(&destination, &before, sizeof(before)), 0);
}

TEST_F(FontDownloadTest, WholeJobIsLoggedLineByLine) {
  WriteBitmap();
  EXPECT_EQ(Download(kBitmap), ZE_OK);
  EXPECT_EQ(LogLines(), FileOpenLines() + FileWriteLines() + FileWriteLines() + FileWriteLines() +
                            FileCloseLines());
}

TEST_F(FontDownloadTest, RefusedFontIsNotLogged) {
  EXPECT_EQ(Download("missing.sfp"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(LogLines(), Calls{});
}

TEST_F(FontDownloadTest, UnwritableLogAndDumpChangeNothing) {
  const std::string font = WriteBitmap();
  std::filesystem::create_directory(LogFile());
  std::filesystem::remove(DriveC() / "apifonts.txt");
  std::filesystem::create_directory(DriveC() / "apifonts.txt");
  EXPECT_BYTES(JobOf(kBitmap), "\x1B*c10D" + font + "\x1B*c5F");
  std::filesystem::remove(DriveC() / "apifonts.txt");
}

}  // namespace
}  // namespace zeapi::testing
