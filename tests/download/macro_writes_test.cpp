// How the jobs of macros are divided into single writes: each command, and each block of the file,
// is one.
#include "download/macro_case.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

class MacroWritesTest : public MacroTest {
 protected:
  void SetUp() override {
    MacroTest::SetUp();
    UsePrinter();
  }

  void UsePjl(std::int32_t language) {
    destination.flags = ZE_FLAG_PJL;
    destination.jobName = "Macro";
    destination.language = language;
  }

  // The writes of a job of UsePjl in a language that the header names.
  static Writes PjlJob(const std::string& language, const Writes& payload) {
    Writes writes = {kUniversalExit, "@PJL RDYMSG DISPLAY = \"Macro\"\n",
                     "@PJL ENTER LANGUAGE = " + language + "\n"};
    writes.insert(writes.end(), payload.begin(), payload.end());
    writes.insert(writes.end(), {kUniversalExit, "@PJL RDYMSG DISPLAY = \"\"\n", kUniversalExit});
    return writes;
  }

  static constexpr char kHide[] = "userdict begin /showpage {} def end\n";
  static constexpr char kUndefine[] = "\nuserdict /showpage undef ";
  static constexpr char kShow[] = "\nshowpage ";
  static constexpr char kWriterEnd[] = "\x01\n";
  static constexpr char kTargetDisk[] = "@PJL SET LDOWNLOADTARGET = disk1\n";
  static constexpr char kTargetMemory[] = "@PJL SET LDOWNLOADTARGET = ram\n";
  static constexpr char kPpdsHeader[] = "\x1B[l\x07\0\x01\0\x0C";
};

// --- Creation

TEST_F(MacroWritesTest, CreatedPclMacro) {
  WriteFile(kInput, std::string(2049, 'p'));
  EXPECT_EQ(Create(), ZE_OK);
  ExpectWrites({"\x1B&f12y0X", std::string(2048, 'p'), "p", "\x1B&f1X"});
}

TEST_F(MacroWritesTest, StartOfAChainedMacroIsOneWrite) {
  macro.macroFlags = ZE_MACRO_CHAIN;
  macro.chainId = 345;
  EXPECT_EQ(Create(), ZE_OK);
  ExpectWrites({"\x1B&f12y0X\x1B&f345y3x12Y", "DATA", "\x1B&f1X"});
}

TEST_F(MacroWritesTest, CreatedPpdsMacro) {
  destination.language = ZE_LANGUAGE_PPDS;
  EXPECT_EQ(Create(), ZE_OK);
  ExpectWrites({Bytes(kPpdsHeader), "DATA"});
}

TEST_F(MacroWritesTest, CreatedPostScriptMacro) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  EXPECT_EQ(Create(), ZE_OK);
  ExpectWrites({"DATA"});
}

TEST_F(MacroWritesTest, CreatedPclXlMacro) {
  destination.language = ZE_LANGUAGE_PCLXL;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  Name("Logo");
  WriteFile(kInput, xl::Session(xl::Page(xl::Body())));
  EXPECT_EQ(Create(), ZE_OK);
  ExpectWrites({xl::Stored("Logo", xl::Body(), false)});
}

// --- Printed once

