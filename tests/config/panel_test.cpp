#include <cstdio>
#include <cstring>

#include "config/ini_file.h"
#include "support/bytes.h"
#include "support/foreign_locale.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

using PanelRegistryTest = ScratchTest;

std::string FileName(std::int32_t panel) {
  char name[18];
  std::memset(name, '#', sizeof(name));
  EXPECT_EQ(ZeOpcGetFileName(panel, name), 1U);
  return name;
}

TEST_F(PanelRegistryTest, FileNameHasAtLeastThreeDigits) {
  EXPECT_EQ(FileName(7), "opc007.cfg");
  EXPECT_EQ(FileName(0), "opc000.cfg");
  EXPECT_EQ(FileName(1000), "opc1000.cfg");
  EXPECT_EQ(FileName(32767), "opc32767.cfg");
  EXPECT_EQ(FileName(0x10007), "opc007.cfg");  // 16 bits count
  EXPECT_EQ(ZeOpcGetFileName(7, nullptr), 1U);
}

TEST_F(PanelRegistryTest, KeepsNegativePanelsAsUnsigned32BitNumbers) {
  EXPECT_EQ(FileName(-1), "opc4294967295.cfg");
  EXPECT_EQ(FileName(-32768), "opc4294934528.cfg");
}

TEST_F(PanelRegistryTest, OneFileServesAllUsesOfAPanel) {
  WriteFile("opc007.cfg", "[Format]\nStyle=1\n");
  void* first = ZeOpcRegisterCfg(7, nullptr);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(ZeOpcRegisterCfg(7, nullptr), first);
  EXPECT_EQ(ZeOpcUnregisterCfg(first), 1U);
  EXPECT_STREQ(ZeIniRead(first, "Format", "Style"), "1");
  EXPECT_EQ(ZeOpcUnregisterCfg(first), 1U);
  EXPECT_EQ(ZeOpcUnregisterCfg(first), 0U);
}

TEST_F(PanelRegistryTest, UnknownAndNullHandlesGive0) {
  int other = 0;
  EXPECT_EQ(ZeOpcUnregisterCfg(nullptr), 0U);
  EXPECT_EQ(ZeOpcUnregisterCfg(&other), 0U);
}

TEST_F(PanelRegistryTest, FileLiesInTheDirectoryWithOrWithoutItsSeparator) {
  std::filesystem::create_directory("panels");
  WriteFile("panels/opc012.cfg", "a=1\n");
  for (const char* directory : {"panels", "panels\\", "panels/", ".\\panels"}) {
    void* handle = ZeOpcRegisterCfg(12, directory);
    EXPECT_NE(handle, nullptr) << directory;
    EXPECT_EQ(ZeOpcUnregisterCfg(handle), 1U);
  }
}

TEST_F(PanelRegistryTest, SixthPanelFindsNoPlace) {
  void* handles[5];
  for (int panel = 1; panel <= 6; ++panel) {
    WriteFile(FileName(panel), "[Format]\n");
    void* handle = ZeOpcRegisterCfg(panel, nullptr);
    EXPECT_EQ(handle != nullptr, panel <= 5);
    if (panel <= 5) handles[panel - 1] = handle;
  }
  EXPECT_EQ(ZeOpcRegisterCfg(3, nullptr), handles[2]);
  EXPECT_EQ(ZeOpcUnregisterCfg(handles[2]), 1U);
  EXPECT_EQ(ZeOpcUnregisterCfg(handles[2]), 1U);
  handles[2] = ZeOpcRegisterCfg(6, nullptr);
  EXPECT_NE(handles[2], nullptr);
  for (void* handle : handles) EXPECT_EQ(ZeOpcUnregisterCfg(handle), 1U);
}

// Registers a panel whose file is made for it.
void* RegisterNew(std::int32_t panel) {
  ScratchTest::WriteFile(FileName(panel), "a=1\n");
  return ZeOpcRegisterCfg(panel, nullptr);
}

