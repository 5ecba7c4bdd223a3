#include "download/macro_case.h"

namespace zeapi::testing {
namespace {

class DownloadMacroTest : public MacroTest {
 protected:
  // A PJL job around the payload, in a language that the header names.
  std::string PjlJob(const std::string& language, const std::string& payload) {
    return "\x1B%-12345X@PJL RDYMSG DISPLAY = \"Macro\"\n@PJL ENTER LANGUAGE = " + language + "\n" +
           payload + kTrailer;
  }
  void UsePjl() {
    destination.flags = ZE_FLAG_PJL;
    destination.jobName = "Macro";
  }

  static constexpr char kHide[] = "userdict begin /showpage {} def end\n";
  static constexpr char kExtensionOff[] =
      "statusdict begin currentfilenameextend false setfilenameextend end\n";
  static constexpr char kLoop[] =
      "{ currentfile read\nnot { exit } if dup 1 eq { pop exit } if\n"
      "writefile exch write } loop\n";
};

// --- Arguments

TEST_F(DownloadMacroTest, InvalidArguments) {
  const std::string name(261, 'n');
  EXPECT_EQ(ZeMacDownload(nullptr, kOutput, &destination, &macro, 1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload(kInput, nullptr, &destination, &macro, 1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload(kInput, kOutput, nullptr, &macro, 1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload(kInput, kOutput, &destination, nullptr, 1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload(name.c_str(), kOutput, &destination, &macro, 1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload(kInput, name.c_str(), &destination, &macro, 1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload(kInput, "Logo.Mac", &destination, &macro, 1, 0), ZE_INVALID_ARGUMENT);
  for (const std::int32_t mode : {-1, 0, 4}) EXPECT_EQ(Download(mode, 0), ZE_INVALID_ARGUMENT);
  for (const std::uint32_t wrap : {1U, 28U, 30U, 0x11DU}) {
    EXPECT_EQ(Download(1, wrap), ZE_INVALID_ARGUMENT);
  }
  for (const std::int32_t device : {-1, 0, 6}) {
    macro.macroDevice = device;
    EXPECT_EQ(Download(1, 0), ZE_INVALID_ARGUMENT);
  }
  macro.macroDevice = ZE_DEVICE_RAM;
  for (const std::int32_t language : {-1, 0, 7}) {
    destination.language = language;
    EXPECT_EQ(Download(1, 0), ZE_INVALID_ARGUMENT);
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(DownloadMacroTest, PclXlIsNotWrapped) {
  destination.language = ZE_LANGUAGE_PCLXL;
  for (const std::int32_t mode : {1, 2, 3}) {
    EXPECT_EQ(Download(mode, 29), ZE_INVALID_ARGUMENT);
  }
}

TEST_F(DownloadMacroTest, LargeNumbersAreForRawFilesAlone) {
  destination.resourceId = 32768;
  EXPECT_EQ(Download(1, 29), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(Download(2, 29), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(Download(3, 29), ZE_OK);
  EXPECT_BYTES(Job(), "DATA\x1B&f32768y10X");
  destination.resourceId = 32767;
  EXPECT_EQ(Download(2, 29), ZE_OK);
}

TEST_F(DownloadMacroTest, ArgumentsAreCheckedBeforeTheFile) {
  EXPECT_EQ(ZeMacDownload("missing", kOutput, &destination, &macro, 4, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacDownload("missing.exe", kOutput, &destination, &macro, 1, 0), ZE_FILE_NOT_FOUND);
  WriteFile("macro.exe", "x");
  EXPECT_EQ(ZeMacDownload("macro.exe", kOutput, &destination, &macro, 1, 0), ZE_BAD_FORMAT);
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeMacDownload("folder", kOutput, &destination, &macro, 1, 0), ZE_OPEN_FAILED);
  EXPECT_TRUE(NothingSent());
}

TEST_F(DownloadMacroTest, QueueThatDoesNotOpenGivesItsResult) {
  EXPECT_EQ(ZeMacDownload(kInput, "missing\\job.prn", &destination, &macro, 1, 0), ZE_OPEN_FAILED);
  destination.bidiHandle = 1;
  EXPECT_EQ(Download(1, 0), ZE_UNUSABLE);
}

TEST_F(DownloadMacroTest, LimitOfTheFixupMarksTheRecord) {
  WriteFile(kInput,
            "\x1B"
            "E\x0C"
            "text");
  macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT;
  macro.fixupLimit = ZE_FIXUP_FORM_FEED;
  EXPECT_EQ(Download(2, 0), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B"
               "Etext\x1B&f12y10X");
  EXPECT_EQ(macro.macroFlags, std::uint32_t{ZE_MACRO_FIX_UP_LIMIT | ZE_MACRO_FIX_UP});
}

TEST_F(DownloadMacroTest, RecordIsNotMarkedWhereAnArgumentIsInvalid) {
  macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT;
  EXPECT_EQ(Download(1, 30), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(Download(4, 0), ZE_INVALID_ARGUMENT);
  macro.macroDevice = 6;
  EXPECT_EQ(Download(1, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(macro.macroFlags, std::uint32_t{ZE_MACRO_FIX_UP_LIMIT});
}

// --- PCL

TEST_F(DownloadMacroTest, PclPrintedOnce) {
  UsePjl();
  macro.macroDevice = ZE_DEVICE_DISK1;  // does not matter here
  EXPECT_EQ(Download(1, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL",
                             "\x1B&f12y0X"
                             "DATA"
                             "\x1B&f1X"
                             "\x1B&f12y4X\xFF\x0C\x1B&f12y5X"));
  EXPECT_EQ(Download(1, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL", "DATA\x1B&f12y4X\xFF\x0C\x1B&f12y5X"));
}

TEST_F(DownloadMacroTest, PclStoredInMemory) {
  UsePjl();
  macro.macroFlags = ZE_MACRO_CHAIN;
  macro.chainId = 7;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL",
                             "\x1B&f12y0X\x1B&f7y3x12Y"
                             "DATA"
                             "\x1B&f1X\x1B&f12y10X"));
  EXPECT_EQ(Download(2, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL", "DATA\x1B&f12y10X"));
}

TEST_F(DownloadMacroTest, PclStoredOnADevice) {
  UsePjl();
  macro.macroDevice = ZE_DEVICE_FLASH1;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  Name("Letterhead");
  WriteFile(kInput,
            "\x1B"
            "Etext\x0C");
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL",
                             "\x1B%-12345X@PJL SET LDOWNLOADTARGET = flash1\n"
                             "\x1B&f12y0X"
                             "text"
                             "\x1B&f1X\x1B&f12y10X"
                             "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
                             "@PJL DEFAULT LRESOURCE:\"flash1:12.p5macro\" LDESCRIPTION = "
                             "\"Letterhead\"\n"));
}

TEST_F(DownloadMacroTest, DescriptionIsTheFileNameWhereThereIsNoName) {
  UsePjl();
  macro.macroDevice = ZE_DEVICE_DISK2;
  EXPECT_EQ(Download(2, 0), ZE_OK);
  EXPECT_NE(Job().find("LRESOURCE:\"disk2:12.p5macro\" LDESCRIPTION = \"LOGO.MAC\"\n"),
            std::string::npos);
}

TEST_F(DownloadMacroTest, PclStoredOnADeviceOfABracketKPrinter) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.deviceClass = 2;
  destination.copies = 2;
  macro.macroDevice = ZE_DEVICE_FLASH1;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\x31\x02\x1B&l2X"
                            "\x1B[K\x01\0\x01\x1B[K\x03\0\x06\xC0\x31"
                            "\x1B&f12y0X"
                            "DATA"
                            "\x1B&f1X\x1B&f12y10X"
                            "\x1B[K\x03\0\x06\xC0\x32"));
}

TEST_F(DownloadMacroTest, PrinterOfBothSetsGetsBothBeginnings) {
  UsePjl();
  destination.flags |= ZE_FLAG_BRACKET_K;
  EXPECT_EQ(Download(3, 0), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\x31\x02") + PjlJob("PCL", "DATA\x1B&f12y10X"));
}

TEST_F(DownloadMacroTest, RawFileIsNeitherWrappedNorFixedUp) {
  WriteFile(kInput,
            "\x1B"
            "E");
  macro.macroFlags = ZE_MACRO_FIX_UP;
  for (const std::uint32_t wrap : {0U, 29U}) {
    EXPECT_EQ(Download(3, wrap), ZE_OK);
    EXPECT_BYTES(Job(),
                 "\x1B"
                 "E\x1B&f12y10X");
  }
}

TEST_F(DownloadMacroTest, RawFileOnADeviceHasNoDescription) {
  UsePjl();
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(3, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL",
                             "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk1\n"
                             "DATA\x1B&f12y10X"
                             "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"));
}

// --- PPDS

TEST_F(DownloadMacroTest, PpdsPrintedOnce) {
  destination.language = ZE_LANGUAGE_PPDS;
  EXPECT_EQ(Download(1, 29), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[l\x07\0\x01\0\x0C"
                            "DATA"
                            "\x1B[l\x03\xFF\x0C\x1B[l\x01"));
}

TEST_F(DownloadMacroTest, PpdsStoredOnADevice) {
  UsePjl();
  destination.language = ZE_LANGUAGE_PPDS;
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PPDS", "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk1\n" +
                                         Bytes("\x1B[l\x07\0\x01\0\x0C") +
                                         "DATA\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"));
}

TEST_F(DownloadMacroTest, PpdsMacroOf65536BytesHasNoPayloadButTheRestOfItsJob) {
  UsePjl();
  destination.language = ZE_LANGUAGE_PPDS;
  WriteFile(kInput, std::string(65536, 'p'));
  EXPECT_EQ(Download(1, 29), 37U);
  EXPECT_BYTES(Job(), PjlJob("PPDS", "\x1B[l\x03\xFF\x0C\x1B[l\x01"));
  EXPECT_EQ(Download(2, 29), 37U);
  EXPECT_BYTES(Job(), PjlJob("PPDS", ""));
  EXPECT_EQ(Download(2, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PPDS", std::string(65536, 'p')));
}

// --- PostScript

TEST_F(DownloadMacroTest, PostScriptPrintedOnce) {
  UsePjl();
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  EXPECT_EQ(Download(1, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("POSTSCRIPT", "DATA"));
  macro.macroFlags = ZE_MACRO_FIX_UP;
  WriteFile(kInput, "%!PS\nshowpage\n\x04");
  EXPECT_EQ(Download(1, 29), ZE_OK);
  EXPECT_BYTES(Job(),
               PjlJob("POSTSCRIPT", std::string(kHide) + "%!PS\nshowpage\n"
                                                         "\nuserdict /showpage undef \nshowpage "));
  EXPECT_EQ(Download(1, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("POSTSCRIPT", "%!PS\nshowpage\n"));
}

TEST_F(DownloadMacroTest, PostScriptProcedureInMemory) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  Name("Logo");
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), "serverdict begin 0 exitserver /Logo {\nDATA\n} def\n");
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), "serverdict begin 0 exitserver /Logo {\n" + std::string(kHide) +
                          "DATA\nuserdict /showpage undef \n} def\n");
  macro.macroFlags = ZE_MACRO_FIX_UP | ZE_MACRO_DEMO;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), "serverdict begin 0 exitserver /Logo {\n" + std::string(kHide) +
                          "DATA\nuserdict /showpage undef \nshowpage \n} def\n");
  macro.macroFlags = ZE_MACRO_DEMO;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), "serverdict begin 0 exitserver /Logo {\nDATA\n} def\n");
}

TEST_F(DownloadMacroTest, PostScriptFileOnADevice) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(),
               "/writefile (%disk1%LOGO.MAC) (w) file def\n" + std::string(kLoop) + "DATA\x01\n");
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), "/writefile (%disk1%LOGO.MAC) (w) file def\n" + std::string(kLoop) + kHide +
                          "DATA\nuserdict /showpage undef \x01\n");
}

TEST_F(DownloadMacroTest, PostScriptDemoOnADevice) {
  UsePjl();
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  macro.macroDevice = ZE_DEVICE_FLASH2;
  macro.macroFlags = ZE_MACRO_DEMO;
  Name("show");
  EXPECT_EQ(Download(2, 29), ZE_OK);
  const std::string start =
      std::string(kExtensionOff) + "/writefile (%flash2%show.demo) (w) file def\n" + kLoop;
  const std::string end = "\x01\n\nstatusdict begin setfilenameextend end ";
  EXPECT_BYTES(Job(), PjlJob("POSTSCRIPT", start + "DATA" + end));
  macro.macroFlags = ZE_MACRO_DEMO | ZE_MACRO_FIX_UP;
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("POSTSCRIPT",
                             start + kHide + "DATA\nuserdict /showpage undef \nshowpage " + end));
}