TEST_F(MacroWritesTest, PclMacroPrintedOnce) {
  UsePjl(ZE_LANGUAGE_PCL);
  EXPECT_EQ(Download(ZE_MACRO_PRINT_ONCE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(
      PjlJob("PCL", {"\x1B&f12y0X", "DATA", "\x1B&f1X", "\x1B&f12y4X", "\xFF\x0C", "\x1B&f12y5X"}));
}

TEST_F(MacroWritesTest, PpdsMacroPrintedOnce) {
  UsePjl(ZE_LANGUAGE_PPDS);
  EXPECT_EQ(Download(ZE_MACRO_PRINT_ONCE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(
      PjlJob("PPDS", {Bytes(kPpdsHeader), "DATA", "\x1B[l\x03", "\xFF\x0C", "\x1B[l\x01"}));
}

TEST_F(MacroWritesTest, PostScriptMacroPrintedOnce) {
  UsePjl(ZE_LANGUAGE_POSTSCRIPT);
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Download(ZE_MACRO_PRINT_ONCE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob("POSTSCRIPT", {kHide, "DATA", kUndefine, kShow}));
}

TEST_F(MacroWritesTest, PclXlMacroPrintedOnce) {
  UsePjl(ZE_LANGUAGE_PCLXL);
  EXPECT_EQ(Download(ZE_MACRO_PRINT_ONCE, ZE_MACRO_UNWRAPPED), ZE_OK);
  ExpectWrites(PjlJob("PCL", {"@PJL ENTER LANGUAGE = PCLXL\n", "DATA"}));
}

// --- Stored

TEST_F(MacroWritesTest, PclMacroStoredOnADevice) {
  UsePjl(ZE_LANGUAGE_PCL);
  macro.macroDevice = ZE_DEVICE_DISK1;
  macro.macroFlags = ZE_MACRO_CHAIN;
  macro.chainId = 7;
  Name("Logo");
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(
      PjlJob("PCL", {kUniversalExit, kTargetDisk, "\x1B&f12y0X\x1B&f7y3x12Y", "DATA", "\x1B&f1X",
                     "\x1B&f12y10X", kUniversalExit, kTargetMemory,
                     "@PJL DEFAULT LRESOURCE:\"disk1:12.p5macro\" LDESCRIPTION = \"Logo\"\n"}));
}

TEST_F(MacroWritesTest, PclMacroStoredOnADeviceOfAPrinterOfBothSets) {
  UsePjl(ZE_LANGUAGE_PCL);
  destination.flags |= ZE_FLAG_BRACKET_K;
  destination.deviceClass = 2;
  destination.copies = 3;
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_UNWRAPPED), ZE_OK);
  Writes writes = {Bytes("\x1B[K\x03\0\x06\x31\x02"), "\x1B&l3X"};
  const Writes job =
      PjlJob("PCL", {Bytes("\x1B[K\x01\0\x01"), kUniversalExit, kTargetDisk,
                     Bytes("\x1B[K\x03\0\x06\xC0\x31"), "DATA", "\x1B&f12y10X", kUniversalExit,
                     kTargetMemory, Bytes("\x1B[K\x03\0\x06\xC0\x32"),
                     "@PJL DEFAULT LRESOURCE:\"disk1:12.p5macro\" LDESCRIPTION = \"LOGO.MAC\"\n"});
  writes.insert(writes.end(), job.begin(), job.end());
  ExpectWrites(writes);
}

TEST_F(MacroWritesTest, PpdsMacroStoredOnADevice) {
  UsePjl(ZE_LANGUAGE_PPDS);
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob("PPDS", {kUniversalExit, kTargetDisk, Bytes(kPpdsHeader), "DATA",
                               kUniversalExit, kTargetMemory}));
}

TEST_F(MacroWritesTest, PostScriptMacroStoredInMemory) {
  UsePjl(ZE_LANGUAGE_POSTSCRIPT);
  macro.macroFlags = ZE_MACRO_FIX_UP;
  Name("Logo");
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob("POSTSCRIPT", {"serverdict begin 0 exitserver /Logo {\n", kHide, "DATA",
                                     kUndefine, "\n} def\n"}));
}

TEST_F(MacroWritesTest, PostScriptMacroStoredOnADevice) {
  UsePjl(ZE_LANGUAGE_POSTSCRIPT);
  macro.macroDevice = ZE_DEVICE_DISK1;
  macro.macroFlags = ZE_MACRO_FIX_UP | ZE_MACRO_DEMO;
  Name("show");
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob(
      "POSTSCRIPT",
      {"statusdict begin currentfilenameextend false setfilenameextend end\n",
       "/writefile (%disk1%show.demo) (w) file def\n"
       "{ currentfile read\nnot { exit } if dup 1 eq { pop exit } if\n"
       "writefile exch write } loop\n",
       kHide, "DATA", kUndefine, kShow, kWriterEnd, "\nstatusdict begin setfilenameextend end "}));
}

TEST_F(MacroWritesTest, PclXlMacroStoredOnADevice) {
  UsePjl(ZE_LANGUAGE_PCLXL);
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_UNWRAPPED), ZE_OK);
  ExpectWrites(PjlJob("PCL", {"@PJL SET LDOWNLOADTARGET = disk1\n@PJL ENTER LANGUAGE = PCLXL\n",
                              "DATA", kUniversalExit, kTargetMemory}));
}

TEST_F(MacroWritesTest, OtherLanguagesStoredOnADeviceHaveItsTargetAndNoResource) {
  for (const std::int32_t language : {1, 4}) {
    UseNewPrinter();
    UsePjl(language);
    destination.flags = ZE_FLAG_BRACKET_K;
    macro.macroDevice = ZE_DEVICE_DISK1;
    EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_WRAPPED), ZE_OK);
    const char* code = language == 1 ? "\x1B[K\x03\0\x06\x31\0" : "\x1B[K\x03\0\x06\x31\x03";
    ExpectWrites({std::string(code, 8), Bytes("\x1B[K\x03\0\x06\xC0\x31"), "DATA",
                  Bytes("\x1B[K\x03\0\x06\xC0\x32")});
  }
}

