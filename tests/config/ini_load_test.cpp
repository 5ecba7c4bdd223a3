#include <cstdint>

#include "support/bytes.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

using Strings = std::vector<std::string>;

class IniLoadTest : public IniTest {
 protected:
  // What loading made of a text: every line of the image, as closing after an edit writes them.
  std::string Loaded(std::string_view text, std::uint32_t mode = ZE_INI_UPDATE) {
    Open(text, mode);
    EXPECT_EQ(ZeIniDelete(handle, "no such section", nullptr, nullptr), 1U);
    return Written();
  }
};

TEST_F(IniLoadTest, TrailingBlanksGoAndEverythingElseStays) {
  EXPECT_BYTES(Loaded("[s]  \n bare line \t\n  lead=x\nend \n"),
               "[s]\n bare line \t\n  lead=x\nend\n");
}

TEST_F(IniLoadTest, BlanksBeforeTheFirstEqualsGoAndThoseBehindItStay) {
  EXPECT_BYTES(Loaded("key   =  a = b  \ntab\t=1\n"), "key=  a = b\ntab\t=1\n");
}

TEST_F(IniLoadTest, KeyOfBlanksAloneIsEmpty) {
  EXPECT_BYTES(Loaded("   =value\n=other\n"), "=value\n=other\n");
}

TEST_F(IniLoadTest, HeaderWithAnEqualsKeepsItsBlanks) {
  EXPECT_BYTES(Loaded("[a  =b]\n"), "[a  =b]\n");
}

TEST_F(IniLoadTest, HeaderBehindBlanksIsNoHeader) {
  Open("[s]\n [t]\nkey=1\n");
  EXPECT_EQ(Value("t", "key"), "<45>");
  EXPECT_EQ(Value("s", "key"), "1");
}

TEST_F(IniLoadTest, FilteredModeDropsCommentsAndEmptyLines) {
  EXPECT_BYTES(Loaded(";comment\n\n[s]\n   \n;key=1\nbare\n ;kept\nk=v\n", ZE_INI_READ),
               "[s]\n;key=1\nbare\n ;kept\nk=v\n");
}

TEST_F(IniLoadTest, CommentWithAnEqualsAnswersToItsTextWithTheSemicolon) {
  Open("[s]\n;key  =1\n", ZE_INI_READ);
  EXPECT_EQ(Value("s", ";key"), "1");
  EXPECT_EQ(Value("s", "key"), "<41>");
}

TEST_F(IniLoadTest, OtherModesKeepCommentsAndEmptyLines) {
  EXPECT_BYTES(Loaded(";comment\n\n[s]\n;key=1\n", ZE_INI_UPDATE), ";comment\n\n[s]\n;key=1\n");
  EXPECT_BYTES(Loaded(";comment\n\n[s]\n;key=1\n", ZE_INI_APPEND), ";comment\n\n[s]\n;key=1\n");
}

TEST_F(IniLoadTest, LastLineNeedsNoNewline) { EXPECT_BYTES(Loaded("[s]\na=1"), "[s]\na=1\n"); }

TEST_F(IniLoadTest, WindowsAndUnixLineEndsReadTheSameInEveryMode) {
  for (const std::uint32_t mode : {ZE_INI_READ, ZE_INI_UPDATE, ZE_INI_APPEND}) {
    EXPECT_BYTES(Loaded("[s]\r\na=1 \r\n", mode), "[s]\na=1\n");
  }
}

TEST_F(IniLoadTest, LoneCarriageReturnStays) {
  EXPECT_BYTES(Loaded("[s]\na=\r1\r \nb=2\n\r \n"), "[s]\na=\r1\r\nb=2\n\r\n");
  Open("[s]\na=1\r \nb=2\n");
  EXPECT_EQ(Value("s", "a"), "1\r");
}

TEST_F(IniLoadTest, LineOf2500CharactersComesInThreeLines) {
  Open("[s]\n" + std::string(2500, 'x') + "\n");
  EXPECT_EQ(Lines("s"),
            (Strings{std::string(1019, 'x'), std::string(1019, 'x'), std::string(462, 'x')}));
}

TEST_F(IniLoadTest, LineOf1018CharactersIsOneLine) {
  EXPECT_BYTES(Loaded(std::string(1018, 'x') + "\nnext\n"), std::string(1018, 'x') + "\nnext\n");
}

TEST_F(IniLoadTest, KeepsTheEmptyLineBehindALineOfExactly1019Characters) {
  const std::string line(1019, 'x');
  EXPECT_BYTES(Loaded(line + "\nnext\n", ZE_INI_UPDATE), line + "\n\nnext\n");
  EXPECT_BYTES(Loaded(line + "\nnext\n", ZE_INI_APPEND), line + "\n\nnext\n");
  EXPECT_BYTES(Loaded(line + "\nnext\n", ZE_INI_READ), line + "\nnext\n");
}

TEST_F(IniLoadTest, PiecesOfALongLineAreClassedEachByItself) {
  Open("[s]\n" + std::string(1019, 'x') + "key=1\n");
  EXPECT_EQ(Value("s", "key"), "1");
}

TEST_F(IniLoadTest, BlanksAtTheEndOfAPieceGo) {
  EXPECT_BYTES(Loaded(std::string(1000, 'x') + std::string(19, ' ') + "y\n"),
               std::string(1000, 'x') + "\ny\n");
}

TEST_F(IniLoadTest, LinesAcrossTheReadingBlocksAreWhole) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "key" + std::to_string(i) + "=value\n";
  EXPECT_BYTES(Loaded("[s]\n" + text), "[s]\n" + text);
}

