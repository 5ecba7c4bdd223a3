#include "files/find_files.h"

#include <string>

#include "base/text.h"
#include "files/folder_listing.h"
#include "platform/find.h"

namespace zeapi {
namespace {

// A folder that also is read-only, hidden or to be archived counts as a file: callers depend on it.
constexpr std::uint32_t kPlainDirectory = 16;

// A folder within: callers depend on "/" not ending the part that is kept.
std::string FolderWithin(const FolderListing& listing) {
  const std::string_view root = std::string_view(listing.path()).substr(0, listing.RootLength());
  const std::size_t backslash = root.rfind('\\');
  if (backslash == std::string_view::npos) return listing.path();
  return std::string(root.substr(0, backslash + 1)) + listing.entry().name;
}

}  // namespace

// NOLINTNEXTLINE(misc-no-recursion): the length of a path bounds the depth
FoundFiles FindFiles(const char* folder, std::uint32_t kind, bool recurse, const FileCheck& check,
                     std::int16_t* count) {
  const std::int16_t limit = *count > 0 ? *count : kMostFoundFiles;
  *count = 0;
  FoundFiles found;
  const platform::FolderNames names(folder);
  FolderListing listing(folder);
  while (listing.Next()) {
    if (listing.entry().attributes == kPlainDirectory) {
      if (!recurse) continue;
      const std::string within = FolderWithin(listing);
      if (!NameTooLong(within.c_str())) FindFiles(within.c_str(), kind, recurse, check, count);
      continue;
    }
    std::span<const std::byte> record;
    const std::string& path = listing.path();
    if (!FitsFoundFile(path) || !check(path.c_str(), &record)) continue;
    ZeFoundFile* file = AddFoundFile(path, kind, record, &found);
    if (file == nullptr) return nullptr;
    file->rootLength = static_cast<std::uint8_t>(listing.RootLength());
    file->size = listing.entry().size;
    if (*count < kMostFoundFiles) ++*count;
    if (*count >= limit) break;
  }
  return found;
}

}  // namespace zeapi
