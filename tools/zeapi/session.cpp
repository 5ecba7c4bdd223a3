#include "session.h"

#include "result_words.h"

namespace tool {

CLI::App* Session::AddCommand(CLI::App& parent, const std::string& name, const std::string& purpose,
                              const std::string& fields) {
  CLI::App* command = parent.add_subcommand(name, purpose);
  command->add_flag("--json", json_, "Answer in JSON");
  command->footer(fields);
  return command;
}

void Session::Finish(const Report& report) {
  exitCode_ = ExitCodeFor(report.result);
  const std::string words = ResultWords(report.result);
  if (json_) {
    Json answer = {{"command", report.command}, {"result", report.result}, {"meaning", words}};
    answer.update(report.fields);
    out_ << ToLine(answer) << '\n';
  } else if (report.result == ZE_OK) {
    out_ << report.done << '\n';
  }
  if (report.result != ZE_OK)
    err_ << "zeapi: cannot " << report.cannot << ": " << words << " (" << report.result << ")\n";
}

std::string ToLine(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace tool
