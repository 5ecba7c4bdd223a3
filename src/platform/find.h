// Searching a directory by a pattern.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace zeapi::platform {

struct FoundEntry {
  std::string name;        // file name alone
  std::uint32_t size = 0;  // low 32 bits
  // Windows attribute bits: 1 read-only, 16 directory, 32 archive, 1024 a link to a directory
  std::uint32_t attributes = 0;
};

// One search, in the order of the file system on Windows and in the order of names elsewhere. "." and ".."
// are found where the pattern matches them.
class DirectorySearch {
 public:
  // `pattern` may hold the wildcards * and ? in its last component; "*.*" matches every name.
  explicit DirectorySearch(const char* pattern);
  ~DirectorySearch();
  DirectorySearch(const DirectorySearch&) = delete;
  DirectorySearch& operator=(const DirectorySearch&) = delete;

  // False when nothing (more) matches; `entry` is then left alone.
  bool Next(FoundEntry* entry);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// While one lives, the names of a folder need not be read again for each name that is looked up in
// it without regard to case; what is created there under another case meanwhile may stay unseen.
// Nothing to do on Windows. The inner one of two counts, and ends first.
class FolderNames {
 public:
  explicit FolderNames(const char* folder);
  ~FolderNames();
  FolderNames(const FolderNames&) = delete;
  FolderNames& operator=(const FolderNames&) = delete;

  struct State;

 private:
  std::unique_ptr<State> state_;
};

}  // namespace zeapi::platform
