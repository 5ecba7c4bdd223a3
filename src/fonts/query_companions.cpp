#include "base/text.h"
#include "files/file_utilities.h"
#include "fonts/field_text.h"
#include "fonts/font_query.h"
#include "fonts/replace_extension.h"

namespace zeapi {
namespace {

bool FitsField(const PathText& path) {
  return BoundedLength(path.text, sizeof(ZeFontInfo::companionFile)) <
         sizeof(ZeFontInfo::companionFile);
}

}  // namespace

bool CompanionExists(const FontQuery& query, std::string_view extension) {
  const PathText path = ReplaceExtension(query.path, extension);
  return FitsField(path) && FilExists(path.text);
}

void SetCompanion(const FontQuery& query, std::string_view extension, char (&field)[260]) {
  const PathText path = ReplaceExtension(query.path, extension);
  if (FitsField(path)) SetField(field, path.text);
}

}  // namespace zeapi
