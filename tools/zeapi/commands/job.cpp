// zeapi job: what a captured job says.
#include <filesystem>
#include <fstream>
#include <memory>

#include "commands.h"
#include "job/job_listing.h"

namespace tool {
namespace {

struct JobOptions {
  std::string file;
  bool fold = false;
};

std::uint32_t ReadFile(const std::string& name, std::vector<std::uint8_t>* bytes) {
  std::ifstream file(name, std::ios::binary);
  if (!file) {
    std::error_code ignored;
    return std::filesystem::exists(name, ignored) ? ZE_OPEN_FAILED : ZE_FILE_NOT_FOUND;
  }
  constexpr std::size_t kBlock = 65536;
  std::size_t size = 0;
  do {
    bytes->resize(size + kBlock);
    file.read(reinterpret_cast<char*>(bytes->data() + size), kBlock);
    size += static_cast<std::size_t>(file.gcount());
  } while (file);
  bytes->resize(size);
  return file.bad() ? ZE_READ_FAILED : ZE_OK;
}

void PrintJson(std::ostream& out, std::span<const std::uint8_t> job,
               const std::vector<JobEvent>& events) {
  const char* before = "[\n";
  for (const JobEvent& event : events) {
    out << before << ToLine(EventToJson(event, job));
    before = ",\n";
  }
  out << (events.empty() ? "[]\n" : "\n]\n");
}

void ListJob(const JobOptions& options, Session& session) {
  std::vector<std::uint8_t> job;
  Report report;
  report.command = "job";
  report.result = ReadFile(options.file, &job);
  report.cannot = "list " + options.file;
  report.fields = {{"file", options.file}};
  if (report.result != ZE_OK) {
    session.Finish(report);
    return;
  }
  const std::vector<JobEvent> events = ReadJob(job);
  if (session.WantsJson()) {
    PrintJson(session.Out(), job, events);
  } else {
    PrintJob(session.Out(), job, events, options.fold);
  }
}

}  // namespace

void AddJob(CLI::App& program, Session& session) {
  auto options = std::make_shared<JobOptions>();
  CLI::App* command = session.AddCommand(
      program, "job", "List a captured job, one command a line",
      "Each line has an offset (hexadecimal), a number of bytes, and what stands there.\n"
      "JSON: an array; each element has \"offset\", \"length\" and \"kind\", one of "
      "universal-exit,\n"
      "pjl, pcl, escape, bracket-k, payload, language-data, form-feed, text, data, damaged.\n"
      "A command has \"command\", and \"meaning\" where it is known; pcl also has \"value\" (text, "
      "may\n"
      "be empty) and \"continued\" (part of a combined command). Data has \"excerpt\"; a payload\n"
      "\"meaning\"; language-data \"language\". \"missing\" counts announced bytes that are not "
      "there.\n"
      "The elements follow each other without a gap from 0 to the end of the file.");
  command->add_option("file", options->file, "File that holds the job")
      ->required()
      ->type_name("FILE");
  command->add_flag("--fold", options->fold,
                    "Show commands that come in a row with their data, such as the rows of a "
                    "picture, as one line");
  command->callback([options, &session] { ListJob(*options, session); });
}

}  // namespace tool