TEST_F(PanelRegistryTest, KeepsThePlaceOfAPanelWhoseFileDidNotOpen) {
  EXPECT_EQ(ZeOpcRegisterCfg(9, nullptr), nullptr);
  void* handles[5];
  for (int panel = 1; panel <= 4; ++panel) {
    handles[panel - 1] = RegisterNew(panel);
    EXPECT_NE(handles[panel - 1], nullptr);
  }
  EXPECT_EQ(RegisterNew(5), nullptr);
  handles[4] = RegisterNew(9);
  EXPECT_NE(handles[4], nullptr);
  for (void* handle : handles) EXPECT_EQ(ZeOpcUnregisterCfg(handle), 1U);
}

TEST_F(PanelRegistryTest, KeepsNoPlaceFreeAfterFivePanelsWhoseFilesDidNotOpen) {
  for (int panel = 1; panel <= 5; ++panel) EXPECT_EQ(ZeOpcRegisterCfg(panel, nullptr), nullptr);
  EXPECT_EQ(RegisterNew(6), nullptr);
  for (int panel = 1; panel <= 5; ++panel) {
    void* handle = RegisterNew(panel);
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(ZeOpcUnregisterCfg(handle), 1U);
  }
}

TEST_F(PanelRegistryTest, LastUseWritesAnEditBack) {
  WriteFile("opc007.cfg", "a=1\n\n[s]\n;comment\nb=2\n");
  void* handle = ZeOpcRegisterCfg(7, nullptr);
  EXPECT_EQ(ZeIniWrite(handle, "s", "b", "3"), 1U);
  EXPECT_EQ(ZeOpcUnregisterCfg(handle), 1U);
  void* again = ZeIniOpen("opc007.cfg");
  EXPECT_STREQ(ZeIniRead(again, "s", nullptr), "b=3");
  EXPECT_EQ(ZeIniClose(again), 1U);
}

TEST_F(PanelRegistryTest, CloseThatFailsGives0AndFreesThePlace) {
  void* handle = RegisterNew(7);
  EXPECT_EQ(ZeIniWrite(handle, "s", "b", "3"), 1U);
  std::filesystem::remove("opc007.cfg");
  std::filesystem::create_directory("opc007.cfg");
  EXPECT_EQ(ZeOpcUnregisterCfg(handle), 0U);
  EXPECT_EQ(ZeOpcUnregisterCfg(handle), 0U);
  // All five places can be had.
  void* handles[5];
  for (int panel = 1; panel <= 5; ++panel) handles[panel - 1] = RegisterNew(panel);
  for (void* all : handles) EXPECT_EQ(ZeOpcUnregisterCfg(all), 1U);
}

TEST_F(PanelRegistryTest, StyleIsStoredWithTheFile) {
  const std::pair<const char*, int> rows[] = {
      {"Style=2\n", 2},      {"Style=70000\n", 70000 - 65536}, {"Style=\n", 0}, {"", 0},
      {"Style=  -3x\n", -3}, {"Style=000000000000009\n", 9}};
  for (const auto& [line, style] : rows) {
    WriteFile("opc007.cfg", std::string("[Format]\n") + line);
    void* handle = ZeOpcRegisterCfg(7, nullptr);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(static_cast<IniFile*>(handle)->style, style) << line;
    EXPECT_EQ(ZeOpcUnregisterCfg(handle), 1U);
  }
  WriteFile("opc007.cfg", "[Format]\nStyle=2\n");
  void* plain = ZeIniOpen("opc007.cfg");
  EXPECT_EQ(static_cast<IniFile*>(plain)->style, 0);
  EXPECT_EQ(ZeIniClose(plain), 1U);
}

