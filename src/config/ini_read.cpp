#include <algorithm>
#include <cstring>
#include <utility>

#include "base/text.h"
#include "config/ini_file.h"

namespace zeapi {
namespace {

IniLine* FindLine(IniFile* file, IniLine* cursor, const char* section, const char* key) {
  IniLine* line = cursor;
  if (section != nullptr) {
    IniSection* found = file->index.FindSection(section);
    if (found == nullptr) return nullptr;
    if (key != nullptr) return IniIndex::FindKey(found, key);
    line = found->header->next;
  }
  if (key != nullptr) {
    return FindKeyLine(line, [key](const IniLine* at) { return SameText(at->Key(), key); });
  }
  return line != nullptr && !line->IsHeader() ? line : nullptr;
}

// A value or what takes its place, null for neither, and the code of a copy that fits.
struct Found {
  const char* text;
  Result result;
};

Found FindValue(IniFile* file, const char* section, const char* key, const char* fallback) {
  IniSection* found = file->index.FindSection(section);
  const IniLine* line = found == nullptr ? nullptr : IniIndex::FindKey(found, key);
  if (line != nullptr) return {line->Value(), ZE_OK};
  if (fallback != nullptr) return {fallback, ZE_DEFAULT_USED};
  return {nullptr, found == nullptr ? ZE_SECTION_NOT_FOUND : ZE_KEY_NOT_FOUND};
}

}  // namespace

const char* IniRead(IniFile* file, const char* section, const char* key) {
  // Whatever fails below leaves no cursor.
  IniLine* cursor = std::exchange(file->cursor, nullptr);
  const IniLine* line = FindLine(file, cursor, section, key);
  if (line == nullptr) return nullptr;
  file->cursor = line->next;
  return key != nullptr ? line->Value() : line->text;
}

Result IniRead2(IniFile* file, const char* section, const char* key, const char* fallback,
                char* buffer, std::uint32_t size, std::uint32_t* count) {
  if (section == nullptr || key == nullptr || buffer == nullptr || size == 0) {
    return ZE_INVALID_ARGUMENT;
  }
  *count = 0;
  const Found found = FindValue(file, section, key, fallback);
  if (found.text == nullptr) return found.result;
  // One by one, and only then: a default may lie in the buffer.
  buffer[0] = '\0';
  std::uint32_t copied = 0;
  for (const char* from = found.text; *from != '\0' && copied < size; ++from) {
    buffer[copied++] = *from;
  }
  *count = copied;
  // A buffer that is filled to its end gets no terminator: its callers know its size.
  if (copied == size) return ZE_BUFFER_TOO_SMALL;
  buffer[copied] = '\0';
  return found.result;
}

Result IniReadView(IniFile* file, const char* section, const char* key, const char* fallback,
                   std::uint32_t size, std::string_view* text) {
  *text = {};
  if (size == 0) return ZE_INVALID_ARGUMENT;
  const Found found = FindValue(file, section, key, fallback);
  if (found.text == nullptr) return found.result;
  const std::size_t length = BoundedLength(found.text, size);
  *text = {found.text, std::min<std::size_t>(length, size - 1)};
  if (length == size) return ZE_BUFFER_TOO_SMALL;
  return found.result;
}

Result IniReadSection(IniFile* file, const char* section, char* buffer, std::uint32_t size,
                      std::uint32_t* count) {
  if (section == nullptr || buffer == nullptr || count == nullptr || size == 0) {
    return ZE_INVALID_ARGUMENT;
  }
  *count = 0;
  const IniSection* found = file->index.FindSection(section);
  if (found == nullptr) return ZE_SECTION_NOT_FOUND;
  for (const IniLine* line = found->header->next; line != nullptr && !line->IsHeader();
       line = line->next) {
    if (line->IsEmpty()) continue;
    if (line->length >= size - *count) return ZE_BUFFER_TOO_SMALL;
    std::memcpy(buffer + *count, line->text, line->length + 1);
    *count += line->length + 1;
  }
  if (*count == size) return ZE_BUFFER_TOO_SMALL;
  buffer[*count] = '\0';
  return ZE_OK;
}

}  // namespace zeapi
