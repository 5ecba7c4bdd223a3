// A font information record for people and for programs.
#pragma once

#include <string>

#include "session.h"

namespace tool {

// "PCL bitmap"; "unknown" for a number that is no format.
std::string FormatName(std::uint32_t format);

// "downloadable"; "unknown" for a number that is no kind.
std::string KindName(std::uint32_t kind);

// One line a field, those that the font does not have left out.
std::string RecordText(const ZeFontInfo& info);

// Every field. Its meaning for --help is in kRecordFields.
Json RecordJson(const ZeFontInfo& info);
extern const char* const kRecordFields;

}  // namespace tool
