// zeapi panel: what panel configuration files say.
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include "commands.h"

namespace tool {
namespace {

struct PanelOptions {
  std::int16_t panel = 0;
  std::int16_t item = 0;  // control or page
  std::int16_t subIndex = 0;
  std::optional<std::string> directory;
};

constexpr std::int16_t kMissing = -2;

std::string Hexadecimal(unsigned value) {
  char text[16];
  std::snprintf(text, sizeof(text), "%04x", value);
  return text;
}

// Answers with a list, one item a line for people.
void Finish(const Json& items, const char* name, Report* report) {
  for (const Json& item : items) {
    if (!report->done.empty()) report->done += '\n';
    report->done += item.is_string() ? item.get<std::string>() : item.dump();
  }
  report->fields[name] = items;
}

void Spin(void* panel, const PanelOptions& options, Report* report) {
  std::int32_t minimum = 0;
  std::int32_t maximum = 0;
  std::int32_t third = 0;
  ZeOpcGetSpinControlLimits(panel, options.item, &minimum, &maximum, &third);
  report->done =
      std::to_string(minimum) + " " + std::to_string(maximum) + " " + std::to_string(third);
  report->fields.update({{"minimum", minimum}, {"maximum", maximum}, {"third", third}});
}

void Texts(void* panel, const PanelOptions& options, Report* report) {
  const std::int16_t bytes = ZeOpcGetTextListing(panel, options.item, options.subIndex, nullptr, 0);
  if (bytes < 0) {
    report->result = bytes == kMissing ? ZE_KEY_NOT_FOUND : ZE_OUT_OF_MEMORY;
    return;
  }
  std::vector<std::uint16_t> texts(static_cast<std::size_t>(bytes) / 2);
  ZeOpcGetTextListing(panel, options.item, options.subIndex, texts.data(), bytes);
  Finish(texts, "texts", report);
}

void EditLength(void* panel, const PanelOptions& options, Report* report) {
  const std::int16_t length = ZeOpcGetMaxEditLength(panel, options.item);
  report->done = std::to_string(length);
  report->fields["length"] = length;
}

void Defaults(void* panel, const PanelOptions& options, Report* report) {
  constexpr std::size_t kRecord = 6;
  const std::int16_t bytes = ZeOpcGetPageDefaults(panel, options.item, nullptr, 0);
  if (bytes < 0) {
    report->result = bytes == kMissing ? ZE_KEY_NOT_FOUND : ZE_BAD_FORMAT;
    return;
  }
  std::vector<char> records(static_cast<std::size_t>(bytes));
  if (ZeOpcGetPageDefaults(panel, options.item, records.data(), bytes) < 0) {
    report->result = ZE_BAD_FORMAT;
    return;
  }
  // What the file leaves out is left alone, so it shows as what differs in a second answer.
  std::vector<char> others(records.size(), '\xFF');
  ZeOpcGetPageDefaults(panel, options.item, others.data(), bytes);
  Json items = Json::array();
  for (std::size_t at = 0; at + kRecord <= records.size(); at += kRecord) {
    std::uint16_t control = 0;
    if (std::memcmp(&records[at], &others[at], sizeof(control)) != 0) break;
    std::memcpy(&control, &records[at], sizeof(control));
    Json item = {{"control", control}, {"default", nullptr}};
    std::string shown = "none";
    if (std::memcmp(&records[at], &others[at], kRecord) == 0) {
      std::int32_t setting = 0;
      std::memcpy(&setting, &records[at + sizeof(control)], sizeof(setting));
      item["default"] = setting;
      shown = std::to_string(setting);
    }
    report->done += (items.empty() ? "" : "\n") + std::to_string(control) + " " + shown;
    items.push_back(item);
  }
  report->fields["defaults"] = items;
}

void Variables(void* panel, const PanelOptions& options, Report* report) {
  constexpr std::int32_t kRoom = 4000;  // more than the longest value lists
  std::vector<unsigned char> bytes(kRoom);
  const std::int16_t count = ZeOpcGetPageOmVars(panel, options.item, bytes.data(), kRoom);
  if (count < 0) {
    report->result = count == kMissing ? ZE_KEY_NOT_FOUND : ZE_BAD_FORMAT;
    return;
  }
  Json items = Json::array();
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    items.push_back(Hexadecimal(bytes[2 * i] * 256U + bytes[2 * i + 1]));
  }
  Finish(items, "variables", report);
}

void FileName(void*, const PanelOptions& options, Report* report) {
  char name[32];
  ZeOpcGetFileName(options.panel, name);
  report->done = name;
  report->fields["file"] = name;
}

struct PanelQuery {
  const char* name;
  const char* item;  // what is asked for; null for nothing
  void (*run)(void*, const PanelOptions&, Report*);
  const char* purpose;
  const char* fields;
};

constexpr PanelQuery kPanelQueries[] = {
    {"file", nullptr, FileName, "Show the name of a panel's file", "JSON: \"file\"."},
    {"spin", "CONTROL", Spin, "Show the limits of a spin control",
     "JSON: \"minimum\", \"maximum\", \"third\"."},
    {"texts", "CONTROL", Texts, "List the text identifiers of a drop-down list",
     "JSON: \"texts\". A list that is missing gives exit code 41."},
    {"edit-length", "CONTROL", EditLength, "Show the maximum length of an edit field",
     "JSON: \"length\"."},
    {"defaults", "PAGE", Defaults, "List the controls of a page and their defaults",
     "JSON: \"defaults\", each with \"control\" and \"default\" (null when the file has none).\n"
     "A page that is missing gives exit code 41."},
    {"variables", "PAGE", Variables, "List the option variables that a page sets",
     "JSON: \"variables\", in hexadecimal. A page that is missing gives exit code 41."},
};

void Run(const PanelQuery& query, const PanelOptions& options, Session& session) {
  Report report;
  report.command = std::string("panel ") + query.name;
  report.cannot = "read panel " + std::to_string(options.panel);
  report.fields = {{"panel", options.panel}};
  if (query.item == nullptr) {
    query.run(nullptr, options, &report);
  } else {
    const char* directory = options.directory ? options.directory->c_str() : nullptr;
    void* panel = ZeOpcRegisterCfg(options.panel, directory);
    if (panel == nullptr) {
      report.result = ZE_OPEN_FAILED;
    } else {
      query.run(panel, options, &report);
      ZeOpcUnregisterCfg(panel);
    }
  }
  session.Finish(report);
}

}  // namespace

void AddPanel(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("panel", "Read panel configuration files (opcNNN.cfg)");
  family->require_subcommand(1);
  auto options = std::make_shared<PanelOptions>();
  for (const PanelQuery& query : kPanelQueries) {
    CLI::App* command = session.AddCommand(*family, query.name, query.purpose, query.fields);
    command->add_option("panel", options->panel, "Panel identifier")
        ->required()
        ->type_name("PANEL");
    if (query.item != nullptr) {
      command->add_option("item", options->item, "Number of the control or page")
          ->required()
          ->type_name(query.item);
      command->add_option("--directory", options->directory, "Where the file is")
          ->type_name("PATH");
    }
    if (query.run == Texts) {
      command->add_option("--sub", options->subIndex, "Sub-index of the list")->type_name("N");
    }
    command->callback([options, &query, &session] { Run(query, *options, session); });
  }
}

}  // namespace tool
