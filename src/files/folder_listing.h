// What lies in one folder.
#pragma once

#include <string>
#include <string_view>

#include "platform/find.h"

namespace zeapi {

// Gives the entries of a folder in the order of the system, except those whose names begin with
// ".".
class FolderListing {
 public:
  // `folder` may end in a separator. One that cannot be searched has no entries.
  explicit FolderListing(std::string_view folder);

  // Goes on to the next entry; false when there is none.
  bool Next();

  // The entry: the folder, a separator, the name; valid until the next call.
  const std::string& path() const { return path_; }
  const platform::FoundEntry& entry() const { return entry_; }
  bool IsFolder() const;
  bool IsLink() const;  // to a folder: searches that go down leave it out

  // Length of the part of each path that is the folder with its separator.
  std::size_t RootLength() const { return rootLength_; }

 private:
  std::string path_;
  std::size_t rootLength_;
  platform::DirectorySearch search_;
  platform::FoundEntry entry_;
};

}  // namespace zeapi
