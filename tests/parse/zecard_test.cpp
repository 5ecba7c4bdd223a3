// Option records.
#include <memory>

#include "parse/alert_record.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

struct Release {
  void operator()(ZeOptionInfo* info) const { ZeFreeOptionInfo(info); }
};
using OptionInfo = std::unique_ptr<ZeOptionInfo, Release>;

// The record stands at the end of its block, so that a sanitizer sees every read beyond it.
OptionInfo Parse(const std::string& record) {
  const std::vector<char> block(record.begin(), record.end());
  return OptionInfo(ZeParseOptionInfo(block.data()));
}

OptionInfo ParseElements(const std::string& elements) { return Parse(Record(elements)); }

std::string Item(int value1, int value5, std::string_view text6) {
  return Container(7, {Integer(1, value1), Integer(5, value5), Text(6, text6)});
}

std::string Value(int value) { return Container(9, {Integer(1, value)}); }

class ZeCardTest : public ScratchTest {};

TEST_F(ZeCardTest, ReadsItemsAndGroups) {
  const OptionInfo info = ParseElements(Container(
      1, {Container(1, {Item(11, 15, "tray"), Item(-2, 0x7FFFFFFF, "duplex")}),
          Container(3, {Container(1, {Text(1, "a"), Text(2, "bc"),
                                      Container(3, {Value(5), Value(6), Value(-7)})})})}));
  ASSERT_NE(info, nullptr);
  ASSERT_EQ(info->itemCount, 2U);
  EXPECT_EQ(info->items[0].value1, 11);
  EXPECT_EQ(info->items[0].value5, 15);
  EXPECT_STREQ(info->items[0].text6, "tray");
  EXPECT_EQ(info->items[1].value1, -2);
  EXPECT_EQ(info->items[1].value5, 0x7FFFFFFF);
  EXPECT_STREQ(info->items[1].text6, "duplex");
  ASSERT_EQ(info->groupCount, 1U);
  EXPECT_STREQ(info->groups[0].text1, "a");
  EXPECT_STREQ(info->groups[0].text2, "bc");
  ASSERT_EQ(info->groups[0].valueCount, 3U);
  EXPECT_EQ(info->groups[0].values[0], 5);
  EXPECT_EQ(info->groups[0].values[1], 6);
  EXPECT_EQ(info->groups[0].values[2], -7);
}

TEST_F(ZeCardTest, AnotherRootGivesAnEmptyRecord) {
  const OptionInfo info = ParseElements(Container(3, {Container(1, {Item(1, 2, "x")})}));
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->itemCount, 0U);
  EXPECT_EQ(info->items, nullptr);
  EXPECT_EQ(info->groupCount, 0U);
  EXPECT_EQ(info->groups, nullptr);
}

TEST_F(ZeCardTest, ARecordWithoutElementsIsEmpty) {
  const OptionInfo info = ParseElements("");
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->itemCount, 0U);
  EXPECT_EQ(info->groupCount, 0U);
}

TEST_F(ZeCardTest, OnlyTheFirstRootCounts) {
  const OptionInfo info = ParseElements(Container(1, {Container(1, {Item(1, 2, "x")})}) +
                                        Container(1, {Container(3, 0, "")}));
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->itemCount, 1U);
  EXPECT_EQ(info->items[0].value1, 1);
}

TEST_F(ZeCardTest, AnItemsEmptyTextIsAnEmptyText) {
  const OptionInfo info = ParseElements(Container(1, {Container(1, {Item(1, 2, "")})}));
  ASSERT_EQ(info->itemCount, 1U);
  ASSERT_NE(info->items[0].text6, nullptr);
  EXPECT_STREQ(info->items[0].text6, "");
}

TEST_F(ZeCardTest, AnItemWithoutATextHasNone) {
  const OptionInfo info =
      ParseElements(Container(1, {Container(1, {Container(1, {Integer(5, 8)})})}));
  ASSERT_EQ(info->itemCount, 1U);
  EXPECT_EQ(info->items[0].value1, 0);
  EXPECT_EQ(info->items[0].value5, 8);
  EXPECT_EQ(info->items[0].text6, nullptr);
}

TEST_F(ZeCardTest, AGroupsEmptyTextsAreNull) {
  const OptionInfo info =
      ParseElements(Container(1, {Container(3, {Container(1, {Text(1, ""), Text(2, "")})})}));
  ASSERT_EQ(info->groupCount, 1U);
  EXPECT_EQ(info->groups[0].text1, nullptr);
  EXPECT_EQ(info->groups[0].text2, nullptr);
  EXPECT_EQ(info->groups[0].valueCount, 0U);
}

