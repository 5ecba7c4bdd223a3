// zeapi send: a file as a complete job.
#include <memory>

#include "commands.h"
#include "printer_options.h"

namespace tool {
namespace {

struct SendOptions {
  PrinterOptions to;
  std::string file;
  bool append = false;
};

void Send(const SendOptions& options, Session& session) {
  const ZeDestination destination = ToDestination(options.to);
  Report report;
  report.command = "send";
  report.result = ZeDatSendFile(options.file.c_str(), options.to.printer.c_str(), &destination,
                                options.append ? 1 : 0);
  report.done = "Sent " + options.file + " to " + options.to.printer + ".";
  report.cannot = "send " + options.file;
  report.fields = {{"file", options.file}, {"printer", options.to.printer}};
  session.Finish(report);
}

}  // namespace

void AddSend(CLI::App& program, Session& session) {
  auto options = std::make_shared<SendOptions>();
  CLI::App* command = session.AddCommand(program, "send", "Send a file to a printer",
                                         "JSON: \"file\", \"printer\".");
  command->add_option("file", options->file, "File to send")->required()->type_name("FILE");
  AddPrinterOptions(*command, options->to);
  command->add_flag("--append", options->append, "Add to the file that stands for the printer");
  command->callback([options, &session] { Send(*options, session); });
}

}  // namespace tool
