// Job accounting records.
#include <cstring>
#include <memory>

#include "parse/alert_record.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

struct ReleaseAccount {
  void operator()(ZeJobAccount* account) const { ZeFreeJobAccount(account); }
};
using JobAccount = std::unique_ptr<ZeJobAccount, ReleaseAccount>;

JobAccount ParseAccount(const std::string& record) {
  const std::vector<char> block(record.begin(), record.end());
  return JobAccount(ZeParseJobAccountingAlert(block.data()));
}

JobAccount ParseAccountElements(const std::string& elements) {
  return ParseAccount(Record(elements));
}

// A container with one number an element, `base` + its identifier.
std::string Numbers(int id, int first, int last, int base) {
  std::string content;
  for (int element = first; element <= last; ++element) content += Integer(element, base + element);
  return Container(id, last - first + 1, content);
}

class ZeFaxTest : public ScratchTest {};

TEST_F(ZeFaxTest, FillsTheJob) {
  const JobAccount account = ParseAccountElements(Container(
      1,
      {Container(
          2, {Container(1, {Integer(1, 101), Integer(2, 102), Integer(3, 103), Integer(4, 104),
                            Integer(5, 105), Integer(6, 106), Text(7, "987654321"), Integer(8, 108),
                            Integer(9, 109), Integer(10, 110), Text(11, "Job name")}),
              Container(2, {Text(1, "First"), Text(2, "Second"), Text(3, "Third"), Integer(4, 204),
                            Integer(5, 205), Integer(6, 206), Integer(7, 207), Integer(8, 208),
                            Integer(9, 209), Integer(10, -210)})})}));
  ASSERT_NE(account, nullptr);
  EXPECT_EQ(account->totals, nullptr);
  ASSERT_NE(account->job, nullptr);
  const ZeJobAccountJob& job = *account->job;
  EXPECT_EQ(int{job.value1_1}, 101);
  EXPECT_EQ(int{job.value1_2}, 102);
  EXPECT_EQ(int{job.value1_3}, 103);
  EXPECT_EQ(int{job.value1_4}, 104);
  EXPECT_EQ(int{job.value1_5}, 105);
  EXPECT_EQ(int{job.value1_6}, 106);
  EXPECT_STREQ(job.text1_7, "987654321");
  EXPECT_EQ(int{job.value1_8}, 108);
  EXPECT_EQ(int{job.value1_9}, 109);
  EXPECT_EQ(int{job.value1_10}, 110);
  EXPECT_STREQ(job.text1_11, "Job name");
  EXPECT_STREQ(job.text2_1, "First");
  EXPECT_STREQ(job.text2_2, "Second");
  EXPECT_STREQ(job.text2_3, "Third");
  EXPECT_EQ(int{job.value2_4}, 204);
  EXPECT_EQ(int{job.value2_5}, 205);
  EXPECT_EQ(int{job.value2_6}, 206);
  EXPECT_EQ(int{job.value2_7}, 207);
  EXPECT_EQ(int{job.value2_8}, 208);
  EXPECT_EQ(int{job.value2_9}, 209);
  EXPECT_EQ(int{job.value2_10}, -210);
}

TEST_F(ZeFaxTest, FillsTheTotals) {
  const JobAccount account = ParseAccountElements(Container(
      1, {Container(3, {Numbers(1, 1, 1, 300),
                        Container(2, {Integer(1, 1), Integer(2, 2), Integer(3, 3), Integer(4, 4),
                                      Integer(5, 5), Text(6, "fifteen letters"), Integer(7, 7),
                                      Text(8, "nine char")}),
                        Numbers(3, 1, 5, 500)})}));
  ASSERT_NE(account, nullptr);
  EXPECT_EQ(account->job, nullptr);
  ASSERT_NE(account->totals, nullptr);
  const ZeJobAccountTotals& totals = *account->totals;
  EXPECT_EQ(int{totals.value1_1}, 301);
  EXPECT_EQ(int{totals.value2_1}, 1);
  EXPECT_EQ(int{totals.value2_2}, 2);
  EXPECT_EQ(int{totals.value2_3}, 3);
  EXPECT_EQ(int{totals.value2_4}, 4);
  EXPECT_EQ(int{totals.value2_5}, 5);
  EXPECT_STREQ(totals.text2_6, "fifteen letters");
  EXPECT_EQ(int{totals.value2_7}, 7);
  EXPECT_STREQ(totals.text2_8, "nine char");
  EXPECT_EQ(int{totals.value3_1}, 501);
  EXPECT_EQ(int{totals.value3_2}, 502);
  EXPECT_EQ(int{totals.value3_3}, 503);
  EXPECT_EQ(int{totals.value3_4}, 504);
  EXPECT_EQ(int{totals.value3_5}, 505);
}

