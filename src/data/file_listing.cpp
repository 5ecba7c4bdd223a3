#include "data/file_listing.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "base/c_heap.h"
#include "base/stream.h"
#include "files/regular_file.h"
#include "files/split_path.h"
#include "platform/find.h"

namespace zeapi {
namespace {

constexpr std::string_view kMark = "#!";
constexpr std::size_t kLongestFirstLine = 4096;

// The list is handed out, so it is on the C heap.
class FileList {
 public:
  FileList() = default;
  ~FileList() { DatQueryFilesFree(first_); }
  FileList(const FileList&) = delete;
  FileList& operator=(const FileList&) = delete;

  void Append(CHeapPtr<ZeDatFileInfo> entry) {
    ZeDatFileInfo* added = entry.release();
    if (last_ == nullptr) {
      first_ = added;
    } else {
      last_->next = added;
    }
    last_ = added;
    if (count_ < UINT16_MAX) ++count_;
  }

  std::uint16_t Count() const { return count_; }

  ZeDatFileInfo* Release() { return std::exchange(first_, nullptr); }

 private:
  ZeDatFileInfo* first_ = nullptr;
  ZeDatFileInfo* last_ = nullptr;
  std::uint16_t count_ = 0;
};

const char* PatternOf(std::uint32_t kind) {
  switch (kind) {
    case ZE_DAT_CONFIGURATION_FILES:
      return "*.CFG";
    case ZE_DAT_SETUP_FILES:
      return "*.PSS";
    default:
      return "*.*";
  }
}

// Stores what follows the mark in the file's first line. False when that is nothing.
bool ReadDescription(const char* path, char* description, std::size_t size) {
  const Stream stream(OpenRegularFile(path, "r"));
  if (stream == nullptr) return false;
  std::array<char, kLongestFirstLine> room;
  std::string_view line(room.data(), std::fread(room.data(), 1, room.size(), stream.get()));
  line = line.substr(0, line.find_first_of(std::string_view("\n\0", 2)));
  const std::size_t mark = line.find(kMark);
  if (mark == std::string_view::npos) return false;
  const std::string_view text = line.substr(mark + kMark.size(), size - 1);
  std::copy(text.begin(), text.end(), description);
  return !text.empty();
}

void ListFiles(const char* directory, std::uint32_t kind, FileList* list) {
  const std::string folder = EndedByBackslash(directory[0] == '\0' ? "." : directory);
  const platform::FolderNames names(folder.c_str());
  platform::DirectorySearch search((folder + PatternOf(kind)).c_str());
  for (platform::FoundEntry found; search.Next(&found);) {
    if (found.name.starts_with('.')) continue;
    const std::string path = folder + found.name;
    CHeapPtr<ZeDatFileInfo> entry(
        static_cast<ZeDatFileInfo*>(std::calloc(1, sizeof(ZeDatFileInfo))));
    if (entry == nullptr) return;
    if (path.size() >= sizeof(entry->path)) continue;
    std::copy(path.begin(), path.end(), entry->path);
    if (!ReadDescription(entry->path, entry->description, sizeof(entry->description))) continue;
    list->Append(std::move(entry));
  }
}

}  // namespace

ZeDatFileInfo* DatQueryFiles(const char* directory, std::uint32_t kind, std::uint16_t* count) {
  if (directory == nullptr || count == nullptr) return nullptr;
  FileList list;
  try {
    ListFiles(directory, kind, &list);
  } catch (const std::bad_alloc&) {
    // What was found so far is the answer.
  }
  *count = list.Count();
  return list.Release();
}

void DatQueryFilesFree(ZeDatFileInfo* list) {
  while (list != nullptr) {
    ZeDatFileInfo* next = list->next;
    std::free(list);
    list = next;
  }
}

}  // namespace zeapi
