// The search of a folder for fonts, and of the GLUE.TXT in it.
#pragma once

#include <cstdint>

#include "files/found_files.h"
#include "fonts/font_filter.h"

namespace zeapi {

// What a search is asked for, and how far it has come for the caller's progress display.
struct FontSearch {
  FontFilter filter;
  std::uint32_t queryOption;
  bool recurse;
  ZeFontProgress progress;  // or null
  std::uint32_t filesTotal = 0;
  std::uint32_t filesVisited = 0;
};

// Lists the fonts of a folder of at most ZE_MAX_NAME characters; the search and the filter are
// valid. `*count` says how many fonts are wanted at most (0: 32767) and is told how many were
// listed. With `recurse` the folders within are searched as well, but what is found there is not
// listed: each such search takes the count as its limit, begins it anew and leaves it for the rest
// of the outer search. With a progress callback the files are counted beforehand. A lack of memory
// ends the search with what was listed so far.
FoundFiles FindFonts(const char* folder, FontSearch* search, std::uint16_t* count);

}  // namespace zeapi