TEST_F(ZeCardTest, AnIdOfFFMatchesNoElement) {
  const OptionInfo info = ParseElements(
      Container(1, {Container(0xFF, {Item(1, 2, "x")}),
                    Container(1, {Container(1, {Integer(0xFF, 9), Integer(1, 4)})})}));
  ASSERT_EQ(info->itemCount, 1U);
  EXPECT_EQ(info->items[0].value1, 4);
}

TEST_F(ZeCardTest, UnknownElementsAreSkippedAtEveryLevel) {
  const std::string odd = Container(40, {Text(41, "skipped"), Integer(42, 1)}) +
                          Text(43, "skipped") + Integer(44, 3) + ElementHead(45, 9);
  const OptionInfo info = ParseElements(Container(
      1, 6,
      odd + Container(1, 1, Container(1, 6, odd + Integer(1, 3) + Text(6, "t"))) +
          Container(3, 1,
                    Container(1, 6,
                              odd + Text(1, "g") +
                                  Container(3, 1, Container(1, 5, odd + Integer(1, 8)))))));
  ASSERT_NE(info, nullptr);
  ASSERT_EQ(info->itemCount, 1U);
  EXPECT_EQ(info->items[0].value1, 3);
  EXPECT_STREQ(info->items[0].text6, "t");
  ASSERT_EQ(info->groupCount, 1U);
  EXPECT_STREQ(info->groups[0].text1, "g");
  ASSERT_EQ(info->groups[0].valueCount, 1U);
  EXPECT_EQ(info->groups[0].values[0], 8);
}

TEST_F(ZeCardTest, ElementsOfAnotherTypeAreSkipped) {
  const OptionInfo info = ParseElements(Container(
      1, {Integer(1, 5), Text(3, "no groups"),
          Container(1, {Integer(1, 5), Container(1, {Text(1, "7"), Integer(6, 9), Integer(5, 2)})}),
          Container(
              3, {Text(1, "x"),
                  Container(2, {Integer(1, 3),
                                Container(3, {Integer(1, 6), Container(1, {Text(1, "8")})})})})}));
  ASSERT_EQ(info->itemCount, 2U);
  EXPECT_EQ(info->items[0].value1, 0);
  EXPECT_EQ(info->items[1].value1, 0);
  EXPECT_EQ(info->items[1].value5, 2);
  EXPECT_EQ(info->items[1].text6, nullptr);
  ASSERT_EQ(info->groupCount, 2U);
  EXPECT_EQ(info->groups[1].text1, nullptr);
  ASSERT_EQ(info->groups[1].valueCount, 2U);
  EXPECT_EQ(info->groups[1].values[0], 0);
  EXPECT_EQ(info->groups[1].values[1], 0);
}

TEST_F(ZeCardTest, TheLastOfSeveralEqualElementsCounts) {
  const OptionInfo info = ParseElements(Container(
      1, {Container(1, {Item(1, 2, "first")}),
          Container(3, {Container(1, {Text(1, "a"), Container(3, {Value(1)})})}),
          Container(1, {Container(1, {Text(6, "second"), Text(6, "third")})}),
          Container(3, {Container(1, {Text(1, "b"), Text(1, "c"), Container(3, {Value(1)}),
                                      Container(3, {Value(2), Value(3)})})})}));
  ASSERT_EQ(info->itemCount, 1U);
  EXPECT_STREQ(info->items[0].text6, "third");
  ASSERT_EQ(info->groupCount, 1U);
  EXPECT_STREQ(info->groups[0].text1, "c");
  ASSERT_EQ(info->groups[0].valueCount, 2U);
  EXPECT_EQ(info->groups[0].values[1], 3);
}

TEST_F(ZeCardTest, AnEmptyContainerGivesNoEntries) {
  const OptionInfo info = ParseElements(
      Container(1, {Container(1, {}), Container(3, {Container(1, {Container(3, {})})})}));
  EXPECT_EQ(info->itemCount, 0U);
  EXPECT_EQ(info->items, nullptr);
  ASSERT_EQ(info->groupCount, 1U);
  EXPECT_EQ(info->groups[0].valueCount, 0U);
  EXPECT_EQ(info->groups[0].values, nullptr);
}

TEST_F(ZeCardTest, MoreChildrenThanBytesEndTheRecord) {
  const OptionInfo info =
      ParseElements(Container(1, {Container(1, {Item(1, 2, "x")}), Container(3, 0x7F, "abc")}));
  EXPECT_EQ(info->itemCount, 1U);
  EXPECT_EQ(info->groupCount, 0U);
  EXPECT_EQ(info->groups, nullptr);
}

