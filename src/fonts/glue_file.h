// GLUE.TXT: the text file beside PCL fonts that names cartridges, and fonts with their symbol sets,
// metrics files and memory figures.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zeapi {

enum class GlueType { kEmpty, kPclFont, kCartridge, kOutlineCartridge };

// One cartridge line or one font. Texts are terminated; longer ones are cut to their field.
struct GlueEntry {
  GlueType type = GlueType::kEmpty;
  std::uint32_t printerMemory = 0;
  char name[50] = {};
  char symbolSet[4] = {};
  char weight[11] = {};
  char slant[9] = {};
  char fontFile[260] = {};  // of a cartridge: its font-file slot
  char metricsFile[260] = {};
};

// The lines of a text that mean something: without blanks around them, neither empty nor comments,
// of 99 characters at most.
class GlueLines {
 public:
  explicit GlueLines(std::string_view text = {}) : rest_(text) {}

  // False at the end of the text.
  bool Next(std::string_view* line);

  // Goes on to the next line unless it begins with one of the characters of `ends`.
  bool NextBefore(std::string_view ends, std::string_view* line);

 private:
  std::string_view rest_;
};

// Gives the entries of one file: its cartridges, then its fonts, both in the order of the file.
class GlueFile {
 public:
  // A file that cannot be read, or that is larger than 256 KiB, has no entries.
  explicit GlueFile(const char* path);
  GlueFile(const GlueFile&) = delete;
  GlueFile& operator=(const GlueFile&) = delete;

  bool Next(GlueEntry* entry);

 private:
  bool NextCartridge(GlueEntry* entry);
  bool NextFont(GlueEntry* entry);

  std::string text_;
  GlueLines cartridges_;
  GlueLines fonts_;
};

}  // namespace zeapi
