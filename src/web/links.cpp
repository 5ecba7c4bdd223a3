#include "web/links.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>

#include "base/compiler.h"
#include "platform/host.h"
#include "web/topics.h"

namespace zeapi {
namespace {

constexpr char kPathBase[] = ZEAPI_SUPPORT_SITE "/NA";
constexpr char kQueryBase[] = ZEAPI_SUPPORT_SITE "/MD/?";

constexpr std::int32_t kNoPrinter = -1;

bool PrinterNumber(std::int32_t printer, std::int32_t* number) {
  if (printer < 0) return printer == kNoPrinter;
  const bool inTable = printer < static_cast<std::int32_t>(std::size(kWebPrinters));
  *number = inTable ? kWebPrinters[printer] : printer;
  return *number != 0;
}

void EmptyText(char* buffer, std::uint32_t size) {
  if (size > 0) buffer[0] = '\0';
}

// Builds a text in a caller's buffer, which is empty again at the end unless the text is kept.
class TextBuilder {
 public:
  TextBuilder(char* buffer, std::uint32_t size) : buffer_(buffer), size_(size) {}
  ~TextBuilder() {
    if (!kept_) EmptyText(buffer_, size_);
  }
  TextBuilder(const TextBuilder&) = delete;
  TextBuilder& operator=(const TextBuilder&) = delete;

  void Keep() { kept_ = true; }

  // False when the text and its terminator do not fit.
  bool Append(std::string_view text) {
    if (text.size() >= size_ - length_) return false;
    std::memcpy(buffer_ + length_, text.data(), text.size());
    length_ += static_cast<std::uint32_t>(text.size());
    buffer_[length_] = '\0';
    return true;
  }

  bool AppendSegment(std::string_view segment) {
    return segment.empty() || (Append("/") && Append(segment));
  }

  ZEAPI_PRINTF_LIKE(2, 3)
  bool AppendFormatted(const char* format, ...) {
    char piece[64];
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(piece, sizeof(piece), format, values);
    va_end(values);
    return Append(piece);
  }

 private:
  char* buffer_;
  std::uint32_t size_;
  std::uint32_t length_ = 0;
  bool kept_ = false;
};

// Looks the parts of an address up in an INI file that may override them.
class Overrides {
 public:
  Overrides(IniFile* ini, std::uint32_t size) : ini_(ini), size_(size) {
    if (ini != nullptr) room_ = std::make_unique_for_overwrite<char[]>(size);
  }

  // 0 or 48 when the part is known.
  Result Find(const char* section, const char* key, const char* fallback, std::string_view* part) {
    *part = fallback;
    if (ini_ == nullptr) return ZE_OK;
    std::uint32_t count = 0;
    const Result result = IniRead2(ini_, section, key, fallback, room_.get(), size_, &count);
    *part = {room_.get(), count};
    return result;
  }

 private:
  IniFile* ini_;
  std::uint32_t size_;
  std::unique_ptr<char[]> room_;
};

struct Part {
  const char* section;
  const char* key;
  const char* fallback;
};

Result BuildUrl(const WebTopic& topic, std::int32_t language, const std::int32_t* printer,
                IniFile* ini, std::uint32_t size, TextBuilder* text) {
  char languageText[16];
  char printerText[16] = "";
  std::snprintf(languageText, sizeof(languageText), "%d", language);
  if (printer != nullptr) std::snprintf(printerText, sizeof(printerText), "%d", *printer);
  const Part segments[] = {{"AREA", topic.section, topic.path},
                           {"LANGUAGE", languageText, languageText},
                           {"PRINTER", printerText, printerText}};

  Overrides overrides(ini, size);
  std::string_view found;
  Result result = overrides.Find("AREA_PREFIX", topic.section, kPathBase, &found);
  if (result != ZE_OK && result != ZE_DEFAULT_USED) return result;
  if (!text->Append(found)) return ZE_BUFFER_TOO_SMALL;
  const std::size_t count = std::size(segments) - (printer == nullptr ? 1 : 0);
  for (std::size_t i = 0; i < count; ++i) {
    result = overrides.Find(segments[i].section, segments[i].key, segments[i].fallback, &found);
    if (result != ZE_OK && result != ZE_DEFAULT_USED) return result;
    if (!text->AppendSegment(found)) return ZE_BUFFER_TOO_SMALL;
  }
  return result;
}

unsigned LanguageCode(std::uint16_t language) {
  const std::uint16_t primary = language & 0x3FF;
  if (primary == kChinese) {
    return language >> 10 == kSimplified ? kSimplifiedChineseCode : kChineseCode;
  }
  for (const WebLanguage& known : kWebLanguages) {
    if (known.primary == primary) return known.code;
  }
  return 0;
}

unsigned SystemCode(const platform::SystemVersion& system) {
  if (system.platform < platform::kPlatformNt) return 1;
  if (system.platform > platform::kPlatformNt || system.major < 5) return 2;
  return system.minor == 0 ? 3 : 5;
}

}  // namespace

Result WebGetUrl(std::int32_t printer, std::int32_t topic, std::int32_t language, char* buffer,
                 std::uint32_t size, IniFile* ini) {
  if (buffer == nullptr) return ZE_INVALID_ARGUMENT;
  EmptyText(buffer, size);
  if (topic < 1 || topic > static_cast<std::int32_t>(std::size(kWebTopics)) || size == 0) {
    return ZE_INVALID_ARGUMENT;
  }
  std::int32_t number = 0;
  if (!PrinterNumber(printer, &number)) return ZE_UNKNOWN_TYPE;
  TextBuilder text(buffer, size);
  const Result result = BuildUrl(kWebTopics[topic - 1], language,
                                 printer == kNoPrinter ? nullptr : &number, ini, size, &text);
  if (result == ZE_OK || result == ZE_DEFAULT_USED) text.Keep();
  return result;
}

Result WebGetCgiUrl(std::uint32_t family, std::uint32_t model, std::uint32_t topic,
                    std::uint16_t language, char* buffer, std::uint32_t size) {
  if (buffer == nullptr) return ZE_INVALID_ARGUMENT;
  EmptyText(buffer, size);
  if (topic < 1 || topic > std::size(kWebTopics) || size == 0) return ZE_INVALID_ARGUMENT;
  // Callers give one byte more than the address and its terminator take; less than that is refused.
  TextBuilder text(buffer, size - 1);
  const bool whole = text.Append(kQueryBase) &&
                     text.AppendFormatted("func=%s", kWebTopics[topic - 1].query) &&
                     text.AppendFormatted("&lang=%u", LanguageCode(language)) &&
                     text.AppendFormatted("&prtr=B%03u%03u", family, model) &&
                     text.AppendFormatted("&ctry=%08X", platform::DefaultLanguage()) &&
                     text.AppendFormatted("&os=%u", SystemCode(platform::QuerySystem()));
  if (!whole) return ZE_BUFFER_TOO_SMALL;
  text.Keep();
  return ZE_OK;
}

}  // namespace zeapi
