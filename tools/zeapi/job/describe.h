// What an event of a job is, for the listing and for JSON alike.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "job/job_event.h"

namespace tool {

// The kind as it stands in JSON: "universal-exit".
std::string_view KindName(JobEventKind kind);

// The command as it is written, with "ESC" for the escape character: "ESC &l2X". Empty for data.
std::string CommandText(const JobEvent& event);

// What it does, in a few words; empty when that is not known. `bytes` are the event's own.
std::string Meaning(const JobEvent& event, std::span<const std::uint8_t> bytes);

}  // namespace tool
