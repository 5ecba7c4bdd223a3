#include "config/ini_file.h"
#include "support/bytes.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

using IniWriteTest = IniTest;

TEST_F(IniWriteTest, ReplacesAValueAndTheSpellingOfItsKey) {
  Open("[s]\nkey=a longer old value\nother=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "S", "KEY", "new"), 1U);
  EXPECT_EQ(Value("s", "key"), "new");
  EXPECT_BYTES(Written(), "[s]\nKEY=new\nother=1\n");
}

TEST_F(IniWriteTest, ReplacesAShortValueByALongOne) {
  Open("[s]\nkey=1\nother=1\n");
  const std::string value(5000, 'v');
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", value.c_str()), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", (value + "w").c_str()), 1U);
  EXPECT_BYTES(Written(), "[s]\nkey=" + value + "w\nother=1\n");
}

TEST_F(IniWriteTest, NewKeyJoinsTheFirstBlockAheadOfTheEmptyLine) {
  Open("[s]\na=1\n\n[t]\nb=2\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "new", "3"), 1U);
  EXPECT_EQ(Value("s", "new"), "3");
  EXPECT_BYTES(Written(), "[s]\na=1\nnew=3\n\n[t]\nb=2\n");
}

TEST_F(IniWriteTest, NewKeyJoinsTheFirstBlockAheadOfTheNextHeader) {
  Open("[s]\na=1\n[t]\nb=2\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "new", "3"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "t", "new", "4"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=1\nnew=3\n[t]\nb=2\nnew=4\n");
}

TEST_F(IniWriteTest, NewKeyOfAnEmptyBlockStandsRightBelowTheHeader) {
  Open("[s]\n\na=1\n[t]\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "new", "3"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "t", "new", "4"), 1U);
  EXPECT_BYTES(Written(), "[s]\nnew=3\n\na=1\n[t]\nnew=4\n");
}

TEST_F(IniWriteTest, KeepsKeysBehindAnEmptyLineOutOfSight) {
  Open("[s]\na=1\n\nkey=old\n");
  EXPECT_EQ(Value("s", "key"), "old");
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", "new"), 1U);
  EXPECT_EQ(Value("s", "key"), "new");
  EXPECT_BYTES(Written(), "[s]\na=1\nkey=new\n\nkey=old\n");
}

TEST_F(IniWriteTest, MissingSectionIsAppendedBehindAnEmptyLine) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "t", "key", "1"), 1U);
  EXPECT_EQ(Value("t", "key"), "1");
  EXPECT_BYTES(Written(), "[s]\na=1\n\n[t]\nkey=1\n");
}

