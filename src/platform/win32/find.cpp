#include "platform/find.h"

#include <windows.h>

namespace zeapi::platform {

struct DirectorySearch::State {
  HANDLE search = INVALID_HANDLE_VALUE;
  WIN32_FIND_DATAA entry = {};
  bool pending = false;  // `entry` has not been handed out yet
};

DirectorySearch::DirectorySearch(const char* pattern) : state_(std::make_unique<State>()) {
  state_->search = FindFirstFileA(pattern, &state_->entry);
  state_->pending = state_->search != INVALID_HANDLE_VALUE;
}

DirectorySearch::~DirectorySearch() {
  if (state_->search != INVALID_HANDLE_VALUE) FindClose(state_->search);
}

bool DirectorySearch::Next(FoundEntry* entry) {
  if (state_->search == INVALID_HANDLE_VALUE) return false;
  if (!state_->pending && !FindNextFileA(state_->search, &state_->entry)) return false;
  state_->pending = false;
  entry->name = state_->entry.cFileName;
  entry->size = state_->entry.nFileSizeLow;
  entry->attributes = state_->entry.dwFileAttributes;
  return true;
}

}  // namespace zeapi::platform
