#include "support/full_folder.h"

#include "platform/find.h"

namespace zeapi::testing {

std::map<std::string, FullFolder>& FullFolders() {
  static std::map<std::string, FullFolder> folders;
  return folders;
}

}  // namespace zeapi::testing

namespace zeapi::platform {

struct DirectorySearch::State {
  testing::FullFolder folder;
  std::size_t nextFolder = 0;
  int lastFile = 0;
};

DirectorySearch::DirectorySearch(const char* pattern) : state_(std::make_unique<State>()) {
  const auto folder = testing::FullFolders().find(pattern);
  if (folder != testing::FullFolders().end()) state_->folder = folder->second;
}

DirectorySearch::~DirectorySearch() = default;

bool DirectorySearch::Next(FoundEntry* entry) {
  constexpr std::uint32_t kDirectory = 16;
  constexpr std::uint32_t kArchive = 32;
  if (state_->nextFolder < state_->folder.folders.size()) {
    *entry = {state_->folder.folders[state_->nextFolder++], 0, kDirectory};
    return true;
  }
  if (state_->lastFile == state_->folder.files) return false;
  *entry = {std::to_string(++state_->lastFile), 0, kArchive};
  return true;
}

}  // namespace zeapi::platform