TEST_F(DownloadMacroTest, PostScriptHasNoDownloadTarget) {
  UsePjl();
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  destination.deviceClass = 2;
  macro.macroDevice = ZE_DEVICE_DISK2;
  for (const std::int32_t mode : {2, 3}) {
    EXPECT_EQ(Download(mode, 0), ZE_OK);
    EXPECT_BYTES(Job(), PjlJob("POSTSCRIPT", "DATA"));
  }
}

TEST_F(DownloadMacroTest, KeepsTheOverlayCommentForCreation) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  WriteFile(kInput, "%!PS\nshowpage\n");
  EXPECT_EQ(Download(2, 0), ZE_OK);
  EXPECT_BYTES(Job(), "%!PS\nshowpage\n");
}

// --- PCL XL

TEST_F(DownloadMacroTest, PclXlIsEnteredByPjlAlone) {
  destination.language = ZE_LANGUAGE_PCLXL;
  EXPECT_EQ(Download(1, 0), ZE_OK);
  EXPECT_BYTES(Job(), "@PJL ENTER LANGUAGE = PCLXL\nDATA");
  UsePjl();
  EXPECT_EQ(Download(1, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL", "@PJL ENTER LANGUAGE = PCLXL\nDATA"));
  for (const std::int32_t mode : {2, 3}) {
    EXPECT_EQ(Download(mode, 0), ZE_OK);
    EXPECT_BYTES(Job(), PjlJob("PCL",
                               "@PJL SET LDOWNLOADTARGET = ram\n"
                               "@PJL ENTER LANGUAGE = PCLXL\nDATA"));
  }
}

TEST_F(DownloadMacroTest, KeepsTheWayBackToMemoryAfterPclXlOnADevice) {
  UsePjl();
  destination.language = ZE_LANGUAGE_PCLXL;
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(2, 0), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("PCL",
                             "@PJL SET LDOWNLOADTARGET = disk1\n"
                             "@PJL ENTER LANGUAGE = PCLXL\nDATA"
                             "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"));
}

TEST_F(DownloadMacroTest, PclXlThatCannotBeFixedUpStillEndsItsJob) {
  UsePjl();
  destination.language = ZE_LANGUAGE_PCLXL;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Download(1, 0), 46U);
  EXPECT_BYTES(Job(), PjlJob("PCL", "@PJL ENTER LANGUAGE = PCLXL\n"));
  EXPECT_EQ(Download(2, 0), 46U);
  EXPECT_BYTES(Job(), PjlJob("PCL",
                             "@PJL SET LDOWNLOADTARGET = ram\n"
                             "@PJL ENTER LANGUAGE = PCLXL\n"));
}

