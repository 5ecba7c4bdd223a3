#include "job/job_listing.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "job/describe.h"
#include "job/excerpt.h"
#include "job/job_reader.h"
#include "job/pcl_commands.h"

namespace tool {
namespace {

constexpr std::size_t kExcerpt = 40;
constexpr std::size_t kCommandColumn = 18;

// A series with fewer commands that announce data stays as it is.
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
  if (text.size() < width) text.resize(width, ' ');
  return text;
}

std::string CountedBytes(std::size_t count) {
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
  if (event.missing > 0) text += "  (the file ends " + CountedBytes(event.missing) + " early)";
  return text;
}

void PrintLine(std::ostream& out, std::size_t offset, std::size_t length, const std::string& text) {
  std::array<char, 32> columns = {};
  std::snprintf(columns.data(), columns.size(), "%08zX %8zu  ", offset, length);
  out << columns.data() << text << '\n';
}

// Commands of one group in a row with their data, such as the rows of a picture.
struct Series {
  std::size_t commands = 0;
  std::size_t announcements = 0;  // commands that announce data, be it none
  std::size_t payload = 0;        // bytes of data in all
  std::size_t end = 0;            // the event after the last
  std::string meanings;           // each once, in the order in which they come
};

std::string_view GroupOf(const JobEvent& event) {
  return std::string_view(event.text).substr(0, event.text.size() - 1);
}

void AddCommand(Series& series, const JobEvent& event) {
  ++series.commands;
  const PclCommand* command = FindPclCommand(event.text);
  if (command == nullptr) return;
  if (!command->payload.empty()) ++series.announcements;
  if (series.meanings.find(command->meaning) == std::string::npos) {
    series.meanings += series.meanings.empty() ? "" : ", ";
    series.meanings += command->meaning;
  }
}

Series FindSeries(const std::vector<JobEvent>& events, std::size_t at) {
  Series series;
  series.end = at;
  for (; series.end < events.size(); ++series.end) {
    const JobEvent& event = events[series.end];
    if (event.kind == JobEventKind::kPcl && GroupOf(event) == GroupOf(events[at])) {
      AddCommand(series, event);
    } else if (event.kind == JobEventKind::kPayload && series.commands > 0) {
      series.payload += event.length;
    } else {
      break;
    }
  }
  return series;
}

std::string SeriesText(const JobEvent& first, const Series& series) {
  std::string command = "ESC ";
  command += GroupOf(first);
  command += "...";
  return Padded(command, kCommandColumn) + std::to_string(series.commands) + " commands with " +
         CountedBytes(series.payload) + " of data: " + series.meanings;
}

}  // namespace

std::vector<JobEvent> ReadJob(std::span<const std::uint8_t> job) {
  std::vector<JobEvent> events;
  JobReader reader(job);
  while (auto event = reader.Next()) events.push_back(std::move(*event));
  return events;
}

void PrintJob(std::ostream& out, std::span<const std::uint8_t> job,
              const std::vector<JobEvent>& events, bool fold) {
  out << "  offset    bytes\n";
  std::size_t at = 0;
  while (at < events.size()) {
    const JobEvent& event = events[at];
    const Series series =
        fold && event.kind == JobEventKind::kPcl ? FindSeries(events, at) : Series();
    if (series.announcements >= kFewestFolded) {
      const JobEvent& last = events[series.end - 1];
      PrintLine(out, event.offset, last.offset + last.length - event.offset,
                SeriesText(event, series));
      at = series.end;
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
  if (!command.empty()) json["command"] = command;
  if (event.kind == JobEventKind::kPcl) {
    json["value"] = event.value;
    json["continued"] = event.continued;
  }
  if (event.kind == JobEventKind::kLanguageData) {
    json["language"] = Printable(event.text);
  } else if (event.kind != JobEventKind::kPjl) {
    const std::string meaning = Meaning(event, BytesOf(event, job));
    if (!meaning.empty()) json["meaning"] = meaning;
  }
  if (command.empty() || event.kind == JobEventKind::kBracketK)
    json["excerpt"] = Excerpt(BytesOf(event, job), kExcerpt);
  if (event.missing > 0) json["missing"] = event.missing;
  return json;
}

}  // namespace tool
