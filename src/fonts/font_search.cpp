#include "fonts/font_search.h"

#include <cstring>
#include <functional>
#include <new>
#include <set>
#include <string>
#include <string_view>

#include "base/text.h"
#include "files/file_utilities.h"
#include "files/find_files.h"
#include "files/folder_listing.h"
#include "files/split_path.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"
#include "fonts/glue_file.h"
#include "fonts/pcl_font.h"
#include "fonts/query_info.h"
#include "platform/find.h"

namespace zeapi {
namespace {

// One font's record. Owns the cartridge until the record is listed.
class WorkRecord {
 public:
  WorkRecord() = default;
  WorkRecord(const WorkRecord&) = delete;
  WorkRecord& operator=(const WorkRecord&) = delete;
  ~WorkRecord() { FreeCartridge(info.cartridge); }

  ZeFontInfo info = {};
};

bool IsSubfolder(const FolderListing& listing) {
  return listing.IsFolder() && !listing.IsLink() && !NameTooLong(listing.path().c_str());
}

// The search of one folder.
class FolderSearch {
 public:
  FolderSearch(const char* folder, FontSearch* search, std::uint16_t* count)
      : folder_(folder), search_(search), count_(count) {}

  // NOLINTNEXTLINE(misc-no-recursion): the length of a path bounds the depth
  FoundFiles Run() {
    limit_ = *count_ == 0 ? std::uint16_t{kMostFoundFiles} : *count_;
    *count_ = 0;
    try {
      const platform::FolderNames names(folder_);
      if (ReadGlue()) ReadFolder();
    } catch (const std::bad_alloc&) {  // the search ends with what it has
    }
    return std::move(found_);
  }

 private:
  // Each of these is false when the search of the folder is at its end.
  bool ReadGlue();
  bool ReadFolder();
  bool VisitFile(const std::string& path);
  bool Visit(const char* path, const GlueEntry* glue);

  bool FindMetrics(const char* path, const GlueEntry* glue, ZeFontInfo* info) const;
  bool List(const char* path, WorkRecord* record);
  void Report(const ZeFontInfo* font) const;

  const char* folder_;
  FontSearch* search_;
  std::uint16_t* count_;
  std::uint16_t limit_ = 0;
  FoundFiles found_;
  std::set<std::string_view> descriptions_;  // of the listed fonts, in their records
  // Font files of which further entries of GLUE.TXT can tell nothing new; so none is read for each of them.
  std::set<std::string, std::less<>> settled_;
};

bool FolderSearch::ReadGlue() {
  if (!search_->filter.ReadsGlue()) return true;
  GlueFile file((EndedBySeparator(folder_) + "GLUE.TXT").c_str());
  for (GlueEntry entry; file.Next(&entry);) {
    if (settled_.count(entry.fontFile) != 0) continue;
    if (!Visit(entry.fontFile, &entry)) return false;
  }
  return true;
}

// NOLINTNEXTLINE(misc-no-recursion): the length of a path bounds the depth
bool FolderSearch::ReadFolder() {
  FolderListing listing(folder_);
  while (listing.Next()) {
    if (!listing.IsFolder()) {
      if (!VisitFile(listing.path())) return false;
    } else if (search_->recurse && IsSubfolder(listing)) {
      FolderSearch(listing.path().c_str(), search_, count_).Run();
    }
  }
  return true;
}

bool FolderSearch::VisitFile(const std::string& path) {
  ++search_->filesVisited;
  Report(nullptr);
  return Visit(path.c_str(), nullptr);
}

bool FolderSearch::Visit(const char* path, const GlueEntry* glue) {
  constexpr std::uint32_t kDownloadableOnly = 3;
  const FontFilter& filter = search_->filter;
  WorkRecord record;
  const bool known = FitsFoundFile(path) && FonQueryInfo(path, &record.info, search_->queryOption,
                                                         filter.kind != kDownloadableOnly) == ZE_OK;
  const bool wanted = known && FindMetrics(path, glue, &record.info) &&
                      filter.Passes(path, record.info) &&
                      descriptions_.count(record.info.description) == 0;
  if (wanted && !List(path, &record)) return false;
  if (glue != nullptr && !(known && IsScalablePcl(record.info.format) &&
                           descriptions_.count(record.info.description) == 0))
    settled_.insert(path);
  return *count_ < limit_;
}

// Scalable PCL fonts come with metrics of their own. False when those are missing and asked for.
bool FolderSearch::FindMetrics(const char* path, const GlueEntry* glue, ZeFontInfo* info) const {
  if (!IsScalablePcl(info->format)) return true;
  std::string metrics;
  if (glue != nullptr) {
    SetField(info->symbolSet, glue->symbolSet);
    info->printerMemory = glue->printerMemory;
    metrics = glue->metricsFile;
  } else {
    constexpr std::size_t kFamilyLength = 3;
    metrics.assign(path, std::min(FileNameOffset(path) + kFamilyLength, std::strlen(path)));
    metrics += "0000S.TFM";
  }
  if (metrics.size() < sizeof(info->metricsFile) && FilExists(metrics.c_str())) {
    SetField(info->metricsFile, metrics);
    SetField(info->companionFile, metrics);
    return true;
  }
  if (search_->queryOption == 2) return false;
  if (search_->queryOption != 4) return true;
  const FontQuery query = {path, search_->queryOption, info};
  if (!CompanionExists(query, "PFM")) return false;
  SetCompanion(query, "PFM", info->metricsFile);
  return true;
}

// False when there is no memory.
bool FolderSearch::List(const char* path, WorkRecord* record) {
  ++*count_;
  if (record->info.description[0] != '\0' && search_->filesTotal != 0) Report(&record->info);
  ZeFoundFile* file =
      AddFoundFile(path, ZE_FOUND_FONT, std::as_bytes(std::span(&record->info, 1)), &found_);
  if (file == nullptr) {
    --*count_;
    return false;
  }
  record->info.cartridge = nullptr;
  file->size = record->info.fileSize;
  descriptions_.insert(static_cast<ZeFontInfo*>(file->info)->description);
  return true;
}

void FolderSearch::Report(const ZeFontInfo* font) const {
  if (search_->progress == nullptr) return;
  constexpr std::uint32_t kAll = 100;
  const std::uint32_t total = search_->filesTotal;
  const std::uint64_t percent =
      total == 0 ? kAll : std::uint64_t{search_->filesVisited} * kAll / total;
  search_->progress(font, static_cast<std::uint32_t>(percent));
}

// The files of a folder, and with `recurse` of the folders within.
// NOLINTNEXTLINE(misc-no-recursion): the length of a path bounds the depth
std::uint32_t CountFiles(const char* folder, bool recurse) {
  std::uint32_t count = 0;
  FolderListing listing(folder);
  while (listing.Next()) {
    if (!listing.IsFolder()) {
      ++count;
    } else if (recurse && IsSubfolder(listing)) {
      count += CountFiles(listing.path().c_str(), recurse);
    }
  }
  return count;
}

}  // namespace

FoundFiles FindFonts(const char* folder, FontSearch* search, std::uint16_t* count) {
  try {
    if (search->progress != nullptr) search->filesTotal = CountFiles(folder, search->recurse);
  } catch (const std::bad_alloc&) {  // the search ends before its first file
    *count = 0;
    return nullptr;
  }
  return FolderSearch(folder, search, count).Run();
}

}  // namespace zeapi