TEST_F(ZeFaxTest, SeveralRootsFillOneRecord) {
  const std::string job = Container(2, {Numbers(1, 1, 6, 10)});
  const std::string rest = Container(2, {Numbers(2, 4, 10, 20)});
  const std::string totals = Container(3, {Numbers(1, 1, 1, 30)});
  const JobAccount account = ParseAccountElements(
      Container(1, {job}) + Container(8, {Text(1, "other")}) + Container(1, {totals, rest}));
  ASSERT_NE(account->job, nullptr);
  EXPECT_EQ(int{account->job->value1_1}, 11);
  EXPECT_EQ(int{account->job->value2_10}, 30);
  ASSERT_NE(account->totals, nullptr);
  EXPECT_EQ(int{account->totals->value1_1}, 31);
}

TEST_F(ZeFaxTest, AnElementCutOffLeavesItsFieldAsItWas) {
  const auto root = [](int number, const std::string& text) {
    return Container(1, {Container(2, {Container(1, {Integer(1, number), Text(7, text)})})});
  };
  const std::string second = root(202, "def");
  const std::string record = Record(root(101, "abc") + second);
  for (std::size_t cut = 0; cut <= second.size(); ++cut) {
    SCOPED_TRACE(cut);
    const JobAccount account = ParseAccount(CutBy(cut, record));
    ASSERT_NE(account->job, nullptr);
    EXPECT_EQ(int{account->job->value1_1}, cut <= Text(7, "def").size() ? 202 : 101);
    EXPECT_STREQ(account->job->text1_7, cut == 0 ? "def" : "abc");
  }
}

TEST_F(ZeFaxTest, TheFirstElementIsWalkedAndNotStored) {
  const JobAccount account = ParseAccountElements(
      Container(1, {Container(1, {Integer(1, 5), Container(2, {Integer(1, 6)}), Text(3, "x")}),
                    Container(3, {Numbers(1, 1, 1, 30)})}));
  EXPECT_EQ(account->job, nullptr);
  ASSERT_NE(account->totals, nullptr);
  EXPECT_EQ(int{account->totals->value1_1}, 31);
}

TEST_F(ZeFaxTest, WhatHasNoFieldIsSkipped) {
  const JobAccount account = ParseAccountElements(Container(
      1, {Integer(2, 1), Container(5, {Integer(1, 1)}),
          Container(2, {Integer(1, 9), Container(3, {Integer(1, 9)}),
                        Container(1, {Integer(12, 9), Integer(7, 9), Text(1, "no number"),
                                      Container(2, {Integer(2, 9)}), Integer(3, 33)})})}));
  ASSERT_NE(account->job, nullptr);
  ZeJobAccountJob expected = {};
  expected.value1_3 = 33;
  EXPECT_EQ(std::memcmp(account->job, &expected, sizeof expected), 0);
}

