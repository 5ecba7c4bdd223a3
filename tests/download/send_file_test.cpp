#include <cstring>

#include "support/job.h"

namespace zeapi::testing {
namespace {

using Calls = std::vector<std::string>;

class SendFileTest : public JobTest {
 protected:
  static constexpr char kInput[] = "input.dat";

  void SetUp() override {
    JobTest::SetUp();
    WriteFile(kInput, "DATA");
  }

  std::uint32_t Send(std::uint32_t append = 0) {
    return ZeDatSendFile(kInput, kOutput, &destination, append);
  }
};

// --- Arguments

TEST_F(SendFileTest, NullArgumentsAreInvalid) {
  EXPECT_EQ(ZeDatSendFile(nullptr, kOutput, &destination, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDatSendFile(kInput, nullptr, &destination, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDatSendFile(kInput, kOutput, nullptr, 0), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(SendFileTest, NamesOf261CharactersAreInvalid) {
  const std::string name(261, 'n');
  EXPECT_EQ(ZeDatSendFile(name.c_str(), kOutput, &destination, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDatSendFile(kInput, name.c_str(), &destination, 0), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(SendFileTest, NamesOf260CharactersAreAccepted) {
  const std::string name(260, 'n');
  EXPECT_EQ(ZeDatSendFile(name.c_str(), kOutput, &destination, 0), ZE_FILE_NOT_FOUND);
  Spooler().printer = name;
  EXPECT_EQ(ZeDatSendFile(kInput, name.c_str(), &destination, 0), ZE_OK);
  EXPECT_BYTES(Spooler().data, "DATA");
}

TEST_F(SendFileTest, LanguageOutside0To6IsInvalid) {
  for (const std::int32_t language : {-1, 7, 100}) {
    destination.language = language;
    EXPECT_EQ(Send(), ZE_INVALID_ARGUMENT) << language;
  }
  EXPECT_TRUE(NothingSent());
  for (std::int32_t language = 0; language <= 6; ++language) {
    destination.language = language;
    EXPECT_EQ(Send(), ZE_OK) << language;
  }
}

TEST_F(SendFileTest, ArgumentsAreCheckedBeforeTheFile) {
  destination.language = 7;
  EXPECT_EQ(ZeDatSendFile("missing", kOutput, &destination, 0), ZE_INVALID_ARGUMENT);
}

// --- The file and the queue

TEST_F(SendFileTest, MissingFileIsNotFound) {
  EXPECT_EQ(ZeDatSendFile("missing", kOutput, &destination, 0), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeDatSendFile("", kOutput, &destination, 0), ZE_FILE_NOT_FOUND);
  EXPECT_TRUE(NothingSent());
}

TEST_F(SendFileTest, FolderCannotBeOpened) {
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeDatSendFile("folder", kOutput, &destination, 0), ZE_OPEN_FAILED);
  EXPECT_TRUE(NothingSent());
}

TEST_F(SendFileTest, QueueThatDoesNotOpenGivesItsResult) {
  EXPECT_EQ(ZeDatSendFile(kInput, "missing\\job.prn", &destination, 0), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeDatSendFile(kInput, "", &destination, 0), ZE_OPEN_FAILED);
  destination.bidiHandle = 1;
  EXPECT_EQ(Send(), ZE_UNUSABLE);
}

TEST_F(SendFileTest, FileIsNotAppendedToItself) {
  EXPECT_EQ(ZeDatSendFile(kInput, kInput, &destination, 1), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeDatSendFile(kInput, ".\\INPUT.DAT", &destination, 1), ZE_OPEN_FAILED);
  EXPECT_BYTES(ReadFile(kInput), "DATA");
}

// Sent to itself without being appended, it is emptied when the job is opened.
TEST_F(SendFileTest, FileThatIsItsOwnPrinterEnds) {
  WriteFile(kInput, std::string(5000, 'x'));
  EXPECT_EQ(ZeDatSendFile(kInput, kInput, &destination, 0), ZE_OK);
  EXPECT_BYTES(ReadFile(kInput), "");
}

// --- Neither command set

TEST_F(SendFileTest, PrinterOfNeitherSetGetsTheDataOncePerCopy) {
  destination.jobName = "ignored";
  destination.language = ZE_LANGUAGE_PCL;
  for (const auto copies : std::initializer_list<std::uint16_t>{0, 1, 3}) {
    destination.copies = copies;
    EXPECT_EQ(Send(), ZE_OK);
    std::string expected = "DATA";
    for (int i = 1; i < copies; ++i) expected += "DATA";
    EXPECT_BYTES(Job(), expected);
  }
}

TEST_F(SendFileTest, EmptyFileIsAJobWithoutData) {
  WriteFile(kInput, "");
  destination.copies = 3;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), "");
}

TEST_F(SendFileTest, FileIsSentUnchangedInBlocks) {
  std::string bytes;
  for (int i = 0; i < 5000; ++i) bytes += static_cast<char>(i * 7);
  WriteFile(kInput, bytes);
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Spooler().data, bytes);
  EXPECT_EQ(Spooler().calls, (Calls{"open job.prn", "start Vantrel Job", "write 2048", "write 2048",
                                    "write 904", "end", "close"}));
}

TEST_F(SendFileTest, ReplacesOrAppends) {
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), "DATA");
  EXPECT_EQ(Send(1), ZE_OK);
  EXPECT_BYTES(Job(), "DATADATA");
  EXPECT_EQ(Send(0x100), ZE_OK);
  EXPECT_BYTES(Job(), "DATADATADATA");
}

// --- PJL printers

TEST_F(SendFileTest, PjlJobHasHeaderWithCopiesAndTrailerWithReset) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Letter";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 3;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"Letter\"\n"
               "@PJL ENTER LANGUAGE = PCL\n"
               "@PJL SET COPIES = 3\n"
               "DATA"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n@PJL RESET\n\x1B%-12345X");
}

TEST_F(SendFileTest, OtherFlagBitsAreNotRead) {
  destination.flags = ~(std::uint32_t{ZE_FLAG_PJL} | ZE_FLAG_BRACKET_K);
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), "DATA");
}

