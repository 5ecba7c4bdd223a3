#include "platform/spooler.h"

#include <windows.h>
#include <winspool.h>

namespace zeapi::platform {
namespace {

HANDLE ToHandle(SpoolerHandle printer) { return reinterpret_cast<HANDLE>(printer); }

}  // namespace

bool SpoolerOpen(const char* name, SpoolerHandle* printer) {
  HANDLE handle = nullptr;
  if (!OpenPrinterA(const_cast<char*>(name), &handle, nullptr)) return false;
  *printer = reinterpret_cast<SpoolerHandle>(handle);
  return true;
}

bool SpoolerStartDocument(SpoolerHandle printer, const char* documentName) {
  char rawData[] = "RAW";
  DOC_INFO_1A document = {const_cast<char*>(documentName), nullptr, rawData};
  return StartDocPrinterA(ToHandle(printer), 1, reinterpret_cast<BYTE*>(&document)) != 0;
}

std::uint32_t SpoolerWrite(SpoolerHandle printer, const void* data, std::uint32_t length) {
  DWORD written = 0;
  WritePrinter(ToHandle(printer), const_cast<void*>(data), length, &written);
  return written;
}

void SpoolerEndDocument(SpoolerHandle printer) { EndDocPrinter(ToHandle(printer)); }

void SpoolerClose(SpoolerHandle printer) { ClosePrinter(ToHandle(printer)); }

std::uint32_t SpoolerLastError() { return GetLastError(); }

}  // namespace zeapi::platform
