#include <cstdio>
#include <cstring>
#include <memory>

#include "support/bytes.h"
#include "support/foreign_locale.h"
#include "support/ini.h"
#include "support/qsf_image.h"

namespace zeapi::testing {
namespace {

class QsfTest : public ScratchTest {
 protected:
  void TearDown() override {
    ZeQsfClose(handle);
    ScratchTest::TearDown();
  }

  std::uint32_t Open(const std::string& bytes, std::uint32_t type = 7) {
    ZeQsfClose(handle);
    WriteFile("file.qsf", bytes);
    handle = this;
    return ZeQsfOpen("file.qsf", type, &handle);
  }

  // Reads a block into `block`.
  std::uint32_t Get(std::uint32_t number) {
    void* bytes = this;
    count = 999;
    const std::uint32_t code = ZeQsfGetVariables(handle, number, &bytes, &count);
    hasBlock = bytes != nullptr;
    memory.reset(bytes);
    return code;
  }
  std::string Block(std::size_t size) const {
    return std::string(static_cast<const char*>(memory.get()), size);
  }

  struct Release {
    void operator()(void* bytes) const { ZeMemFree(bytes); }
  };
  void* handle = nullptr;
  std::uint16_t count = 0;
  bool hasBlock = false;
  std::unique_ptr<void, Release> memory;
};

TEST_F(QsfTest, OpensAFileWithAGoodHeader) {
  EXPECT_EQ(Open(QsfImage().Summed()), ZE_OK);
  EXPECT_NE(handle, nullptr);
}

TEST_F(QsfTest, ChecksumCountsAnOddLastByte) {
  EXPECT_EQ(Open(QsfImage().Append("ABC").Summed()), ZE_OK);
}

TEST_F(QsfTest, FileThatDoesNotOpenGivesOpenFailedAndNoHandle) {
  handle = this;
  EXPECT_EQ(ZeQsfOpen("missing", 7, &handle), ZE_OPEN_FAILED);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(ZeQsfOpen(nullptr, 7, &handle), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeQsfOpen("", 7, &handle), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeQsfOpen(std::string(300, 'x').c_str(), 7, &handle), ZE_OPEN_FAILED);
  EXPECT_EQ(ZeQsfOpen("missing", 7, nullptr), ZE_INVALID_ARGUMENT);
}

TEST_F(QsfTest, FileCutWithinItsHeaderGivesOpenFailed) {
  const std::string whole = QsfImage().Summed();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(Open(whole.substr(0, size)), ZE_OPEN_FAILED) << size;
    EXPECT_EQ(handle, nullptr);
  }
}

TEST_F(QsfTest, TypeIsCheckedBeforeTheMagic) {
  EXPECT_EQ(Open(QsfImage().Byte(0, 'X').Byte(4, 8).Summed()), ZE_UNKNOWN_TYPE);
  EXPECT_EQ(Open(QsfImage().Summed(), 8), ZE_UNKNOWN_TYPE);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(Open(QsfImage().Summed(), 0x107), ZE_OK);  // 8 bits count
}

TEST_F(QsfTest, MagicAndFlagsAreCheckedBeforeTheChecksum) {
  EXPECT_EQ(Open(QsfImage().Byte(0, 'q').bytes), ZE_BAD_HEADER);
  EXPECT_EQ(Open(QsfImage().Byte(1, 'Q').bytes), ZE_BAD_HEADER);
  EXPECT_EQ(Open(QsfImage().Byte(5, 2).bytes), ZE_BAD_HEADER);
  EXPECT_EQ(Open(QsfImage().Byte(6, 2).bytes), ZE_BAD_HEADER);
  EXPECT_EQ(Open(QsfImage().Byte(6, 0xFF).bytes), ZE_BAD_HEADER);
  EXPECT_EQ(Open(QsfImage().Byte(5, 1).bytes), ZE_BAD_HEADER);  // A alone, and block 1 is empty
  EXPECT_EQ(Open(QsfImage().Byte(5, 1).Byte(6, 1).Summed()), ZE_OK);
  EXPECT_EQ(Open(QsfImage().Byte(6, 1).Summed()), ZE_OK);
  EXPECT_EQ(Open(QsfImage().Byte(5, 1).Block(1, 74, 1).Summed()), ZE_OK);
}

TEST_F(QsfTest, WrongChecksumIsTold) {
  std::string bytes = QsfImage().Append("data").Summed();
  bytes.back() ^= 1;
  EXPECT_EQ(Open(bytes), ZE_BAD_CHECKSUM);
  EXPECT_EQ(handle, nullptr);
}

TEST_F(QsfTest, BlocksRunToTheNextOneAndTheLastToTheEnd) {
  ASSERT_EQ(Open(QsfImage()
                     .Block(1, 74, 1)
                     .Block(2, 77, 2)
                     .Block(5, 79, 300)
                     .Append("aaabbccccc")
                     .Summed()),
            ZE_OK);
  EXPECT_EQ(Get(1), ZE_OK);
  EXPECT_EQ(count, 1);
  EXPECT_BYTES(Block(3), "aaa");
  EXPECT_EQ(Get(2), ZE_OK);
  EXPECT_EQ(count, 2);
  EXPECT_BYTES(Block(2), "bb");
  EXPECT_EQ(Get(5), ZE_OK);
  EXPECT_EQ(count, 300);
  EXPECT_BYTES(Block(5), "ccccc");
}

TEST_F(QsfTest, WithoutBlock2Block1RunsToTheEnd) {
  ASSERT_EQ(Open(QsfImage().Block(1, 74, 1).Append("aaaa").Summed()), ZE_OK);
  EXPECT_EQ(Get(1), ZE_OK);
  EXPECT_BYTES(Block(4), "aaaa");
}

TEST_F(QsfTest, WithFlagAAloneBlock2RunsToTheEnd) {
  ASSERT_EQ(Open(QsfImage()
                     .Byte(5, 1)
                     .Block(1, 74, 1)
                     .Block(2, 75, 1)
                     .Block(5, 76, 1)
                     .Append("abbb")
                     .Summed()),
            ZE_OK);
  EXPECT_EQ(Get(2), ZE_OK);
  EXPECT_BYTES(Block(3), "bbb");
}

TEST_F(QsfTest, WithBothFlagsABlockHasAPrefix) {
  ASSERT_EQ(Open(QsfImage().Byte(5, 1).Byte(6, 1).Block(1, 74, 3).Append("0123456789").Summed()),
            ZE_OK);
  EXPECT_EQ(Get(1), ZE_OK);
  EXPECT_EQ(count, 3);
  EXPECT_BYTES(Block(16), Bytes("\x0A\0\0\0\0\x03") + "0123456789");
}

TEST_F(QsfTest, WithBothFlagsEveryBlockHasItsOwnPrefix) {
  ASSERT_EQ(Open(QsfImage()
                     .Byte(5, 1)
                     .Byte(6, 1)
                     .Block(1, 74, 1)
                     .Block(2, 74, 2)
                     .Block(5, 77, 259)
                     .Append("bbbccccc")
                     .Summed()),
            ZE_OK);
  EXPECT_EQ(Get(1), ZE_OK);
  EXPECT_BYTES(Block(6), Bytes("\0\0\0\0\0\x01"));
  EXPECT_EQ(Get(2), ZE_OK);
  EXPECT_BYTES(Block(9), Bytes("\x03\0\0\0\0\x02") + "bbb");
  EXPECT_EQ(Get(5), ZE_OK);
  EXPECT_BYTES(Block(11), Bytes("\x05\0\0\0\x01\x03") + "ccccc");
}

TEST_F(QsfTest, BlockWithoutVariablesIsNoBlock) {
  ASSERT_EQ(Open(QsfImage().Block(1, 9999, 0).Append("aaaa").Summed()), ZE_OK);
  for (const std::uint32_t number : {1U, 2U, 5U}) {
    EXPECT_EQ(Get(number), ZE_OK);
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(hasBlock);
  }
}

TEST_F(QsfTest, BlockOutsideTheFileIsABadFormat) {
  const auto block1 = [this](std::uint32_t start, std::uint32_t end) {
    EXPECT_EQ(Open(QsfImage().Block(1, start, 1).Block(2, end, 1).Append("aaaa").Summed()), ZE_OK);
    const std::uint32_t code = Get(1);
    EXPECT_EQ(hasBlock, code == ZE_OK);
    EXPECT_EQ(count, code == ZE_OK ? 1 : 0);
    return code;
  };
  EXPECT_EQ(block1(76, 75), ZE_BAD_FORMAT);
  EXPECT_EQ(block1(74, 79), ZE_BAD_FORMAT);
  EXPECT_EQ(block1(0xFFFFFFFF, 0xFFFFFFFF), ZE_BAD_FORMAT);
  EXPECT_EQ(block1(0, 0xFFFFFFFF), ZE_BAD_FORMAT);
  EXPECT_EQ(block1(79, 0), ZE_BAD_FORMAT);
  EXPECT_EQ(block1(76, 76), ZE_OK);
  EXPECT_EQ(block1(0, 78), ZE_OK);
  EXPECT_EQ(Get(2), ZE_BAD_FORMAT);  // up to block 5, whose offset is 0
}

#ifndef _WIN32
TEST_F(QsfTest, FileThatHasShrunkIsABadFormatAndTheHandleStaysGood) {
  const std::string whole = QsfImage().Block(1, 74, 1).Append("aaaa").Summed();
  ASSERT_EQ(Open(whole), ZE_OK);
  std::filesystem::resize_file("file.qsf", 76);
  EXPECT_EQ(Get(1), ZE_BAD_FORMAT);
  EXPECT_FALSE(hasBlock);
  std::filesystem::resize_file("file.qsf", 78);
  EXPECT_EQ(Get(1), ZE_OK);
}
#endif

TEST_F(QsfTest, LocaleOfTheHostProgramChangesNothing) {
  const ForeignLocale turkish(folder());
  ASSERT_TRUE(turkish.InForce());
  ASSERT_EQ(Open(QsfImage().Block(1, 74, 1).Append("\xDDi").Summed()), ZE_OK);
  EXPECT_EQ(Get(1), ZE_OK);
  EXPECT_BYTES(Block(2), "\xDDi");
}

TEST_F(QsfTest, InvalidArgumentsClearTheAnswers) {
  ASSERT_EQ(Open(QsfImage().Block(1, 74, 1).Append("aa").Summed()), ZE_OK);
  for (const std::uint32_t number : {0U, 3U, 4U, 6U, 0x10001U}) {
    EXPECT_EQ(Get(number), ZE_INVALID_ARGUMENT);
    EXPECT_FALSE(hasBlock);
    EXPECT_EQ(count, 0);
  }
  void* bytes = this;
  count = 9;
  EXPECT_EQ(ZeQsfGetVariables(nullptr, 1, &bytes, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(bytes, nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(ZeQsfGetVariables(handle, 1, nullptr, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeQsfGetVariables(handle, 1, &bytes, nullptr), ZE_INVALID_ARGUMENT);
  ZeQsfClose(nullptr);
}

class QsfIniTest : public IniTest {
 protected:
  // The variables as hexadecimal numbers, or the code in angle brackets.
  std::string List(std::uint32_t kind, std::uint32_t model) {
    auto* variables = reinterpret_cast<std::uint16_t*>(this);
    std::uint16_t count = 999;
    const std::uint32_t code = ZeQsfIniGetSection(handle, kind, model, &variables, &count);
    if (code != ZE_OK) {
      EXPECT_EQ(variables, nullptr);
      EXPECT_EQ(count, 0);
      return "<" + std::to_string(code) + ">";
    }
    std::string text;
    const auto* bytes = reinterpret_cast<const unsigned char*>(variables);
    for (std::size_t i = 0; i < count; ++i) {
      char number[8];
      std::snprintf(number, sizeof(number), "%02x%02x ", bytes[2 * i], bytes[2 * i + 1]);
      text += number;
    }
    ZeMemFree(variables);
    return text;
  }
  std::string Required(const std::string& text) {
    if (handle != nullptr) Close();
    Open("[012REQUIRED]\n" + text);
    return List(ZE_QSF_REQUIRED, 12);
  }
};

TEST_F(QsfIniTest, ReadsTheVariablesOfAllEntries) {
  EXPECT_EQ(Required("NUMVARS=3\nNUMENTRIES=2\nOMVARS1=12ab 7\nOMVARS2=FFFF\n"), "12ab 0007 ffff ");
}

TEST_F(QsfIniTest, SectionsAreNamedByModelAndList) {
  const std::string list = "]\nNUMVARS=1\nNUMENTRIES=1\nOMVARS1=";
  Open("[012REQUIRED" + list + "1\n[012OPTIONAL" + list + "2\n[012EXCLUDE" + list + "3\n[012ORDER" +
       list + "4\n[255ORDER" + list + "5\n[000ORDER" + list + "6\n");
  EXPECT_EQ(List(1, 12), "0001 ");
  EXPECT_EQ(List(2, 12), "0002 ");
  EXPECT_EQ(List(3, 12), "0003 ");
  EXPECT_EQ(List(4, 12), "0004 ");
  EXPECT_EQ(List(4, 255), "0005 ");
  EXPECT_EQ(List(4, 0), "0006 ");
  EXPECT_EQ(List(4, 256), "0006 ");  // 8 bits count
}

TEST_F(QsfIniTest, OnlyExcludeAndOrderFallBackToTheDefaults) {
  const std::string list = "]\nNUMVARS=1\nNUMENTRIES=1\nOMVARS1=";
  Open("[DEFAULTREQUIRED" + list + "1\n[DEFAULTOPTIONAL" + list + "2\n[DEFAULTEXCLUDE" + list +
       "3\n[DEFAULTORDER" + list + "4\n");
  EXPECT_EQ(List(1, 12), "<45>");
  EXPECT_EQ(List(2, 12), "<45>");
  EXPECT_EQ(List(3, 12), "0003 ");
  EXPECT_EQ(List(4, 12), "0004 ");
}

TEST_F(QsfIniTest, SectionWithoutNumvarsDoesNotFallBack) {
  Open("[012ORDER]\nNUMENTRIES=1\n[DEFAULTORDER]\nNUMVARS=1\n");
  EXPECT_EQ(List(4, 12), "<41>");
  EXPECT_EQ(List(3, 12), "<45>");
  EXPECT_EQ(List(4, 13), "<41>");  // NUMENTRIES of the defaults
}

TEST_F(QsfIniTest, CountsMustBeThereAndNotZero) {
  EXPECT_EQ(Required("NUMENTRIES=1\nOMVARS1=1\n"), "<41>");
  EXPECT_EQ(Required("NUMVARS=0\nNUMENTRIES=1\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=\nNUMENTRIES=1\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=-1\nNUMENTRIES=1\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=65536\nNUMENTRIES=1\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=1\nOMVARS1=1\n"), "<41>");
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=0\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=-1\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=9999999999\nOMVARS1=1\n"), "<41>");
}

TEST_F(QsfIniTest, ExactlyTheStatedNumberOfVariablesIsWanted) {
  EXPECT_EQ(Required("NUMVARS=2\nNUMENTRIES=1\nOMVARS1=1 2 3\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=2\nNUMENTRIES=1\nOMVARS1=1\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=2\nNUMENTRIES=2\nOMVARS1=1 2\nOMVARS2=3\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=65535\nNUMENTRIES=1\nOMVARS1=1\n"), "<27>");
}

TEST_F(QsfIniTest, EntriesMustBeThereAndNotEmpty) {
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=2\nOMVARS1=1\n"), "<41>");
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=2\nOMVARS1=1\nOMVARS2=\n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=1\nOMVARS01=1\n"), "<41>");
}

TEST_F(QsfIniTest, KeepsPassingOverEverythingThatIsNoHexadecimalDigit) {
  EXPECT_EQ(Required("NUMVARS=6\nNUMENTRIES=1\nOMVARS1=  0x1A   g1-2\txyz 12345 -f \n"), "<27>");
  EXPECT_EQ(Required("NUMVARS=5\nNUMENTRIES=1\nOMVARS1=  0x1A   g1-2\txyz xyz 12345 -f \n"),
            "001a 0012 0000 2345 000f ");
}

TEST_F(QsfIniTest, KeepsTheValueRoomOfTheLongestLineThatWasAdded) {
  Open("[012REQUIRED]\nNUMVARS=1\nNUMENTRIES=1\nOMVARS1=1\n");
  const std::string padded = "1" + std::string(40, ' ');
  EXPECT_EQ(ZeIniWrite(handle, "012REQUIRED", "OMVARS1", padded.c_str()), 1U);
  EXPECT_EQ(List(1, 12), "<42>");
  EXPECT_EQ(ZeIniWrite(handle, "other", "key", padded.c_str()), 1U);
  EXPECT_EQ(List(1, 12), "0001 ");
  Close();
  Open("", ZE_INI_CREATE);
  EXPECT_EQ(List(1, 12), "<1>");  // no line, no room
}

TEST_F(QsfIniTest, ManySeparatorsAreOne) {
  const std::string blanks(65536, ' ');
  Open("[012REQUIRED]\nNUMVARS=2\nNUMENTRIES=1\n");
  const std::string list = blanks + "1" + blanks + "2" + blanks;
  EXPECT_EQ(ZeIniWrite(handle, "012REQUIRED", "OMVARS1", list.c_str()), 1U);
  EXPECT_EQ(List(1, 12), "0001 0002 ");
}

TEST_F(QsfIniTest, EntryOfBlanksAloneIsNotEmptyAndHasNoVariable) {
  Open("[012REQUIRED]\nNUMVARS=1\nNUMENTRIES=2\nOMVARS2=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "012REQUIRED", "OMVARS1", std::string(65536, ' ').c_str()), 1U);
  EXPECT_EQ(List(1, 12), "0001 ");
  EXPECT_EQ(ZeIniWrite(handle, "012REQUIRED", "OMVARS2", " "), 1U);
  EXPECT_EQ(List(1, 12), "<27>");
  EXPECT_EQ(Required("NUMVARS=1\nNUMENTRIES=1\nOMVARS1=    \n"), "<27>");
}

TEST_F(QsfIniTest, LocaleOfTheHostProgramChangesNothing) {
  const ForeignLocale turkish(folder());
  ASSERT_TRUE(turkish.InForce());
  Open(
      "[012required]\nnumvars=2\nNumEntries=1\nomvars1=ab \xFD"
      "1\n[defaultexclude]\nNUMVARS=1\n"
      "numentries=1\nOmVars1=I1i\n");
  EXPECT_EQ(List(1, 12), "00ab 0001 ");
  EXPECT_EQ(List(3, 12), "0001 ");
}

TEST_F(QsfIniTest, InvalidArguments) {
  Open("[012REQUIRED]\nNUMVARS=1\n");
  EXPECT_EQ(List(0, 12), "<1>");
  EXPECT_EQ(List(5, 12), "<1>");
  std::uint16_t* variables = nullptr;
  std::uint16_t count = 0;
  EXPECT_EQ(ZeQsfIniGetSection(nullptr, 1, 12, &variables, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeQsfIniGetSection(handle, 1, 12, nullptr, &count), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeQsfIniGetSection(handle, 1, 12, &variables, nullptr), ZE_INVALID_ARGUMENT);
}

}  // namespace
}  // namespace zeapi::testing
