#include "folder_list.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <vector>

namespace tool {
namespace {

struct File {
  std::string path;
  std::uint32_t size;
};

// Takes the files out of the list, which runs from the one found last to the first, and releases it.
std::vector<File> Files(ZeFoundFile* first) {
  std::vector<File> files;
  for (const ZeFoundFile* file = first; file != nullptr; file = file->next) {
    files.push_back({file->path, file->size});
  }
  ZeFonFindFree(first);
  std::reverse(files.begin(), files.end());
  return files;
}

std::string Table(const std::vector<File>& files) {
  std::ostringstream text;
  for (const File& file : files) {
    text << std::setw(10) << file.size << "  " << file.path << '\n';
  }
  text << "Files: " << files.size();
  return text.str();
}

Json Listing(const std::vector<File>& files) {
  Json listing = Json::array();
  for (const File& file : files) listing.push_back({{"path", file.path}, {"size", file.size}});
  return listing;
}

}  // namespace

void AddFolderOptions(CLI::App& command, FolderOptions& options) {
  command.add_option("directory", options.directory, "Folder")->required()->type_name("DIR");
  command.add_option("--limit", options.limit, "So many files at most")
      ->check(CLI::Range(1, 32767))
      ->type_name("N");
  command.add_flag("--recurse", options.recurse,
                   "Look through the folders within as well; what they hold is not listed");
}

Report ReportFolder(const std::string& command, const std::string& what,
                    const FolderOptions& options, const Search& search) {
  Report report;
  report.command = command;
  report.cannot = "list " + options.directory;
  report.fields = {{"directory", options.directory}};
  // The library has one answer for a folder without such files and for none.
  if (ZeFilExists(options.directory.c_str()) == 0) {
    report.result = ZE_FILE_NOT_FOUND;
    return report;
  }
  std::int16_t count = options.limit;
  const std::vector<File> files = Files(search(&count));
  report.done = Table(files);
  report.fields[what] = Listing(files);
  return report;
}

}  // namespace tool
