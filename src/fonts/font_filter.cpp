#include "fonts/font_filter.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <span>

#include "base/stream.h"
#include "files/file_utilities.h"
#include "files/regular_file.h"
#include "fonts/font_stream.h"
#include "fonts/pfm_block.h"
#include "fonts/replace_extension.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kMostType = 28;
constexpr std::uint32_t kMostKind = 6;
constexpr std::uint32_t kAnyKind = 5;  // and 6

constexpr std::uint32_t kGlueTypes[] = {10, 12, 14, 16, 17, 18, 20, 26, 27};

constexpr std::uint32_t kSoftFonts[] = {8, 9, 11, 13, 15, 17, 18, 20};
constexpr std::uint32_t kOldAndBound[] = {11, 17};
constexpr std::uint32_t kBitmapAndBound[] = {9, 13, 17};
constexpr std::uint32_t kNewerSoftFonts[] = {8, 9, 13, 15, 17, 18, 20};
constexpr std::uint32_t kForWindows[] = {8, 9, 13, 15, 17, 18, 20, 25, 28};

struct Group {
  std::uint32_t type;
  std::span<const std::uint32_t> formats;
};

constexpr std::uint32_t kEveryFormat = 26;
constexpr std::uint32_t kWindowsType = 27;
constexpr Group kGroups[] = {
    {10, kSoftFonts},      {12, kOldAndBound},          {14, kBitmapAndBound},
    {16, kNewerSoftFonts}, {kWindowsType, kForWindows},
};

template <typename Range>
bool Contains(const Range& range, std::uint32_t value) {
  return std::find(std::begin(range), std::end(range), value) != std::end(range);
}

bool AcceptsFormat(std::uint32_t type, std::uint32_t format) {
  if (type == kEveryFormat) return true;
  for (const Group& group : kGroups) {
    if (group.type == type) return Contains(group.formats, format);
  }
  return format == type;
}

// Whatever its extension, a file counts by what it reads as.
bool IsPostScriptMetrics(const char* path) {
  const Stream stream(OpenRegularFile(path, "rb"));
  PfmBlock block;
  if (stream == nullptr || !ReadPfmBlock(stream.get(), &block)) return false;
  const std::string device = PfmDeviceName(stream.get(), block.bytes);
  return device == "PostScript" || device == "Postscript";
}

bool SuitsWindows(const char* path, std::uint32_t format) {
  if (format == ZE_FONT_PFM && FilExists(ReplaceExtension(path, "SFS").text)) return false;
  return !IsPostScriptMetrics(path);
}

}  // namespace

bool FontFilter::IsValid() const {
  return type >= 1 && type <= kMostType && kind >= 1 && kind <= kMostKind;
}

bool FontFilter::ReadsGlue() const { return Contains(kGlueTypes, type); }

bool FontFilter::Passes(const char* path, const ZeFontInfo& font) const {
  if (kind < kAnyKind && font.kind != kind) return false;
  if (!AcceptsFormat(type, font.format)) return false;
  return type != kWindowsType || SuitsWindows(path, font.format);
}

}  // namespace zeapi
