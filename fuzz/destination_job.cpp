#include "destination_job.h"

#include <cstdlib>
#include <cstring>

#include "support/moody_spooler.h"
#include "support/private_drives.h"

namespace zeapi::fuzz {
namespace {

std::string On(std::string_view drive, std::string_view name) {
  return name.empty() ? std::string() : std::string(drive) + WithoutSeparators(name);
}

int DigitValue(char c) {
  const char* digits = "0123456789abcdef";
  const char* found = std::strchr(digits, c | (c >= 'A' && c <= 'F' ? 32 : 0));
  return c == '\0' || found == nullptr ? -1 : static_cast<int>(found - digits);
}

std::optional<std::string> FromHex(const std::string& text) {
  std::string bytes;
  if (text.size() % 2 != 0) return std::nullopt;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int high = DigitValue(text[i]);
    const int low = DigitValue(text[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes += static_cast<char>(16 * high + low);
  }
  return bytes;
}

std::string FromEscapes(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] != '\\') {
      bytes += text[i];
    } else if (++i == text.size()) {
      break;
    } else if (text[i] == 'n') {
      bytes += '\n';
    } else if (text[i] != 'x') {
      bytes += text[i];
    } else if (i + 2 >= text.size()) {
      break;
    } else {
      bytes += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    }
  }
  return bytes.substr(0, bytes.find('\0'));
}

}  // namespace

Job ReadJob(Input input) {
  Job job = {};
  Numbers numbers(input.Line());
  job.call = static_cast<Call>(numbers.Below(kCalls));
  job.bits = numbers.Below(32);
  spooler = MoodySpooler{};
  spooler.mood =
      static_cast<SpoolerMood>(numbers.Below(static_cast<unsigned>(SpoolerMood::kMoods)));
  spooler.writes = numbers.Below(20);
  job.append = static_cast<std::uint32_t>(numbers.Next());
  job.request = static_cast<std::int32_t>(numbers.Next());
  job.device = static_cast<std::int32_t>(numbers.Next());
  ZeDestination& destination = job.destination;
  destination.flags = static_cast<std::uint32_t>(numbers.Next());
  destination.deviceClass = static_cast<std::uint32_t>(numbers.Next());
  destination.language = static_cast<std::int32_t>(numbers.Next());
  destination.copies = static_cast<std::uint16_t>(numbers.Below(8));
  destination.channel = static_cast<std::uint8_t>(numbers.Next());
  destination.bidiHandle = static_cast<std::uint16_t>(numbers.Next());
  destination.bidiPort = static_cast<std::uint16_t>(numbers.Next());
  destination.resourceId = static_cast<std::uint16_t>(numbers.Next());
  destination.ppdsFontCode = static_cast<std::uint16_t>(numbers.Next());
  destination.ppdsFontSlot = static_cast<std::uint16_t>(numbers.Next());
  destination.fontQueryOption = static_cast<std::uint32_t>(numbers.Next());
  destination.reserved16 = static_cast<std::uint32_t>(numbers.Next());
  std::memset(destination.reserved28, static_cast<int>(numbers.Below(256)),
              sizeof(destination.reserved28));

  job.printer = On("d:\\", input.Line());
  job.jobName = UpToZero(input.Line());
  job.text = UpToZero(input.Line());
  if (job.call == kSendFile)
    job.text = On("i:\\", job.text);
  else if (!job.text.empty() && job.text[0] == '%')
    job.text = std::string("%").append(On("i:\\", job.text.substr(1)));
  job.content = input.Rest();
  return job;
}

bool Job::IsValid() const {
  if (Has(kNullPrinter) || Has(kNullDestination)) return false;
  if (call == kResource) {
    return printer.size() < ZE_MAX_NAME && request >= 1 && request <= 4 && device >= 1 &&
           device <= 5;
  }
  if (Has(kNullText) || printer.size() > ZE_MAX_NAME || destination.language < 0 ||
      destination.language > 6) {
    return false;
  }
  const std::optional<std::string> fileName = FileName();
  return fileName ? fileName->size() <= ZE_MAX_NAME : Decoded().has_value();
}

std::optional<std::string> Job::FileName() const {
  if (call == kSendFile) return text;
  if (call == kSendString && !text.empty() && text[0] == '%') return text.substr(1);
  return std::nullopt;
}

std::optional<std::string> Job::Decoded() const {
  return !text.empty() && text[0] == '$' ? FromEscapes(text) : FromHex(text);
}

}  // namespace zeapi::fuzz
