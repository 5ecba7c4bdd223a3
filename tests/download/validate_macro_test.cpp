#include <cstring>

#include "download/macro_case.h"

namespace zeapi::testing {
namespace {

constexpr char kWorkFile[] = "fixup.mac";

class ValidateMacroTest : public MacroTest {
 protected:
  std::uint32_t Validate(std::string_view content) {
    WriteFile(kInput, content);
    return ZeMacValidate(kInput, &destination, &macro);
  }
  void Limit(std::uint32_t options) {
    macro.macroFlags = ZE_MACRO_FIX_UP_LIMIT;
    macro.fixupLimit = options;
  }
};

// --- Arguments and files

TEST_F(ValidateMacroTest, InvalidArguments) {
  const std::string name(261, 'n');
  EXPECT_EQ(ZeMacValidate(nullptr, &destination, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacValidate(kInput, nullptr, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacValidate(kInput, &destination, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacValidate(name.c_str(), &destination, &macro), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeMacValidate(std::string(260, 'n').c_str(), &destination, &macro), ZE_FILE_NOT_FOUND);
}

TEST_F(ValidateMacroTest, MissingSystemAndUnreadableFiles) {
  EXPECT_EQ(ZeMacValidate("missing.exe", &destination, &macro), ZE_FILE_NOT_FOUND);
  WriteFile("macro.exe", "x");
  EXPECT_EQ(ZeMacValidate("macro.exe", &destination, &macro), ZE_BAD_FORMAT);
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeMacValidate("folder", &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_FALSE(std::filesystem::exists(kWorkFile));
}

TEST_F(ValidateMacroTest, NothingIsSentAndTheRecordStays) {
  Limit(0);
  const ZeMacroInfo before = macro;
  EXPECT_EQ(Validate("text"), ZE_OK);
  EXPECT_TRUE(NothingSent());
  EXPECT_EQ(std::memcmp(&before, &macro, sizeof(macro)), 0);
}

// --- The work file

TEST_F(ValidateMacroTest, WorkFileHoldsTheFixedUpMacro) {
  EXPECT_EQ(Validate("\x1B"
                     "Etext\x0C\x1B&l1o5E"),
            ZE_OK);
  EXPECT_BYTES(ReadFile(kWorkFile), "text\x1B&l5E");
  Limit(ZE_FIXUP_FORM_FEED);
  EXPECT_EQ(Validate("\x1B"
                     "Etext\x0C\x1B&l1o5E"),
            ZE_OK);
  EXPECT_BYTES(ReadFile(kWorkFile),
               "\x1B"
               "Etext\x1B&l1o5E");
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Validate("\x1B"
                     "Etext"),
            ZE_OK);
  EXPECT_BYTES(ReadFile(kWorkFile), "text");
}

TEST_F(ValidateMacroTest, LeftoversOfAnEarlierRunDoNotCount) {
  WriteFile(kWorkFile, std::string(5000, 'x') + "\x1B&f1X");
  EXPECT_EQ(Validate("text"), ZE_OK);
  EXPECT_BYTES(ReadFile(kWorkFile), "text");
  EXPECT_EQ(Validate(""), ZE_OK);
  EXPECT_BYTES(ReadFile(kWorkFile), "");
}

TEST_F(ValidateMacroTest, WorkFileThatCannotBeMadeGivesOpenFailed) {
  std::filesystem::create_directory(kWorkFile);
  EXPECT_EQ(Validate("text"), ZE_OPEN_FAILED);
}

TEST_F(ValidateMacroTest, WorkFileItselfIsNotItsOwnSource) {
  WriteFile(kWorkFile, "text");
  EXPECT_EQ(ZeMacValidate(kWorkFile, &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeMacValidate(".\\FIXUP.MAC", &destination, &macro), ZE_OPEN_FAILED);
  EXPECT_BYTES(ReadFile(kWorkFile), "text");
}

TEST_F(ValidateMacroTest, EveryLanguageButPclXlIsCheckedAsPcl) {
  for (const std::int32_t language : {-1, 0, 1, 2, 3, 4, 5, 7}) {
    destination.language = language;
    EXPECT_EQ(Validate("\x1B"
                       "Etext"),
              ZE_OK);
    EXPECT_BYTES(ReadFile(kWorkFile), "text");
    EXPECT_EQ(Validate("text\x1B&f1X"), ZE_BAD_FORMAT);
  }
}

// --- What may be stored

TEST_F(ValidateMacroTest, FilesThatMayBeStored) {
  for (const std::string& content : {
           std::string(),
           std::string("text"),
           std::string("\x1B%-12345X@PJL\n\x1B"
                       "Etext\x0C"),
           std::string("\x1B&f2X\x1B&f3y2X\x1B&f5y4X\x1B&f8X"),
           std::string("\x1B&f6X"),
           std::string("\x1B%0BIN;\x1B%0A"),

           std::string("\x1B*b5W\x1B&f1X"),
           std::string("\x1B(s4W\x1B%0B"),
           std::string("\x1B(8U\x1B(3@\x1B=\x1B"
                       "9"),
           std::string("\x1B\x1B\x1B=x"),
           std::string("&f1X \x1B&n5X"),
           std::string("\x1B[l\x1B[x"),
           std::string("\x1B*v6W"),
           std::string("\x1B%0C\x1B%0A"),
           std::string("\x1B&f\x1B&f2X"),
       }) {
    EXPECT_EQ(Validate(content), ZE_OK) << Printable(content);
  }
}

TEST_F(ValidateMacroTest, StopAndStartThatSurviveAreRefused) {
  Limit(0);
  for (const char* content : {"\x1B&f1X", "\x1B&f0X", "text\x1B&f1X", "\x1B&f3y1X", "\x1B&f1x3Y",
                              "\x1B&f2x1x3Y", "\x1B&f3y0X", "\x1B&f01X", "\x1B&f+1X", "\x1B&f1.5X",
                              "\x1B&fX", "\x1B&f-0X", "\x1B&f2y3x5y1x4X"}) {
    EXPECT_EQ(Validate(content), ZE_BAD_FORMAT) << Printable(content);
  }
  EXPECT_EQ(Validate("\x1B&f" + std::string(5000, '0') + "1X"), ZE_BAD_FORMAT);
}

TEST_F(ValidateMacroTest, StopAndStartThatTheOptionsDropAreNot) {
  Limit(ZE_FIXUP_MACRO_CONTROL);
  for (const char* content : {"\x1B&f1X", "\x1B&f0X", "\x1B&f3y1X", "\x1B&f1x3Y", "\x1B&f01X"}) {
    EXPECT_EQ(Validate(content), ZE_OK) << Printable(content);
  }
}

// What the filter drops may leave a stop command behind that was none before.
TEST_F(ValidateMacroTest, StopThatTheFixupPutsTogetherIsRefused) {
  Limit(ZE_FIXUP_MACRO_CONTROL);
  EXPECT_EQ(Validate("\x1B\x1B%-12345X&f1X"), ZE_BAD_FORMAT);
  EXPECT_BYTES(ReadFile(kWorkFile), "\x1B&f1X");
}

TEST_F(ValidateMacroTest, UnfinishedSequencesAreRefused) {
  for (const char* content :
       {"\x1B", "text\x1B", "\x1B&", "\x1B&l", "\x1B&l5", "\x1B&l5e", "\x1B(", "\x1B(8", "\x1B*t",
        "\x1B%", "\x1B%0", "\x1B%-12345", "\x1B&n5", "\x1B[", "\x1B[K", "\x1B[K\x05"}) {
    EXPECT_EQ(Validate(content), ZE_BAD_FORMAT) << Printable(content);
  }
}

TEST_F(ValidateMacroTest, UnfinishedDataIsRefused) {
  EXPECT_EQ(Validate("\x1B*b5W1234"), ZE_BAD_FORMAT);
  EXPECT_EQ(Validate("\x1B*b5W12345"), ZE_OK);
  EXPECT_EQ(Validate("\x1B*b2v3W12345"), ZE_OK);
  EXPECT_EQ(Validate("\x1B*b2v3W1234"), ZE_BAD_FORMAT);
  EXPECT_EQ(Validate("\x1B*b99999999999999999999W"), ZE_BAD_FORMAT);
  EXPECT_EQ(Validate("\x1B&p3X\x1B&"), ZE_BAD_FORMAT);
}

TEST_F(ValidateMacroTest, GraphicsLeftOpenAreRefused) {
  EXPECT_EQ(Validate("\x1B%0BIN;"), ZE_BAD_FORMAT);
  EXPECT_EQ(Validate("\x1B%0BIN;\x1B%0A\x1B%1B"), ZE_BAD_FORMAT);
  // The reset that would have left them is dropped.
  EXPECT_EQ(Validate("\x1B%0BIN;\x1B"
                     "E"),
            ZE_BAD_FORMAT);
  Limit(0);
  EXPECT_EQ(Validate("\x1B%0BIN;\x1B"
                     "E"),
            ZE_OK);
  EXPECT_EQ(Validate("\x1B%0BIN;\x1B%0A"), ZE_OK);
  EXPECT_EQ(Validate("\x1B%0BIN;\x1B\x1B%0A"), ZE_OK);
}

TEST_F(ValidateMacroTest, UniversalExitWithinGraphicsIsRefused) {
  EXPECT_EQ(Validate("\x1B%0B\x1B%-12345X\x1B%0A"), ZE_BAD_FORMAT);
}

TEST_F(ValidateMacroTest, CommandsWithinGraphicsAndDataAreNotLookedAt) {
  EXPECT_EQ(Validate("\x1B%0B\x1B&f1X\x1B%0A"), ZE_OK);
}

// --- PCL XL

TEST_F(ValidateMacroTest, PclXlWithoutFixup) {
  destination.language = ZE_LANGUAGE_PCLXL;
  EXPECT_EQ(Validate("text of more than 17 bytes"), 46U);
  EXPECT_FALSE(std::filesystem::exists(kWorkFile));
}

TEST_F(ValidateMacroTest, PclXlThatCannotBeFixedUp) {
  destination.language = ZE_LANGUAGE_PCLXL;
  macro.macroFlags = ZE_MACRO_FIX_UP;
  EXPECT_EQ(Validate("text"), 46U);
  EXPECT_FALSE(std::filesystem::exists(kWorkFile));
}

}  // namespace
}  // namespace zeapi::testing
