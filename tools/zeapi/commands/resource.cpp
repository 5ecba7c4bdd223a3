// zeapi resource: a request to the storage of a printer.
#include <memory>
#include <optional>

#include "choice.h"
#include "commands.h"
#include "printer_options.h"

namespace tool {
namespace {

struct ResourceOptions {
  PrinterOptions to;
  std::int32_t request = 0;
  std::optional<std::int32_t> device;
};

bool NeedsDevice(std::int32_t request) {
  return request == ZE_RESOURCE_TARGET_DEVICE || request == ZE_RESOURCE_FORMAT_DEVICE;
}

void Resource(const ResourceOptions& options, Session& session) {
  if (NeedsDevice(options.request) && !options.device) throw CLI::RequiredError("--device");
  // The library checks the device of every request, used or not.
  const std::int32_t device = options.device.value_or(ZE_DEVICE_RAM);
  const ZeDestination destination = ToDestination(options.to);
  const std::string request = NameOf(kRequests, options.request);
  Report report;
  report.command = "resource";
  report.result = ZeGenResource(options.request, options.to.printer.c_str(), &destination, device);
  report.done = "Sent the request \"" + request + "\" to " + options.to.printer + ".";
  report.cannot = "send the request \"" + request + "\" to " + options.to.printer;
  report.fields = {{"request", request}, {"printer", options.to.printer}};
  if (options.device) report.fields["device"] = NameOf(kDevices, device);
  session.Finish(report);
}

}  // namespace

void AddResource(CLI::App& program, Session& session) {
  auto options = std::make_shared<ResourceOptions>();
  CLI::App* command =
      session.AddCommand(program, "resource", "Choose, format or list the storage of a printer",
                         "ram        downloads go to working memory from now on\n"
                         "target     downloads go to the device from now on\n"
                         "format     formats the device: everything on it is lost\n"
                         "directory  prints the list of what is stored\n"
                         "JSON: \"request\", \"printer\", and \"device\" where one was given.");
  command->add_option("request", options->request, NamesOf(kRequests))
      ->required()
      ->transform(OneOf(kRequests))
      ->type_name("REQUEST");
  command->add_option("--device", options->device, NamesOf(kDevices))
      ->transform(OneOf(kDevices))
      ->type_name("DEVICE");
  AddPrinterOptions(*command, options->to);
  command->callback([options, &session] { Resource(*options, session); });
}

}  // namespace tool
