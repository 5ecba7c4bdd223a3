#include <array>
#include <cstring>

#include "config/ini_file.h"
#include "support/bytes.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

using Strings = std::vector<std::string>;

class IniRead2Test : public IniTest {
 protected:
  // Reads into a block of exactly `size` bytes.
  std::uint32_t Read(const char* section, const char* key, const char* fallback,
                     std::uint32_t size) {
    const auto block = std::make_unique<char[]>(size);
    std::memset(block.get(), '#', size);
    count = 777;
    const std::uint32_t code =
        ZeIniRead2(handle, section, key, fallback, block.get(), size, &count);
    buffer.assign(block.get(), size);
    return code;
  }

  std::string buffer;
  std::uint32_t count = 0;
};

TEST_F(IniRead2Test, CopiesTheValueWithATerminatorThatIsNotCounted) {
  Open("[s]\nkey=value\n");
  EXPECT_EQ(Read("s", "key", nullptr, 8), ZE_OK);
  EXPECT_EQ(count, 5U);
  EXPECT_BYTES(buffer, Bytes("value\0##"));
}

TEST_F(IniRead2Test, ValueOfExactlyTheBufferHasNoTerminatorAndOneByteMoreHas) {
  Open("[s]\nkey=value\n");
  EXPECT_EQ(Read("s", "key", nullptr, 5), ZE_BUFFER_TOO_SMALL);
  EXPECT_EQ(count, 5U);
  EXPECT_BYTES(buffer, "value");
  EXPECT_EQ(Read("s", "key", nullptr, 6), ZE_OK);
  EXPECT_BYTES(buffer, Bytes("value\0"));
  EXPECT_EQ(Read("s", "key", nullptr, 3), ZE_BUFFER_TOO_SMALL);
  EXPECT_EQ(count, 3U);
  EXPECT_BYTES(buffer, "val");
}

TEST_F(IniRead2Test, EmptyValueIsAValueAndFitsOneByte) {
  Open("[s]\nkey=\n");
  EXPECT_EQ(Read("s", "key", "default", 1), ZE_OK);
  EXPECT_EQ(count, 0U);
  EXPECT_BYTES(buffer, Bytes("\0"));
}

TEST_F(IniRead2Test, MissingKeyAndMissingSectionLeaveTheBufferAlone) {
  Open("[s]\nkey=1\n");
  EXPECT_EQ(Read("s", "other", nullptr, 4), ZE_KEY_NOT_FOUND);
  EXPECT_EQ(count, 0U);
  EXPECT_BYTES(buffer, "####");
  EXPECT_EQ(Read("t", "key", nullptr, 4), ZE_SECTION_NOT_FOUND);
  EXPECT_EQ(count, 0U);
  EXPECT_BYTES(buffer, "####");
}

TEST_F(IniRead2Test, DefaultIsCopiedForAMissingKeyAndAMissingSection) {
  Open("[s]\nkey=1\n");
  EXPECT_EQ(Read("s", "other", "def", 4), ZE_DEFAULT_USED);
  EXPECT_EQ(count, 3U);
  EXPECT_BYTES(buffer, Bytes("def\0"));
  EXPECT_EQ(Read("t", "key", "def", 4), ZE_DEFAULT_USED);
  EXPECT_BYTES(buffer, Bytes("def\0"));
}

TEST_F(IniRead2Test, EmptyDefaultCountsAsADefault) {
  Open("[s]\n");
  EXPECT_EQ(Read("s", "key", "", 2), ZE_DEFAULT_USED);
  EXPECT_EQ(count, 0U);
  EXPECT_BYTES(buffer, Bytes("\0#"));
}

TEST_F(IniRead2Test, DefaultThatDoesNotFitIsCutLikeAValue) {
  Open("[s]\n");
  EXPECT_EQ(Read("s", "key", "default", 7), ZE_BUFFER_TOO_SMALL);
  EXPECT_BYTES(buffer, "default");
  EXPECT_EQ(Read("t", "key", "default", 1), ZE_BUFFER_TOO_SMALL);
  EXPECT_EQ(count, 1U);
  EXPECT_BYTES(buffer, "d");
}