TEST_F(PanelRegistryTest, KeepsPanel0InAPlaceThatCountsAsFree) {
  WriteFile("opc000.cfg", "a=0\n");
  WriteFile("opc005.cfg", "a=5\n");
  void* zero = ZeOpcRegisterCfg(0, nullptr);
  ASSERT_NE(zero, nullptr);
  EXPECT_EQ(ZeOpcRegisterCfg(5, nullptr), zero);
  EXPECT_EQ(ZeOpcUnregisterCfg(zero), 1U);
  EXPECT_EQ(ZeOpcUnregisterCfg(zero), 1U);
}

TEST_F(PanelRegistryTest, KeepsTakingAFreePlaceBeforeThePanelsOwn) {
  WriteFile("opc001.cfg", "a=1\n");
  WriteFile("opc002.cfg", "a=2\n");
  void* one = ZeOpcRegisterCfg(1, nullptr);
  void* two = ZeOpcRegisterCfg(2, nullptr);
  EXPECT_EQ(ZeOpcUnregisterCfg(one), 1U);
  void* again = ZeOpcRegisterCfg(2, nullptr);
  EXPECT_NE(again, two);
  EXPECT_EQ(ZeOpcUnregisterCfg(two), 1U);
  EXPECT_EQ(ZeOpcUnregisterCfg(again), 1U);
}

TEST_F(PanelRegistryTest, LongDirectoryGivesNull) {
  EXPECT_EQ(ZeOpcRegisterCfg(1, std::string(100000, 'd').c_str()), nullptr);
  WriteFile("opc001.cfg", "a=1\n");
  EXPECT_EQ(ZeOpcUnregisterCfg(ZeOpcRegisterCfg(1, nullptr)), 1U);
}

TEST_F(PanelRegistryTest, EmptyDirectoryIsTheRoot) {
  WriteFile("opc001.cfg", "a=1\n");
  EXPECT_EQ(ZeOpcRegisterCfg(1, ""), nullptr);
}

// Queries take any INI handle.
class PanelTest : public IniTest {
 protected:
  void OpenStyle(const std::string& style, const std::string& text) {
    Open("[Format]\nStyle=" + style + "\n" + text, ZE_INI_READ);
  }

  // Calls a list query with a block of exactly `size` bytes and keeps what it holds.
  template <typename Query>
  int List(Query query, std::int32_t first, std::int16_t size) {
    bytes.assign(static_cast<std::size_t>(size), '#');
    return query(handle, first, bytes.data(), size);
  }

  int Texts(std::int32_t control, std::int32_t sub, std::int16_t size) {
    bytes.assign(static_cast<std::size_t>(size), '#');
    const auto block = std::make_unique<std::uint16_t[]>(static_cast<std::size_t>(size) / 2 + 1);
    std::memcpy(block.get(), bytes.data(), bytes.size());
    const int result = ZeOpcGetTextListing(handle, control, sub, block.get(), size);
    std::memcpy(bytes.data(), block.get(), bytes.size());
    return result;
  }

  int EditLength(std::int32_t control) const { return ZeOpcGetMaxEditLength(handle, control); }

  std::string bytes;
};

TEST_F(PanelTest, StyleDecidesHowControlsAreNamed) {
  const std::string text = "[Edit Lengths]\n001a=2\n26=1\nffffffff=4\n4294967295=3\n12345=5\n";
  for (const char* style : {"2", "3x", "9", "A", ":", "\x80",
                            "\xFF"
                            "1"}) {
    OpenStyle(style, text);
    EXPECT_EQ(EditLength(26), 2) << style;
    EXPECT_EQ(EditLength(-1), 4) << style;
    Close();
  }
  for (const char* style : {"1", "0", "", "12", " 2", "-2"}) {
    OpenStyle(style, text);
    EXPECT_EQ(EditLength(26), 1) << style;
    EXPECT_EQ(EditLength(-1), 3) << style;
    EXPECT_EQ(EditLength(0x1001A), 1) << style;  // 16 bits count
    Close();
  }
  Open(text);
  EXPECT_EQ(EditLength(26), 1);
}

