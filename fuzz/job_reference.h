// The bytes of a job, put together once more in one go, without a queue and without failures.
#pragma once

#include <string>

#include "zeapi.h"

namespace zeapi::fuzz {

struct ReferenceJob {
  std::string bytes;
  // The end of a job for bracket-K printers, sent last; whether it arrives is not asked.
  std::string end;
};

// `data` is the content of the file, sent as often as there are copies to be made by repetition.
ReferenceJob FileJob(const ZeDestination& destination, const std::string& data);

ReferenceJob StringJob(const ZeDestination& destination, const std::string& data);

ReferenceJob ResourceJob(const ZeDestination& destination, int request, int device);

}  // namespace zeapi::fuzz