TEST_F(ZeCardTest, AnElementCutOffLeavesTheItemAsItWas) {
  const std::string integer5 = Integer(5, 16);
  const std::string text6 = Text(6, "duplex");
  const std::string record = Record(
      Container(1, {Container(1, {Container(7, {Integer(1, 11), Integer(5, 15), Text(6, "tray"),
                                                Integer(1, 12), integer5, text6})})}));
  for (std::size_t cut = 0; cut <= Integer(1, 12).size() + integer5.size() + text6.size(); ++cut) {
    SCOPED_TRACE(cut);
    const OptionInfo info = Parse(CutBy(cut, record));
    ASSERT_EQ(info->itemCount, 1U);
    EXPECT_EQ(info->items[0].value1, cut <= integer5.size() + text6.size() ? 12 : 11);
    EXPECT_EQ(info->items[0].value5, cut <= text6.size() ? 16 : 15);
    EXPECT_STREQ(info->items[0].text6, cut == 0 ? "duplex" : "tray");
  }
}

TEST_F(ZeCardTest, AnElementCutOffLeavesTheGroupAsItWas) {
  const std::string text2 = Text(2, "dd");
  const std::string values = Value(2) + Value(3);
  const std::string element3 = Container(3, 2, values);
  const std::string record = Record(Container(
      1, {Container(3, {Container(7, {Text(1, "a"), Text(2, "b"), Container(3, {Value(1)}),
                                      Text(1, "cc"), text2, element3})})}));
  for (std::size_t cut = 0; cut <= Text(1, "cc").size() + text2.size() + element3.size(); ++cut) {
    SCOPED_TRACE(cut);
    const OptionInfo info = Parse(CutBy(cut, record));
    ASSERT_EQ(info->groupCount, 1U);
    const ZeOptionGroup& group = info->groups[0];
    EXPECT_STREQ(group.text1, cut <= text2.size() + element3.size() ? "cc" : "a");
    EXPECT_STREQ(group.text2, cut <= element3.size() ? "dd" : "b");
    const bool listBegun = cut + 2 <= values.size();  // as many bytes as it has children
    ASSERT_EQ(group.valueCount, listBegun ? 2U : 1U);
    if (listBegun) {
      EXPECT_EQ(group.values[0], cut <= Value(3).size() ? 2 : 0);
      EXPECT_EQ(group.values[1], cut == 0 ? 3 : 0);
    } else {
      EXPECT_EQ(group.values[0], 1);
    }
  }
}

TEST_F(ZeCardTest, AListCutOffLeavesTheOneBefore) {
  const std::string items = Container(1, {Item(11, 15, "tray")});
  const std::string groups = Container(3, {Container(7, {Text(1, "a")})});
  for (const int list : {1, 3}) {
    const OptionInfo info = ParseElements(Container(1, {items, groups, Container(list, 100, "")}));
    ASSERT_EQ(info->itemCount, 1U);
    EXPECT_STREQ(info->items[0].text6, "tray");
    ASSERT_EQ(info->groupCount, 1U);
    EXPECT_STREQ(info->groups[0].text1, "a");
  }
}

TEST_F(ZeCardTest, NullPointers) {
  EXPECT_EQ(ZeParseOptionInfo(nullptr), nullptr);
  ZeFreeOptionInfo(nullptr);
}

TEST_F(ZeCardTest, LogsItsSteps) {
  const OptionInfo info =
      ParseElements(Container(1, {Text(9, "z"), Container(1, {Container(1, {Integer(1, 3, 1)})})}));
  ASSERT_NE(info, nullptr);
  const std::vector<std::string> expected = {
      "zeparse (118): Data buffer length =61",
      "zeparse (124): Version of alert =1",
      "zeparse (231): P Key id = 0  key length =1",
      "zeparse (231): P Key id = 1  key length =1",
      "zeparse (231): C Key id = 2  key length =1",
      "zeparse (231): C Key id = 4  key length =2",
      "zeparse (231): D Key id = 4  key length =1",
      "zeparse (231): D Key id = 5  key length =0",
      "zeparse (162): bytesLeft = 23",
      "zecard (74): ID =1  element type=0",
      "zecard (138): ID =9  element type=2  child=1",
      "zecard (162): bytesLeft = 14",
      "zecard (138): ID =1  element type=0  child=2",
      "zecard (162): bytesLeft = 0",  // the item's number
      "zecard (162): bytesLeft = 0",  // the item
      "zecard (162): bytesLeft = 0",  // the items
  };
  EXPECT_EQ(LogLines(), expected);
}

}  // namespace
}  // namespace zeapi::testing
