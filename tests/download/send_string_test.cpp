#include "support/job.h"

namespace zeapi::testing {
namespace {

class SendStringTest : public JobTest {
 protected:
  std::uint32_t Send(const char* text, std::uint32_t append = 0) {
    return ZeDatSendString(text, kOutput, &destination, append);
  }

  // The bytes that a printer of neither command set gets.
  std::string Sent(const char* text) {
    EXPECT_EQ(Send(text), ZE_OK) << text;
    return Job();
  }
};

// --- Arguments

TEST_F(SendStringTest, NullArgumentsAreInvalid) {
  EXPECT_EQ(ZeDatSendString(nullptr, kOutput, &destination, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDatSendString("00", nullptr, &destination, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDatSendString("00", kOutput, nullptr, 0), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(SendStringTest, PrinterNameOf260CharactersIsAcceptedAnd261AreNot) {
  const std::string name(260, 'n');
  Spooler().printer = name;
  EXPECT_EQ(ZeDatSendString("41", name.c_str(), &destination, 0), ZE_OK);
  EXPECT_BYTES(Spooler().data, "A");
  EXPECT_EQ(ZeDatSendString("41", (name + "n").c_str(), &destination, 0), ZE_INVALID_ARGUMENT);
}

TEST_F(SendStringTest, LanguageOutside0To6IsInvalid) {
  for (const std::int32_t language : {-1, 7}) {
    destination.language = language;
    EXPECT_EQ(Send("41"), ZE_INVALID_ARGUMENT);
    EXPECT_EQ(Send("$A"), ZE_INVALID_ARGUMENT);
  }
  EXPECT_TRUE(NothingSent());
}

// --- Hexadecimal

TEST_F(SendStringTest, HexadecimalDigitsOfEitherCaseBecomeBytes) {
  EXPECT_BYTES(Sent("0a1B"), "\x0A\x1B");
  EXPECT_BYTES(Sent("00ff00"), Bytes("\0\xFF\0"));
}

TEST_F(SendStringTest, OddNumberOfDigitsIsInvalid) {
  for (const char* text : {"0", "0a1", "abcde"}) EXPECT_EQ(Send(text), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(SendStringTest, PairThatIsNotHexadecimalSendsNothing) {
  for (const char* text : {"0g", "g0", "0x", "414 ", "41424g", " 41 "}) {
    EXPECT_EQ(Send(text), ZE_INVALID_ARGUMENT) << text;
  }
  EXPECT_TRUE(NothingSent());
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(SendStringTest, EmptyTextIsAJobWithoutData) { EXPECT_BYTES(Sent(""), ""); }

// --- Escapes

TEST_F(SendStringTest, EscapesBecomeTheirBytes) {
  EXPECT_BYTES(Sent("$AB\\x41\\nC"), "ABA\nC");
  EXPECT_BYTES(Sent("$\\x1bE\\x1B%-12345X"),
               "\x1B"
               "E\x1B%-12345X");
}

TEST_F(SendStringTest, BackslashBeforeAnotherCharacterGivesThatCharacter) {
  EXPECT_BYTES(Sent("$\\\\ \\$ \\t \\N \\X41"), "\\ $ t N X41");
}

TEST_F(SendStringTest, TextOfOnlyTheMarkIsAJobWithoutData) { EXPECT_BYTES(Sent("$"), ""); }

TEST_F(SendStringTest, MarkCountsOnlyInFront) {
  EXPECT_BYTES(Sent("$$"), "$");
  EXPECT_BYTES(Sent("$%name"), "%name");
}

TEST_F(SendStringTest, EscapedZeroByteEndsTheData) { EXPECT_BYTES(Sent("$AB\\x00CD"), "AB"); }

TEST_F(SendStringTest, EscapeCutOffByTheEndIsDropped) {
  EXPECT_BYTES(Sent("$AB\\"), "AB");
  EXPECT_BYTES(Sent("$AB\\x"), "AB");
  EXPECT_BYTES(Sent("$AB\\x4"), "AB");
}

TEST_F(SendStringTest, KeepsWhatABase16ConversionMakesOfAnyTwoCharacters) {
  EXPECT_BYTES(Sent("$<\\x4G>"), "<\x04>");  // conversion stops at the G
  EXPECT_BYTES(Sent("$<\\x 7>"), "<\x07>");  // leading blanks are passed over
  EXPECT_BYTES(Sent("$<\\x-1>"), "<\xFF>");
  EXPECT_BYTES(Sent("$<\\x+5>"), "<\x05>");
  EXPECT_BYTES(Sent("$<\\xG4>"), "<");  // 0, which ends the data
  EXPECT_BYTES(Sent("$<\\x0x>"), "<");
}

TEST_F(SendStringTest, EveryByteCanBeEscaped) {
  for (int value = 1; value < 256; ++value) {
    char text[8];
    std::snprintf(text, sizeof(text), "$\\x%02x", static_cast<unsigned>(value));
    EXPECT_BYTES(Sent(text), std::string(1, static_cast<char>(value)));
  }
}

// --- Files

TEST_F(SendStringTest, PercentSendsTheFileAsFileSendingDoes) {
  WriteFile("input.dat", "DATA");
  destination.flags = ZE_FLAG_PJL;
  destination.copies = 2;
  EXPECT_EQ(Send("%input.dat"), ZE_OK);
  const std::string byString = Job();
  EXPECT_EQ(ZeDatSendFile("input.dat", kOutput, &destination, 0), ZE_OK);
  EXPECT_BYTES(byString, Job());
  EXPECT_NE(byString.find("@PJL SET COPIES = 2\n"), std::string::npos);
  EXPECT_NE(byString.find("@PJL RESET\n"), std::string::npos);
  EXPECT_EQ(Send("%input.dat", 1), ZE_OK);
  EXPECT_BYTES(Job(), byString + byString);
}

TEST_F(SendStringTest, PercentGivesTheResultsOfFileSending) {
  EXPECT_EQ(Send("%missing"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Send("%"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Send(("%" + std::string(261, 'n')).c_str()), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(Send(("%" + std::string(260, 'n')).c_str()), ZE_FILE_NOT_FOUND);
}

// --- Framing

TEST_F(SendStringTest, KeepsThePjlFrameWithoutCopiesAndWithoutReset) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "String";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 3;
  EXPECT_BYTES(Sent("$text"),
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"String\"\n@PJL ENTER LANGUAGE = PCL\n"
               "text"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

TEST_F(SendStringTest, KeepsIgnoringTheBracketKBitAndCopies) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 3;
  EXPECT_BYTES(Sent("$text"), "text");
}

TEST_F(SendStringTest, DataIsOneWriteWhateverItsLength) {
  UsePrinter();
  const std::string text = "$" + std::string(10000, 't');
  EXPECT_EQ(Send(text.c_str()), ZE_OK);
  EXPECT_EQ(Spooler().calls, (std::vector<std::string>{"open job.prn", "start Vantrel Job",
                                                       "write 10000", "end", "close"}));
}

TEST_F(SendStringTest, EmptyDataIsStillOneWrite) {
  UsePrinter();
  EXPECT_EQ(Send("$"), ZE_OK);
  EXPECT_EQ(Spooler().calls[2], "write 0");
}

TEST_F(SendStringTest, ReplacesOrAppends) {
  EXPECT_EQ(Send("$a"), ZE_OK);
  EXPECT_EQ(Send("$b"), ZE_OK);
  EXPECT_BYTES(Job(), "b");
  EXPECT_EQ(Send("$c", 1), ZE_OK);
  EXPECT_BYTES(Job(), "bc");
}

// --- Failures

TEST_F(SendStringTest, QueueThatDoesNotOpenGivesItsResult) {
  EXPECT_EQ(ZeDatSendString("41", "missing\\job.prn", &destination, 0), ZE_OPEN_FAILED);
  destination.bidiHandle = 1;
  EXPECT_EQ(Send("41"), ZE_UNUSABLE);
}

TEST_F(SendStringTest, RefusedWriteStopsTheJob) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "String";
  destination.language = ZE_LANGUAGE_PCL;
  for (int failing = 1; failing <= 7; ++failing) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Send("$text"), ZE_PRINTER_WRITE_FAILED) << failing;
    EXPECT_EQ(Spooler().writes, failing);
  }
}

}  // namespace
}  // namespace zeapi::testing
