// A captured job as text for people and as JSON for programs.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <ostream>
#include <span>
#include <vector>

#include "job/job_event.h"

namespace tool {

// The job's events from its first byte to its last.
std::vector<JobEvent> ReadJob(std::span<const std::uint8_t> job);

// One line an event: where it stands, how long it is, what it is. With `fold`, commands of one
// group that come in a row with their data, such as the rows of a picture, are one line.
void PrintJob(std::ostream& out, std::span<const std::uint8_t> job,
              const std::vector<JobEvent>& events, bool fold);

// One event as "zeapi job --help" describes it.
nlohmann::ordered_json EventToJson(const JobEvent& event, std::span<const std::uint8_t> job);

}  // namespace tool
