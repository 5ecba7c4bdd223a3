#include "pclxl/xl_walk.h"

#include <tuple>

#include "pclxl/page_body.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

using namespace xl;

class XlWalkTest : public XlTest {
 protected:
  // Walks a session from BeginSession on.
  XlResult Walk(std::string_view bytes, XlListingSink* sink = nullptr) {
    Open(bytes);
    state()->listing = sink;
    const XlResult result = XlReadToOperator(state());
    if (result != kXlOk) return result;
    return XlDispatch(state()->currentTag, state());
  }

  // Walks a session and gathers the body of its page.
  XlResult Gather(std::string_view bytes) {
    Open(bytes);
    XlPageBody body;
    state()->pageBody = &body;
    XlReadToOperator(state());
    const XlResult result = XlDispatch(0x41, state());
    bodySize = body.size();
    return result;
  }

  // A result and what the reader says beside it.
  using Ending = std::tuple<XlResult, std::uint32_t, std::uint8_t, std::int32_t>;
  Ending EndOf(XlResult result) {
    return {result, state()->operatorCount, state()->currentTag, state()->attributeCount};
  }

  std::uint32_t bodySize = 0;
};

TEST_F(XlWalkTest, SessionEndsWithEndSessionAndNothingAfterItIsRead) {
  EXPECT_EQ(Walk(Hex({0x41, 0x48, 0x49, 0x42}) + "\x01 junk"), kXlOk);
  EXPECT_BYTES(Unread(), "\x01 junk");
  EXPECT_EQ(state()->operatorCount, 4U);
}

TEST_F(XlWalkTest, SessionThatDoesNotEndIsTheEnd) {
  EXPECT_EQ(Walk(Hex({0x41, 0x48})), kXlEnd);
  EXPECT_EQ(Walk(Hex({0x41, 0x48}) + "\x1B%-12345X"), kXlEnd);
}

TEST_F(XlWalkTest, SessionTakesItsOperatorsAlone) {
  for (const int tag : {0x47, 0x48, 0x49, 0x4A, 0x4B, 0x4F, 0x50, 0x51, 0x52, 0x53, 0x54, 0x55,
                        0x5B, 0x5C, 0x5D, 0x5E})
    EXPECT_EQ(Walk(Hex({0x41, tag, 0x42})), kXlOk) << tag;
  EXPECT_EQ(Walk(Hex({0x41, 0xFB, 1, 0, 0x42})), kXlOk);
  for (const int tag : {0x41, 0x44, 0x60, 0x85, 0xA8, 0xB9})
    EXPECT_EQ(Walk(Hex({0x41, tag, 0x42})), kXlNotAllowed) << tag;
}

TEST_F(XlWalkTest, PageTakesItsOperatorsAlone) {
  for (const int tag : {0x47, 0x4F, 0x55, 0x60, 0x7D, 0x7F, 0x81, 0x84, 0xA8, 0xB9})
    EXPECT_EQ(Walk(Hex({0x41, 0x43, tag, 0x44, 0x42})), kXlOk) << tag;
  for (const int tag : {0x41, 0x42})
    EXPECT_EQ(Walk(Hex({0x41, 0x43, tag, 0x44, 0x42})), kXlNotAllowed) << tag;
  for (const int tag : {0x5B, 0x5C, 0x5D, 0x5E})
    EXPECT_EQ(Walk(Hex({0x41, 0x43, tag, 0x44, 0x42})), kXlStreamInPage) << tag;
  EXPECT_EQ(Walk(Hex({0x41, 0x43, 0x46, 0x44, 0x42})), kXlIllegalByte);
}

TEST_F(XlWalkTest, SecondPageIsAnErrorInsideAPageAndAfterIt) {
  EXPECT_EQ(Walk(Hex({0x41, 0x43, 0x43})), kXlSecondPage);
  EXPECT_EQ(Walk(Hex({0x41, 0x43, 0x44, 0x43, 0x44, 0x42})), kXlSecondPage);
  EXPECT_EQ(state()->operatorCount, 4U);
}

