// Finds sections and keys of an INI image without reading it through.
//
// What the index finds is exactly what reading from the first line on would: the first header of a
// name, and below it the first line of a key. It is made when it is first asked, a section's keys
// when that section is; an edit takes back what it may have changed.
#pragma once

#include <deque>
#include <string_view>

#include "config/first_by_name.h"
#include "config/ini_lines.h"

namespace zeapi {

struct IniSection;

namespace ini_names {
std::string_view OfSection(const IniSection& section);
std::string_view OfKey(const IniLine& line);
}  // namespace ini_names

struct IniSection {
  IniLine* header = nullptr;
  bool keysKnown = false;
  FirstByName<IniLine, ini_names::OfKey> keys;
};

class IniIndex {
 public:
  explicit IniIndex(IniLines* lines) : lines_(lines) {}

  // Null when the image has no such section.
  IniSection* FindSection(std::string_view name);

  // The first line with this key from below the header up to the next header. That next header
  // is looked at too: it may hold a "=". Null when there is none.
  static IniLine* FindKey(IniSection* section, std::string_view key);

  // A line of this section came or went, but no header.
  static void KeysChanged(IniSection* section);

  // A header came or went somewhere.
  void SectionsChanged();

  // A header was appended as the last line.
  void SectionAppended(IniLine* header);

 private:
  void Add(IniLine* header);

  IniLines* lines_;
  bool known_ = false;
  std::deque<IniSection> sections_;
  FirstByName<IniSection, ini_names::OfSection> byName_;
};

}  // namespace zeapi