TEST_F(PanelTest, SubIndexFollowsADash) {
  OpenStyle("2", "[Combos]\n001a=1\n001a-3=10;20\n");
  EXPECT_EQ(Texts(26, 3, 4), 2);
  EXPECT_BYTES(bytes, Bytes("\x0A\0\x14\0"));
  EXPECT_EQ(Texts(26, 0, 2), 1);
  EXPECT_EQ(Texts(26, 4, 2), -2);
  Close();
  OpenStyle("1", "[Combos]\n26-3=7\n");
  EXPECT_EQ(Texts(26, 3, 2), 1);
}

TEST_F(PanelTest, SubIndexHas32BitsAndNoSign) {
  OpenStyle("1", "[Combos]\n26-65536=1\n26-4294967295=1;2\n");
  EXPECT_EQ(Texts(26, 65536, 2), 1);
  EXPECT_EQ(Texts(26, -1, 4), 2);
}

class PanelSpinTest : public PanelTest {
 protected:
  std::string Limits(const std::string& value) {
    Open("[Spin Limits]\n5=" + value + "\n");
    std::int32_t minimum = 11;
    std::int32_t maximum = 22;
    std::int32_t third = 33;
    ZeOpcGetSpinControlLimits(handle, 5, &minimum, &maximum, &third);
    Close();
    return std::to_string(minimum) + " " + std::to_string(maximum) + " " + std::to_string(third);
  }
};

TEST_F(PanelSpinTest, ThreeNumbers) {
  EXPECT_EQ(Limits("1;99;5"), "1 99 5");
  EXPECT_EQ(Limits("-5; +7 ;8x"), "-5 7 8");
}

TEST_F(PanelSpinTest, KeepsTheSecondNumberAsTheThirdValueBehindAMinimumOfMinus1) {
  EXPECT_EQ(Limits("-1;99;5"), "-1 0 99");
}

TEST_F(PanelSpinTest, KeepsTheThirdValueOfAnEmptyEntry) {
  EXPECT_EQ(Limits(""), "0 0 33");
  Open("[Spin Limits]\n");
  std::int32_t third = 33;
  ZeOpcGetSpinControlLimits(handle, 5, nullptr, nullptr, &third);
  EXPECT_EQ(third, 33);
}

TEST_F(PanelSpinTest, MissingNumbersLeaveWhatWasThere) {
  EXPECT_EQ(Limits("4"), "4 0 33");
  EXPECT_EQ(Limits("4;5"), "4 5 33");
  EXPECT_EQ(Limits("-1"), "-1 0 33");
  EXPECT_EQ(Limits(";;4;;5;;"), "4 5 33");
}

TEST_F(PanelSpinTest, NumbersBeyond32BitsAreTheNearest) {
  EXPECT_EQ(Limits("99999999999;-99999999999999999999;2147483648"),
            "2147483647 -2147483648 2147483647");
}

TEST_F(PanelSpinTest, NullHandleHasNoLimits) {
  std::int32_t minimum = 11;
  std::int32_t maximum = 22;
  std::int32_t third = 33;
  ZeOpcGetSpinControlLimits(nullptr, 5, &minimum, &maximum, &third);
  EXPECT_EQ(minimum, 0);
  EXPECT_EQ(maximum, 0);
  EXPECT_EQ(third, 33);
}

TEST_F(PanelTest, TextListingWithoutARoomGivesTheBytesNeeded) {
  Open("[Combos]\n5=1;2;3\n");
  EXPECT_EQ(ZeOpcGetTextListing(handle, 5, 0, nullptr, 0), 6);
  EXPECT_EQ(ZeOpcGetTextListing(handle, 5, 0, nullptr, 100), 6);
  EXPECT_EQ(ZeOpcGetTextListing(handle, 6, 0, nullptr, 0), -2);
  EXPECT_EQ(ZeOpcGetTextListing(nullptr, 5, 0, nullptr, 0), -2);
}