TEST_F(IniWriteTest, NoSecondEmptyLineBeforeAnAppendedSection) {
  Open("[s]\na=1\n\n");
  EXPECT_EQ(ZeIniWrite(handle, "t", "key", "1"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=1\n\n[t]\nkey=1\n");
}

TEST_F(IniWriteTest, FirstSectionOfAnEmptyFileHasNoEmptyLineBeforeIt) {
  Open("", ZE_INI_CREATE);
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "1"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "t", "b", "2"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=1\n\n[t]\nb=2\n");
}

TEST_F(IniWriteTest, OnlyTheFirstOfSeveralSectionsIsWrittenTo) {
  Open("[s]\na=1\n[s]\nkey=old\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", "new"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=1\nkey=new\n[s]\nkey=old\n");
}

TEST_F(IniWriteTest, OnlyTheFirstOfSeveralKeysIsReplaced) {
  Open("[s]\nkey=1\nkey=2\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", "3"), 1U);
  EXPECT_BYTES(Written(), "[s]\nkey=3\nkey=2\n");
}

TEST_F(IniWriteTest, KeyThatBeginsWithABracketBecomesAHeader) {
  Open("[s]\na=1\n[t]\nb=2\n");
  EXPECT_EQ(Value("t", "b"), "2");
  EXPECT_EQ(ZeIniWrite(handle, "s", "[u", "x]"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "u=x", "c", "3"), 1U);
  EXPECT_EQ(Value("s", "[u"), "x]");
  EXPECT_BYTES(Written(), "[s]\na=1\n[u=x]\nc=3\n[t]\nb=2\n");
}

TEST_F(IniWriteTest, AppendedHeaderWithAnEqualsIsAKeyOfTheSectionAbove) {
  Open("[s]\na=1\n");
  EXPECT_EQ(Value("s", "[t"), "<41>");
  EXPECT_EQ(ZeIniWrite(handle, "t=1", "key", "v"), 1U);
  EXPECT_EQ(Value("s", "[t"), "1]");
  EXPECT_EQ(Value("t=1", "key"), "v");
}

TEST_F(IniWriteTest, AppendedKeyThatBeginsWithABracketIsTheNextHeader) {
  Open("");
  EXPECT_EQ(ZeIniWrite(handle, "s", "[t]", "v]"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "t]=v", "key", "1"), 1U);
  EXPECT_BYTES(Written(), "[s]\n[t]=v]\nkey=1\n");
}

TEST_F(IniWriteTest, ValueMayLieInTheImage) {
  Open("[s]\na=0123456789\nb=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "b", ZeIniRead(handle, "s", "a")), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", ZeIniRead(handle, "s", "a") + 5), 1U);
  EXPECT_BYTES(Written(), "[s]\na=56789\nb=0123456789\n");
}

TEST_F(IniWriteTest, NullArgumentsWriteNothing) {
  Open("[s]\n");
  EXPECT_EQ(ZeIniWrite(nullptr, "s", "k", "v"), 0U);
  EXPECT_EQ(ZeIniWrite(handle, nullptr, "k", "v"), 0U);
  EXPECT_EQ(ZeIniWrite(handle, "s", nullptr, "v"), 0U);
  EXPECT_EQ(ZeIniWrite(handle, "s", "k", nullptr), 0U);
  EXPECT_EQ(ZeIniWriteAll(nullptr, "s", "k", "v"), 0U);
  EXPECT_EQ(ZeIniWriteAll(handle, nullptr, "k", "v"), 0U);
  EXPECT_EQ(ZeIniWriteAll(handle, "s", nullptr, "v"), 0U);
  EXPECT_EQ(ZeIniWriteAll(handle, "s", "k", nullptr), 0U);
  EXPECT_BYTES(Written(), "[s]\n");
}

using IniWriteAllTest = IniTest;

TEST_F(IniWriteAllTest, AddsAFurtherValueOfAKey) {
  Open("[s]\nkey=1\n\nkey=2\n");
  EXPECT_EQ(Value("s", "key"), "1");
  EXPECT_EQ(ZeIniWriteAll(handle, "s", "key", "2"), 1U);
  EXPECT_EQ(Value("s", "key"), "1");
  EXPECT_BYTES(Written(), "[s]\nkey=1\nkey=2\n\nkey=2\n");
}

TEST_F(IniWriteAllTest, PairThatIsThereStaysAsItIs) {
  Open("[s]\nkey=1\nKey=Two=2\n");
  EXPECT_EQ(ZeIniWriteAll(handle, "S", "kEY", "tWO=2"), 1U);
  EXPECT_BYTES(Written(), "[s]\nkey=1\nKey=Two=2\n");
}

TEST_F(IniWriteAllTest, WholeValueIsCompared) {
  Open("[s]\nkey=12\n");
  EXPECT_EQ(ZeIniWriteAll(handle, "s", "key", "1"), 1U);
  EXPECT_BYTES(Written(), "[s]\nkey=12\nkey=1\n");
}

TEST_F(IniWriteAllTest, MissingSectionIsAppended) {
  Open("[s]\n");
  EXPECT_EQ(ZeIniWriteAll(handle, "t", "key", "1"), 1U);
  EXPECT_BYTES(Written(), "[s]\n\n[t]\nkey=1\n");
}

using IniDeleteTest = IniTest;

TEST_F(IniDeleteTest, RemovesTheFirstLineOfTheKeyAlone) {
  Open("[s]\na=0\nkey=1\nKEY=2\n");
  EXPECT_EQ(Value("s", "key"), "1");
  EXPECT_EQ(ZeIniDelete(handle, "S", "Key", nullptr), 1U);
  EXPECT_EQ(Value("s", "key"), "2");
  EXPECT_BYTES(Written(), "[s]\na=0\nKEY=2\n");
}

TEST_F(IniDeleteTest, WithAValueRemovesTheLineThatHasBoth) {
  Open("[s]\nkey=1\nkey=Two\nkey=3\n");
  EXPECT_EQ(ZeIniDelete(handle, "s", "key", "tWO"), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "s", "key", "4"), 1U);
  EXPECT_BYTES(Written(), "[s]\nkey=1\nkey=3\n");
}

