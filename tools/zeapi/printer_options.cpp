#include "printer_options.h"

#include "choice.h"

namespace tool {
namespace {

constexpr const char* kGroup = "Framing";

std::string CheckChannel(const std::string& text) {
  return text.size() == 1 ? "" : "a channel is one character";
}

}  // namespace

void AddPrinterOptions(CLI::App& command, PrinterOptions& options) {
  command.add_option("-p,--printer", options.printer, "Print queue, or a file for the job")
      ->required()
      ->type_name("NAME");
  command.add_flag("--pjl", options.pjl, "The printer understands PJL")->group(kGroup);
  command.add_flag("--bracket-k", options.bracketK, "The printer takes bracket-K commands")
      ->group(kGroup);
  command.add_option("--language", options.language, NamesOf(kLanguages))
      ->transform(OneOf(kLanguages))
      ->type_name("LANGUAGE")
      ->group(kGroup);
  command.add_option("--copies", options.copies, "Copies of a file; strings and requests go once")
      ->type_name("N")
      ->group(kGroup);
  command.add_option("--job", options.job, "Name of the job, also shown by a PJL printer")
      ->type_name("NAME")
      ->group(kGroup);
  command.add_option("--channel", options.channel, "Channel character of bracket-K printers")
      ->check(CLI::Validator(CheckChannel, ""))
      ->type_name("C")
      ->group(kGroup);
  command.add_option("--device-class", options.deviceClass, "Class of the printer's storage")
      ->type_name("N")
      ->group(kGroup);
  command.add_option("--bidi-port", options.bidiPort, "Port word for VELBCE.DLL")
      ->type_name("N")
      ->group(kGroup);
  command.add_option("--bidi-handle", options.bidiHandle, "Handle word; sends through VELBCE.DLL")
      ->type_name("N")
      ->group(kGroup);
}

ZeDestination ToDestination(const PrinterOptions& options) {
  ZeDestination destination = {};
  if (options.pjl) destination.flags |= ZE_FLAG_PJL;
  if (options.bracketK) destination.flags |= ZE_FLAG_BRACKET_K;
  destination.deviceClass = options.deviceClass;
  destination.language = options.language;
  destination.copies = options.copies;
  destination.bidiPort = options.bidiPort;
  destination.bidiHandle = options.bidiHandle;
  destination.jobName = options.job ? options.job->c_str() : nullptr;
  if (!options.channel.empty())
    destination.channel = static_cast<std::uint8_t>(options.channel.front());
  return destination;
}

}  // namespace tool
