// What every command shares: where it prints, how it says what happened, and the exit code.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "zeapi.h"

namespace tool {

// Fields keep the order in which they were set.
using Json = nlohmann::ordered_json;

// How a command went.
struct Report {
  std::string command;           // its name: "file copy"
  std::uint32_t result = ZE_OK;  // result code of the library
  std::string done;              // for people, after success: "Copied a to b."
  std::string cannot;            // for people, after failure: "copy a to b"
  Json fields = Json::object();  // for programs: what the command's --help promises
};

class Session {
 public:
  Session(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

  // Adds a command with its --json flag. `fields` describes the JSON answer in --help.
  CLI::App* AddCommand(CLI::App& parent, const std::string& name, const std::string& purpose,
                       const std::string& fields);

  // Prints the report as --json asks and takes over its exit code. A failure is also said in words
  // on the error stream.
  void Finish(const Report& report);

  bool WantsJson() const { return json_; }
  std::ostream& Out() { return out_; }
  std::ostream& Err() { return err_; }
  int ExitCode() const { return exitCode_; }

 private:
  std::ostream& out_;
  std::ostream& err_;
  bool json_ = false;
  int exitCode_ = 0;
};

// One line of JSON. Bytes that are no UTF-8 (names come from the command line) are replaced.
std::string ToLine(const Json& json);

}  // namespace tool
