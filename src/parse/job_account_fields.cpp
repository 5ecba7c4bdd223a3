#include "parse/job_account_fields.h"

#include <cstddef>

#include "zeapi.h"

namespace zeapi {
namespace {

constexpr JobAccountField Number(std::int32_t group, std::int32_t element, std::size_t offset) {
  return {group, element, offset, 0};
}

constexpr JobAccountField Text(std::int32_t group, std::int32_t element, std::size_t offset,
                               std::size_t size) {
  return {group, element, offset, size};
}

constexpr JobAccountField kJobFields[] = {
    Number(1, 1, offsetof(ZeJobAccountJob, value1_1)),
    Number(1, 2, offsetof(ZeJobAccountJob, value1_2)),
    Number(1, 3, offsetof(ZeJobAccountJob, value1_3)),
    Number(1, 4, offsetof(ZeJobAccountJob, value1_4)),
    Number(1, 5, offsetof(ZeJobAccountJob, value1_5)),
    Number(1, 6, offsetof(ZeJobAccountJob, value1_6)),
    Text(1, 7, offsetof(ZeJobAccountJob, text1_7), 10),
    Number(1, 8, offsetof(ZeJobAccountJob, value1_8)),
    Number(1, 9, offsetof(ZeJobAccountJob, value1_9)),
    Number(1, 10, offsetof(ZeJobAccountJob, value1_10)),
    Text(1, 11, offsetof(ZeJobAccountJob, text1_11), 16),
    Text(2, 1, offsetof(ZeJobAccountJob, text2_1), 41),
    Text(2, 2, offsetof(ZeJobAccountJob, text2_2), 21),
    Text(2, 3, offsetof(ZeJobAccountJob, text2_3), 21),
    Number(2, 4, offsetof(ZeJobAccountJob, value2_4)),
    Number(2, 5, offsetof(ZeJobAccountJob, value2_5)),
    Number(2, 6, offsetof(ZeJobAccountJob, value2_6)),
    Number(2, 7, offsetof(ZeJobAccountJob, value2_7)),
    Number(2, 8, offsetof(ZeJobAccountJob, value2_8)),
    Number(2, 9, offsetof(ZeJobAccountJob, value2_9)),
    Number(2, 10, offsetof(ZeJobAccountJob, value2_10)),
};

constexpr JobAccountField kTotalsFields[] = {
    Number(1, 1, offsetof(ZeJobAccountTotals, value1_1)),
    Number(2, 1, offsetof(ZeJobAccountTotals, value2_1)),
    Number(2, 2, offsetof(ZeJobAccountTotals, value2_2)),
    Number(2, 3, offsetof(ZeJobAccountTotals, value2_3)),
    Number(2, 4, offsetof(ZeJobAccountTotals, value2_4)),
    Number(2, 5, offsetof(ZeJobAccountTotals, value2_5)),
    Text(2, 6, offsetof(ZeJobAccountTotals, text2_6), 16),
    Number(2, 7, offsetof(ZeJobAccountTotals, value2_7)),
    Text(2, 8, offsetof(ZeJobAccountTotals, text2_8), 10),
    Number(3, 1, offsetof(ZeJobAccountTotals, value3_1)),
    Number(3, 2, offsetof(ZeJobAccountTotals, value3_2)),
    Number(3, 3, offsetof(ZeJobAccountTotals, value3_3)),
    Number(3, 4, offsetof(ZeJobAccountTotals, value3_4)),
    Number(3, 5, offsetof(ZeJobAccountTotals, value3_5)),
};

}  // namespace

const std::span<const JobAccountField> kJobAccountJobFields = kJobFields;
const std::span<const JobAccountField> kJobAccountTotalsFields = kTotalsFields;

}  // namespace zeapi
