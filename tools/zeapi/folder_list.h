// Listing what a search of a folder found.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "session.h"

namespace tool {

struct FolderOptions {
  std::string directory;
  std::uint16_t limit = 0;  // 0: what the library takes by itself
  bool recurse = false;
};

// Adds the folder and the options above, with a limit up to `most`. `options` must outlive `command`.
void AddFolderOptions(CLI::App& command, std::uint16_t most, FolderOptions& options);

// A list of the library, in the order in which its files were found; released at the end.
class FoundFiles {
 public:
  explicit FoundFiles(ZeFoundFile* first);
  ~FoundFiles() { ZeFonFindFree(first_); }
  FoundFiles(const FoundFiles&) = delete;
  FoundFiles& operator=(const FoundFiles&) = delete;

  std::size_t size() const { return files_.size(); }
  auto begin() const { return files_.begin(); }
  auto end() const { return files_.end(); }

 private:
  ZeFoundFile* first_;  // the one found last: the list runs backwards
  std::vector<const ZeFoundFile*> files_;
};

// A report of a folder, if there is one: `tell` adds to it what a search finds there.
Report ReportFolder(const std::string& command, const FolderOptions& options,
                    const std::function<void(Report&)>& tell);

// Tells paths and sizes, as `what` ("demos").
void TellFiles(const FoundFiles& files, const std::string& what, Report& report);

}  // namespace tool
