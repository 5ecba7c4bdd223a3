#include "config/ini_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "base/stream.h"
#include "base/text.h"
#include "config/line_pieces.h"
#include "files/regular_file.h"

namespace zeapi {
namespace {

struct OpenMode {
  std::uint32_t mode;
  const char* stream;
};

constexpr OpenMode kModes[] = {
    {kIniReadFiltered, "r"}, {kIniUpdate, "r+"}, {kIniCreate, "w+"}, {kIniAppend, "a+"}};

const char* StreamMode(std::uint32_t mode) {
  for (const OpenMode& known : kModes) {
    if (known.mode == mode) return known.stream;
  }
  return nullptr;
}

std::string_view WithoutTrailing(std::string_view text, char c) {
  while (!text.empty() && text.back() == c) text.remove_suffix(1);
  return text;
}

void Load(IniFile* file, std::string_view text) {
  file->lines.Load(text);
  file->longest = std::max(file->longest, static_cast<std::uint32_t>(text.size()) + 1);
}

void LoadLine(IniFile* file, std::string_view piece) {
  const std::string_view line = WithoutTrailing(WithoutTrailing(piece, '\n'), ' ');
  if (!line.starts_with('[')) {
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos && equals > 0 && line[equals - 1] == ' ') {
      const std::string key(WithoutTrailing(line.substr(0, equals), ' '));
      Load(file, key + std::string(line.substr(equals)));
      return;
    }
    const bool filtered = (file->flags & kIniFiltered) != 0;
    // A comment that holds a "=" is a key line.
    const bool dropped = line.empty() || (line[0] == ';' && equals == std::string_view::npos);
    if (filtered && dropped) return;
  }
  Load(file, line);
}

bool LoadAll(IniFile* file, std::FILE* stream) {
  LinePieces pieces(stream);
  std::string_view piece;
  while (pieces.Next(&piece)) LoadLine(file, piece);
  return std::ferror(stream) == 0;
}

}  // namespace

std::unique_ptr<IniFile> IniOpen(const char* name, std::uint32_t mode) {
  const char* streamMode = StreamMode(mode);
  if (streamMode == nullptr || name == nullptr || NameTooLong(name)) return nullptr;
  Stream stream(OpenRegularFile(name, streamMode));
  if (stream == nullptr) return nullptr;
  auto file = std::make_unique<IniFile>();
  std::copy_n(name, std::strlen(name), file->path.data());
  if (mode == kIniReadFiltered) {
    file->flags = kIniFiltered;
  } else {
    // The file has been made, emptied or found writable. It is read as text like any other: only a stream that
    // does nothing else is translated on every host.
    stream.reset(OpenRegularFile(name, "r"));
    if (stream == nullptr) return nullptr;
  }
  if (!LoadAll(file.get(), stream.get())) return nullptr;
  return file;
}

bool IniClose(std::unique_ptr<IniFile> file) {
  if ((file->flags & kIniModified) == 0) return true;
  const Stream stream(OpenRegularFile(file->path.data(), "w"));
  if (stream == nullptr) return false;
  for (const IniLine* line = file->lines.first(); line != nullptr; line = line->next) {
    std::fwrite(line->text, 1, line->length, stream.get());
    std::fputc('\n', stream.get());
  }
  return true;
}

}  // namespace zeapi
