// What the handlers of the font kinds share. Each looks at one file and fills the record; `flags`
// bit ZE_FONT_STANDARD and `fileSize` are set before. A handler that refuses a file leaves the rest
// of the record empty.
#pragma once

#include <string_view>

#include "base/result.h"

namespace zeapi {

struct FontQuery {
  const char* path;      // at most ZE_MAX_NAME characters
  std::uint32_t option;  // which companions must be there
  ZeFontInfo* info;
};

// True when a companion file of the font exists and its path fits a field.
bool CompanionExists(const FontQuery& query, std::string_view extension);

// Stores the path of a companion; one that does not fit is left out.
void SetCompanion(const FontQuery& query, std::string_view extension, char (&field)[260]);

Result QueryAfm(const FontQuery& query);
Result QueryPfa(const FontQuery& query);
Result QueryPfb(const FontQuery& query);
Result QueryDlf(const FontQuery& query);
Result QueryFmf(const FontQuery& query);
Result QueryPfm(const FontQuery& query);
Result QueryPcm(const FontQuery& query);
Result QueryPcl(const FontQuery& query);

}  // namespace zeapi
