// zeapi font list: the fonts of a folder.
#include "commands/font_family.h"

#include <algorithm>
#include <iomanip>
#include <limits>
#include <memory>
#include <sstream>

#include "folder_list.h"
#include "font_record.h"
#include "progress_bar.h"

namespace tool {
namespace {

constexpr std::uint32_t kAllTypes = 26;
constexpr std::uint32_t kAllKinds = 5;
constexpr std::chrono::milliseconds kPatience(1000);

struct ListOptions {
  FolderOptions folder;
  std::uint32_t type = kAllTypes;
  std::uint32_t kind = kAllKinds;
  std::uint32_t queryOption = 0;
  bool progress = false;
};

// The library hands its callback no value of ours.
ProgressBar* barInForce = nullptr;

void ZEAPI_CALL ShowProgress(const ZeFontInfo*, std::uint32_t percent) {
  if (barInForce != nullptr) barInForce->Show(percent);
}

ZeFoundFile* Find(const ListOptions& options, Session& session) {
  // For programs there is no bar, unless they ask for one.
  const bool draws = options.progress || !session.WantsJson();
  ProgressBar bar(session.Err(), options.progress ? std::chrono::milliseconds(0) : kPatience);
  barInForce = draws ? &bar : nullptr;
  std::uint16_t count = options.folder.limit;
  ZeFoundFile* found =
      ZeFonFind2(options.folder.directory.c_str(), &count, options.type, options.kind,
                 options.queryOption, options.folder.recurse ? 1 : 0, ShowProgress);
  barInForce = nullptr;
  return found;
}

const ZeFontInfo& RecordOf(const ZeFoundFile& file) {
  return *static_cast<const ZeFontInfo*>(file.info);
}

std::string Table(const FoundFiles& files) {
  std::ostringstream text;
  std::size_t widest = 0;
  for (const ZeFoundFile* file : files) {
    widest = std::max(widest, FormatName(RecordOf(*file).format).size());
  }
  for (const ZeFoundFile* file : files) {
    const ZeFontInfo& info = RecordOf(*file);
    text << std::setw(9) << std::right << file->size << "  " << std::left
         << std::setw(static_cast<int>(widest)) << FormatName(info.format) << "  " << std::setw(6)
         << info.symbolSet << info.description << "  " << file->path << '\n';
  }
  text << "Fonts: " << files.size();
  return text.str();
}

Json Listing(const FoundFiles& files) {
  Json fonts = Json::array();
  for (const ZeFoundFile* file : files) {
    const std::uint32_t size = file->size;  // not aligned in its record
    Json font = {{"path", file->path}, {"size", size}};
    font.update(RecordJson(RecordOf(*file)));
    fonts.push_back(font);
  }
  return fonts;
}

void List(const ListOptions& options, Session& session) {
  session.Finish(ReportFolder("font list", options.folder, [&](Report& report) {
    const FoundFiles files(Find(options, session));
    report.done = Table(files);
    report.fields["fonts"] = Listing(files);
  }));
}

}  // namespace

void AddFontList(CLI::App& family, Session& session) {
  const auto options = std::make_shared<ListOptions>();
  CLI::App* command = session.AddCommand(
      family, "list", "List the fonts of a folder",
      std::string("Of fonts with the same description the first is listed.\n"
                  "JSON: \"directory\", \"fonts\": each with \"path\", \"size\", ") +
          kRecordFields + ".");
  AddFolderOptions(*command, std::numeric_limits<std::uint16_t>::max(), options->folder);
  command
      ->add_option("--type", options->type,
                   "Fonts of this format only; 10 PCL, 12, 14, 16 and 27 parts of it, 26 all")
      ->check(CLI::Range(1, 28))
      ->type_name("N");
  command->add_option("--kind", options->kind, "Fonts of this kind only; 5 all")
      ->check(CLI::Range(1, 6))
      ->type_name("N");
  command
      ->add_option("--query-option", options->queryOption,
                   "Companion files that must be there: 2, 4, or 5 for 4 if there are any")
      ->type_name("N");
  command->add_flag("--progress", options->progress,
                    "Show at once how far it is, not only when it takes long");
  command->callback([options, &session] { List(*options, session); });
}

}  // namespace tool