TEST_F(XlWalkTest, SecondPageLeavesTheBodyOfTheFirst) {
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0x85, 0x44, 0x43, 0x60, 0x44, 0x42})), kXlSecondPage);
  EXPECT_BYTES(ReadFile("temp.str"), "\x85");
}

TEST_F(XlWalkTest, PageCutShortIsTheEnd) {
  const std::string page = Hex({0x41}) + Page(Body()) + Hex({0x42});
  for (std::size_t size = 0; size < page.size(); ++size)
    EXPECT_EQ(Walk(page.substr(0, size)), kXlEnd) << size;
  EXPECT_EQ(Walk(page), kXlOk);
}

TEST_F(XlWalkTest, EmbeddedDataIsPassedOverByItsLength) {
  EXPECT_EQ(Walk(Hex({0x41}) + Data(std::string(5000, '\x42')) + Hex({0x42})), kXlOk);
  EXPECT_EQ(Walk(Hex({0x41}) + Data("") + Hex({0xFB, 3, 1, 2, 3, 0xFB, 0, 0x42})), kXlOk);
  EXPECT_EQ(state()->operatorCount, 5U);
}

TEST_F(XlWalkTest, EmbeddedDataCutShortIsTheEnd) {
  const std::string data = Hex({0x41}) + Data("12345");
  for (std::size_t size = 1; size <= data.size(); ++size)
    EXPECT_EQ(Walk(data.substr(0, size)), kXlEnd) << size;
}

TEST_F(XlWalkTest, EmbeddedDataOfFourGigabytesThatAreNotThereIsTheEnd) {
  EXPECT_EQ(Walk(Hex({0x41, 0xFA, 0xFF, 0xFF, 0xFF, 0xFF}) + std::string(9000, 'x')), kXlEnd);
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0xFA, 0xFF, 0xFF, 0xFF, 0xFF}) + std::string(9000, 'x')),
            kXlEnd);
  EXPECT_EQ(bodySize, 0U);
}

TEST_F(XlWalkTest, AttributesBeforeEmbeddedDataStayForTheNextOperator) {
  Open(xl::Attribute(Ubyte(1), 0x26) + Hex({0xFB, 1, 'x'}));
  EXPECT_EQ(XlReadToOperator(state()), kXlOk);
  EXPECT_EQ(XlDispatch(0xFB, state()), kXlOk);
  EXPECT_EQ(state()->attributeCount, 1);
}

TEST_F(XlWalkTest, EachOperatorReleasesItsAttributes) {
  EXPECT_EQ(Walk(xl::Attribute(UbyteArray("x"), 0x81) + Hex({0x47})), kXlOk);
  EXPECT_EQ(state()->attributeCount, 0);
  EXPECT_EQ(Attribute(0).elements, nullptr);
}

TEST_F(XlWalkTest, BodyIsWhatStandsBetweenBeginPageAndTheAttributesOfEndPage) {
  const std::string body = Body() + " \n" + Data("image") + Hex({0xFB, 2, 'x', 'y', 0x60});
  EXPECT_EQ(Gather(Hex({0x41}) + Page(body) + Hex({0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), body);
  EXPECT_EQ(bodySize, body.size());
}

TEST_F(XlWalkTest, WhiteSpaceBeforeEndPageGoesWithEndPage) {
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0x85}) + "  " + Hex({0x44, 0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), "\x85");
}

TEST_F(XlWalkTest, ValuesWithoutIdentifiersAreInTheBody) {
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0xC0, 5, 0x85, 0xC0, 6, 0x44, 0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), Hex({0xC0, 5, 0x85}));
}

TEST_F(XlWalkTest, EmptyPageHasAnEmptyBody) {
  WriteFile("temp.str", "left by an earlier run");
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0x44, 0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), "");
  EXPECT_EQ(bodySize, 0U);
}