TEST_F(PanelTest, TextListingOfExactlyItsSizeIsStored) {
  Open("[Combos]\n5=1;65535;258\n");
  EXPECT_EQ(Texts(5, 0, 6), 3);
  EXPECT_BYTES(bytes, Bytes("\x01\0\xFF\xFF\x02\x01"));
  EXPECT_EQ(Texts(5, 0, 8), 3);
  EXPECT_BYTES(bytes, Bytes("\x01\0\xFF\xFF\x02\x01##"));
}

TEST_F(PanelTest, TextListingThatDoesNotFitStoresNothingBeyondItsRoom) {
  Open("[Combos]\n5=1;2;3\n");
  EXPECT_EQ(Texts(5, 0, 5), -1);
  EXPECT_BYTES(bytes, Bytes("\x06\0\x02\0#"));
  EXPECT_EQ(Texts(5, 0, 2), -1);
  EXPECT_BYTES(bytes, Bytes("\x06\0"));
  EXPECT_EQ(Texts(5, 0, 1), -1);
  EXPECT_BYTES(bytes, "#");
  EXPECT_EQ(Texts(5, 0, 0), -1);
  std::uint16_t untouched = 7;
  EXPECT_EQ(ZeOpcGetTextListing(handle, 5, 0, &untouched, -2), -1);
  EXPECT_EQ(untouched, 7);
}

TEST_F(PanelTest, TextListingOfSeparatorsAloneIsEmpty) {
  Open("[Combos]\n5=;;;\n6=" + std::string(1000, ';') + "9;\n");
  EXPECT_EQ(Texts(5, 0, 2), 0);
  EXPECT_EQ(Texts(6, 0, 2), 1);
}

TEST_F(PanelTest, ValuesAreCutTo3999Characters) {
  Open("[Combos]\n5=1\n[Edit Lengths]\n7=1\n");
  std::string value;
  while (value.size() < 4200) value += "1;";
  EXPECT_EQ(ZeIniWrite(handle, "Combos", "5", value.c_str()), 1U);
  EXPECT_EQ(ZeOpcGetTextListing(handle, 5, 0, nullptr, 0), 4000);
  EXPECT_EQ(ZeIniWrite(handle, "Combos", "5", std::string(3999, ';').append("5").c_str()), 1U);
  EXPECT_EQ(ZeOpcGetTextListing(handle, 5, 0, nullptr, 0), 0);
}

TEST_F(PanelTest, EditLengthIs0WhereThereIsNone) {
  Open("[Edit Lengths]\n5=12\n6=\n7=70000\n");
  EXPECT_EQ(EditLength(5), 12);
  EXPECT_EQ(EditLength(6), 0);
  EXPECT_EQ(EditLength(8), 0);
  EXPECT_EQ(EditLength(7), 70000 - 65536);
  EXPECT_EQ(ZeOpcGetMaxEditLength(nullptr, 5), 0);
}

class PanelPageTest : public PanelTest {
 protected:
  void OpenPage(const std::string& text) { Open("[Dialogs]\n3=Page\n-1=Last\n[Page]\n" + text); }
  int Defaults(std::int16_t size) { return List(ZeOpcGetPageDefaults, 3, size); }
  int OmVars(std::int16_t size) { return List(ZeOpcGetPageOmVars, 3, size); }
};

TEST_F(PanelPageTest, DefaultsArePackedRecords) {
  OpenPage("NumCtrls=2\nDefaults=1A;5;ffff;-2\n");
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, 3, nullptr, 0), 12);
  EXPECT_EQ(Defaults(12), 2);
  EXPECT_BYTES(bytes, Bytes("\x1A\0\x05\0\0\0\xFF\xFF\xFE\xFF\xFF\xFF"));
}

