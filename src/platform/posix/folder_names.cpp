#include "platform/posix/folder_names.h"

#include <dirent.h>
#include <strings.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/find.h"
#include "platform/posix/path.h"

namespace zeapi::platform {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

struct FolderNames::State {
  struct Name {
    std::string text;
    std::size_t place;  // in the order of the folder
  };

  std::string folder;       // host path, ends in "/"; empty when there is none
  std::string written;      // the same as it was spelled, which is as long
  std::vector<Name> names;  // by their text without case, then by their place
  State* outer = nullptr;
};

namespace {

using Name = FolderNames::State::Name;

thread_local FolderNames::State* innermost = nullptr;

bool TextBefore(const Name& a, const char* b) { return strcasecmp(a.text.c_str(), b) < 0; }

bool KeptBefore(const Name& a, const Name& b) {
  const int order = strcasecmp(a.text.c_str(), b.text.c_str());
  return order != 0 ? order < 0 : a.place < b.place;
}

}  // namespace

FolderNames::FolderNames(const char* folder) : state_(std::make_unique<State>()) {
  state_->outer = innermost;
  HostPath host;
  if (ToHostPathAsWritten(folder, &host)) {
    state_->written = host.text;
    if (state_->written.back() != '/') state_->written += '/';
    ToHostPath(folder, &host);
    state_->folder = host.text;
    if (state_->folder.back() != '/') state_->folder += '/';
    const std::unique_ptr<DIR, CloseFolder> open(opendir(host.text));
    while (const dirent* entry = open == nullptr ? nullptr : readdir(open.get())) {
      state_->names.push_back({entry->d_name, state_->names.size()});
    }
    std::sort(state_->names.begin(), state_->names.end(), KeptBefore);
  }
  innermost = state_.get();
}

FolderNames::~FolderNames() { innermost = state_->outer; }

std::size_t CorrectKeptFolder(char* path) {
  if (innermost == nullptr || !std::string_view(path).starts_with(innermost->written)) return 0;
  const std::string& folder = innermost->folder;
  std::copy(folder.begin(), folder.end(), path);
  return folder.size();
}

KeptName MatchKeptName(const char* folder, std::size_t folderLength, char* name) {
  if (innermost == nullptr || innermost->folder.empty() ||
      innermost->folder != std::string_view(folder, folderLength)) {
    return KeptName::kUnknown;
  }
  const auto& names = innermost->names;
  const auto match =
      std::lower_bound(names.begin(), names.end(), static_cast<const char*>(name), TextBefore);
  if (match == names.end() || strcasecmp(match->text.c_str(), name) != 0) return KeptName::kMissing;
  std::memcpy(name, match->text.data(), match->text.size());
  return KeptName::kMatched;
}

}  // namespace zeapi::platform
