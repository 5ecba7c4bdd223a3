#include <cstring>
#include <utility>

#include "config/ini_file.h"

namespace zeapi {
namespace {

// The first line from `line` on that has the key, up to and including the next header.
IniLine* ScanForKey(IniLine* line, std::string_view key) {
  for (; line != nullptr; line = line->next) {
    if (line->HasKey() && SameFolded(line->Key(), key)) return line;
    if (line->IsHeader()) return nullptr;
  }
  return nullptr;
}

IniLine* FindLine(IniFile* file, IniLine* cursor, const char* section, const char* key) {
  IniLine* line = cursor;
  if (section != nullptr) {
    IniSection* found = file->index.FindSection(section);
    if (found == nullptr) return nullptr;
    if (key != nullptr) return IniIndex::FindKey(found, key);
    line = found->header->next;
  }
  if (key != nullptr) return ScanForKey(line, key);
  return line != nullptr && !line->IsHeader() ? line : nullptr;
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
  IniSection* found = file->index.FindSection(section);
  const IniLine* line = found == nullptr ? nullptr : IniIndex::FindKey(found, key);
  const char* source = line == nullptr ? fallback : line->Value();
  if (source == nullptr) return found == nullptr ? ZE_SECTION_NOT_FOUND : ZE_KEY_NOT_FOUND;
  const std::size_t length = std::strlen(source);
  // A buffer that is filled to its end gets no terminator: its callers know its size.
  if (length >= size) {
    std::memcpy(buffer, source, size);
    *count = size;
    return ZE_BUFFER_TOO_SMALL;
  }
  std::memcpy(buffer, source, length + 1);
  *count = static_cast<std::uint32_t>(length);
  return line == nullptr ? ZE_DEFAULT_USED : ZE_OK;
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