TEST_F(PanelPageTest, DefaultsThatDoNotFitStoreTheSizeNeeded) {
  OpenPage("NumCtrls=2\nDefaults=1A;5;1B;6\n");
  EXPECT_EQ(Defaults(11), -1);
  EXPECT_BYTES(bytes, Bytes("\x0C\0#########"));
  EXPECT_EQ(Defaults(1), -1);
  EXPECT_BYTES(bytes, "#");
  EXPECT_EQ(Defaults(0), -1);
}

TEST_F(PanelPageTest, DefaultsStopAtNumCtrlsAndAtTheEndOfTheList) {
  OpenPage("NumCtrls=1\nDefaults=1;2;3;4\n");
  EXPECT_EQ(Defaults(12), 1);
  EXPECT_BYTES(bytes, Bytes("\x01\0\x02\0\0\0######"));
  OpenPage("NumCtrls=2\nDefaults=1;2;3\n");
  EXPECT_EQ(Defaults(12), 2);
  EXPECT_BYTES(bytes, Bytes("\x01\0\x02\0\0\0\x03\0####"));
}

TEST_F(PanelPageTest, PageWithoutASectionNameIsMissing) {
  OpenPage("NumCtrls=1\nNumOMVAR=1\n");
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, 4, nullptr, 0), -2);
  EXPECT_EQ(ZeOpcGetPageOmVars(handle, 4, nullptr, 0), -2);
  EXPECT_EQ(ZeOpcGetPageDefaults(nullptr, 3, nullptr, 0), -2);
  EXPECT_EQ(ZeOpcGetPageOmVars(nullptr, 3, nullptr, 0), -2);
}

TEST_F(PanelPageTest, PageSectionThatIsNamedButMissingHasNothing) {
  OpenPage("NumCtrls=1\n");
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, -1, nullptr, 0), 0);
  EXPECT_EQ(ZeOpcGetPageOmVars(handle, -1, nullptr, 0), 0);
  char none = '#';
  EXPECT_EQ(ZeOpcGetPageOmVars(handle, -1, &none, 0), 0);
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, -1, &none, 0), 0);
  EXPECT_EQ(none, '#');
}

TEST_F(PanelPageTest, SectionNameHas64Characters) {
  const std::string name(64, 'n');
  Open("[Dialogs]\n3=" + name + "cut\n[" + name + "]\nNumCtrls=2\n");
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, 3, nullptr, 0), 12);
}

TEST_F(PanelPageTest, OmVarsAreStoredHighByteFirst) {
  OpenPage("NumOMVAR=2\nOMVAR=12AB 0x7f\n");
  EXPECT_EQ(ZeOpcGetPageOmVars(handle, 3, nullptr, 0), 4);
  EXPECT_EQ(OmVars(4), 2);
  EXPECT_BYTES(bytes, Bytes("\x12\xAB\0\x7F"));
  EXPECT_EQ(OmVars(3), -1);
  EXPECT_BYTES(bytes, Bytes("\x04\0#"));
}

TEST_F(PanelPageTest, KeepsStoringOmVarsBeyondTheirNumberWhileThereIsRoom) {
  OpenPage("NumOMVAR=1\nOMVAR=1 2 3  4\n");
  EXPECT_EQ(OmVars(8), 4);
  EXPECT_BYTES(bytes, Bytes("\0\x01\0\x02\0\x03\0\x04"));
  EXPECT_EQ(OmVars(5), 2);
  EXPECT_BYTES(bytes, Bytes("\0\x01\0\x02#"));
  EXPECT_EQ(OmVars(2), 1);
}

