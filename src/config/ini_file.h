// INI files: loaded whole, answered and edited in memory, written back when they are closed after an edit.
//
// All parsing is done here; the system's own profile calls are not used. Values are literal: no quotes, no
// escapes, no continued lines, no comments behind them. Memory that cannot be had is thrown.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"
#include "config/ini_index.h"
#include "config/ini_lines.h"

namespace zeapi {

enum IniFlags : std::uint32_t {
  kIniModified = 1,  // an edit was asked for, whether or not it changed anything
  kIniFiltered = 2,  // opened without comments and empty lines
};

struct IniFile {
  std::array<char, ZE_MAX_NAME + 1> path = {};
  std::uint32_t flags = 0;
  std::uint32_t longest = 0;  // bytes of the longest line that was added, terminator included
  IniLine* cursor = nullptr;  // behind the line that IniRead found last
  IniLines lines;
  std::int16_t style = 0;  // of a panel configuration file; not used here
  IniIndex index{&lines};
};

// Open modes, as the exported call takes them.
inline constexpr std::uint32_t kIniReadFiltered = 1;
inline constexpr std::uint32_t kIniUpdate = 7;
inline constexpr std::uint32_t kIniCreate = 8;
inline constexpr std::uint32_t kIniAppend = 9;

// Null for a bad mode or name and for a file that does not open or cannot be read to its end. What is no
// regular file counts as one that does not open.
std::unique_ptr<IniFile> IniOpen(const char* name, std::uint32_t mode);

// Writes the file back if it was modified; false when it cannot be opened for that. The image is gone either
// way.
bool IniClose(std::unique_ptr<IniFile> file);

// The value of a key, or without a key the next line that is no header: the first of a section, or
// without a section the next one behind the last that was found. Null when there is none.
const char* IniRead(IniFile* file, const char* section, const char* key);

// Copies a value, or `fallback` when there is one and the file has no value. Returns 0, 1 (null
// argument or no room), 41, 42, 45 or 48; `count` receives the characters stored.
Result IniRead2(IniFile* file, const char* section, const char* key, const char* fallback,
                char* buffer, std::uint32_t size, std::uint32_t* count);

// Like IniRead2, but shows what a buffer of `size` bytes would hold, cut to leave room for a terminator, where
// it stands. Valid until the next edit.
Result IniReadView(IniFile* file, const char* section, const char* key, const char* fallback,
                   std::uint32_t size, std::string_view* text);

// Copies all lines of a section that are not empty, each terminated, and one more terminator behind
// the last. Returns 0, 1 (null argument or no room at all), 42 or 45; `count` receives the bytes stored before
// that last terminator.
Result IniReadSection(IniFile* file, const char* section, char* buffer, std::uint32_t size,
                      std::uint32_t* count);

// Sets a key of a section's first block of lines, which ends at an empty line; both are made where they are
// missing.
void IniWrite(IniFile* file, std::string_view section, std::string_view key,
              std::string_view value);

// Adds a line for the pair of key and value unless the first block has it.
void IniWriteAll(IniFile* file, std::string_view section, std::string_view key,
                 std::string_view value);

// Removes one line: the first of a key, of a key and its value, or without a key the section's
// header.
void IniDelete(IniFile* file, const char* section, const char* key, const char* value);

}  // namespace zeapi
