// zeapi ini: values of INI files.
#include <memory>
#include <optional>

#include "commands.h"
#include "ini_handle.h"

namespace tool {
namespace {

struct IniOptions {
  std::string file;
  std::string section;
  std::optional<std::string> key;
  std::optional<std::string> value;
};

const char* OrNull(const std::optional<std::string>& text) {
  return text ? text->c_str() : nullptr;
}

Report Get(const IniOptions& options, const IniHandle& ini) {
  Report report;
  const IniValue value = ReadValue(ini.get(), options.section, *options.key, OrNull(options.value));
  const bool isDefault = value.result == ZE_DEFAULT_USED;
  report.result = isDefault ? static_cast<std::uint32_t>(ZE_OK) : value.result;
  report.done = value.text;
  if (report.result == ZE_OK) {
    report.fields["value"] = value.text;
    report.fields["default"] = isDefault;
  }
  return report;
}

Report List(const IniOptions& options, const IniHandle& ini) {
  Report report;
  // No line has this key, so the answer tells whether there is such a section.
  report.result = ReadValue(ini.get(), options.section, "\n", nullptr).result;
  if (report.result == ZE_SECTION_NOT_FOUND) return report;
  report.result = ZE_OK;
  Json lines = Json::array();
  for (const char* line = ZeIniRead(ini.get(), options.section.c_str(), nullptr); *line != '\0';
       line = ZeIniRead(ini.get(), nullptr, nullptr)) {
    report.done += (lines.empty() ? "" : "\n") + std::string(line);
    lines.push_back(line);
  }
  report.fields["lines"] = lines;
  return report;
}

Report Edited(std::uint32_t done, IniHandle ini, const std::string& file) {
  Report report;
  if (done == 0) report.result = ZE_OUT_OF_MEMORY;
  if (ZeIniClose(ini.release()) == 0) report.result = ZE_WRITE_FAILED;
  report.done = "Wrote " + file + ".";
  return report;
}

Report Set(const IniOptions& options, IniHandle ini) {
  const std::uint32_t done =
      ZeIniWrite(ini.get(), options.section.c_str(), OrNull(options.key), OrNull(options.value));
  return Edited(done, std::move(ini), options.file);
}

Report Add(const IniOptions& options, IniHandle ini) {
  const std::uint32_t done =
      ZeIniWriteAll(ini.get(), options.section.c_str(), OrNull(options.key), OrNull(options.value));
  return Edited(done, std::move(ini), options.file);
}

Report Delete(const IniOptions& options, IniHandle ini) {
  const std::uint32_t done =
      ZeIniDelete(ini.get(), options.section.c_str(), OrNull(options.key), OrNull(options.value));
  return Edited(done, std::move(ini), options.file);
}

struct Action {
  const char* name;
  std::uint32_t mode;
  Report (*run)(const IniOptions&, IniHandle);
  const char* purpose;
  const char* fields;
};

constexpr Action kActions[] = {
    {"get", ZE_INI_READ, [](const IniOptions& options, IniHandle ini) { return Get(options, ini); },
     "Show the value of a key",
     "JSON: \"value\", \"default\" (whether it was the one given).\n"
     "A key that is missing gives exit code 41, a section 45."},
    {"list", ZE_INI_READ,
     [](const IniOptions& options, IniHandle ini) { return List(options, ini); },
     "Show the lines of a section", "JSON: \"lines\"."},
    {"set", ZE_INI_APPEND, Set, "Set a key; file, section and key are made where they are missing",
     "Only lines up to the section's first empty one are looked at."},
    {"add", ZE_INI_APPEND, Add, "Add a value to a key that has several",
     "Nothing is added when the key has this value already."},
    {"delete", ZE_INI_UPDATE, Delete, "Delete a key's first line, or without a key a header",
     "Without KEY the section's lines stay, in the section above. With VALUE the first line that\n"
     "has both is deleted."},
};

void Run(const Action& action, const IniOptions& options, Session& session) {
  IniHandle ini(ZeIniOpen2(options.file.c_str(), action.mode));
  Report report;
  if (ini == nullptr) {
    report.result = ZE_OPEN_FAILED;
  } else {
    report = action.run(options, std::move(ini));
  }
  report.command = std::string("ini ") + action.name;
  report.cannot = std::string(action.name) + " in " + options.file;
  Json fields = {{"file", options.file}, {"section", options.section}};
  if (options.key) fields["key"] = *options.key;
  fields.update(report.fields);
  report.fields = fields;
  session.Finish(report);
}

}  // namespace

void AddIni(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("ini", "Read and change INI files");
  family->require_subcommand(1);
  auto options = std::make_shared<IniOptions>();
  for (const Action& action : kActions) {
    CLI::App* command = session.AddCommand(*family, action.name, action.purpose, action.fields);
    const std::string name = action.name;
    command->add_option("file", options->file, "INI file")->required()->type_name("FILE");
    command->add_option("section", options->section, "Section, without brackets")
        ->required()
        ->type_name("SECTION");
    if (name != "list") {
      command->add_option("key", options->key, "Key")->required(name != "delete")->type_name("KEY");
    }
    if (name == "get") {
      command->add_option("--default", options->value, "What to show where there is no such key")
          ->type_name("TEXT");
    } else if (name != "list") {
      command->add_option("value", options->value, "Value")
          ->required(name != "delete")
          ->type_name("VALUE");
    }
    command->callback([options, &action, &session] { Run(action, *options, session); });
  }
}

}  // namespace tool
