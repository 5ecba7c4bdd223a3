// zeapi record: the records that printers send about their options and finished jobs.
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "commands.h"

namespace tool {
namespace {

using Bytes = std::vector<unsigned char>;

struct ReleaseRecord {
  void operator()(ZeOptionInfo* info) const { ZeFreeOptionInfo(info); }
  void operator()(ZeJobAccount* account) const { ZeFreeJobAccount(account); }
};

// The record in a file, as long as it says itself; empty and a result when it is not.
std::uint32_t ReadRecord(const std::string& path, Bytes* record) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return ZE_FILE_NOT_FOUND;
  record->assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  if (file.bad()) return ZE_READ_FAILED;
  if (record->size() < 2) return ZE_BAD_FORMAT;
  const std::size_t size = 2 + (std::size_t{(*record)[0]} << 8 | (*record)[1]);
  return record->size() < size ? ZE_BAD_FORMAT : ZE_OK;
}

Json TextOrNull(const char* text) { return text != nullptr ? Json(text) : Json(nullptr); }

std::string Quoted(const char* text) {
  return text != nullptr ? "\"" + std::string(text) + "\"" : std::string("none");
}

void ReportItem(const ZeOptionItem& item, Report* report) {
  report->fields["items"].push_back({{"value1", int{item.value1}},
                                     {"value5", int{item.value5}},
                                     {"text6", TextOrNull(item.text6)}});
  report->done += "\n  1: " + std::to_string(item.value1) + ", 5: " + std::to_string(item.value5) +
                  ", 6: " + Quoted(item.text6);
}

void ReportGroup(const ZeOptionGroup& group, Report* report) {
  const std::vector<int> values(group.values, group.values + group.valueCount);
  report->fields["groups"].push_back(
      {{"text1", TextOrNull(group.text1)}, {"text2", TextOrNull(group.text2)}, {"values", values}});
  report->done += "\n  1: " + Quoted(group.text1) + ", 2: " + Quoted(group.text2) + ", 3:";
  for (const int value : values) report->done += " " + std::to_string(value);
}

void ReportOptions(const Bytes& record, Report* report) {
  const std::unique_ptr<ZeOptionInfo, ReleaseRecord> info(ZeParseOptionInfo(record.data()));
  if (info == nullptr) {
    report->result = ZE_OUT_OF_MEMORY;
    return;
  }
  report->fields["items"] = Json::array();
  report->fields["groups"] = Json::array();
  report->done = "Items: " + std::to_string(info->itemCount);
  for (std::uint32_t i = 0; i < info->itemCount; ++i) ReportItem(info->items[i], report);
  report->done += "\nGroups: " + std::to_string(info->groupCount);
  for (std::uint32_t i = 0; i < info->groupCount; ++i) ReportGroup(info->groups[i], report);
}

// Fields of an accounting record by their names, in the order of the record.
class FieldList {
 public:
  explicit FieldList(Report* report, const char* name)
      : report_(report), json_(report->fields[name] = Json::object()) {
    report_->done += std::string(report_->done.empty() ? "" : "\n") + name + ":";
  }
  void Add(const char* name, std::int32_t value) {
    json_[name] = value;
    report_->done += std::string("\n  ") + name + " " + std::to_string(value);
  }
  void Add(const char* name, const char* text) {
    json_[name] = text;
    report_->done += std::string("\n  ") + name + " \"" + text + "\"";
  }

 private:
  Report* report_;
  Json& json_;
};

#define ADD(field) list.Add(#field, record.field)

void ReportJob(const ZeJobAccountJob& record, Report* report) {
  FieldList list(report, "job");
  ADD(value1_1);
  ADD(value1_2);
  ADD(value1_3);
  ADD(value1_4);
  ADD(value1_5);
  ADD(value1_6);
  ADD(text1_7);
  ADD(value1_8);
  ADD(value1_9);
  ADD(value1_10);
  ADD(text1_11);
  ADD(text2_1);
  ADD(text2_2);
  ADD(text2_3);
  ADD(value2_4);
  ADD(value2_5);
  ADD(value2_6);
  ADD(value2_7);
  ADD(value2_8);
  ADD(value2_9);
  ADD(value2_10);
}

void ReportTotals(const ZeJobAccountTotals& record, Report* report) {
  FieldList list(report, "totals");
  ADD(value1_1);
  ADD(value2_1);
  ADD(value2_2);
  ADD(value2_3);
  ADD(value2_4);
  ADD(value2_5);
  ADD(text2_6);
  ADD(value2_7);
  ADD(text2_8);
  ADD(value3_1);
  ADD(value3_2);
  ADD(value3_3);
  ADD(value3_4);
  ADD(value3_5);
}

#undef ADD

void ReportAccount(const Bytes& record, Report* report) {
  const std::unique_ptr<ZeJobAccount, ReleaseRecord> account(
      ZeParseJobAccountingAlert(record.data()));
  if (account == nullptr) {
    report->result = ZE_OUT_OF_MEMORY;
    return;
  }
  report->fields["job"] = nullptr;
  report->fields["totals"] = nullptr;
  if (account->job != nullptr) ReportJob(*account->job, report);
  if (account->totals != nullptr) ReportTotals(*account->totals, report);
  if (report->done.empty()) report->done = "The record holds neither a job nor totals.";
}

using Parse = void (*)(const Bytes&, Report*);

void AddRecordCommand(CLI::App& family, Session& session, const char* name, const char* purpose,
                      const char* fields, Parse parse) {
  CLI::App* command = session.AddCommand(family, name, purpose, fields);
  auto path = std::make_shared<std::string>();
  command->add_option("file", *path, "The record as the printer sent it")
      ->required()
      ->type_name("FILE");
  command->callback([path, name, parse, &session] {
    Report report;
    report.command = std::string("record ") + name;
    report.cannot = "read " + *path;
    report.fields = {{"path", *path}};
    Bytes record;
    report.result = ReadRecord(*path, &record);
    if (report.result == ZE_OK) parse(record, &report);
    session.Finish(report);
  });
}

}  // namespace

void AddRecord(CLI::App& program, Session& session) {
  CLI::App* family =
      program.add_subcommand("record", "Show what printers report about options and jobs");
  family->require_subcommand(1);
  AddRecordCommand(*family, session, "options", "Show an option record",
                   "A file that is shorter than its first two bytes say gives exit code 27.\n"
                   "Numbers before a colon are the record's element identifiers.\n"
                   "JSON: \"path\", \"items\" [{\"value1\", \"value5\", \"text6\"}], \"groups\" "
                   "[{\"text1\", \"text2\", \"values\"}].",
                   ReportOptions);
  AddRecordCommand(*family, session, "account", "Show a job accounting record",
                   "A file that is shorter than its first two bytes say gives exit code 27.\n"
                   "JSON: \"path\", \"job\" and \"totals\", each null or an object with the fields "
                   "of the library's record.",
                   ReportAccount);
}

}  // namespace tool