TEST_F(XlWalkTest, BodiesOfAllSizesAroundTheBlocksAreWhole) {
  for (const std::size_t size :
       {1017U, 1018U, 1019U, 1020U, 1021U, 2041U, 2043U, 4096U, 10000U, 100000U}) {
    std::string data;
    for (std::size_t i = 0; i < size; ++i) data += static_cast<char>(i % 253);
    const std::string body = Body() + Data(data) + Body() + Data(data) + Hex({0x60});
    EXPECT_EQ(Gather(Hex({0x41}) + Page(body) + Hex({0x42})), kXlOk);
    EXPECT_BYTES(ReadFile("temp.str"), body) << size;
    EXPECT_EQ(bodySize, body.size());
  }
}

TEST_F(XlWalkTest, ManySmallOperatorsAreAllThere) {
  std::string body;
  for (int i = 0; i < 3000; ++i)
    body += xl::Attribute(Uint16(static_cast<unsigned>(i)), 0x4B) + Hex({0x7A});
  EXPECT_EQ(Gather(Hex({0x41}) + Page(body) + Hex({0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), body);
}

// The quiet walk passes over plain operators without looking at their attributes.
TEST_F(XlWalkTest, QuietWalkEndsWhereOneThatListsEnds) {
  std::string many;
  for (int i = 0; i < 100; ++i) many += xl::Attribute(Ubyte(i), 0x4B);
  std::string wide;
  for (int i = 0; i < 700; ++i)
    wide += xl::Attribute(Hex({0xE5}) + std::string(16, '\x44'), 0x42) + " " + Hex({0x84 + i % 3});
  const std::string left = many + Data("x");
  for (const std::string& body :
       {Body() + Hex({0x5B}) + Body(), Body() + Hex({0x43}), Body() + Hex({0x42}),
        Body() + Hex({0x46}), Body() + Hex({0xF9, 1, 0x85}), Body() + Hex({0xD8, 0x85}),
        Body() + Hex({0x1B}), many + Hex({0x85}), Body() + many + xl::Attribute(Ubyte(1), 0x4B),
        left + Hex({0x85}), left + xl::Attribute(Ubyte(1), 0x4B) + Hex({0x85}), wide,
        wide + xl::Attribute(UbyteArray("text"), 0xAB) + Hex({0xA8}) + wide,
        Hex({0x85, 0x60}) + "\n \r" + Body() + Hex({0xC0, 5, 0x85})}) {
    const std::string bytes = Hex({0x41, 0x43}) + body + Hex({0x44, 0x42});
    const Ending quiet = EndOf(Walk(bytes));
    const std::string unread = Unread();
    EXPECT_EQ(quiet, EndOf(Walk(bytes, &listing)));
    EXPECT_BYTES(unread, Unread());
  }
}

TEST_F(XlWalkTest, BodyBeforeTheEndOfThePageIsWholeWhereverTheBlocksEnd) {
  const std::string line = Body();
  for (std::size_t lines = 1; lines < 4400 / line.size(); ++lines) {
    std::string body;
    for (std::size_t i = 0; i < lines; ++i) body += line;
    EXPECT_EQ(Gather(Hex({0x41}) + Page(body) + Hex({0x42})), kXlOk);
    EXPECT_BYTES(ReadFile("temp.str"), body);
  }
}

// Each byte of a token stands at the border of what is looked at together at some time.
TEST_F(XlWalkTest, BodyIsWholeWhereverTheBordersFall) {
  const std::string tokens = xl::Attribute(Hex({0xE5}) + std::string(16, '\x44'), 0x42) +
                             Hex({0xC8, 0xC0, 3, 1, 2, 3, 0xF8, 0xAB}) + " \n" + Hex({0xA8}) +
                             xl::Attribute(Ubyte(7), 0x4B) + Data("data") +
                             Hex({0x85, 0xFB, 2, 9, 9, 0x60});
  for (const std::size_t border : {2048U, 4096U}) {
    for (std::size_t before = border - tokens.size() - 8; before < border; ++before) {
      const std::string body = std::string(before, ' ') + tokens + tokens;
      ASSERT_EQ(
          Gather(Hex({0x41, 0x43}) + body + xl::Attribute(Ubyte(1), 0x31) + Hex({0x44, 0x42})),
          kXlOk);
      EXPECT_BYTES(ReadFile("temp.str"), body) << before;
    }
  }
}

TEST_F(XlWalkTest, AttributesBeforeEmbeddedDataAreInTheBody) {
  const std::string body = xl::Attribute(Uint16(1), 0x31) + Hex({0xFB, 1, 'x'});
  EXPECT_EQ(Gather(Hex({0x41, 0x43}) + body + Hex({0x44, 0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), body);
  EXPECT_EQ(Gather(Hex({0x41, 0x43}) + body + xl::Attribute(Ubyte(1), 0x31) + Hex({0x44, 0x42})),
            kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), body);
}

// The identifier at the end would otherwise name the array, whose operator is long over.
TEST_F(XlWalkTest, ValueWithoutAnIdentifierGoesWithItsOperator) {
  for (XlListingSink* sink :
       {static_cast<XlListingSink*>(nullptr), static_cast<XlListingSink*>(&listing)}) {
    EXPECT_EQ(
        Walk(Hex({0x41, 0x43, 0xC8, 0xC0, 1, 'x', 0xFB, 1, 'y', 0x85, 0xF8, 0x26, 0x01}), sink),
        kXlIllegalByte);
    EXPECT_EQ(Attribute(0).id, 0x26U);
    EXPECT_EQ(Attribute(0).type, 0xC0U);
    EXPECT_EQ(Attribute(0).elements, nullptr);
  }
}

TEST_F(XlWalkTest, LargeArrayBeforeTheEndOfThePageIsNotInTheBody) {
  const std::string large = xl::Attribute(UbyteArray(std::string(20000, 'a')), 0x81);
  EXPECT_EQ(Gather(Hex({0x41, 0x43}) + Body() + large + Hex({0x44, 0x42})), kXlOk);
  EXPECT_BYTES(ReadFile("temp.str"), Body());
}

TEST_F(XlWalkTest, WhatWasGatheredBeforeAnErrorIsWritten) {
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0x85, 0x01})), kXlIllegalByte);
  EXPECT_BYTES(ReadFile("temp.str"), "\x85");
}