TEST_F(ZeFaxTest, TextsAreCutToTheirFields) {
  const std::string text = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const JobAccount account = ParseAccountElements(Container(
      1,
      {Container(2, {Container(1, {Text(7, text), Integer(8, 4), Text(11, text)}),
                     Container(2, {Text(1, text), Text(2, text), Text(3, text), Integer(4, 5)})}),
       Container(3, {Container(2, {Text(6, text), Integer(7, 8), Text(8, text)}),
                     Numbers(3, 1, 5, 500)})}));
  ASSERT_NE(account->job, nullptr);
  EXPECT_EQ(account->job->text1_7, text.substr(0, 9));
  EXPECT_EQ(int{account->job->value1_8}, 4);
  EXPECT_EQ(account->job->text1_11, text.substr(0, 15));
  EXPECT_EQ(account->job->text2_1, text.substr(0, 40));
  EXPECT_EQ(account->job->text2_2, text.substr(0, 20));
  EXPECT_EQ(account->job->text2_3, text.substr(0, 20));
  EXPECT_EQ(int{account->job->value2_4}, 5);
  ASSERT_NE(account->totals, nullptr);
  EXPECT_EQ(account->totals->text2_6, text.substr(0, 15));
  EXPECT_EQ(int{account->totals->value2_7}, 8);
  EXPECT_EQ(account->totals->text2_8, text.substr(0, 9));
  EXPECT_EQ(int{account->totals->value3_5}, 505);
}

TEST_F(ZeFaxTest, UnknownGroupsAreSkippedByTheirLength) {
  const JobAccount account = ParseAccountElements(
      Container(1, {Container(2, {Container(9, 0, std::string("\1\1\1\5zz")), Container(9, 3, "zz"),
                                  Numbers(1, 1, 1, 6)}),
                    Container(3, {Container(4, 9, "zz"), Numbers(1, 1, 1, 30)})}));
  ASSERT_NE(account->job, nullptr);
  EXPECT_EQ(int{account->job->value1_1}, 7);
  ASSERT_NE(account->totals, nullptr);
  EXPECT_EQ(int{account->totals->value1_1}, 31);
}

TEST_F(ZeFaxTest, ATextMayFillItsFieldButForTheTerminator) {
  const JobAccount fits = ParseAccountElements(
      Container(1, {Container(2, {Container(1, {Text(7, "123456789"), Integer(8, 4)})})}));
  EXPECT_STREQ(fits->job->text1_7, "123456789");
  EXPECT_EQ(int{fits->job->value1_8}, 4);
}

TEST_F(ZeFaxTest, AShorterTextLeavesNothingOfALongerOne) {
  const JobAccount account = ParseAccountElements(
      Container(1, {Container(2, {Container(1, {Text(7, "12345678"), Text(7, "ab")})})}));
  EXPECT_EQ(std::string(account->job->text1_7, 10), std::string("ab\0\0\0\0\0\0\0\0", 10));
}

TEST_F(ZeFaxTest, ARecordWithoutElementsIsEmpty) {
  const JobAccount account = ParseAccountElements("");
  ASSERT_NE(account, nullptr);
  EXPECT_EQ(account->job, nullptr);
  EXPECT_EQ(account->totals, nullptr);
}

TEST_F(ZeFaxTest, RootsWithoutBytesEndTheRecord) {
  const JobAccount account = ParseAccount(Record(Keys("VN:0", "LD:0", "LD:1,DA:0"), "123"));
  ASSERT_NE(account, nullptr);
  EXPECT_EQ(account->job, nullptr);
}

TEST_F(ZeFaxTest, NullPointers) {
  EXPECT_EQ(ZeParseJobAccountingAlert(nullptr), nullptr);
  ZeFreeJobAccount(nullptr);
}

TEST_F(ZeFaxTest, LogsItsSteps) {
  const JobAccount account = ParseAccountElements(
      Container(1, {Container(2, {Container(1, {Integer(1, 3, 1)})})}) + Integer(2, 0, 1));
  ASSERT_NE(account, nullptr);
  std::vector<std::string> lines = LogLines();
  ASSERT_GT(lines.size(), 9U);
  lines.erase(lines.begin(), lines.begin() + 9);
  const std::vector<std::string> expected = {
      "zefax (74): ID =1  element type=0", "zefax (138): ID =2  element type=0  child=1",
      "zefax (162): bytesLeft = 4",  // the number
      "zefax (162): bytesLeft = 4",  // its group
      "zefax (162): bytesLeft = 4",  // the job
      "zefax (74): ID =2  element type=1",
  };
  EXPECT_EQ(lines, expected);
}

}  // namespace
}  // namespace zeapi::testing
