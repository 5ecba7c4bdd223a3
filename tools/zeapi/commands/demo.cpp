// zeapi demo: demonstration pages that a printer stores.
#include <limits>
#include <memory>

#include "choice.h"
#include "commands.h"
#include "folder_list.h"
#include "printer_options.h"

namespace tool {
namespace {

constexpr Choice kMethods[] = {
    {"postscript", ZE_DEMO_POSTSCRIPT}, {"pjl-file", ZE_DEMO_PJL_FILE},
    {"bracket-d", ZE_DEMO_BRACKET_D},   {"pjl-demo", ZE_DEMO_PJL_DEMO_FILE},
    {"nothing", ZE_DEMO_NOTHING},
};

struct DemoOptions {
  std::string file;
  PrinterOptions to;
  std::int32_t method = ZE_DEMO_POSTSCRIPT;
  std::int32_t device = ZE_DEVICE_FLASH1;
  std::string name;
  std::uint16_t id = 0;
  std::uint8_t slot = 0;
  bool option = false;
};

void Send(const DemoOptions& options, Session& session) {
  ZeDestination destination = ToDestination(options.to);
  destination.resourceId = options.id;
  ZeDemoInfo demo = {};
  demo.options = options.option ? 1 : 0;
  demo.method = options.method;
  demo.device = options.device;
  demo.slot = options.slot;
  options.name.copy(demo.name, sizeof(demo.name) - 1);
  Report report;
  report.command = "demo send";
  report.result =
      ZeDemDownload(options.file.c_str(), options.to.printer.c_str(), &destination, &demo);
  report.done = "Sent " + options.file + " to " + options.to.printer + ".";
  report.cannot = "send " + options.file;
  report.fields = {{"file", options.file},
                   {"printer", options.to.printer},
                   {"method", NameOf(kMethods, options.method)},
                   {"device", NameOf(kDevices, options.device)}};
  session.Finish(report);
}

void AddSendOfDemo(CLI::App& family, Session& session) {
  const auto options = std::make_shared<DemoOptions>();
  CLI::App* command = session.AddCommand(
      family, "send", "Store a demonstration page on a printer",
      "postscript  a file, written by the PostScript interpreter\n"
      "pjl-file    a file, written with PJL file commands\n"
      "bracket-d   a block with a bracket-D header: --id, --slot and --option go there\n"
      "pjl-demo    a file, written with PJL demo commands\n"
      "nothing     only the frame of the job\n"
      "The method decides the language of the job.\n"
      "JSON: \"file\", \"printer\", \"method\", \"device\".");
  command->add_option("file", options->file, "Demo file")->required()->type_name("FILE");
  command->add_option("--method", options->method, NamesOf(kMethods))
      ->transform(OneOf(kMethods))
      ->type_name("METHOD");
  command->add_option("--device", options->device, "Where it is stored: flash1 to disk2")
      ->transform(OneOf(kDevices))
      ->type_name("DEVICE");
  command->add_option("--name", options->name, "Stored name; the file's in upper case by default")
      ->type_name("NAME");
  command->add_option("--id", options->id, "Resource ID")->type_name("N");
  command->add_option("--slot", options->slot, "Slot")->type_name("N");
  command->add_flag("--option", options->option, "Set the option bit");
  AddPrinterOptions(*command, options->to);
  command->callback([options, &session] { Send(*options, session); });
}

void AddListOfDemos(CLI::App& family, Session& session) {
  const auto options = std::make_shared<FolderOptions>();
  CLI::App* command = session.AddCommand(
      family, "list", "List the files of a folder that may be demos",
      "All files but system files.\nJSON: \"directory\", \"demos\": each with \"path\", \"size\".");
  AddFolderOptions(*command, std::numeric_limits<std::int16_t>::max(), *options);
  command->callback([options, &session] {
    session.Finish(ReportFolder("demo list", *options, [&](Report& report) {
      auto count = static_cast<std::int16_t>(options->limit);
      const FoundFiles files(
          ZeDemFind(options->directory.c_str(), &count, 0, options->recurse ? 1 : 0));
      TellFiles(files, "demos", report);
    }));
  });
}

}  // namespace

void AddDemo(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("demo", "Store and list demonstration pages");
  family->require_subcommand(1);
  AddSendOfDemo(*family, session);
  AddListOfDemos(*family, session);
}

}  // namespace tool