TEST_F(XlWalkTest, PageWhoseFileCannotBeMadeIsAFileError) {
  std::filesystem::create_directory("temp.str");
  EXPECT_EQ(Gather(Hex({0x41, 0x43, 0x44, 0x42})), kXlFile);
}

class XlReportTest : public XlTest {
 protected:
  void Report(XlResult code, std::string_view rest) {
    Open(rest);
    state()->listing = &listing;
    state()->currentTag = 0x43;
    state()->operatorCount = 3;
    XlReportError(code, state());
  }
};

TEST_F(XlReportTest, SaysCodeTagAndPosition) {
  Report(kXlSecondPage, "");
  EXPECT_BYTES(listing.all, "\nERROR. (code = 51, op = 0x43, pos = 3)\n\n");
}

TEST_F(XlReportTest, SuccessAndTheEndAreNotReported) {
  Report(kXlOk, "rest");
  Report(kXlEnd, "rest");
  EXPECT_BYTES(listing.all, "");
  EXPECT_BYTES(Unread(), "rest");
}

TEST_F(XlReportTest, SkipsToTheEndOfTheStreamAndKeepsNothing) {
  const std::string rest = Hex({0x01, 0xF9, 0xC8, 0xC2}) + xl::Attribute(UbyteArray("\x1B"), 0x81) +
                           Hex({0x47}) + Data("\x1B\x1B") + Ubyte(1) + "\x1B%-12345X";
  Report(kXlIllegalByte, rest);
  EXPECT_BYTES(Unread(), "\x1B%-12345X");
  EXPECT_EQ(state()->attributeCount, 0);
  EXPECT_FALSE(state()->recovering);
}

TEST_F(XlReportTest, DataCutShortEndsTheSkipping) {
  Report(kXlIllegalByte, Hex({0xFA, 0xFF, 0xFF, 0xFF, 0xFF}) + "few");
  EXPECT_FALSE(state()->recovering);
  EXPECT_EQ(state()->listing, &listing);
}

}  // namespace
}  // namespace zeapi::testing
