// Jobs and their events as short text, for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "job/job_event.h"

namespace tool::test {

// The bytes in a block of exactly their size, so that the sanitizers see a look beyond the end.
std::vector<std::uint8_t> BytesOf(std::string_view job);

// One line an event: kind, length, and what was read: "pcl 5 &lX 2", with "+" for a continued
// part and "!N" for N missing bytes.
std::vector<std::string> EventsOf(std::string_view job);

}  // namespace tool::test
