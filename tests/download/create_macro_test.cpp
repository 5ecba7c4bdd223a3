#include "download/macro_case.h"

namespace zeapi::testing {
namespace {

class CreateMacroTest : public MacroTest {};

TEST_F(CreateMacroTest, InvalidArguments) {
  const std::string name(261, 'n');
  EXPECT_EQ(ZeMacCreate(nullptr, kOutput, &destination, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacCreate(kInput, nullptr, &destination, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacCreate(kInput, kOutput, nullptr, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacCreate(kInput, kOutput, &destination, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacCreate(name.c_str(), kOutput, &destination, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacCreate(kInput, name.c_str(), &destination, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacCreate(kInput, "LOGO.mac", &destination, &macro), ZE_INVALID_ARGUMENT);
  for (const std::int32_t language : {-1, 0, 7}) {
    destination.language = language;
    EXPECT_EQ(Create(), ZE_INVALID_ARGUMENT);
    EXPECT_EQ(ZeMacCreate("missing", kOutput, &destination, &macro), ZE_INVALID_ARGUMENT);
  }
  EXPECT_TRUE(NothingSent());
  EXPECT_BYTES(ReadFile(kInput), "DATA");
}

TEST_F(CreateMacroTest, MissingSystemAndUnreadableFiles) {
  EXPECT_EQ(ZeMacCreate("missing.exe", kOutput, &destination, &macro), ZE_FILE_NOT_FOUND);
  WriteFile("macro.exe", "x");
  EXPECT_EQ(ZeMacCreate("macro.exe", kOutput, &destination, &macro), ZE_BAD_FORMAT);
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeMacCreate("folder", kOutput, &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_TRUE(NothingSent());
}

TEST_F(CreateMacroTest, QueueThatDoesNotOpenGivesItsResult) {
  EXPECT_EQ(ZeMacCreate(kInput, "missing\\job.prn", &destination, &macro), ZE_OPEN_FAILED);
  destination.bidiHandle = 1;
  EXPECT_EQ(Create(), ZE_UNUSABLE);
}

TEST_F(CreateMacroTest, PclMacroStandsBetweenStartAndStop) {
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B&f12y0X"
               "DATA"
               "\x1B&f1X");
}

TEST_F(CreateMacroTest, NoFrameIsWritten) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.jobName = "Job";
  destination.copies = 3;
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B&f12y0X"
               "DATA"
               "\x1B&f1X");
}

TEST_F(CreateMacroTest, MacroNumberIsNotChecked) {
  destination.resourceId = 65535;
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B&f65535y0X"
               "DATA"
               "\x1B&f1X");
}

TEST_F(CreateMacroTest, ChainedMacroIsCalledFirst) {
  macro.macroFlags = ZE_MACRO_CHAIN;
  macro.chainId = 40000;
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B&f12y0X\x1B&f40000y3x12Y"
               "DATA"
               "\x1B&f1X");
}

TEST_F(CreateMacroTest, PclFixupUsesTheDefaultOptions) {
  WriteFile(kInput,
            "\x1B"
            "E\x1B&f1X\x0C"
            "text\x1B&l1X");
  macro.macroFlags = ZE_MACRO_FIX_UP;
  macro.fixupLimit = 0xFFF;
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B&f12y0X"
               "\x1B&f1Xtext\x1B&l1X"
               "\x1B&f1X");
  EXPECT_EQ(macro.macroFlags, std::uint32_t{ZE_MACRO_FIX_UP});
}

TEST_F(CreateMacroTest, PclFixupWithALimitMarksTheRecord) {
  WriteFile(kInput,
            "\x1B"
            "E\x1B&f1X\x0C"
            "text");
  macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT | ZE_MACRO_DEMO;
  macro.fixupLimit = ZE_FIXUP_MACRO_CONTROL;
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B&f12y0X"
               "\x1B"
               "E\x0C"
               "text"
               "\x1B&f1X");
  EXPECT_EQ(macro.macroFlags,
            std::uint32_t{ZE_MACRO_FIX_UP_LIMIT | ZE_MACRO_DEMO | ZE_MACRO_FIX_UP});
}

TEST_F(CreateMacroTest, RecordIsMarkedAfterTheChecksAndBeforeTheQueueOpens) {
  macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT;
  EXPECT_EQ(ZeMacCreate("missing", kOutput, &destination, &macro), ZE_FILE_NOT_FOUND);
  WriteFile("macro.ini", "x");
  EXPECT_EQ(ZeMacCreate("macro.ini", kOutput, &destination, &macro), ZE_BAD_FORMAT);
  EXPECT_EQ(macro.macroFlags, std::uint32_t{ZE_MACRO_FIX_UP_LIMIT});
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeMacCreate("folder", kOutput, &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_EQ(macro.macroFlags, std::uint32_t{ZE_MACRO_FIX_UP_LIMIT | ZE_MACRO_FIX_UP});
}

TEST_F(CreateMacroTest, PpdsMacroHasADefinitionHeader) {
  destination.language = ZE_LANGUAGE_PPDS;
  destination.resourceId = 0x1234;
  const std::string data(300, 'p');
  WriteFile(kInput, data);
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[l\x2F\0\x01\0\x34") + data);
}

TEST_F(CreateMacroTest, PpdsMacroBelow65536BytesIsTheLargest) {
  destination.language = ZE_LANGUAGE_PPDS;
  const std::string data(65535, 'p');
  WriteFile(kInput, data);
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[l\x02\0\x01\0\x0C") + data);
  WriteFile(kInput, data + "p");
  EXPECT_EQ(Create(), 37U);
  EXPECT_BYTES(Job(), "");
}

TEST_F(CreateMacroTest, PpdsFixupPassesTheFileUnchanged) {
  destination.language = ZE_LANGUAGE_PPDS;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  WriteFile(kInput,
            "\x1B"
            "E\x0C");
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[l\x06\0\x01\0\x0C\x1B"
                            "E\x0C"));
}

TEST_F(CreateMacroTest, PostScriptIsSentAsItIs) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  WriteFile(kInput, "\x04%!PS\nshowpage\n");
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), "\x04%!PS\nshowpage\n");
}

TEST_F(CreateMacroTest, PostScriptFixupAddsTheOverlayComment) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  WriteFile(kInput, "\x04%!PS\nshowpage\n");
  Name("Letterhead");
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), "%!PS\n%%Velquist Overlay: Letterhead\nshowpage\n");
  Name("");
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), "%!PS\n%%Velquist Overlay: LOGO.MAC\nshowpage\n");
  Name("abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(Create(), ZE_OK);
  EXPECT_BYTES(Job(), "%!PS\n%%Velquist Overlay: abcdefghijklmnopqrstuvw\nshowpage\n");
}