TEST_F(IniRead2Test, KeepsClearingADefaultThatIsTheBuffer) {
  Open("[s]\n");
  char room[16] = "dflt";
  EXPECT_EQ(ZeIniRead2(handle, "s", "none", room, room, sizeof(room), &count), ZE_DEFAULT_USED);
  EXPECT_EQ(count, 0U);
  EXPECT_STREQ(room, "");
}

TEST_F(IniRead2Test, DefaultWithinTheBufferIsCopiedFromItsStartOn) {
  Open("[s]\n");
  char room[16] = "xdflt";
  EXPECT_EQ(ZeIniRead2(handle, "s", "none", room + 1, room, sizeof(room), &count), ZE_DEFAULT_USED);
  EXPECT_EQ(count, 4U);
  EXPECT_STREQ(room, "dflt");
  // A default that runs into the buffer follows its own copy.
  char before[16] = "abcdef";
  EXPECT_EQ(ZeIniRead2(handle, "s", "none", before, before + 1, 4, &count), ZE_BUFFER_TOO_SMALL);
  EXPECT_EQ(count, 4U);
  EXPECT_STREQ(before, "aaaaaf");
}

TEST_F(IniRead2Test, InvalidArgumentsLeaveTheCountAlone) {
  Open("[s]\nkey=1\n");
  char room[4] = "###";
  count = 777;
  EXPECT_EQ(ZeIniRead2(handle, nullptr, "key", "d", room, 4, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeIniRead2(handle, "s", nullptr, "d", room, 4, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeIniRead2(handle, "s", "key", "d", nullptr, 4, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeIniRead2(handle, "s", "key", "d", room, 0, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeIniRead2(nullptr, "s", "key", "d", room, 4, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeIniRead2(handle, "s", "key", "d", room, 4, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(count, 777U);
  EXPECT_STREQ(room, "###");
}

TEST_F(IniRead2Test, CaseOfSectionsAndKeysIsIgnored) {
  Open("[SecTion]\nKeY=Value\n");
  EXPECT_EQ(Value("sECTION", "kEy"), "Value");
}

TEST_F(IniRead2Test, OnlyLettersOfAsciiAreFolded) {
  Open("[\xC4rger]\nk\xFC=1\n[x@]\nk[=2\n");
  EXPECT_EQ(Value("\xC4RGER", "K\xFC"), "1");
  EXPECT_EQ(Value("\xE4rger", "k\xFC"), "<45>");
  EXPECT_EQ(Value("\xC4rger", "k\xDC"), "<41>");
  EXPECT_EQ(Value("x`", "k["), "<45>");
  EXPECT_EQ(Value("x@", "k{"), "<41>");
}

TEST_F(IniRead2Test, ValueKeepsEqualsQuotesAndBlanksInFront) {
  Open("[s]\na=  \"x=y;z\" ; no comment\n");
  EXPECT_EQ(Value("s", "a"), "  \"x=y;z\" ; no comment");
}

TEST_F(IniRead2Test, KeyIsComparedAsItIsGiven) {
  Open("[s]\nkey =1\n\tkey2=2\n");
  EXPECT_EQ(Value("s", "key"), "1");
  EXPECT_EQ(Value("s", "key "), "<41>");
  EXPECT_EQ(Value("s", "key2"), "<41>");
  EXPECT_EQ(Value("s", "\tkey2"), "2");
}

TEST_F(IniRead2Test, FirstOfSeveralKeysAndSectionsCounts) {
  Open("[s]\nkey=1\nKEY=2\n[t]\nkey=3\n[S]\nkey=4\nonly=5\n");
  EXPECT_EQ(Value("s", "key"), "1");
  EXPECT_EQ(Value("s", "only"), "<41>");
}

TEST_F(IniRead2Test, EmptyLinesDoNotEndTheSearchAndHeadersDo) {
  Open("[s]\n\na=1\n\n\nb=2\n[t]\nc=3\n");
  EXPECT_EQ(Value("s", "b"), "2");
  EXPECT_EQ(Value("s", "c"), "<41>");
}

TEST_F(IniRead2Test, KeepsLookingForAKeyInTheHeaderThatEndsTheSection) {
  Open("[s]\na=1\n[b=2]\nc=3\n");
  EXPECT_EQ(Value("s", "[b"), "2]");
  EXPECT_EQ(Value("s", "c"), "<41>");
  EXPECT_EQ(Value("b=2", "c"), "3");
  EXPECT_EQ(Value("b=2", "[b"), "<41>");
}

TEST_F(IniRead2Test, LinesBeforeTheFirstHeaderBelongToNoSection) {
  Open("a=1\n[s]\n");
  EXPECT_EQ(Value("", "a"), "<45>");
  EXPECT_EQ(Value("s", "a"), "<41>");
}

TEST_F(IniRead2Test, EmptyKeyIsAKey) {
  Open("[s]\n=1\n");
  EXPECT_EQ(Value("s", ""), "1");
}

TEST_F(IniRead2Test, LongNamesAreSimplyNotThere) {
  Open("[s]\nkey=1\n");
  const std::string name(100000, 'n');
  EXPECT_EQ(Value(name.c_str(), "key"), "<45>");
  EXPECT_EQ(Value("s", name.c_str()), "<41>");
}

using IniReadTest = IniTest;

TEST_F(IniReadTest, KeyGivesItsValue) {
  Open("[s]\nkey=value\n");
  EXPECT_STREQ(ZeIniRead(handle, "S", "KEY"), "value");
  EXPECT_STREQ(ZeIniRead(handle, "s", "other"), "");
  EXPECT_STREQ(ZeIniRead(handle, "t", "key"), "");
  EXPECT_STREQ(ZeIniRead(nullptr, "s", "key"), "");
}

TEST_F(IniReadTest, NullKeyGoesThroughTheLinesOfASection) {
  Open("[s]\na=1\nbare\nb=2\n[t]\nc=3\n");
  EXPECT_EQ(Lines("s"), (Strings{"a=1", "bare", "b=2"}));
  EXPECT_EQ(Lines("t"), Strings{"c=3"});
}

TEST_F(IniReadTest, EmptyLineComesAsAnEmptyStringAndTheNextCallGoesOn) {
  Open("[s]\na=1\n\nb=2\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", nullptr), "a=1");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "b=2");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
}

TEST_F(IniReadTest, NullSectionWithAKeyFindsFurtherOnes) {
  Open("[s]\nkey=1\nother=x\nKey=2\n\nkEy=3\n[t]\nkey=4\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", "key"), "1");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, "key"), "2");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, "key"), "3");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, "key"), "");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, "key"), "");
}