// What is told apart: a sign, a prefix with nothing or no digit behind it, more digits than 16 or 32 bits have.
TEST_F(PanelPageTest, HexadecimalIdentifiersAreReadUpToTheFirstOtherCharacter) {
  const std::pair<const char*, const char*> rows[] = {
      {"-1", "0000"},    {"+1", "0000"},        {"0x", "0000"},
      {"0X", "0000"},    {"0xg", "0000"},       {"0X1aG", "001a"},
      {"\t1A", "001a"},  {"1 ", "0001"},        {"x1", "0000"},
      {"12345", "2345"}, {"ABCDEF012", "f012"}, {"00000000000000007", "0007"},
      {"7:1", "0007"},   {"0x0x1", "0000"},     {"FFFFFFFFFFFFFFFFFFF", "ffff"}};
  for (const auto& [text, number] : rows) {
    OpenPage(std::string("NumCtrls=1\nDefaults=") + text + ";5\nNumOMVAR=1\nOMVAR=" + text + "\n");
    EXPECT_EQ(Defaults(6), 1);
    const auto hexadecimal = [this](std::size_t high, std::size_t low) {
      char digits[8];
      std::snprintf(digits, sizeof(digits), "%02x%02x", static_cast<unsigned char>(bytes[high]),
                    static_cast<unsigned char>(bytes[low]));
      return std::string(digits);
    };
    EXPECT_EQ(hexadecimal(1, 0), number) << text;
    EXPECT_EQ(OmVars(2), 1);
    EXPECT_EQ(hexadecimal(0, 1), number) << text;
  }
}

TEST_F(PanelPageTest, ManySeparatorsAreCutToNothing) {
  const std::string semicolons(65536, ';');
  const std::string blanks(65536, ' ');
  OpenPage("NumCtrls=1\nNumOMVAR=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "Page", "Defaults", (semicolons + "1;2").c_str()), 1U);
  EXPECT_EQ(Defaults(6), 1);
  EXPECT_BYTES(bytes, "######");
  EXPECT_EQ(ZeIniWrite(handle, "Page", "OMVAR", (blanks + "1").c_str()), 1U);
  EXPECT_EQ(OmVars(2), 0);
  EXPECT_BYTES(bytes, "##");
  EXPECT_EQ(ZeIniWrite(handle, "Combos", "5", semicolons.c_str()), 1U);
  EXPECT_EQ(Texts(5, 0, 2), 0);
  EXPECT_EQ(ZeOpcGetTextListing(handle, 5, 0, nullptr, 0), 0);
  EXPECT_EQ(ZeIniWrite(handle, "Spin Limits", "5", semicolons.c_str()), 1U);
  std::int32_t third = 33;
  ZeOpcGetSpinControlLimits(handle, 5, nullptr, nullptr, &third);
  EXPECT_EQ(third, 33);
  EXPECT_EQ(ZeIniWrite(handle, "Edit Lengths", "5", (blanks + "1").c_str()), 1U);
  EXPECT_EQ(EditLength(5), 0);
}

TEST_F(PanelPageTest, OddNumbersOfControlsStoreNothingBeyondTheRoom) {
  OpenPage("NumCtrls=-3\nDefaults=1;2\nNumOMVAR=-1\nOMVAR=1 2\n");
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, 3, nullptr, 0), -18);
  EXPECT_EQ(Defaults(1), -3);
  EXPECT_EQ(OmVars(1), 0);
  OpenPage("NumCtrls=10923\nDefaults=1;2\nNumOMVAR=99999999999\n");
  EXPECT_EQ(ZeOpcGetPageDefaults(handle, 3, nullptr, 0), 2);  // 65538 in 16 bits
  EXPECT_EQ(Defaults(2), -1);
  EXPECT_BYTES(bytes, Bytes("\x02\0"));
  EXPECT_EQ(OmVars(100), -1);
}

TEST_F(PanelPageTest, LocaleOfTheHostProgramChangesNothing) {
  const ForeignLocale turkish(folder());
  ASSERT_TRUE(turkish.InForce());
  Open("[DIALOGS]\n3=LIST\n[list]\nNUMCTRLS=1\ndefaults=1a;2\n");
  EXPECT_EQ(Defaults(6), 1);
  EXPECT_BYTES(bytes, Bytes("\x1A\0\x02\0\0\0"));
}

}  // namespace
}  // namespace zeapi::testing