TEST_F(CreateMacroTest, OtherLanguagesAreSentWithoutAnythingRound) {
  for (const std::int32_t language : {ZE_LANGUAGE_DEFAULT, ZE_LANGUAGE_GL, ZE_LANGUAGE_PCLXL}) {
    destination.language = language;
    EXPECT_EQ(Create(), ZE_OK);
    EXPECT_BYTES(Job(), "DATA");
  }
}

TEST_F(CreateMacroTest, PclXlThatCannotBeFixedUpSendsNothing) {
  destination.language = ZE_LANGUAGE_PCLXL;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Create(), 46U);
  EXPECT_BYTES(Job(), "");
}

TEST_F(CreateMacroTest, RefusedWriteStopsTheJobThere) {
  for (int failing = 1; failing <= 3; ++failing) {
    UseNewPrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Create(), ZE_PRINTER_WRITE_FAILED);
    EXPECT_EQ(Spooler().writes, failing);
    EXPECT_EQ(Spooler().calls.back(), "close");
  }
}

TEST_F(CreateMacroTest, RefusedWriteOfAFixupDoesNotEndItsReading) {
  WriteFile(kInput, std::string(3000, 'x'));
  macro.macroFlags = ZE_MACRO_FIX_UP;
  UsePrinter();
  Spooler().failingWrite = 2;
  EXPECT_EQ(Create(), ZE_PRINTER_WRITE_FAILED);
  EXPECT_EQ(Spooler().writes, 4);  // start and three blocks, but no stop
}

}  // namespace
}  // namespace zeapi::testing
