// zeapi url: web addresses of support topics.
#include <array>
#include <memory>

#include "choice.h"
#include "commands.h"
#include "ini_handle.h"

namespace tool {
namespace {

struct UrlOptions {
  std::int32_t topic = 0;
  std::int32_t printer = -1;
  std::int32_t language = 0;
  std::string ini;
  std::uint32_t family = 0;
  std::uint32_t model = 0;
  std::uint16_t languageId = 0;
};

constexpr Choice kTopics[] = {
    {"drivers", ZE_WEB_DRIVERS},           {"firmware", ZE_WEB_FIRMWARE},
    {"homepage", ZE_WEB_HOMEPAGE},         {"quorview", ZE_WEB_QUORVIEW},
    {"registration", ZE_WEB_REGISTRATION}, {"supplies", ZE_WEB_SUPPLIES},
    {"techsupport", ZE_WEB_TECHSUPPORT},   {"publications", ZE_WEB_PUBLICATIONS},
};

// As much as an INI file can make an address.
using Address = std::array<char, 8192>;

void Finish(Report* report, const Address& address, Session& session) {
  report->cannot = "build the address";
  report->done = address.data();
  if (report->result == ZE_OK) report->fields["url"] = address.data();
  session.Finish(*report);
}

void Path(const UrlOptions& options, Session& session) {
  Report report;
  report.command = "url path";
  Address address = {};
  const IniHandle ini(options.ini.empty() ? nullptr : ZeIniOpen2(options.ini.c_str(), ZE_INI_READ));
  if (!options.ini.empty() && ini == nullptr) {
    report.result = ZE_OPEN_FAILED;
  } else {
    report.result = ZeWebGetURL(options.printer, options.topic, options.language, address.data(),
                                static_cast<std::uint32_t>(address.size()), ini.get());
    if (report.result == ZE_DEFAULT_USED) report.result = ZE_OK;
  }
  Finish(&report, address, session);
}

void Query(const UrlOptions& options, Session& session) {
  Report report;
  report.command = "url query";
  Address address = {};
  report.result = ZeWebGetCGIURL(options.family, options.model,
                                 static_cast<std::uint32_t>(options.topic), options.languageId,
                                 address.data(), static_cast<std::uint32_t>(address.size()));
  Finish(&report, address, session);
}

void AddTopic(CLI::App& command, UrlOptions& options) {
  command.add_option("topic", options.topic, NamesOf(kTopics))
      ->required()
      ->transform(OneOf(kTopics))
      ->type_name("TOPIC");
}

}  // namespace

void AddUrl(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("url", "Build web addresses of support topics");
  family->require_subcommand(1);
  auto options = std::make_shared<UrlOptions>();

  CLI::App* path =
      session.AddCommand(*family, "path", "Build an address of path segments",
                         "JSON: \"url\". A printer without a number gives exit code 44.");
  AddTopic(*path, *options);
  path->add_option("--printer", options->printer, "Printer code; -1 for none")->type_name("N");
  path->add_option("--language", options->language, "Language number")->type_name("N");
  path->add_option("--ini", options->ini, "INI file that overrides parts")->type_name("FILE");
  path->callback([options, &session] { Path(*options, session); });

  CLI::App* query =
      session.AddCommand(*family, "query", "Build an address with a query", "JSON: \"url\".");
  AddTopic(*query, *options);
  query->add_option("--family", options->family, "Printer family")->type_name("N");
  query->add_option("--model", options->model, "Printer model")->type_name("N");
  query->add_option("--language-id", options->languageId, "Windows language identifier")
      ->type_name("N");
  query->callback([options, &session] { Query(*options, session); });
}

}  // namespace tool
