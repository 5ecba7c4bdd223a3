#include "config/ini_index.h"

namespace zeapi {

namespace {

// The header stands for the name between its first and its last character.
std::string_view NameIn(const IniLine& header) {
  return header.view().substr(1, header.length - 2);
}

}  // namespace

std::string_view ini_names::OfSection(const IniSection& section) { return NameIn(*section.header); }

std::string_view ini_names::OfKey(const IniLine& line) { return line.Key(); }

// A line that begins with "[" and does not end with "]" ends a section but has no name itself. Of
// sections of one name only the first is ever found.
void IniIndex::Add(IniLine* header) {
  if (header->length < 2 || header->view().back() != ']') return;
  if (byName_.Find(NameIn(*header)) != nullptr) return;
  sections_.emplace_back().header = header;
  byName_.Add(&sections_.back());
}

IniSection* IniIndex::FindSection(std::string_view name) {
  if (!known_) {
    sections_.clear();
    byName_.Clear();
    for (IniLine* line = lines_->first(); line != nullptr; line = line->next) {
      if (line->IsHeader()) Add(line);
    }
    known_ = true;
  }
  return byName_.Find(name);
}

IniLine* IniIndex::FindKey(IniSection* section, std::string_view key) {
  if (!section->keysKnown) {
    section->keys.Clear();
    FindKeyLine(section->header->next, [section](IniLine* line) {
      section->keys.Add(line);
      return false;
    });
    section->keysKnown = true;
  }
  return section->keys.Find(key);
}

void IniIndex::KeysChanged(IniSection* section) { section->keysKnown = false; }

void IniIndex::SectionsChanged() { known_ = false; }

void IniIndex::SectionAppended(IniLine* header) {
  // A header with a "=" is also a key of the section above it.
  const bool keep = known_ && !header->HasKey();
  known_ = false;
  if (!keep) return;
  Add(header);
  known_ = true;
}

}  // namespace zeapi
