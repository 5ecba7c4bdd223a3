#include "data/data_files.h"

#include <cstring>
#include <iterator>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "base/stream.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "data/record_reader.h"
#include "files/file_utilities.h"
#include "files/regular_file.h"

namespace zeapi {
namespace {

constexpr ZeDatField kFields[] = {
    {"szKey", kDatText, 6, "P_PPPP"},
    {"szDescr", kDatText, 102, "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
    {"szEmulation", kDatText, 6, "XXXX"},
    {"szCommand", kDatText, 102, "PPPPXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX"},
    {"szVarFormat", kDatText, 6, "XXXX"},
    {"dVarRangeLo", kDatNumber, 8, "##.##"},
    {"dVarRangeHi", kDatNumber, 8, "##.##"},
    {"dVarIncrement", kDatNumber, 8, "##.##"},
    {"szDuration", kDatText, 2, "P"},
};

constexpr std::size_t SizeOfFields() {
  std::int32_t size = 0;
  for (const ZeDatField& field : kFields) size += field.size;
  return static_cast<std::size_t>(size);
}
static_assert(SizeOfFields() == sizeof(ZeDatRecord));

constexpr std::size_t kCountedKey = 5;

struct DataFile {
  explicit DataFile(Stream opened) : stream(std::move(opened)), text(stream.get()) {}

  // Records are read in the order of the file, so the one behind the current is the next to read.
  std::int16_t Read(ZeDatRecord* record) {
    return DatReadRecord(&text, kFields,
                         {reinterpret_cast<std::uint8_t*>(record), sizeof(*record)});
  }

  Stream stream;
  TextSource text;
  bool hasCurrent = false;  // a record was found and can be gone on from
};

std::unique_ptr<DataFile> files[4];

// Null for what is no handle of an open file.
DataFile* FileOf(std::int16_t handle) {
  return handle >= 0 && handle < static_cast<std::int16_t>(std::size(files)) ? files[handle].get()
                                                                             : nullptr;
}

template <std::size_t size>
std::string_view FieldText(const char (&field)[size]) {
  return {field, BoundedLength(field, size)};
}

void CountLetter(char letter, std::uint16_t* counts) {
  constexpr std::string_view kLetters = ZE_DAT_LETTERS;
  const std::size_t at = kLetters.find(AsciiUpper(letter));
  if (at != std::string_view::npos) ++counts[at];
}

}  // namespace

std::int16_t DatOpenFile(const char* path, std::int32_t mode) {
  if (path == nullptr || NameTooLong(path) || mode != ZE_DAT_READ || !FilExists(path)) {
    return ZE_DAT_INVALID;
  }
  for (std::int16_t handle = 0; handle < static_cast<std::int16_t>(std::size(files)); ++handle) {
    if (files[handle] != nullptr) continue;
    Stream stream(OpenRegularFile(path, "r"));
    if (stream == nullptr) return ZE_DAT_OPEN_FAILED;
    files[handle] = std::make_unique<DataFile>(std::move(stream));
    return handle;
  }
  return ZE_DAT_FAILED;
}

std::int16_t DatCloseFile(std::int16_t handle) {
  if (handle < 0 || handle >= static_cast<std::int16_t>(std::size(files))) return ZE_DAT_FAILED;
  if (files[handle] == nullptr) return ZE_DAT_BAD_HANDLE;
  const std::unique_ptr<DataFile> file = std::move(files[handle]);
  return std::fclose(file->stream.release()) == 0 ? ZE_DAT_OK : ZE_DAT_FAILED;
}

std::int16_t DatGetFirstKey(std::int16_t handle, ZeDatRecord* record) {
  DataFile* file = FileOf(handle);
  if (file == nullptr || record == nullptr) return ZE_DAT_BAD_HANDLE;
  const std::string_view key = FieldText(record->szKey);
  file->hasCurrent = false;
  file->text.Rewind();
  ZeDatRecord found;
  do {
    const std::int16_t result = file->Read(&found);
    if (result == kDatEndOfFile) return ZE_DAT_NOT_FOUND;
    if (result != kDatRecord) return result;
  } while (!FieldText(found.szKey).starts_with(key));
  file->hasCurrent = true;
  *record = found;
  return ZE_DAT_OK;
}

std::int16_t DatGetNextKey(std::int16_t handle, ZeDatRecord* record) {
  DataFile* file = FileOf(handle);
  if (file == nullptr || record == nullptr) return ZE_DAT_BAD_HANDLE;
  if (!file->hasCurrent) return ZE_DAT_NOT_FOUND;
  ZeDatRecord found;
  const std::int16_t result = file->Read(&found);
  if (result == kDatBadFormat) file->hasCurrent = false;
  if (result == kDatRecord) *record = found;
  return result;
}

std::int16_t DatQueryCount(const char* path, ZeDatRecord* record, std::int32_t mode) {
  if (record == nullptr) return ZE_DAT_BAD_HANDLE;
  const std::int16_t handle = DatOpenFile(path, mode);
  if (handle < 0) return ZE_DAT_OPEN_FAILED;
  const ZeDatRecord asked = *record;
  const std::string_view prefix = FieldText(asked.szKey).substr(0, kCountedKey);
  // Counts one run of matches: files are sorted by key.
  std::uint16_t count = 0;
  std::int16_t result = DatGetFirstKey(handle, record);
  while (result == ZE_DAT_OK && FieldText(record->szKey).starts_with(prefix)) {
    ++count;
    result = DatGetNextKey(handle, record);
  }
  const std::int16_t closed = DatCloseFile(handle);
  return closed == ZE_DAT_OK ? static_cast<std::int16_t>(count) : closed;
}

std::int16_t DatQueryCounts(const char* path, ZeDatCounts* counts, std::int32_t mode) {
  if (counts == nullptr) return ZE_DAT_BAD_HANDLE;
  const std::int16_t handle = DatOpenFile(path, mode);
  if (handle < 0) return ZE_DAT_OPEN_FAILED;
  std::uint16_t first[6] = {};
  std::uint16_t second[6] = {};
  char key[sizeof(ZeDatRecord::szKey)];
  const std::span room(reinterpret_cast<std::uint8_t*>(key), sizeof(key));
  while (DatReadRecord(&FileOf(handle)->text, kFields, room) == kDatRecord) {
    CountLetter(key[0], first);
    if (AsciiUpper(key[0]) == 'S') CountLetter(key[1], second);
  }
  std::memcpy(counts->first, first, sizeof(first));
  std::memcpy(counts->second, second, sizeof(second));
  return DatCloseFile(handle);
}

}  // namespace zeapi
