// Where the elements of a job accounting record go.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi {

struct JobAccountField {
  std::int32_t group;
  std::int32_t element;
  std::size_t offset;    // in the record
  std::size_t textSize;  // of a text with its terminator; 0 for a number of 32 bits
};

extern const std::span<const JobAccountField> kJobAccountJobFields;     // ZeJobAccountJob
extern const std::span<const JobAccountField> kJobAccountTotalsFields;  // ZeJobAccountTotals

}  // namespace zeapi
