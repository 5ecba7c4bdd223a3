// Printer records under every failure. Without memory the caller gets what was read until then, or null.
#include "fault/each_failure.h"
#include "parse/alert_record.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

// Every other failure is the log's, which is nobody's concern.
bool TakesMemory(const std::string& failed) {
  return failed == "new" || failed == "malloc" || failed == "calloc";
}

bool IsNullOr(const char* text, std::string_view wanted) {
  return text == nullptr || text == wanted;
}

// What is there is right, and can be walked by its counts.
void ExpectSound(const ZeOptionInfo& info) {
  for (std::uint32_t i = 0; i < info.itemCount; ++i) {
    EXPECT_TRUE(IsNullOr(info.items[i].text6, i == 0 ? "tray" : "duplex"));
  }
  for (std::uint32_t i = 0; i < info.groupCount; ++i) {
    EXPECT_TRUE(IsNullOr(info.groups[i].text1, "a"));
    EXPECT_TRUE(IsNullOr(info.groups[i].text2, "b"));
    EXPECT_TRUE(info.groups[i].valueCount == 0 || info.groups[i].values != nullptr);
  }
}

bool IsWhole(const ZeOptionInfo* info) {
  return info != nullptr && info->itemCount == 2 && info->items[0].text6 != nullptr &&
         info->items[1].text6 != nullptr && info->groupCount == 1 &&
         info->groups[0].text1 != nullptr && info->groups[0].text2 != nullptr &&
         info->groups[0].valueCount == 2 && info->groups[0].values[1] == 6;
}

class RecordFaultTest : public ScratchTest {};

TEST_F(RecordFaultTest, Options) {
  const std::string record = Record(Container(
      1, {Container(1, {Container(7, {Integer(1, 11), Integer(5, 15), Text(6, "tray")}),
                        Container(7, {Integer(1, 12), Integer(5, 16), Text(6, "duplex")})}),
          Container(3, {Container(1, {Text(1, "a"), Text(2, "b"),
                                      Container(3, {Container(9, {Integer(1, 5)}),
                                                    Container(9, {Integer(1, 6)})})})})}));
  ZeOptionInfo* info = nullptr;
  EachFailure([] {}, [&] { info = TRIED(ZeParseOptionInfo)(record.data()); },
              [&](const std::string& failed) {
                EXPECT_TRUE(IsWhole(info) || TakesMemory(failed));
                if (info != nullptr) ExpectSound(*info);
                ZeFreeOptionInfo(info);
              });
}

TEST_F(RecordFaultTest, JobAccounting) {
  const std::string record = Record(
      Container(1, {Container(2, {Container(1, {Integer(1, 101), Text(7, "987654321")}),
                                  Container(2, {Text(1, "First"), Integer(10, -210)})}),
                    Container(3, {Container(1, {Integer(1, 1)}), Container(2, {Integer(1, 2)})})}));
  ZeJobAccount* account = nullptr;
  EachFailure([] {}, [&] { account = TRIED(ZeParseJobAccountingAlert)(record.data()); },
              [&](const std::string& failed) {
                const bool hasJob = account != nullptr && account->job != nullptr;
                const bool hasTotals = account != nullptr && account->totals != nullptr;
                EXPECT_TRUE((hasJob && hasTotals) || TakesMemory(failed));
                EXPECT_TRUE(!hasJob || account->job->value2_10 == -210);
                EXPECT_TRUE(!hasTotals || account->totals->value2_1 == 2);
                ZeFreeJobAccount(account);
              });
}

}  // namespace
}  // namespace zeapi::testing