TEST_F(IniLoadTest, LineEndsAtItsFirstZeroByte) {
  EXPECT_BYTES(Loaded(Bytes("[s]\na=1\0lost\n\0all lost\nb=2\n")), "[s]\na=1\n\nb=2\n");
}

TEST_F(IniLoadTest, BinaryBytesAreKept) {
  std::string bytes = "[s]\nkey=";
  for (int c = 1; c < 256; ++c) {
    if (c != '\n' && c != '\r' && c != 0x1A && c != ' ') bytes += static_cast<char>(c);
  }
  Open(bytes + "\n");
  EXPECT_BYTES(Value("s", "key"), bytes.substr(8));
}

TEST_F(IniLoadTest, MissingFileOpensOnlyInTheModesThatMakeIt) {
  EXPECT_EQ(ZeIniOpen2("missing.ini", ZE_INI_READ), nullptr);
  EXPECT_EQ(ZeIniOpen2("missing.ini", ZE_INI_UPDATE), nullptr);
  EXPECT_FALSE(fs::exists("missing.ini"));
  EXPECT_EQ(ZeIniClose(ZeIniOpen2("missing.ini", ZE_INI_APPEND)), 1U);
  EXPECT_TRUE(fs::exists("missing.ini"));
  EXPECT_EQ(ZeIniClose(ZeIniOpen2("other.ini", ZE_INI_CREATE)), 1U);
  EXPECT_TRUE(fs::exists("other.ini"));
}

TEST_F(IniLoadTest, CreatingEmptiesTheFileAtOnce) {
  Open("[s]\na=1\n", ZE_INI_CREATE);
  EXPECT_BYTES(ReadFile(kFile), "");
  EXPECT_EQ(Value("s", "a"), "<45>");
  EXPECT_BYTES(Written(), "");
}

TEST_F(IniLoadTest, AnyOtherModeGivesNullAndTouchesNothing) {
  WriteFile(kFile, "[s]\n");
  for (const std::uint32_t mode : {0U, 2U, 3U, 4U, 5U, 6U, 10U, 0x80000001U}) {
    EXPECT_EQ(ZeIniOpen2(kFile, mode), nullptr) << mode;
    EXPECT_EQ(ZeIniOpen2("missing.ini", mode), nullptr) << mode;
  }
  EXPECT_BYTES(ReadFile(kFile), "[s]\n");
  EXPECT_FALSE(fs::exists("missing.ini"));
}

TEST_F(IniLoadTest, NullAndLongNamesGiveNull) {
  const std::string tooLong = std::string(257, '.') + "\\a.x";
  EXPECT_EQ(ZeIniOpen(nullptr), nullptr);
  EXPECT_EQ(ZeIniOpen2(nullptr, ZE_INI_CREATE), nullptr);
  EXPECT_EQ(ZeIniOpen2("", ZE_INI_CREATE), nullptr);
  EXPECT_EQ(ZeIniOpen2(tooLong.c_str(), ZE_INI_CREATE), nullptr);
}

TEST_F(IniLoadTest, FolderDoesNotOpen) {
  fs::create_directory("folder");
  for (const std::uint32_t mode : {ZE_INI_READ, ZE_INI_UPDATE, ZE_INI_CREATE, ZE_INI_APPEND}) {
    EXPECT_EQ(ZeIniOpen2("folder", mode), nullptr);
  }
}

TEST_F(IniLoadTest, OpenRefusesAFileWithoutLinesThatOpen2Takes) {
  for (const char* text : {"", "\n  \n", ";only\n; comments\n\n"}) {
    WriteFile(kFile, text);
    EXPECT_EQ(ZeIniOpen(kFile), nullptr) << text;
    handle = ZeIniOpen2(kFile, ZE_INI_READ);
    ASSERT_NE(handle, nullptr) << text;
    EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
    EXPECT_EQ(Close(), 1U);
  }
}

TEST_F(IniLoadTest, OpenFiltersLikeModeOne) {
  WriteFile(kFile, "[s]\n\n;c\na=1\n");
  handle = ZeIniOpen(kFile);
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(Lines("s"), Strings{"a=1"});
}

TEST_F(IniLoadTest, FileIsNotHeldOpenBetweenCalls) {
  Open("[s]\na=1\n", ZE_INI_APPEND);
  fs::rename(kFile, "moved.ini");
  EXPECT_EQ(Value("s", "a"), "1");
}

TEST_F(IniLoadTest, SectionThatNeverClosesIsALineLikeAnyOther) {
  Open("[s]\na=1\n[open\nb=2\n[\nc=3\n");
  EXPECT_EQ(Value("s", "a"), "1");
  EXPECT_EQ(Value("s", "b"), "<41>");
  EXPECT_EQ(Value("ope", "b"), "<45>");
  EXPECT_EQ(Value("", "c"), "<45>");
}

TEST_F(IniLoadTest, EmptySectionNameIsAName) {
  Open("[]\na=1\n");
  EXPECT_EQ(Value("", "a"), "1");
}

TEST_F(IniLoadTest, HugeLineWithoutANewlineLoadsInPieces) {
  const std::size_t length = 3 << 20;
  WriteFile(kFile, "[s]\n" + std::string(length, 'x'));
  handle = ZeIniOpen(kFile);
  ASSERT_NE(handle, nullptr);
  std::size_t read = 0;
  for (const std::string& line : Lines("s")) read += line.size();
  EXPECT_EQ(read, length);
}

}  // namespace
}  // namespace zeapi::testing
