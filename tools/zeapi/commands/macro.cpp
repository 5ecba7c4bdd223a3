// zeapi macro: macros and overlays.
#include <limits>
#include <memory>
#include <optional>

#include "choice.h"
#include "commands.h"
#include "folder_list.h"
#include "printer_options.h"

namespace tool {
namespace {

constexpr Choice kModes[] = {
    {"once", ZE_MACRO_PRINT_ONCE},
    {"store", ZE_MACRO_STORE},
    {"raw", ZE_MACRO_RAW},
};

struct MacroOptions {
  std::string file;
  PrinterOptions to;
  std::uint16_t id = 0;
  std::string name;
  std::optional<std::uint16_t> chain;
  bool fixUp = false;
  std::optional<std::uint32_t> limit;
  bool demo = false;
  std::int32_t mode = ZE_MACRO_STORE;
  std::int32_t device = ZE_DEVICE_RAM;
  bool unwrapped = false;
};

// Macros have no language 0; where none is named they are PCL.
ZeDestination DestinationOf(const MacroOptions& options) {
  ZeDestination destination = ToDestination(options.to);
  if (destination.language == ZE_LANGUAGE_NONE) destination.language = ZE_LANGUAGE_PCL;
  destination.resourceId = options.id;
  return destination;
}

ZeMacroInfo RecordOf(const MacroOptions& options) {
  ZeMacroInfo macro = {};
  if (options.demo) macro.macroFlags |= ZE_MACRO_DEMO;
  if (options.fixUp) macro.macroFlags |= ZE_MACRO_FIX_UP;
  if (options.chain) macro.macroFlags |= ZE_MACRO_CHAIN;
  if (options.limit) macro.macroFlags |= ZE_MACRO_FIX_UP_LIMIT;
  options.name.copy(macro.macroName, sizeof(macro.macroName) - 1);
  macro.chainId = options.chain.value_or(0);
  macro.macroDevice = options.device;
  macro.fixupLimit = options.limit.value_or(0);
  return macro;
}

Report SentReport(const char* command, const MacroOptions& options, std::uint32_t result) {
  Report report;
  report.command = command;
  report.result = result;
  report.done = "Sent " + options.file + " to " + options.to.printer + ".";
  report.cannot = "send " + options.file;
  report.fields = {{"file", options.file}, {"printer", options.to.printer}, {"id", options.id}};
  return report;
}

void Create(const MacroOptions& options, Session& session) {
  const ZeDestination destination = DestinationOf(options);
  ZeMacroInfo macro = RecordOf(options);
  session.Finish(SentReport(
      "macro create", options,
      ZeMacCreate(options.file.c_str(), options.to.printer.c_str(), &destination, &macro)));
}

void Send(const MacroOptions& options, Session& session) {
  const ZeDestination destination = DestinationOf(options);
  ZeMacroInfo macro = RecordOf(options);
  // PCL XL is never wrapped.
  const bool wrap = !options.unwrapped && destination.language != ZE_LANGUAGE_PCLXL;
  Report report =
      SentReport("macro send", options,
                 ZeMacDownload(options.file.c_str(), options.to.printer.c_str(), &destination,
                               &macro, options.mode, wrap ? ZE_MACRO_WRAPPED : ZE_MACRO_UNWRAPPED));
  report.fields["mode"] = NameOf(kModes, options.mode);
  report.fields["device"] = NameOf(kDevices, options.device);
  session.Finish(report);
}

void Control(const std::string& verb, const MacroOptions& options, Session& session) {
  const ZeDestination destination = DestinationOf(options);
  const char* printer = options.to.printer.c_str();
  Report report;
  report.command = "macro " + verb;
  report.result = verb == "delete" ? ZeMacDelete(printer, &destination)
                                   : ZeMacActivate(printer, &destination, verb == "enable" ? 1 : 0);
  const std::string what = verb + " macro " + std::to_string(options.id);
  report.done = "Asked " + options.to.printer + " to " + what + ".";
  report.cannot = what;
  report.fields = {{"printer", options.to.printer}, {"id", options.id}};
  session.Finish(report);
}

void Check(const MacroOptions& options, Session& session) {
  const ZeDestination destination = DestinationOf(options);
  ZeMacroInfo macro = RecordOf(options);
  Report report;
  report.command = "macro check";
  report.result = ZeMacValidate(options.file.c_str(), &destination, &macro);
  report.done = options.file + " may be stored as a macro.";
  report.cannot = "store " + options.file + " as a macro";
  report.fields = {{"file", options.file}};
  session.Finish(report);
}

void AddLanguage(CLI::App& command, MacroOptions& options) {
  command.add_option("--language", options.to.language, "pcl by default: " + NamesOf(kLanguages))
      ->transform(OneOf(kLanguages))
      ->type_name("LANGUAGE");
}

void AddFile(CLI::App& command, MacroOptions& options) {
  command.add_option("file", options.file, "Macro file")->required()->type_name("FILE");
  command.add_flag("--fixup", options.fixUp,
                   "Drop what must not stand in a macro, or make a stream of a PCL XL page");
  command
      .add_option("--fixup-options", options.limit,
                  "Fix up with these option bits; without them 831 is in force")
      ->type_name("N");
}

void AddRecord(CLI::App& command, MacroOptions& options) {
  AddFile(command, options);
  command.add_option("--id", options.id, "ID of the macro in the printer")->type_name("N");
  command.add_option("--name", options.name, "Its name; the file's in upper case by default")
      ->type_name("NAME");
  command.add_option("--chain", options.chain, "PCL: ID of a macro that it calls first")
      ->type_name("N");
  AddPrinterOptions(command, options.to);
}

void AddCreate(CLI::App& family, Session& session) {
  const auto options = std::make_shared<MacroOptions>();
  CLI::App* command = session.AddCommand(
      family, "create", "Send a file as a macro definition, without the frame of a job",
      "JSON: \"file\", \"printer\", \"id\".");
  AddRecord(*command, *options);
  command->callback([options, &session] { Create(*options, session); });
}

void AddSendOfMacro(CLI::App& family, Session& session) {
  const auto options = std::make_shared<MacroOptions>();
  CLI::App* command =
      session.AddCommand(family, "send", "Send a file as a macro, to be stored or used once",
                         "once   print one page with the macro as its overlay\n"
                         "store  keep it on the device, in memory by default\n"
                         "raw    send the file as it is\n"
                         "JSON: \"file\", \"printer\", \"id\", \"mode\", \"device\".");
  AddRecord(*command, *options);
  command->add_option("--mode", options->mode, NamesOf(kModes))
      ->transform(OneOf(kModes))
      ->type_name("MODE");
  command->add_option("--device", options->device, NamesOf(kDevices))
      ->transform(OneOf(kDevices))
      ->type_name("DEVICE");
  command->add_flag("--unwrapped", options->unwrapped,
                    "The file brings its own definition commands");
  command->add_flag("--demo", options->demo, "PostScript: store it with the extension .demo");
  command->callback([options, &session] { Send(*options, session); });
}

void AddControl(CLI::App& family, const std::string& verb, const std::string& purpose,
                Session& session) {
  const auto options = std::make_shared<MacroOptions>();
  CLI::App* command = session.AddCommand(family, verb, purpose, "JSON: \"printer\", \"id\".");
  command->add_option("--id", options->id, "ID of the macro in the printer")
      ->required()
      ->type_name("N");
  AddPrinterOptions(*command, options->to);
  command->callback([verb, options, &session] { Control(verb, *options, session); });
}

void AddCheck(CLI::App& family, Session& session) {
  const auto options = std::make_shared<MacroOptions>();
  CLI::App* command = session.AddCommand(
      family, "check", "Say whether a file may be stored as a macro",
      "Writes the work file fixup.mac in the current directory; for PCL XL none, with\n"
      "--fixup in.str, temp.str, out.str and fixup.str.\n"
      "JSON: \"file\". Exit code 27, PCL XL: 46: it may not.");
  AddFile(*command, *options);
  AddLanguage(*command, *options);
  command->callback([options, &session] { Check(*options, session); });
}

struct MacroListOptions {
  FolderOptions folder;
  MacroOptions macro;
};

void AddListOfMacros(CLI::App& family, Session& session) {
  const auto options = std::make_shared<MacroListOptions>();
  CLI::App* command =
      session.AddCommand(family, "list", "List the files of a folder that may be stored as macros",
                         "Writes the work file fixup.mac in the current directory.\n"
                         "JSON: \"directory\", \"macros\": each with \"path\", \"size\".");
  AddFolderOptions(*command, std::numeric_limits<std::int16_t>::max(), options->folder);
  AddLanguage(*command, options->macro);
  command->callback([options, &session] {
    const auto kind = static_cast<std::uint32_t>(DestinationOf(options->macro).language);
    const FolderOptions& folder = options->folder;
    session.Finish(ReportFolder("macro list", folder, [&](Report& report) {
      auto count = static_cast<std::int16_t>(folder.limit);
      const FoundFiles files(
          ZeMacFind(folder.directory.c_str(), &count, kind, 0, folder.recurse ? 1 : 0));
      TellFiles(files, "macros", report);
    }));
  });
}

}  // namespace

void AddMacro(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("macro", "Create, send, switch and check macros");
  family->require_subcommand(1);
  AddCreate(*family, session);
  AddSendOfMacro(*family, session);
  AddControl(*family, "enable", "Switch a stored macro on as automatic overlay", session);
  AddControl(*family, "disable", "Switch a stored macro off as automatic overlay", session);
  AddControl(*family, "delete", "Delete a stored PCL macro", session);
  AddCheck(*family, session);
  AddListOfMacros(*family, session);
}

}  // namespace tool
