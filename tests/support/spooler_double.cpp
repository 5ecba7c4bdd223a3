#include "support/spooler_double.h"

#include <cstring>

#include "platform/spooler.h"
#include "support/outside_library.h"

namespace zeapi::testing {

SpoolerDouble& Spooler() {
  static SpoolerDouble spooler;
  return spooler;
}

void ResetSpooler() { Spooler() = SpoolerDouble{}; }

}  // namespace zeapi::testing

namespace zeapi::platform {

using testing::OutsideLibrary;
using testing::Spooler;

bool SpoolerOpen(const char* name, SpoolerHandle* printer) {
  const OutsideLibrary outside;
  Spooler().calls.push_back(std::string("open ") + name);
  if (Spooler().printer.empty() || Spooler().printer != name) return false;
  *printer = testing::kSpoolerDoubleHandle;
  return true;
}

bool SpoolerStartDocument(SpoolerHandle, const char* documentName) {
  const OutsideLibrary outside;
  Spooler().calls.push_back(std::string("start ") + documentName);
  return Spooler().startsDocument;
}

std::uint32_t SpoolerWrite(SpoolerHandle, const void* data, std::uint32_t length) {
  const OutsideLibrary outside;
  Spooler().calls.push_back("write " + std::to_string(length));
  ++Spooler().writes;
  if (Spooler().writes == Spooler().failingWrite) return length - Spooler().shortBy;
  Spooler().data.append(static_cast<const char*>(data), length);
  return length;
}

void SpoolerEndDocument(SpoolerHandle) {
  const OutsideLibrary outside;
  Spooler().calls.push_back("end");
}
void SpoolerClose(SpoolerHandle) {
  const OutsideLibrary outside;
  Spooler().calls.push_back("close");
}
std::uint32_t SpoolerLastError() { return Spooler().lastError; }

}  // namespace zeapi::platform
