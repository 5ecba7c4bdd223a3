// Records as printers send them, through both parsers.
//
// Input: what follows the length of a record.

#include <algorithm>
#include <cstring>
#include <vector>

#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kLargest = 65535;

std::vector<std::uint8_t> RecordOf(const std::uint8_t* data, std::size_t size) {
  size = std::min(size, kLargest);
  std::vector<std::uint8_t> record = {static_cast<std::uint8_t>(size >> 8),
                                      static_cast<std::uint8_t>(size)};
  record.insert(record.end(), data, data + size);
  return record;
}

// Reads a text to its end, for the sanitizers to see.
void Touch(const char* text) {
  if (text != nullptr) Check(std::strlen(text) <= kLargest, "a text fits its record");
}

bool EndsInField(const char* text, std::size_t size) {
  return std::memchr(text, 0, size) != nullptr;
}

void CheckOptions(const ZeOptionInfo& info) {
  Check((info.items != nullptr) == (info.itemCount != 0), "items are as many as counted");
  Check((info.groups != nullptr) == (info.groupCount != 0), "groups are as many as counted");
  for (std::uint32_t i = 0; i < info.itemCount; ++i) Touch(info.items[i].text6);
  for (std::uint32_t i = 0; i < info.groupCount; ++i) {
    const ZeOptionGroup& group = info.groups[i];
    Touch(group.text1);
    Touch(group.text2);
    std::int64_t sum = 0;
    for (std::uint32_t v = 0; v < group.valueCount; ++v) sum += group.values[v];
    Check(sum <= std::int64_t{kLargest} << 31, "values are there");
  }
}

void CheckAccount(const ZeJobAccount& account) {
  if (account.job != nullptr) {
    const ZeJobAccountJob& job = *account.job;
    Check(EndsInField(job.text1_7, sizeof job.text1_7), "every text ends in its field");
    Check(EndsInField(job.text1_11, sizeof job.text1_11), "every text ends in its field");
    Check(EndsInField(job.text2_1, sizeof job.text2_1), "every text ends in its field");
    Check(EndsInField(job.text2_2, sizeof job.text2_2), "every text ends in its field");
    Check(EndsInField(job.text2_3, sizeof job.text2_3), "every text ends in its field");
  }
  if (account.totals != nullptr) {
    const ZeJobAccountTotals& totals = *account.totals;
    Check(EndsInField(totals.text2_6, sizeof totals.text2_6), "every text ends in its field");
    Check(EndsInField(totals.text2_8, sizeof totals.text2_8), "every text ends in its field");
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::uint8_t> record = RecordOf(data, size);
  ZeOptionInfo* info = ZeParseOptionInfo(record.data());
  Check(info != nullptr, "options are always parsed");
  CheckOptions(*info);
  ZeFreeOptionInfo(info);
  ZeJobAccount* account = ZeParseJobAccountingAlert(record.data());
  Check(account != nullptr, "accounts are always parsed");
  CheckAccount(*account);
  ZeFreeJobAccount(account);
  return 0;
}