TEST_F(IniDeleteTest, EmptyLinesDoNotStopTheSearchAndHeadersDo) {
  Open("[s]\n\na=1\n\nb=2\n[t]\nc=3\n");
  EXPECT_EQ(ZeIniDelete(handle, "s", "b", nullptr), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "s", "c", nullptr), 1U);
  EXPECT_BYTES(Written(), "[s]\n\na=1\n\n[t]\nc=3\n");
}

TEST_F(IniDeleteTest, KeepsCuttingLinesAtEachEquals) {
  Open("[s]\nbare\n==lead==x\na=1=2\nb==2\nc=\n=\n");
  EXPECT_EQ(ZeIniDelete(handle, "s", "BARE", nullptr), 1U);  // a line without "=" is all key
  EXPECT_EQ(ZeIniDelete(handle, "s", "lead", "x"), 1U);      // empty pieces do not count
  EXPECT_EQ(ZeIniDelete(handle, "s", "a", "1=2"), 1U);       // a value ends at the next "="
  EXPECT_EQ(ZeIniDelete(handle, "s", "c", ""), 1U);          // no piece, no value
  EXPECT_EQ(ZeIniDelete(handle, "s", "", nullptr), 1U);      // no piece, no key
  EXPECT_EQ(ZeIniDelete(handle, "s", "b", "2"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=1=2\nc=\n=\n");
  Open("[s]\na=1=2\n");
  EXPECT_EQ(ZeIniDelete(handle, "s", "a", "1"), 1U);
  EXPECT_BYTES(Written(), "[s]\n");
}

TEST_F(IniDeleteTest, KeepsTheLinesOfADeletedSectionUnderTheOneAbove) {
  Open("[s]\na=1\n[t]\nb=2\n[u]\nc=3\n");
  EXPECT_EQ(Value("s", "b"), "<41>");
  EXPECT_EQ(ZeIniDelete(handle, "t", nullptr, "ignored"), 1U);
  EXPECT_EQ(Value("t", "b"), "<45>");
  EXPECT_EQ(Value("s", "b"), "2");
  EXPECT_BYTES(Written(), "[s]\na=1\nb=2\n[u]\nc=3\n");
}

TEST_F(IniDeleteTest, HeaderInTheFirstLineGoesToo) {
  Open("[s]\na=1\n[s]\nb=2\n");
  EXPECT_EQ(ZeIniDelete(handle, "s", nullptr, nullptr), 1U);
  EXPECT_EQ(Value("s", "b"), "2");  // the next one of the name is the first now
  EXPECT_EQ(Value("s", "a"), "<41>");
  EXPECT_BYTES(Written(), "a=1\n[s]\nb=2\n");
}

TEST_F(IniDeleteTest, OnlyHeaderOfAFileGoesAndTheFileCanBeWrittenTo) {
  Open("[s]");
  EXPECT_EQ(ZeIniDelete(handle, "s", nullptr, nullptr), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "t", "a", "1"), 1U);
  EXPECT_BYTES(Written(), "[t]\na=1\n");
}

TEST_F(IniDeleteTest, LastLineOfTheFileGoesAndTheNextOneIsAppendedInItsPlace) {
  Open("[s]\na=1\nb=2\n");
  EXPECT_EQ(ZeIniDelete(handle, "s", "b", nullptr), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "t", "c", "3"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=1\n\n[t]\nc=3\n");
}

TEST_F(IniDeleteTest, NothingToRemoveIsDoneToo) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniDelete(handle, "t", "a", nullptr), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "s", "b", nullptr), 1U);
  EXPECT_EQ(ZeIniDelete(handle, nullptr, "a", nullptr), 0U);
  EXPECT_EQ(ZeIniDelete(nullptr, "s", "a", nullptr), 0U);
  EXPECT_BYTES(Written(), "[s]\na=1\n");
}

TEST_F(IniDeleteTest, LinesThatWereAddedAndRewrittenGoToo) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "a much longer value"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "s", "b", "2"), 1U);
  EXPECT_EQ(ZeIniWrite(handle, "s", "b", "a much longer value"), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "s", "a", nullptr), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "s", "b", nullptr), 1U);
  EXPECT_BYTES(Written(), "[s]\n");
}

