// zeapi file: the library's file utilities.
#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "commands.h"
#include "line_edit.h"

namespace tool {
namespace {

struct FileOptions {
  std::string path;
  std::string destination;
  std::uint16_t skip = 0;
  LineEdit edit;
};

Report ReportOn(const char* command, const FileOptions& options) {
  Report report;
  report.command = std::string("file ") + command;
  report.fields = {{"path", options.path}};
  return report;
}

Report Exists(const FileOptions& options) {
  Report report = ReportOn("exists", options);
  const bool exists = ZeFilExists(options.path.c_str()) != 0;
  report.result = exists ? ZE_OK : ZE_FILE_NOT_FOUND;
  report.done = options.path + " exists.";
  report.cannot = "find " + options.path;
  report.fields["exists"] = exists;
  return report;
}

// The library has one answer for an empty file and for none; the two are told apart here, but for
// a name with wildcards.
Report Size(const FileOptions& options) {
  Report report = ReportOn("size", options);
  const std::uint32_t size = ZeFilQuerySize(options.path.c_str());
  const bool hasWildcards = options.path.find_first_of("*?") != std::string::npos;
  if (size == 0 && !hasWildcards && ZeFilExists(options.path.c_str()) == 0)
    report.result = ZE_FILE_NOT_FOUND;
  report.done = std::to_string(size);
  report.cannot = "measure " + options.path;
  report.fields["size"] = size;
  return report;
}

Report Copy(const FileOptions& options) {
  Report report = ReportOn("copy", options);
  report.result = ZeFilCopy(options.path.c_str(), options.destination.c_str());
  report.done = "Copied " + options.path + " to " + options.destination + ".";
  report.cannot = "copy " + options.path + " to " + options.destination;
  report.fields["destination"] = options.destination;
  return report;
}

Report Backup(const FileOptions& options) {
  Report report = ReportOn("backup", options);
  std::array<char, ZE_MAX_NAME + 1> name = {};
  report.result = ZeFilBackup(options.path.c_str(), name.data());
  report.done = "Backed up " + options.path + " as " + name.data() + ".";
  report.cannot = "back up " + options.path;
  if (report.result == ZE_OK) report.fields["backup"] = name.data();
  return report;
}

Report Checksum(const FileOptions& options) {
  Report report = ReportOn("checksum", options);
  std::uint16_t checksum = 0;
  report.result = ZeFilChecksum(options.path.c_str(), 0, options.skip, &checksum);
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), "%u (0x%04X)", checksum, checksum);
  report.done = text.data();
  report.cannot = "checksum " + options.path;
  if (report.result == ZE_OK) report.fields["checksum"] = checksum;
  return report;
}

Report MakePath(const FileOptions& options) {
  Report report = ReportOn("make-path", options);
  // The list of what was made is at most as long as the path.
  std::string created(options.path.size() + 1, '\0');
  report.result = ZeFilMakePath(options.path.c_str(), created.data());
  created.resize(created.find('\0'));
  report.done = created.empty() ? "Nothing was missing." : "Made " + created + ".";
  report.cannot = "make " + options.path;
  report.fields["created"] = created;
  return report;
}

Report Split(const FileOptions& options) {
  Report report = ReportOn("split", options);
  std::vector<char> part(options.path.size() + 1);
  const std::string directory = ZeStrCpyPath(part.data(), options.path.c_str());
  const std::string file = ZeStrCpyFile(part.data(), options.path.c_str());
  report.done = "Directory: " + directory + "\nFile: " + file;
  report.fields["directory"] = directory;
  report.fields["file"] = file;
  return report;
}

// The library hands its callback a 32-bit value, which has no room for a pointer.
LineEdit* editInForce = nullptr;

std::uint32_t ZEAPI_CALL EditInForce(char* line, std::uint32_t) {
  EditLine(*editInForce, line);
  return 0;
}

Report Modify(const FileOptions& options) {
  LineEdit edit = options.edit;
  if (edit.drop.empty() && edit.find.empty()) throw CLI::RequiredError("--drop or --find");
  Report report = ReportOn("modify", options);
  editInForce = &edit;
  report.result = ZeFilModify(options.path.c_str(), 0, EditInForce);
  editInForce = nullptr;
  report.done = "Lines changed: " + std::to_string(edit.changed) +
                ", dropped: " + std::to_string(edit.dropped) +
                ", left because they would be too long: " + std::to_string(edit.tooLong);
  report.cannot = "modify " + options.path;
  report.fields["changed"] = edit.changed;
  report.fields["dropped"] = edit.dropped;
  report.fields["tooLong"] = edit.tooLong;
  return report;
}

struct Utility {
  const char* name;
  Report (*run)(const FileOptions&);
  const char* purpose;
  const char* fields;
};

constexpr Utility kUtilities[] = {
    {"exists", Exists, "Say whether a file exists and can be read",
     "JSON: \"path\", \"exists\". A file that does not exist gives exit code 2."},
    {"size", Size, "Show the size of a file, or of the first that matches * and ?",
     "JSON: \"path\", \"size\" in bytes."},
    {"copy", Copy, "Copy a file over another", "JSON: \"path\", \"destination\"."},
    {"backup", Backup, "Copy a file to the first free name .001 to .998 beside it",
     "JSON: \"path\", \"backup\" (the name chosen)."},
    {"checksum", Checksum, "Show the 16-bit checksum of a file", "JSON: \"path\", \"checksum\"."},
    {"make-path", MakePath, "Make every missing directory of a path",
     "PATH begins with a drive or a server: c:\\a\\b, \\\\server\\share\\a. On other systems than "
     "Windows\ndrive x: is the directory x in the one that ZEAPI_DRIVES names.\n"
     "JSON: \"path\", \"created\" (each directory made, after a \"\\\")."},
    {"split", Split, "Show directory and file name of a path, in upper case",
     "JSON: \"path\", \"directory\", \"file\"."},
    {"modify", Modify, "Rewrite a text file line by line",
     "JSON: \"path\", \"changed\", \"dropped\", \"tooLong\" (numbers of lines)."},
};

void AddModifyOptions(CLI::App& command, LineEdit& edit) {
  command.add_option("--drop", edit.drop, "Drop the lines that hold TEXT")->type_name("TEXT");
  CLI::Option* find =
      command.add_option("--find", edit.find, "Replace TEXT wherever it stands")->type_name("TEXT");
  command.add_option("--replace", edit.replace, "What replaces it; nothing by default")
      ->needs(find)
      ->type_name("TEXT");
}

}  // namespace

void AddFile(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("file", "Examine, copy and change files");
  family->require_subcommand(1);
  auto options = std::make_shared<FileOptions>();
  for (const Utility& utility : kUtilities) {
    CLI::App* command = session.AddCommand(*family, utility.name, utility.purpose, utility.fields);
    command->add_option("path", options->path, "File or path")->required()->type_name("PATH");
    if (utility.run == Copy) {
      command->add_option("destination", options->destination, "Where to copy it")
          ->required()
          ->type_name("DESTINATION");
    } else if (utility.run == Checksum) {
      command->add_option("--skip", options->skip, "Leave out the word with this number, from 1")
          ->type_name("N");
    } else if (utility.run == Modify) {
      AddModifyOptions(*command, options->edit);
    }
    command->callback([options, &utility, &session] { session.Finish(utility.run(*options)); });
  }
}

}  // namespace tool
