#include "fonts/glue_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "base/stream.h"
#include "files/regular_file.h"
#include "fonts/field_text.h"
#include "fonts/font_stream.h"

namespace zeapi {
namespace {

constexpr std::size_t kLongestLine = 99;
constexpr std::size_t kLargestGlueFile = 256 << 10;
constexpr std::int64_t kMedium = 130;  // weight of a font that names none

std::string ReadText(const char* path) {
  const Stream stream(OpenRegularFile(path, "rb"));
  std::string text;
  std::array<std::uint8_t, 4096> block;
  while (stream != nullptr) {
    const auto bytes = ReadUpTo(stream.get(), block);
    text.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.size() > kLargestGlueFile || std::ferror(stream.get()) != 0) return {};
    if (bytes.size() < block.size()) break;
  }
  return text;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view SkipBlanks(std::string_view text) {
  return {std::find_if_not(text.begin(), text.end(), IsBlank), text.end()};
}

std::string_view TrimEnd(std::string_view text) {
  while (!text.empty() && static_cast<unsigned char>(text.back()) <= ' ') text.remove_suffix(1);
  return text;
}

std::string_view TakeValue(std::string_view* text) {
  const auto end = std::find_if(text->begin(), text->end(), IsBlank);
  const std::string_view value(text->begin(), end);
  *text = SkipBlanks({end, text->end()});
  return value;
}

// What a line says after its keyword: a comment or a closing brace ends it.
std::string_view AfterKeyword(std::string_view line, std::string_view keyword) {
  line.remove_prefix(keyword.size());
  return SkipBlanks(TrimEnd(line.substr(0, line.find_first_of(";}"))));
}

// The value of a line of keyword, "=", value.
std::string_view ValueOf(std::string_view line, std::string_view keyword) {
  std::string_view text = AfterKeyword(line, keyword);
  TakeValue(&text);
  return text;
}

std::int64_t Number(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc::result_out_of_range) return number;
  return text.starts_with('-') ? std::numeric_limits<std::int64_t>::min()
                               : std::numeric_limits<std::int64_t>::max();
}

// The first number behind the "=", wherever it stands.
std::uint32_t MemoryOf(std::string_view text) {
  text.remove_prefix(std::min(text.find('='), text.size()));
  text.remove_prefix(std::min(text.find_first_of("0123456789"), text.size()));
  constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
  return static_cast<std::uint32_t>(std::min(Number(text), kMost));
}

struct Weight {
  std::int64_t below;
  std::string_view text;
};

constexpr Weight kWeights[] = {
    {18, " Utn"}, {35, " Xtn"}, {52, " Tn"},   {69, " Xl"},   {86, " Lt"},
    {103, " Dl"}, {120, " Sl"}, {137, ""},     {154, " Sb"},  {171, " Db"},
    {188, " Bd"}, {205, " Xb"}, {222, " Blk"}, {239, " Xbl"}, {256, " UBl"},
};

std::string_view WeightText(std::int64_t weight) {
  for (const Weight& range : kWeights) {
    if (weight < range.below) return range.text;
  }
  return {};
}

// The lines of one font. Of lines with the same keyword the first counts.
struct FontLines {
  std::string_view symbolSet;
  std::string_view weight;
  std::string_view metricsFile;
  std::string_view slant;
  std::string_view fontFile;
  std::string_view resource;

  void Take(std::string_view line) {
    Take(line, "/symset", &symbolSet) || Take(line, "/weight", &weight) ||
        Take(line, "/tfm", &metricsFile) || Take(line, "/slant", &slant) ||
        Take(line, "/font file", &fontFile) || Take(line, "/resource", &resource);
  }

 private:
  static bool Take(std::string_view line, std::string_view keyword, std::string_view* first) {
    if (!line.starts_with(keyword)) return false;
    if (first->empty()) *first = line;
    return true;
  }
};

void SetFont(std::string_view fontLine, const FontLines& lines, GlueEntry* entry) {
  const auto value = [](std::string_view line, std::string_view keyword) {
    return line.empty() ? line : ValueOf(line, keyword);
  };
  entry->type = GlueType::kPclFont;
  SetField(entry->name, ValueOf(fontLine, "FONT"));
  SetField(entry->symbolSet, value(lines.symbolSet, "/symset"));
  SetField(entry->metricsFile, value(lines.metricsFile, "/tfm"));
  SetField(entry->fontFile, value(lines.fontFile, "/font file"));
  const std::string_view weight = value(lines.weight, "/weight");
  SetField(entry->weight, WeightText(weight.empty() ? kMedium : Number(weight)));
  SetField(entry->slant, Number(value(lines.slant, "/slant")) != 0 ? " italic" : "");
  entry->printerMemory =
      lines.resource.empty() ? 0 : MemoryOf(AfterKeyword(lines.resource, "/resource"));
}

// The lines behind the one that begins with `start`.
GlueLines LinesBehind(GlueLines lines, std::string_view start, std::string_view ends) {
  for (std::string_view line; lines.NextBefore(ends, &line);) {
    if (line.starts_with(start)) return lines;
  }
  return GlueLines();
}

}  // namespace

bool GlueLines::Next(std::string_view* line) {
  while (!rest_.empty()) {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    *line = SkipBlanks(TrimEnd(rest_.substr(0, std::min(end, kLongestLine))));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (!line->empty() && line->front() != ';') return true;
  }
  return false;
}

bool GlueLines::NextBefore(std::string_view ends, std::string_view* line) {
  const std::string_view before = rest_;
  if (Next(line) && ends.find(line->front()) == std::string_view::npos) return true;
  rest_ = before;
  return false;
}

GlueFile::GlueFile(const char* path)
    : text_(ReadText(path)),
      cartridges_(LinesBehind(GlueLines(text_), "[Cartridge]", "")),
      fonts_(LinesBehind(LinesBehind(GlueLines(text_), "[PCL fonts]", ""), "{O}", "[")) {}

bool GlueFile::Next(GlueEntry* entry) {
  *entry = {};
  return NextCartridge(entry) || NextFont(entry);
}

bool GlueFile::NextCartridge(GlueEntry* entry) {
  std::string_view line;
  do {
    if (!cartridges_.NextBefore("[", &line)) {
      cartridges_ = GlueLines();  // it is asked again before each font
      return false;
    }
  } while (!line.starts_with('{'));
  std::string_view text = AfterKeyword(line, "{");
  SetField(entry->fontFile, TakeValue(&text));
  SetField(entry->name, text);
  if (!text.empty()) entry->type = GlueType::kCartridge;
  bool classSeen = false;
  while (cartridges_.NextBefore("[{", &line)) {
    if (classSeen || !line.starts_with("/class")) continue;
    classSeen = true;
    const bool outline = ValueOf(line, "/class").starts_with('O');
    if (outline && entry->type == GlueType::kCartridge) entry->type = GlueType::kOutlineCartridge;
  }
  return true;
}

bool GlueFile::NextFont(GlueEntry* entry) {
  std::string_view fontLine;
  do {
    if (!fonts_.NextBefore("[", &fontLine)) return false;
  } while (!fontLine.starts_with("FONT"));
  FontLines lines;
  for (std::string_view line; fonts_.NextBefore("[{F", &line);) lines.Take(line);
  SetFont(fontLine, lines, entry);
  return true;
}

}  // namespace zeapi