// --- Languages without macros

TEST_F(DownloadMacroTest, LanguagesWithoutOverlayGiveInvalidArgumentAfterTheJob) {
  UsePjl();
  destination.language = ZE_LANGUAGE_GL;
  EXPECT_EQ(Download(1, 29), ZE_INVALID_ARGUMENT);
  EXPECT_BYTES(Job(), PjlJob("GL", "DATA"));
  EXPECT_EQ(Download(2, 29), ZE_OK);
  EXPECT_BYTES(Job(), PjlJob("GL", "DATA"));
  destination.language = ZE_LANGUAGE_DEFAULT;
  destination.flags = 0;
  EXPECT_EQ(Download(1, 29), ZE_INVALID_ARGUMENT);
  EXPECT_BYTES(Job(), "DATA");
}

// --- Failures

struct JobKind {
  std::int32_t language;
  std::int32_t mode;
  std::uint32_t wrap;
};

TEST_F(DownloadMacroTest, RefusedWriteOfEveryJobStopsItThere) {
  WriteFile(kInput, "%!PS\nDATA\n");
  destination.jobName = "Macro";
  macro.macroFlags = ZE_MACRO_DEMO;
  macro.macroDevice = ZE_DEVICE_DISK1;
  const JobKind kinds[] = {
      {ZE_LANGUAGE_PCL, 1, 29},        {ZE_LANGUAGE_PCL, 2, 29},  {ZE_LANGUAGE_PCL, 3, 0},
      {ZE_LANGUAGE_PPDS, 1, 29},       {ZE_LANGUAGE_PPDS, 2, 29}, {ZE_LANGUAGE_POSTSCRIPT, 1, 29},
      {ZE_LANGUAGE_POSTSCRIPT, 2, 29}, {ZE_LANGUAGE_PCLXL, 1, 0}, {ZE_LANGUAGE_PCLXL, 2, 0}};
  for (const std::uint32_t flags : {ZE_FLAG_PJL, ZE_FLAG_BRACKET_K}) {
    for (const std::uint32_t fixUp : {0U, std::uint32_t{ZE_MACRO_FIX_UP}}) {
      for (const JobKind& kind : kinds) {
        if (fixUp != 0 && kind.language == ZE_LANGUAGE_PCLXL) continue;
        SCOPED_TRACE(std::to_string(kind.language) + " " + std::to_string(kind.mode));
        destination.flags = flags;
        destination.language = kind.language;
        macro.macroFlags = ZE_MACRO_DEMO | fixUp;
        UseNewPrinter();
        ASSERT_EQ(Download(kind.mode, kind.wrap), ZE_OK);
        const int writes = Spooler().writes;
        EXPECT_GE(writes, 2);
        for (int failing = 1; failing <= writes; ++failing) {
          UseNewPrinter();
          Spooler().failingWrite = failing;
          EXPECT_EQ(Download(kind.mode, kind.wrap), ZE_PRINTER_WRITE_FAILED) << failing;
          EXPECT_EQ(Spooler().writes, failing);
          EXPECT_EQ(Spooler().calls.back(), "close");
        }
      }
    }
  }
}

TEST_F(DownloadMacroTest, EarlierFailureIsTheResultOfAJobWhoseQueueFailsLater) {
  destination.flags = ZE_FLAG_PJL;
  destination.language = ZE_LANGUAGE_PPDS;
  WriteFile(kInput, std::string(65536, 'p'));
  UsePrinter();
  Spooler().failingWrite = 3;  // the activation, after universal exit and language
  EXPECT_EQ(Download(1, 29), 37U);
  EXPECT_EQ(Spooler().writes, 3);
}

}  // namespace
}  // namespace zeapi::testing