TEST_F(IniReadTest, NullSectionWithoutACursorIsEmpty) {
  Open("a=1\n[s]\nkey=1\n");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, "a"), "");
}

TEST_F(IniReadTest, FailureForgetsTheCursor) {
  Open("[s]\na=1\nb=2\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", nullptr), "a=1");
  EXPECT_STREQ(ZeIniRead(handle, "s", "none"), "");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
  EXPECT_STREQ(ZeIniRead(handle, "s", nullptr), "a=1");
  EXPECT_STREQ(ZeIniRead(handle, "none", nullptr), "");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
}

TEST_F(IniReadTest, OnlyThisCallMovesTheCursor) {
  Open("[s]\na=1\nb=2\n[t]\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", nullptr), "a=1");
  EXPECT_EQ(Value("t", "none"), "<41>");
  EXPECT_EQ(ZeIniWrite(handle, "t", "x", "1"), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "t", "x", nullptr), 1U);
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "b=2");
}

TEST_F(IniReadTest, KeepsLookingAtTheHeaderThatEndsTheSearch) {
  Open("[s]\na=1\n[b=2]\nc=3\n[u]\nd=4\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", "[b"), "2]");
  // The cursor now stands behind that header, in its section.
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "c=3");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
}

TEST_F(IniReadTest, CursorBehindTheLastLineEndsTheEnumeration) {
  Open("[s]\na=1");
  EXPECT_STREQ(ZeIniRead(handle, "s", "a"), "1");
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "");
}

