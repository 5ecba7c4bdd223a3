#include "web/links.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "base/compiler.h"
#include "base/text.h"
#include "platform/host.h"
#include "web/tables.h"

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

// Builds an address in a caller's buffer, which is empty again at the end unless it is kept.
class AddressBuilder {
 public:
  AddressBuilder(char* buffer, std::uint32_t size) : buffer_(buffer), size_(size) {}
  ~AddressBuilder() {
    if (!kept_) EmptyText(buffer_, size_);
  }
  AddressBuilder(const AddressBuilder&) = delete;
  AddressBuilder& operator=(const AddressBuilder&) = delete;

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

std::string InUpperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), AsciiUpper);
  return text;
}

bool IsKnown(Result result) { return result == ZE_OK || result == ZE_DEFAULT_USED; }

Result AppendSegment(const char* section, const std::string& key, const std::string& fallback,
                     Overrides* overrides, AddressBuilder* address) {
  std::string_view found;
  const Result result = overrides->Find(section, key.c_str(), fallback.c_str(), &found);
  if (IsKnown(result) && !address->AppendSegment(found)) return ZE_BUFFER_TOO_SMALL;
  return result;
}

Result BuildUrl(const std::string& topic, std::int32_t language, const std::int32_t* printer,
                Overrides* overrides, AddressBuilder* address) {
  const std::string key = InUpperCase(topic);
  std::string_view base;
  Result result = overrides->Find("AREA_PREFIX", key.c_str(), kPathBase, &base);
  if (!IsKnown(result)) return result;
  if (!address->Append(base)) return ZE_BUFFER_TOO_SMALL;
  result = AppendSegment("AREA", key, topic, overrides, address);
  if (!IsKnown(result)) return result;
  const std::string languageText = std::to_string(language);
  result = AppendSegment("LANGUAGE", languageText, languageText, overrides, address);
  if (!IsKnown(result) || printer == nullptr) return result;
  const std::string printerText = std::to_string(*printer);
  return AppendSegment("PRINTER", printerText, printerText, overrides, address);
}

const char* QueryWord(std::uint32_t topic) {
  return topic == ZE_WEB_TECHSUPPORT ? kTechSupportInQueries : kWebTopics[topic - 1];
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
  if (topic < 1 || topic > static_cast<std::int32_t>(std::size(kWebTopics)))
    return ZE_INVALID_ARGUMENT;
  std::int32_t number = 0;
  if (!PrinterNumber(printer, &number)) return ZE_UNKNOWN_TYPE;
  AddressBuilder address(buffer, size);
  Overrides overrides(ini, size);
  const Result result = BuildUrl(kWebTopics[topic - 1], language,
                                 printer == kNoPrinter ? nullptr : &number, &overrides, &address);
  if (IsKnown(result)) address.Keep();
  return result;
}

Result WebGetCgiUrl(std::uint32_t family, std::uint32_t model, std::uint32_t topic,
                    std::uint16_t language, char* buffer, std::uint32_t size) {
  if (buffer == nullptr) return ZE_INVALID_ARGUMENT;
  EmptyText(buffer, size);
  if (topic < 1 || topic > std::size(kWebTopics) || size == 0) return ZE_INVALID_ARGUMENT;
  // Callers give one byte more than the address and its terminator take; less than that is refused.
  AddressBuilder address(buffer, size - 1);
  const bool whole = address.Append(kQueryBase) &&
                     address.AppendFormatted("func=%s", QueryWord(topic)) &&
                     address.AppendFormatted("&lang=%u", LanguageCode(language)) &&
                     address.AppendFormatted("&prtr=B%03u%03u", family, model) &&
                     address.AppendFormatted("&ctry=%08X", platform::DefaultLanguage()) &&
                     address.AppendFormatted("&os=%u", SystemCode(platform::QuerySystem()));
  if (!whole) return ZE_BUFFER_TOO_SMALL;
  address.Keep();
  return ZE_OK;
}

}  // namespace zeapi
