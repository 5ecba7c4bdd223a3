// zeapi data: keyed printer data files.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

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

constexpr std::string_view kLetters = ZE_DAT_LETTERS;

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

// Calls `use` with each record from the first match of the key on, until it says no or none is
// left.
template <typename Use>
void ForEachRecord(const DataOptions& options, Report* report, Use use) {
  const int handle = ZeDatOpenFile(options.path.c_str(), 0, ZE_DAT_READ);
  if (handle < 0) {
    report->result = ResultOf(handle);
    return;
  }
  ZeDatRecord record = WithKey(options.key);
  int code = ZeDatGetFirstKey(handle, &record);
  while (code == ZE_DAT_OK && use(record)) code = ZeDatGetNextKey(handle, &record);
  ZeDatCloseFile(handle);
  report->result = code == ZE_DAT_END_OF_FILE ? static_cast<std::uint32_t>(ZE_OK) : ResultOf(code);
}

// As above, where no match is no failure: an empty file lists as nothing.
template <typename Use>
void ForAnyRecord(const DataOptions& options, Report* report, Use use) {
  ForEachRecord(options, report, use);
  if (report->result == ZE_KEY_NOT_FOUND) report->result = ZE_OK;
}

void Add(const ZeDatRecord& record, Report* report) {
  Json& records = report->fields["records"];
  report->done += (records.empty() ? "" : "\n") + ToText(record);
  records.push_back(ToJson(record));
}

Report Reading(const DataOptions& options) {
  Report report;
  report.cannot = "read " + options.path;
  report.fields["records"] = Json::array();
  return report;
}

Report ListRecords(const DataOptions& options) {
  Report report = Reading(options);
  ForAnyRecord(options, &report, [&](const ZeDatRecord& record) {
    Add(record, &report);
    return true;
  });
  return report;
}

Report FindRecord(const DataOptions& options) {
  Report report = Reading(options);
  report.cannot = "find " + options.key + " in " + options.path;
  ForEachRecord(options, &report, [&](const ZeDatRecord& record) {
    Add(record, &report);
    return false;
  });
  return report;
}

// The run of records with a key. Like ZeDatQueryCount(), but with more than its 16 bits.
Report CountKey(const DataOptions& options) {
  Report report;
  const std::string prefix = options.key.substr(0, sizeof(ZeDatRecord::szKey) - 1);
  std::uint64_t count = 0;
  ForAnyRecord(options, &report, [&](const ZeDatRecord& record) {
    const bool matches = std::string_view(record.szKey).starts_with(prefix);
    if (matches) ++count;
    return matches;
  });
  report.done = std::to_string(count);
  report.fields["count"] = count;
  return report;
}

// Place of a letter among those that are counted, in either case.
std::size_t PlaceOf(char letter) {
  const char upper =
      letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  return kLetters.find(upper);
}

// Like ZeDatQueryCounts(), but with more than its 16 bits.
Report CountLetters(const DataOptions& options) {
  Report report;
  std::uint64_t first[kLetters.size()] = {};
  std::uint64_t second[kLetters.size()] = {};
  ForAnyRecord(options, &report, [&](const ZeDatRecord& record) {
    const std::size_t place = PlaceOf(record.szKey[0]);
    if (place == std::string_view::npos) return true;
    ++first[place];
    const std::size_t next = PlaceOf(record.szKey[1]);
    if (kLetters[place] == 'S' && next != std::string_view::npos) ++second[next];
    return true;
  });
  std::string pairs;
  for (std::size_t i = 0; i < kLetters.size(); ++i) {
    const std::string letter(1, kLetters[i]);
    report.done += letter + " " + std::to_string(first[i]) + "\n";
    pairs += (pairs.empty() ? "S" : "\nS") + letter + " " + std::to_string(second[i]);
    report.fields["first"][letter] = first[i];
    report.fields["second"]["S" + letter] = second[i];
  }
  report.done += pairs;
  return report;
}

Report CountRecords(const DataOptions& options) {
  Report report = options.key.empty() ? CountLetters(options) : CountKey(options);
  report.cannot = "count the records of " + options.path;
  return report;
}

Report ListFiles(const DataOptions& options) {
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

struct DataQuery {
  const char* name;
  Report (*run)(const DataOptions&);
  const char* purpose;
  const char* fields;
};

constexpr DataQuery kDataQueries[] = {
    {"list", ListRecords, "List the records of a data file",
     "JSON: \"records\", each with \"key\", \"description\" and the other fields of the record."},
    {"find", FindRecord, "Show the first record whose key begins with KEY",
     "JSON: \"records\", one, as list has them. A key that is not there gives exit code 41."},
    {"count", CountRecords, "Count records by the letters of their keys, or those of one key",
     "JSON: \"first\" and \"second\" by letter, or \"count\" with a key."},
    {"files", ListFiles, "List the files of a directory that have a description",
     "JSON: \"files\", each with \"path\" and \"description\"."},
};

}  // namespace

void AddData(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("data", "Read keyed printer data files");
  family->require_subcommand(1);
  auto options = std::make_shared<DataOptions>();
  for (const DataQuery& query : kDataQueries) {
    CLI::App* command = session.AddCommand(*family, query.name, query.purpose, query.fields);
    command->add_option("path", options->path, query.run == ListFiles ? "Directory" : "Data file")
        ->required()
        ->type_name("PATH");
    if (query.run == FindRecord || query.run == CountRecords) {
      command->add_option("key", options->key, "Beginning of the key")
          ->required(query.run == FindRecord)
          ->type_name("KEY");
    } else if (query.run == ListFiles) {
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
