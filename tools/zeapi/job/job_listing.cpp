#include "job/job_listing.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "job/describe.h"
#include "job/excerpt.h"
#include "job/job_reader.h"

namespace tool {
namespace {

constexpr std::size_t kExcerpt = 40;
constexpr std::size_t kCommandColumn = 18;

// Fewer repetitions than this stay as they are.
constexpr std::size_t kFewestFolded = 3;

std::span<const std::uint8_t> BytesOf(const JobEvent& event, std::span<const std::uint8_t> job) {
  return job.subspan(event.offset, event.length);
}

std::string Quoted(const JobEvent& event, std::span<const std::uint8_t> job) {
  std::string text = "\"";
  text += Excerpt(BytesOf(event, job), kExcerpt);
  text += '"';
  return text;
}

std::string Padded(std::string text, std::size_t width) {
  if (text.size() < width)
    text.resize(width, ' ');
  return text;
}

std::string Bytes(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string DataText(const JobEvent& event, std::span<const std::uint8_t> job) {
  switch (event.kind) {
    case JobEventKind::kPayload:
      return "  " + event.text + " " + Quoted(event, job);
    case JobEventKind::kLanguageData:
      return "data in " + Printable(event.text) + " " + Quoted(event, job);
    default:
      return std::string(KindName(event.kind)) + " " + Quoted(event, job);
  }
}

std::string EventText(const JobEvent& event, std::span<const std::uint8_t> job) {
  std::string command = CommandText(event);
  if (event.continued)
    std::fill_n(command.begin(), 3, ' ');  // it shares the ESC of the command before
  std::string text;
  if (command.empty()) {
    text = DataText(event, job);
  } else if (event.kind == JobEventKind::kPjl) {
    text = command;
  } else {
    const std::string meaning = Meaning(event, BytesOf(event, job));
    text = meaning.empty() ? command : Padded(command, kCommandColumn) + meaning;
  }
  if (event.missing > 0)
    text += "  (the file ends " + Bytes(event.missing) + " early)";
  return text;
}

void PrintLine(std::ostream& out, std::size_t offset, std::size_t length, const std::string& text) {
  std::array<char, 32> columns = {};
  std::snprintf(columns.data(), columns.size(), "%08zX %8zu  ", offset, length);
  out << columns.data() << text << '\n';
}

// A command with the payload that it announced, as they repeat in a picture.
std::size_t UnitLength(const std::vector<JobEvent>& events, std::size_t at) {
  const bool hasPayload = at + 1 < events.size() && events[at + 1].kind == JobEventKind::kPayload;
  return hasPayload ? 2 : 1;
}

struct Repetition {
  std::size_t count = 0;
  std::size_t end = 0;      // the event after the last
  std::size_t payload = 0;  // bytes of data in all
};

// How often the command at `at` comes in a row, whatever its values and data.
Repetition FindRepetition(const std::vector<JobEvent>& events, std::size_t at) {
  Repetition repetition;
  std::size_t next = at;
  while (next < events.size() && events[next].kind == JobEventKind::kPcl &&
         events[next].text == events[at].text) {
    const std::size_t length = UnitLength(events, next);
    if (length == 2)
      repetition.payload += events[next + 1].length;
    ++repetition.count;
    next += length;
  }
  repetition.end = next;
  return repetition;
}

std::string RepetitionText(const JobEvent& event, const Repetition& repetition) {
  JobEvent any = event;
  any.value.assign(1, '#');
  const std::string meaning = Meaning(any, {});
  return Padded(CommandText(any), kCommandColumn) + meaning + (meaning.empty() ? "" : ", ") +
         std::to_string(repetition.count) + " times with " + Bytes(repetition.payload) + " of data";
}

}  // namespace

std::vector<JobEvent> ReadJob(std::span<const std::uint8_t> job) {
  std::vector<JobEvent> events;
  JobReader reader(job);
  while (auto event = reader.Next())
    events.push_back(std::move(*event));
  return events;
}

void PrintJob(std::ostream& out, std::span<const std::uint8_t> job,
              const std::vector<JobEvent>& events, bool fold) {
  out << "  offset    bytes\n";
  std::size_t at = 0;
  while (at < events.size()) {
    const JobEvent& event = events[at];
    const Repetition repetition = fold ? FindRepetition(events, at) : Repetition();
    if (repetition.count >= kFewestFolded) {
      const JobEvent& last = events[repetition.end - 1];
      PrintLine(out, event.offset, last.offset + last.length - event.offset,
                RepetitionText(event, repetition));
      at = repetition.end;
    } else {
      PrintLine(out, event.offset, event.length, EventText(event, job));
      ++at;
    }
  }
  PrintLine(out, job.size(), 0, "end");
}

nlohmann::ordered_json EventToJson(const JobEvent& event, std::span<const std::uint8_t> job) {
  nlohmann::ordered_json json = {
      {"offset", event.offset}, {"length", event.length}, {"kind", KindName(event.kind)}};
  const std::string command = CommandText(event);
  if (!command.empty())
    json["command"] = command;
  if (event.kind == JobEventKind::kPcl) {
    json["value"] = event.value;
    json["continued"] = event.continued;
  }
  if (event.kind == JobEventKind::kLanguageData) {
    json["language"] = Printable(event.text);
  } else if (event.kind != JobEventKind::kPjl) {
    const std::string meaning = Meaning(event, BytesOf(event, job));
    if (!meaning.empty())
      json["meaning"] = meaning;
  }
  if (command.empty() || event.kind == JobEventKind::kBracketK)
    json["excerpt"] = Excerpt(BytesOf(event, job), kExcerpt);
  if (event.missing > 0)
    json["missing"] = event.missing;
  return json;
}

}  // namespace tool
