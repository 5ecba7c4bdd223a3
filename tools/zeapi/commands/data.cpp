// zeapi data: keyed printer data files.
#include <algorithm>
#include <cstring>
#include <memory>

#include "choice.h"
#include "commands.h"

namespace tool {
namespace {

struct DataOptions {
  std::string path;
  std::string key;
  std::int32_t kind = 0;
};

constexpr Choice kKinds[] = {
    {"configuration", ZE_DAT_CONFIGURATION_FILES}, {"setup", ZE_DAT_SETUP_FILES}, {"all", 0}};

// The family's codes in those that the program reports by.
std::uint32_t ResultOf(int code) {
  switch (code) {
    case ZE_DAT_INVALID:
      return ZE_FILE_NOT_FOUND;
    case ZE_DAT_FAILED:
      return ZE_BAD_FORMAT;
    case ZE_DAT_OPEN_FAILED:
      return ZE_OPEN_FAILED;
    case ZE_DAT_NOT_FOUND:
      return ZE_KEY_NOT_FOUND;
    default:
      return code < 0 ? ZE_INVALID_ARGUMENT : ZE_OK;
  }
}

ZeDatRecord WithKey(const std::string& key) {
  ZeDatRecord record = {};
  std::copy_n(key.begin(), std::min(key.size(), sizeof(record.szKey)), record.szKey);
  return record;
}

Json ToJson(const ZeDatRecord& record) {
  const double low = record.dVarRangeLo;
  const double high = record.dVarRangeHi;
  const double increment = record.dVarIncrement;
  return {{"key", record.szKey},
          {"description", record.szDescr},
          {"emulation", record.szEmulation},
          {"command", record.szCommand},
          {"format", record.szVarFormat},
          {"low", low},
          {"high", high},
          {"increment", increment},
          {"duration", record.szDuration}};
}

std::string ToText(const ZeDatRecord& record) {
  return std::string(record.szKey) + "  " + record.szDescr + " (" + record.szEmulation +
         "): " + record.szCommand;
}

// Every record from the first match of the key on; `all` false stops at that one.
Report Records(const DataOptions& options, bool all) {
  Report report;
  report.cannot = "read " + options.path;
  const int handle = ZeDatOpenFile(options.path.c_str(), 0, ZE_DAT_READ);
  if (handle < 0) {
    report.result = ResultOf(handle);
    return report;
  }
  ZeDatRecord record = WithKey(options.key);
  int code = ZeDatGetFirstKey(handle, &record);
  Json records = Json::array();
  while (code == ZE_DAT_OK) {
    report.done += (records.empty() ? "" : "\n") + ToText(record);
    records.push_back(ToJson(record));
    if (!all) break;
    code = ZeDatGetNextKey(handle, &record);
  }
  ZeDatCloseFile(handle);
  // An empty file lists as nothing.
  const bool ended = code == ZE_DAT_END_OF_FILE || (all && code == ZE_DAT_NOT_FOUND);
  report.result = ended ? static_cast<std::uint32_t>(ZE_OK) : ResultOf(code);
  report.fields["records"] = records;
  return report;
}

Report List(const DataOptions& options) { return Records(options, true); }
Report Find(const DataOptions& options) { return Records(options, false); }

Report Count(const DataOptions& options) {
  Report report;
  report.cannot = "count the records of " + options.path;
  if (!options.key.empty()) {
    ZeDatRecord record = WithKey(options.key);
    const int count =
        ZeDatQueryCount(options.path.c_str(), reinterpret_cast<char*>(&record), ZE_DAT_READ);
    report.result = ResultOf(std::min(count, 0));
    report.done = std::to_string(count);
    report.fields["count"] = count;
    return report;
  }
  ZeDatCounts counts = {};
  report.result = ResultOf(ZeDatQueryCounts(options.path.c_str(), &counts, ZE_DAT_READ));
  for (std::size_t i = 0; i < std::size(counts.first); ++i) {
    const std::string letter(1, "AFGPST"[i]);
    report.done += letter + " " + std::to_string(counts.first[i]) + "\n";
    report.fields["first"][letter] = counts.first[i];
    report.fields["second"]["S" + letter] = counts.second[i];
  }
  for (const auto& [letters, count] : report.fields["second"].items()) {
    report.done += letters + " " + count.dump() + (letters == "ST" ? "" : "\n");
  }
  return report;
}

Report Files(const DataOptions& options) {
  Report report;
  report.cannot = "list " + options.path;
  std::uint16_t count = 0;
  ZeDatFileInfo* list =
      ZeDatQueryFiles(options.path.c_str(), static_cast<std::uint32_t>(options.kind), &count);
  Json files = Json::array();
  for (const ZeDatFileInfo* file = list; file != nullptr; file = file->next) {
    report.done += (files.empty() ? "" : "\n") + std::string(file->path) + ": " + file->description;
    files.push_back({{"path", file->path}, {"description", file->description}});
  }
  ZeDatQueryFilesFree(list);
  report.fields["files"] = files;
  return report;
}

struct Query {
  const char* name;
  Report (*run)(const DataOptions&);
  const char* purpose;
  const char* fields;
};

constexpr Query kQueries[] = {
    {"list", List, "List the records of a data file", "JSON: \"records\"."},
    {"find", Find, "Show the first record whose key begins with KEY",
     "JSON: \"records\", one. A key that is not there gives exit code 41."},
    {"count", Count, "Count records by the letters of their keys, or those of one key",
     "JSON: \"first\" and \"second\" by letter, or \"count\" with a key."},
    {"files", Files, "List the files of a directory that have a description",
     "JSON: \"files\", each with \"path\" and \"description\"."},
};

}  // namespace

void AddData(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("data", "Read keyed printer data files");
  family->require_subcommand(1);
  auto options = std::make_shared<DataOptions>();
  for (const Query& query : kQueries) {
    CLI::App* command = session.AddCommand(*family, query.name, query.purpose, query.fields);
    command->add_option("path", options->path, "Data file, or directory of files")
        ->required()
        ->type_name("PATH");
    if (query.run == Find || query.run == Count) {
      command->add_option("key", options->key, "Beginning of the key")
          ->required(query.run == Find)
          ->type_name("KEY");
    } else if (query.run == Files) {
      command->add_option("--kind", options->kind, NamesOf(kKinds))
          ->transform(OneOf(kKinds))
          ->type_name("KIND");
    }
    command->callback([options, &query, &session] {
      Report report = query.run(*options);
      report.command = std::string("data ") + query.name;
      session.Finish(report);
    });
  }
}

}  // namespace tool