TEST_F(MacroWritesTest, RawPpdsMacroOnADeviceHasBothTargets) {
  UsePjl(ZE_LANGUAGE_PPDS);
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(ZE_MACRO_RAW, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(
      PjlJob("PPDS", {kUniversalExit, kTargetDisk, "DATA", kUniversalExit, kTargetMemory}));
}

TEST_F(MacroWritesTest, PclXlMacroOnADeviceOfABracketKPrinterHasTheTargetBehindIt) {
  destination.language = ZE_LANGUAGE_PCLXL;
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.deviceClass = 2;
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(ZE_MACRO_STORE, ZE_MACRO_UNWRAPPED), ZE_OK);
  ExpectWrites({Bytes("\x1B[K\x03\0\x06\x31\x02"),
                "@PJL SET LDOWNLOADTARGET = disk1\n@PJL ENTER LANGUAGE = PCLXL\n", "DATA",
                Bytes("\x1B[K\x03\0\x06\xC0\x32")});
}

// --- As it is

TEST_F(MacroWritesTest, RawPclMacro) {
  UsePjl(ZE_LANGUAGE_PCL);
  macro.macroDevice = ZE_DEVICE_DISK1;
  EXPECT_EQ(Download(ZE_MACRO_RAW, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob(
      "PCL", {kUniversalExit, kTargetDisk, "DATA", "\x1B&f12y10X", kUniversalExit, kTargetMemory}));
}

TEST_F(MacroWritesTest, RawMacrosOfOtherLanguages) {
  UsePjl(ZE_LANGUAGE_PPDS);
  EXPECT_EQ(Download(ZE_MACRO_RAW, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob("PPDS", {"DATA"}));
  UseNewPrinter();
  UsePjl(ZE_LANGUAGE_POSTSCRIPT);
  EXPECT_EQ(Download(ZE_MACRO_RAW, ZE_MACRO_WRAPPED), ZE_OK);
  ExpectWrites(PjlJob("POSTSCRIPT", {"DATA"}));
  UseNewPrinter();
  UsePjl(ZE_LANGUAGE_PCLXL);
  EXPECT_EQ(Download(ZE_MACRO_RAW, ZE_MACRO_UNWRAPPED), ZE_OK);
  ExpectWrites(
      PjlJob("PCL", {"@PJL SET LDOWNLOADTARGET = ram\n@PJL ENTER LANGUAGE = PCLXL\n", "DATA"}));
}

// --- Stored macros

TEST_F(MacroWritesTest, DeletionIsOneWriteOfEightBytes) {
  destination.resourceId = 7;
  EXPECT_EQ(ZeMacDelete(kOutput, &destination), ZE_OK);
  ExpectWrites({Bytes("\x1B&f7y8X\0")});
  UseNewPrinter();
  destination.resourceId = 345;
  EXPECT_EQ(ZeMacDelete(kOutput, &destination), ZE_OK);
  ExpectWrites({"\x1B&f345y8"});
}

TEST_F(MacroWritesTest, SwitchingIsOneWrite) {
  EXPECT_EQ(ZeMacActivate(kOutput, &destination, 1), ZE_OK);
  ExpectWrites({"\x1B&f12y4X"});
  UseNewPrinter();
  EXPECT_EQ(ZeMacActivate(kOutput, &destination, 0), ZE_OK);
  ExpectWrites({"\x1B&f12y5X"});
  UseNewPrinter();
  destination.language = ZE_LANGUAGE_PPDS;
  EXPECT_EQ(ZeMacActivate(kOutput, &destination, 1), ZE_OK);
  ExpectWrites({"\x1B[l\x03"});
  UseNewPrinter();
  EXPECT_EQ(ZeMacActivate(kOutput, &destination, 0), ZE_OK);
  ExpectWrites({"\x1B[l\x01"});
}

TEST_F(MacroWritesTest, LanguagesWithoutOverlaysOpenAndCloseThePrinter) {
  for (const std::int32_t language : {ZE_LANGUAGE_POSTSCRIPT, ZE_LANGUAGE_PCLXL}) {
    UseNewPrinter();
    destination.language = language;
    EXPECT_EQ(ZeMacActivate(kOutput, &destination, 1), ZE_OK);
    ExpectWrites({});
  }
}

}  // namespace
}  // namespace zeapi::testing
