#include "fonts/query_info.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/text.h"
#include "files/file_utilities.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"

namespace zeapi {
namespace {

// What follows the last backslash and the last ":" up to the first ".": the description of fonts
// that are told by their names alone. "/" does not separate here.
std::string_view BaseName(std::string_view path) {
  path.remove_prefix(path.rfind('\\') + 1);
  path = path.substr(0, path.find('.'));
  return path.substr(path.rfind(':') + 1);
}

// The extension as far as it counts: 3 characters in upper case. The dot may stand in a folder's
// name.
struct Extension {
  char text[4] = {};
};

Extension ExtensionOf(std::string_view path) {
  Extension extension;
  const std::size_t dot = path.rfind('.');
  if (dot == std::string_view::npos) return extension;
  const std::string_view text = path.substr(dot + 1, 3);
  std::transform(text.begin(), text.end(), extension.text, AsciiUpper);
  return extension;
}

constexpr std::string_view kRefused[] = {"CFG", "FF",  "TYP", "TXT", "ME",
                                         "BAT", "CMD", "COM", "EXE"};

// Kinds that are told by their extension, without a look into the file.
void SetNamedFont(const FontQuery& query, std::uint32_t kind, std::uint32_t format) {
  SetField(query.info->description, BaseName(query.path));
  query.info->kind = kind;
  query.info->format = format;
  query.info->flags |= ZE_FONT_BINARY;
}

Result QueryTfm(const FontQuery& query) {
  SetNamedFont(query, ZE_FONT_KIND_METRICS, ZE_FONT_TFM);
  return ZE_OK;
}

// The record is filled, but nothing can be done with such a file.
Result QueryFot(const FontQuery& query) {
  SetNamedFont(query, ZE_FONT_KIND_METRICS, ZE_FONT_HOST_TRUETYPE);
  return ZE_BAD_FORMAT;
}

Result QueryTtf(const FontQuery& query) {
  SetNamedFont(query, ZE_FONT_KIND_TRUETYPE, ZE_FONT_HOST_TRUETYPE);
  return ZE_OK;
}

struct Kind {
  std::string_view extension;
  bool isMetricFile;
  Result (*query)(const FontQuery&);
};

constexpr Kind kKinds[] = {
    {"AFM", true, QueryAfm},  {"PFA", false, QueryPfa}, {"PFB", false, QueryPfb},
    {"DLF", false, QueryDlf}, {"FMF", true, QueryFmf},  {"PFM", true, QueryPfm},
    {"PSM", true, QueryPfm},  {"PBM", true, QueryPfm},  {"PCM", true, QueryPcm},
    {"TFM", true, QueryTfm},  {"FOT", false, QueryFot}, {"TTF", false, QueryTtf},
};
constexpr Kind kOtherKind = {"", false, QueryPcl};

const Kind& KindOf(std::string_view extension) {
  for (const Kind& kind : kKinds) {
    if (kind.extension == extension) return kind;
  }
  return kOtherKind;
}

}  // namespace

Result FonQueryInfo(const char* fontFile, ZeFontInfo* info, std::uint32_t queryOption,
                    bool includeMetricFiles) {
  std::memset(info, 0, sizeof(*info));
  if (fontFile == nullptr || NameTooLong(fontFile)) return ZE_INVALID_ARGUMENT;
  if (!FilExists(fontFile)) return ZE_FILE_NOT_FOUND;
  const Extension extension = ExtensionOf(fontFile);
  if (extension.text[0] == '\0') return ZE_INVALID_ARGUMENT;
  if (std::find(std::begin(kRefused), std::end(kRefused), extension.text) != std::end(kRefused)) {
    return ZE_BAD_FORMAT;
  }
  info->flags = ZE_FONT_STANDARD;
  info->fileSize = FilQuerySize(fontFile);
  const Kind& kind = KindOf(extension.text);
  if (kind.isMetricFile && !includeMetricFiles) return ZE_BAD_FORMAT;
  return kind.query({fontFile, queryOption, info});
}

}  // namespace zeapi
