#include "support/moody_spooler.h"

#include "platform/console.h"
#include "platform/spooler.h"

namespace zeapi::fuzz {

MoodySpooler spooler;

}  // namespace zeapi::fuzz

namespace zeapi::platform {

using fuzz::spooler;
using fuzz::SpoolerMood;

namespace {

constexpr SpoolerHandle kHandle = 7;

}  // namespace

bool SpoolerOpen(const char*, SpoolerHandle* printer) {
  if (spooler.mood == SpoolerMood::kNoPrinter) return false;
  *printer = kHandle;
  ++spooler.openPrinters;
  return true;
}

bool SpoolerStartDocument(SpoolerHandle, const char* documentName) {
  if (spooler.mood == SpoolerMood::kRefusesDocument) return false;
  spooler.documentName = documentName;
  ++spooler.documents;
  return true;
}

std::uint32_t SpoolerWrite(SpoolerHandle, const void* data, std::uint32_t length) {
  if (spooler.mood == SpoolerMood::kRefusesWrite) {
    if (spooler.writes > 0) {
      --spooler.writes;
    } else if (length > 0) {
      length /= 2;
      spooler.refused = true;
    }
  }
  spooler.received.append(static_cast<const char*>(data), length);
  return length;
}

void SpoolerEndDocument(SpoolerHandle) {}

// A printer that refused a write is closed twice.
void SpoolerClose(SpoolerHandle) {
  if (spooler.openPrinters > 0) --spooler.openPrinters;
}

std::uint32_t SpoolerLastError() { return 5; }

// Reads the text, so that a sanitizer sees one that is no text.
void ConsoleWrite(std::string_view text) {
  static volatile unsigned sum;
  for (const char c : text) sum = sum + static_cast<unsigned char>(c);
}

}  // namespace zeapi::platform
