// zeapi pclxl: what a PCL XL job says, and where its reader stops. The listing is no part of the
// interface: this command links the library's own reader.
#include <fstream>
#include <memory>

#include "commands.h"
#include "pclxl/list_stream.h"
#include "platform/files.h"

namespace tool {
namespace {

const char* Meaning(zeapi::XlResult result) {
  switch (result) {
    case zeapi::kXlOk:
      return "one session, at most one page";
    case zeapi::kXlEnd:
      return "the session does not end";
    case zeapi::kXlNotAllowed:
      return "an operator stands where it may not";
    case zeapi::kXlIllegalByte:
      return "a byte or type that is not read, or too many attributes";
    case zeapi::kXlNoMemory:
      return "memory is short";
    case zeapi::kXlBinding:
      return "the header does not begin with \")\"";
    case zeapi::kXlName:
      return "the header has another name";
    case zeapi::kXlVersion:
      return "the header names another version than 1.1";
    case zeapi::kXlSeparator:
      return "a separator of the header is missing";
    case zeapi::kXlSecondPage:
      return "there is a second page";
    case zeapi::kXlStreamInPage:
      return "there is a stream operator in the page";
    case zeapi::kXlFile:
      return "the file cannot be read";
    case zeapi::kXlLength:
      return "an array has a count of an unknown type";
  }
  return "";
}

class StringSink final : public zeapi::XlListingSink {
 public:
  explicit StringSink(std::ostream* out) : out_(out) {}
  void Text(std::string_view text) override {
    if (out_ != nullptr) *out_ << text;
  }

 private:
  std::ostream* out_;  // null: nothing is shown
};

void List(const std::string& name, Session& session) {
  Report report;
  report.command = "pclxl list";
  report.cannot = "list " + name;
  report.fields = {{"file", name}};
  std::FILE* const file = zeapi::platform::OpenStream(name.c_str(), "rb");
  if (file == nullptr) {
    report.result = ZeFilExists(name.c_str()) != 0 ? ZE_OPEN_FAILED : ZE_FILE_NOT_FOUND;
    session.Finish(report);
    return;
  }
  StringSink sink(session.WantsJson() ? nullptr : &session.Out());
  const zeapi::XlListed listed = zeapi::XlListStream(file, &sink);
  std::fclose(file);
  if (listed.walk != zeapi::kXlOk) report.result = ZE_FIXUP_FAILED;
  const std::string what = Meaning(listed.walk);
  report.done = std::to_string(listed.operatorCount) + " operators: " + what + ".";
  report.cannot = "list " + name + " to its end (" + what + ")";
  report.fields["operators"] = listed.operatorCount;
  report.fields["header"] = listed.header;
  report.fields["code"] = listed.walk;
  report.fields["meaning"] = what;
  session.Finish(report);
}

}  // namespace

void AddPclXl(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("pclxl", "Examine PCL XL jobs");
  family->require_subcommand(1);
  auto file = std::make_shared<std::string>();
  CLI::App* command = session.AddCommand(
      *family, "list", "List a PCL XL job, one operator or attribute a line",
      "The listing ends where a job could not be stored as a stream: a second page, say. A "
      "session\n"
      "without a page and \"@PJL\" within data are listed, but not stored:\n"
      "\"zeapi macro check --language pclxl --fixup\" tells.\n"
      "JSON: \"file\", \"operators\" (how many were met), \"header\" and \"code\" (0, or what the "
      "reader\nof the library says about the header line and the session), \"meaning\".");
  command->add_option("file", *file, "File that holds the job")->required()->type_name("FILE");
  command->callback([file, &session] { List(*file, session); });
}

}  // namespace tool
