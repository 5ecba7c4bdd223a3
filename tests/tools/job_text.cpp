#include "job_text.h"

#include "job/describe.h"
#include "job/job_listing.h"

namespace tool::test {

std::vector<std::uint8_t> BytesOf(std::string_view job) {
  return std::vector<std::uint8_t>(job.begin(), job.end());
}

std::vector<std::string> EventsOf(std::string_view job) {
  const std::vector<std::uint8_t> bytes = BytesOf(job);
  std::vector<std::string> lines;
  for (const JobEvent& event : ReadJob(bytes)) {
    std::string line(KindName(event.kind));
    line += ' ';
    line += std::to_string(event.length);
    for (const std::string& word : {event.text, event.value}) {
      if (!word.empty()) line += " " + word;
    }
    if (event.continued) line += " +";
    if (event.missing > 0) line += " !" + std::to_string(event.missing);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace tool::test
