// zeapi qsf: lists of option variables.
#include <cstdio>
#include <memory>

#include "choice.h"
#include "commands.h"
#include "ini_handle.h"

namespace tool {
namespace {

struct QsfOptions {
  std::string file;
  std::uint8_t type = 0;
  std::uint32_t block = 1;
  std::uint8_t model = 0;
  std::int32_t list = 0;
};

constexpr Choice kLists[] = {{"required", ZE_QSF_REQUIRED},
                             {"optional", ZE_QSF_OPTIONAL},
                             {"exclude", ZE_QSF_EXCLUDE},
                             {"order", ZE_QSF_ORDER}};

struct MemoryRelease {
  void operator()(void* block) const { ZeMemFree(block); }
};
using Memory = std::unique_ptr<void, MemoryRelease>;

void Block(const QsfOptions& options, Session& session) {
  Report report;
  report.command = "qsf block";
  report.cannot = "read block " + std::to_string(options.block) + " of " + options.file;
  report.fields = {{"file", options.file}, {"block", options.block}};
  void* handle = nullptr;
  report.result = ZeQsfOpen(options.file.c_str(), options.type, &handle);
  if (report.result == ZE_OK) {
    void* block = nullptr;
    std::uint16_t count = 0;
    report.result = ZeQsfGetVariables(handle, options.block, &block, &count);
    const Memory owner(block);
    ZeQsfClose(handle);
    report.done = "Block " + std::to_string(options.block) + " of " + options.file + " has " +
                  std::to_string(count) + " variables.";
    report.fields["count"] = count;
  }
  session.Finish(report);
}

void List(const QsfOptions& options, Session& session) {
  Report report;
  const std::string list = NameOf(kLists, options.list);
  report.command = "qsf list";
  report.cannot =
      "list the variables of model " + std::to_string(options.model) + " in " + options.file;
  report.fields = {{"file", options.file}, {"model", options.model}, {"list", list}};
  const IniHandle ini(ZeIniOpen2(options.file.c_str(), ZE_INI_READ));
  if (ini == nullptr) {
    report.result = ZE_OPEN_FAILED;
    return session.Finish(report);
  }
  std::uint16_t* variables = nullptr;
  std::uint16_t count = 0;
  report.result = ZeQsfIniGetSection(ini.get(), static_cast<std::uint32_t>(options.list),
                                     options.model, &variables, &count);
  const Memory owner(variables);
  const auto* bytes = reinterpret_cast<const unsigned char*>(variables);
  Json items = Json::array();
  for (std::size_t i = 0; i < count; ++i) {
    char text[8];
    std::snprintf(text, sizeof(text), "%02x%02x", bytes[2 * i], bytes[2 * i + 1]);
    report.done += (i == 0 ? "" : "\n") + std::string(text);
    items.push_back(text);
  }
  if (report.result == ZE_OK) report.fields["variables"] = items;
  session.Finish(report);
}

}  // namespace

void AddQsf(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("qsf", "Read lists of option variables");
  family->require_subcommand(1);
  auto options = std::make_shared<QsfOptions>();

  CLI::App* block = session.AddCommand(
      *family, "block", "Check a binary QSF file and count the variables of a block",
      "JSON: \"file\", \"block\", \"count\".\n"
      "Exit codes: 3 the file does not open, 44 another type, 29 no QSF header, 43 damaged,\n"
      "27 block outside the file.");
  block->add_option("file", options->file, "Binary QSF file")->required()->type_name("FILE");
  block->add_option("type", options->type, "File type, 0 to 255")->required()->type_name("TYPE");
  block->add_option("block", options->block, "1, 2 or 5")->required()->type_name("BLOCK");
  block->callback([options, &session] { Block(*options, session); });

  CLI::App* list =
      session.AddCommand(*family, "list", "List the variables of a printer model",
                         "JSON: \"file\", \"model\", \"list\", \"variables\" (hexadecimal).");
  list->add_option("file", options->file, "INI file")->required()->type_name("FILE");
  list->add_option("model", options->model, "Model, 0 to 255")->required()->type_name("MODEL");
  list->add_option("list", options->list, NamesOf(kLists))
      ->required()
      ->transform(OneOf(kLists))
      ->type_name("LIST");
  list->callback([options, &session] { List(*options, session); });
}

}  // namespace tool