// --- Bracket-K printers

TEST_F(SendFileTest, BracketKJobHasLanguageSelectionCopiesAndEndOfJob) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.jobName = "Letter";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 3;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\x31\x02"
                            "\x1B&l3X"
                            "DATA"
                            "\x1B[K\x01\0\x06"));
}

TEST_F(SendFileTest, KeepsBracketKInPlaceOfThePjlHeaderButBothEndings) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PPDS;
  destination.copies = 3;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\x31\x01"
                            "DATA"
                            "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n@PJL RESET\n\x1B%-12345X"
                            "\x1B[K\x01\0\x06"));
}

TEST_F(SendFileTest, KeepsTheChannelOfAnEarlierJob) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  destination.channel = '2';
  EXPECT_EQ(Send(), ZE_OK);
  destination.channel = 0;
  EXPECT_EQ(Send(1), ZE_OK);
  const std::string once = Bytes(
      "\x1B[K\x03\0\x06\x32\x08"
      "DATA\x1B[K\x01\0\x06");
  EXPECT_BYTES(Job(), once + once);
}

// --- Failures

// The printer refuses the nth write of a job with header (4 writes), one block and trailer (4
// writes).
TEST_F(SendFileTest, RefusedWriteOfAPjlJobStopsIt) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Letter";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 3;
  for (int failing = 1; failing <= 9; ++failing) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Send(), ZE_PRINTER_WRITE_FAILED) << failing;
    EXPECT_EQ(Spooler().writes, failing);
    EXPECT_EQ(Spooler().calls.back(), "close");
  }
  ResetSpooler();
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_EQ(Spooler().writes, 9);
}

TEST_F(SendFileTest, RefusedDataStopsTheCopies) {
  destination.copies = 3;
  UsePrinter();
  Spooler().failingWrite = 2;
  EXPECT_EQ(Send(), ZE_PRINTER_WRITE_FAILED);
  EXPECT_BYTES(Spooler().data, "DATA");
}

TEST_F(SendFileTest, RefusedLanguageSelectionStopsTheJobAfterTheCopies) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 2;
  UsePrinter();
  Spooler().failingWrite = 1;
  EXPECT_EQ(Send(), ZE_PRINTER_WRITE_FAILED);
  EXPECT_BYTES(Spooler().data, "\x1B&l2X");
}

TEST_F(SendFileTest, RefusedDataOfABracketKJobSendsNoEndOfJob) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PCL;
  UsePrinter();
  Spooler().failingWrite = 2;
  EXPECT_EQ(Send(), ZE_PRINTER_WRITE_FAILED);
  EXPECT_EQ(Spooler().writes, 2);
}

TEST_F(SendFileTest, KeepsItsResultWhenTheEndOfJobSequenceIsRefused) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PCL;
  UsePrinter();
  Spooler().failingWrite = 3;
  EXPECT_EQ(Send(), ZE_OK);
}

TEST_F(SendFileTest, RefusedWriteOfABidiJobStopsItAndFreesTheDll) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Letter";
  UseBidi();
  int writes = 0;
  for (int failing = 1; failing == 1 || writes == failing - 1; ++failing) {
    ResetBidi();
    UseBidi();
    Bidi().failingWrite = failing;
    const std::uint32_t result = Send();
    writes = Bidi().writes;
    EXPECT_EQ(result, writes == failing ? ZE_PRINTER_WRITE_FAILED : ZE_OK) << failing;
    EXPECT_EQ(Bidi().loaded, 0);
    if (result == ZE_OK) break;
  }
  EXPECT_EQ(writes, 7);  // exit, ready message; data; exit, ready message, reset, exit
}

TEST_F(SendFileTest, DestinationIsNotWrittenTo) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Letter";
  destination.language = ZE_LANGUAGE_PCL;
  const ZeDestination before = destination;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_EQ(std::memcmp(&destination, &before, sizeof(before)), 0);
}

TEST_F(SendFileTest, WholeJobIsLoggedLineByLine) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PPDS;
  EXPECT_EQ(Send(), ZE_OK);
  // Language selection, data, end of job; the queue opened and closed around them.
  EXPECT_EQ(LogLines(), FileOpenLines() + FileWriteLines() + FileWriteLines() + FileWriteLines() +
                            FileCloseLines());
}

TEST_F(SendFileTest, UnwritableLogChangesNothing) {
  std::filesystem::create_directory(LogFile());
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), "DATA");
}

}  // namespace
}  // namespace zeapi::testing
