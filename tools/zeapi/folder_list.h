// Listing what a search of a folder found, where only paths and sizes are told.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "session.h"

namespace tool {

struct FolderOptions {
  std::string directory;
  std::int16_t limit = 0;
  bool recurse = false;
};

// Adds the folder and the options above. `options` must outlive `command`.
void AddFolderOptions(CLI::App& command, FolderOptions& options);

// Runs the search, which answers with a list of the library and takes the limit by a pointer, and
// reports its files under `what` ("demos") in the order in which they were found.
using Search = std::function<ZeFoundFile*(std::int16_t* count)>;
Report ReportFolder(const std::string& command, const std::string& what,
                    const FolderOptions& options, const Search& search);

}  // namespace tool
