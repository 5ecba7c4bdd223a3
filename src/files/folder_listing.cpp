#include "files/folder_listing.h"

#include "files/split_path.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kDirectory = 16;  // attribute bits
constexpr std::uint32_t kLink = 1024;

}  // namespace

FolderListing::FolderListing(std::string_view folder)
    : path_(EndedBySeparator(folder)),
      rootLength_(path_.size()),
      search_((path_ + "*.*").c_str()) {}

bool FolderListing::Next() {
  do {
    if (!search_.Next(&entry_)) return false;
  } while (entry_.name.starts_with('.'));
  path_.resize(rootLength_);
  path_ += entry_.name;
  return true;
}

bool FolderListing::IsFolder() const { return (entry_.attributes & kDirectory) != 0; }

bool FolderListing::IsLink() const { return (entry_.attributes & kLink) != 0; }

}  // namespace zeapi
