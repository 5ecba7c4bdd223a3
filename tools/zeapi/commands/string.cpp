// zeapi string: a short string as a complete job.
#include <memory>

#include "commands.h"
#include "printer_options.h"
#include "string_text.h"

namespace tool {
namespace {

struct StringOptions {
  PrinterOptions to;
  std::string text;
  bool hex = false;
  bool escaped = false;
  bool raw = false;
  bool append = false;
};

// The text in the form that the library takes.
std::string LibraryText(const StringOptions& options) {
  if (options.raw) return options.text;
  try {
    if (options.hex) return HexOfBytes(BytesOfHex(options.text));
    if (options.escaped) return HexOfBytes(BytesOfEscapes(options.text));
  } catch (const BadText& bad) {
    throw CLI::ValidationError("TEXT", bad.what());
  }
  return HexOfBytes(options.text);
}

void SendString(const StringOptions& options, Session& session) {
  const std::string text = LibraryText(options);
  const ZeDestination destination = ToDestination(options.to);
  Report report;
  report.command = "string";
  report.result = ZeDatSendString(text.c_str(), options.to.printer.c_str(), &destination,
                                  options.append ? 1 : 0);
  report.done = "Sent the string to " + options.to.printer + ".";
  report.cannot = "send the string to " + options.to.printer;
  report.fields = {{"printer", options.to.printer}, {"text", text}};
  session.Finish(report);
}

}  // namespace

void AddString(CLI::App& program, Session& session) {
  auto options = std::make_shared<StringOptions>();
  CLI::App* command = session.AddCommand(
      program, "string", "Send a short string to a printer",
      "TEXT is sent as it is typed unless one of --hex, --escaped, --raw says "
      "otherwise.\nBefore a TEXT that begins with \"-\" come the options and then \"--\".\n"
      "JSON: \"printer\", \"text\" (as it was handed to the library).");
  command->add_option("text", options->text, "String to send")->required()->type_name("TEXT");
  CLI::Option* hex =
      command->add_flag("--hex", options->hex, "TEXT is pairs of hexadecimal digits: \"1B 45\"");
  CLI::Option* escaped = command->add_flag(
      "--escaped", options->escaped, "TEXT has escapes: \\n \\r \\t \\f \\e (escape) \\\\ \\xHH");
  command
      ->add_flag("--raw", options->raw,
                 "TEXT is in the library's own form: %FILE, $text with escapes, or digits")
      ->excludes(hex)
      ->excludes(escaped);
  hex->excludes(escaped);
  AddPrinterOptions(*command, options->to);
  command->add_flag("--append", options->append, "Add to the file that stands for the printer");
  command->callback([options, &session] { SendString(*options, session); });
}

}  // namespace tool