using IniCloseTest = IniTest;

TEST_F(IniCloseTest, WithoutAnEditTheFileIsNotTouched) {
  for (const std::uint32_t mode : {ZE_INI_READ, ZE_INI_UPDATE, ZE_INI_APPEND}) {
    Open("[s]  \n\n;c\na  =1", mode);
    EXPECT_EQ(Value("s", "a"), "1");
    EXPECT_EQ(Close(), 1U);
    EXPECT_BYTES(ReadFile(kFile), "[s]  \n\n;c\na  =1");
  }
}

TEST_F(IniCloseTest, AnEditThatChangesNothingWritesTheFile) {
  const auto untouched = [this](auto edit) {
    Open("[s]  \na=1");
    edit();
    EXPECT_BYTES(Written(), "[s]\na=1\n");
  };
  untouched([this] { ZeIniWrite(handle, "s", "a", "1"); });
  untouched([this] { ZeIniWriteAll(handle, "s", "a", "1"); });
  untouched([this] { ZeIniDelete(handle, "none", nullptr, nullptr); });
}

TEST_F(IniCloseTest, FilteredFileLosesWhatWasDropped) {
  Open(";c\n\n[s]\na=1\n", ZE_INI_READ);
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  EXPECT_BYTES(Written(), "[s]\na=2\n");
}

TEST_F(IniCloseTest, FileThatCannotBeWrittenBackGives0) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  fs::remove(kFile);
  fs::create_directory(kFile);
  EXPECT_EQ(Close(), 0U);
}

TEST_F(IniCloseTest, FileIsWrittenBackWhereItWasOpened) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  fs::rename(kFile, "moved.ini");
  EXPECT_BYTES(Written(), "[s]\na=2\n");
  EXPECT_BYTES(ReadFile("moved.ini"), "[s]\na=1\n");
}

TEST_F(IniCloseTest, LineEndsAreTheHostsOwn) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  EXPECT_EQ(Close(), 1U);
#ifdef _WIN32
  EXPECT_BYTES(ReadFile(kFile), "[s]\r\na=2\r\n");
#else
  EXPECT_BYTES(ReadFile(kFile), "[s]\na=2\n");
#endif
}

TEST_F(IniCloseTest, NullHandleGives0) { EXPECT_EQ(ZeIniClose(nullptr), 0U); }

// What a caller was given stays where it is while the new text fits.
TEST_F(IniWriteTest, ValueThatFitsIsWrittenInPlace) {
  Open("[s]\nkey=value\n");
  const char* text = ZeIniRead(handle, "s", "key");
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", "other"), 1U);
  EXPECT_EQ(ZeIniRead(handle, "s", "key"), text);
  EXPECT_STREQ(text, "other");
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", "x"), 1U);
  EXPECT_EQ(ZeIniRead(handle, "s", "key"), text);
  EXPECT_STREQ(text, "x");
  EXPECT_EQ(ZeIniWrite(handle, "s", "key", "longer"), 1U);
  EXPECT_STREQ(ZeIniRead(handle, "s", "key"), "longer");
}

class IniLongestTest : public IniTest {
 protected:
  std::uint32_t Longest() const { return static_cast<IniFile*>(handle)->longest; }
};

TEST_F(IniLongestTest, IsTheRoomOfTheLongestLineThatWasAdded) {
  Open("");
  EXPECT_EQ(Longest(), 0U);
  EXPECT_EQ(ZeIniWrite(handle, "section", "k", "v"), 1U);
  EXPECT_EQ(Longest(), sizeof("[section]"));
  EXPECT_EQ(ZeIniWriteAll(handle, "section", "k", "value of the key"), 1U);
  EXPECT_EQ(Longest(), sizeof("k=value of the key"));
}

TEST_F(IniLongestTest, KeepsOutLinesThatWereRewritten) {
  Open("[s]\nk=1\n");
  EXPECT_EQ(Longest(), 4U);
  EXPECT_EQ(ZeIniWrite(handle, "s", "k", "a longer value"), 1U);
  EXPECT_EQ(Longest(), 4U);
}

}  // namespace
}  // namespace zeapi::testing
