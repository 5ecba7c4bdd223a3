// zeapi info: the version of the library, its capability words, the connection of a printer.
#include <memory>
#include <optional>

#include "commands.h"

namespace tool {
namespace {

struct InfoOptions {
  std::optional<std::uint32_t> connection;
};

std::string WordsText(const ZeApiInfo& info) {
  std::string text;
  for (std::size_t i = 0; i < std::size(info.words); ++i) {
    if (info.words[i] != 0) text += " " + std::to_string(i) + "=" + std::to_string(info.words[i]);
  }
  return text;
}

void Info(const InfoOptions& options, Session& session) {
  ZeApiInfo info = {};
  ZeGenQueryApiInfo(&info);
  const unsigned version = info.words[0];
  const unsigned wordSize = info.words[1];

  Report report;
  report.command = "info";
  report.fields = {
      {"version", version}, {"wordSize", wordSize}, {"words", std::to_array(info.words)}};
  report.done = "Interface version: " + std::to_string(version / 100) + "." +
                std::to_string(version % 100) + "\nWord size: " + std::to_string(wordSize) +
                " bits\nCapability words that are not 0:" + WordsText(info);
  if (options.connection) {
    const std::uint32_t type = ZeNetGetType(*options.connection);
    report.fields["connection"] = {{"printer", *options.connection}, {"type", type}};
    report.done += "\nConnection of printer " + std::to_string(*options.connection) + ": " +
                   (type == 0 ? "not known" : "type " + std::to_string(type));
  }
  session.Finish(report);
}

}  // namespace

void AddInfo(CLI::App& program, Session& session) {
  auto options = std::make_shared<InfoOptions>();
  CLI::App* command =
      session.AddCommand(program, "info", "Show the library's version and capabilities",
                         "JSON: \"version\" (930 is 9.30), \"wordSize\" in bits, \"words\" (64 "
                         "numbers);\nwith --connection also \"connection\" {\"printer\", \"type\": "
                         "2048, 32, 4, 2, or 0 when it is not known}.");
  command
      ->add_option("--connection", options->connection,
                   "Also ask VELBCE.DLL how the printer with this number is connected")
      ->type_name("N");
  command->callback([options, &session] { Info(*options, session); });
}

}  // namespace tool
