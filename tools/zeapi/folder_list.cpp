#include "folder_list.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace tool {

void AddFolderOptions(CLI::App& command, std::uint16_t most, FolderOptions& options) {
  command.add_option("directory", options.directory, "Folder")->required()->type_name("DIR");
  command.add_option("--limit", options.limit, "So many files at most")
      ->check(CLI::Range(1, int{most}))
      ->type_name("N");
  command.add_flag("--recurse", options.recurse,
                   "Look through the folders within as well; what they hold is not listed");
}

FoundFiles::FoundFiles(ZeFoundFile* first) : first_(first) {
  for (const ZeFoundFile* file = first; file != nullptr; file = file->next) files_.push_back(file);
  std::reverse(files_.begin(), files_.end());
}

Report ReportFolder(const std::string& command, const FolderOptions& options,
                    const std::function<void(Report&)>& tell) {
  Report report;
  report.command = command;
  report.cannot = "list " + options.directory;
  report.fields = {{"directory", options.directory}};
  // The library has one answer for a folder without such files and for none.
  if (ZeFilExists(options.directory.c_str()) == 0) {
    report.result = ZE_FILE_NOT_FOUND;
  } else {
    tell(report);
  }
  return report;
}

void TellFiles(const FoundFiles& files, const std::string& what, Report& report) {
  std::ostringstream text;
  Json listing = Json::array();
  for (const ZeFoundFile* file : files) {
    const std::uint32_t size = file->size;  // not aligned in its record
    text << std::setw(10) << size << "  " << file->path << '\n';
    listing.push_back({{"path", file->path}, {"size", size}});
  }
  text << "Files: " << files.size();
  report.done = text.str();
  report.fields[what] = listing;
}

}  // namespace tool