TEST_F(IniReadTest, SectionThatBeginsWithAHeaderHasNoLine) {
  Open("[s]\n[t]\na=1\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", nullptr), "");
}

TEST_F(IniReadTest, CursorOnADeletedLineMovesToTheNextOne) {
  Open("[s]\na=1\nb=2\nc=3\n");
  EXPECT_STREQ(ZeIniRead(handle, "s", nullptr), "a=1");
  EXPECT_EQ(ZeIniDelete(handle, "s", "b", nullptr), 1U);
  EXPECT_STREQ(ZeIniRead(handle, nullptr, nullptr), "c=3");
}

TEST_F(IniReadTest, TextStaysWhereItIsWhileOtherLinesChange) {
  Open("[s]\nkey=value\n");
  const char* value = ZeIniRead(handle, "s", "key");
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(ZeIniWrite(handle, "s", ("k" + std::to_string(i)).c_str(), "x"), 1U);
  }
  EXPECT_EQ(ZeIniRead(handle, "s", "key"), value);
  EXPECT_STREQ(value, "value");
}

class IniReadSectionTest : public IniTest {
 protected:
  Result Read(const char* section, std::uint32_t size) {
    buffer.assign(size, '#');
    return IniReadSection(static_cast<IniFile*>(handle), section, buffer.data(), size, &count);
  }

  std::string buffer;
  std::uint32_t count = 777;
};

TEST_F(IniReadSectionTest, CopiesEveryLineThatIsNotEmpty) {
  Open("[s]\na=1\n\nbare\n[t]\nb=2\n");
  EXPECT_EQ(Read("S", 12), ZE_OK);
  EXPECT_EQ(count, 9U);
  EXPECT_BYTES(buffer, Bytes("a=1\0bare\0\0##"));
}

TEST_F(IniReadSectionTest, NeedsRoomForTheClosingTerminator) {
  Open("[s]\na=1\nbare\n");
  EXPECT_EQ(Read("s", 10), ZE_OK);
  EXPECT_EQ(Read("s", 9), ZE_BUFFER_TOO_SMALL);
  EXPECT_EQ(Read("s", 8), ZE_BUFFER_TOO_SMALL);
  EXPECT_BYTES(buffer, Bytes("a=1\0####"));
  EXPECT_EQ(Read("s", 1), ZE_BUFFER_TOO_SMALL);
}

TEST_F(IniReadSectionTest, EmptySectionIsOneTerminator) {
  Open("[s]\n\n[t]\n");
  EXPECT_EQ(Read("s", 1), ZE_OK);
  EXPECT_EQ(count, 0U);
  EXPECT_BYTES(buffer, Bytes("\0"));
}

TEST_F(IniReadSectionTest, MissingSectionAndInvalidArguments) {
  Open("[s]\n");
  EXPECT_EQ(Read("t", 4), ZE_SECTION_NOT_FOUND);
  count = 777;
  EXPECT_EQ(Read(nullptr, 4), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(Read("s", 0), ZE_INVALID_ARGUMENT);
  auto* file = static_cast<IniFile*>(handle);
  EXPECT_EQ(IniReadSection(file, "s", nullptr, 4, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(IniReadSection(file, "s", buffer.data(), 4, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(count, 777U);
}

}  // namespace
}  // namespace zeapi::testing
