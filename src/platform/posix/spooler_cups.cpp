// CUPS: a raw job to the queue of the given name, streamed to the server as it is written.

#include <cups/cups.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>

#include "platform/spooler.h"

namespace zeapi::platform {
namespace {

constexpr int kConnectMilliseconds = 3000;

struct HttpClose {
  void operator()(http_t* http) const { httpClose(http); }
};
using Http = std::unique_ptr<http_t, HttpClose>;

struct Printer {
  Http http;
  std::string name;
  int job = 0;
  bool inDocument = false;
};

// Open printers by handle. Handles are not used again, so a handle that was closed finds nothing.
struct Spooler {
  std::map<SpoolerHandle, Printer> printers;
  SpoolerHandle next = 1;

  Printer* Find(SpoolerHandle handle) {
    const auto found = printers.find(handle);
    return found == printers.end() ? nullptr : &found->second;
  }
};

Spooler& OpenPrinters() {
  static Spooler spooler;
  return spooler;
}

Http Connect() {
  return Http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                           kConnectMilliseconds, nullptr));
}

// Asks the server itself: looking a destination up by name would search the network for it.
bool QueueExists(http_t* http, const char* name) {
  char uri[HTTP_MAX_URI];
  if (httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof(uri), "ipp", nullptr, "localhost", 0,
                       "/printers/%s", name) != HTTP_URI_STATUS_OK) {
    return false;
  }
  ipp_t* request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
               "printer-name");
  ippDelete(cupsDoRequest(http, request, "/"));
  return cupsLastError() <= IPP_STATUS_OK_CONFLICTING;
}

// A queue's name has none of these; a path mostly has, and need not be asked about.
bool CanBeQueueName(const char* name) {
  return name[0] != '\0' && std::strpbrk(name, "/\\#? :") == nullptr;
}

}  // namespace

bool SpoolerOpen(const char* name, SpoolerHandle* printer) {
  if (!CanBeQueueName(name)) return false;
  Http http = Connect();
  if (http == nullptr || !QueueExists(http.get(), name)) return false;
  Spooler& spooler = OpenPrinters();
  spooler.printers[spooler.next] = Printer{std::move(http), name, 0, false};
  *printer = spooler.next++;
  return true;
}

bool SpoolerStartDocument(SpoolerHandle printer, const char* documentName) {
  Printer* open = OpenPrinters().Find(printer);
  if (open == nullptr) return false;
  http_t* http = open->http.get();
  const char* name = open->name.c_str();
  open->job = cupsCreateJob(http, name, documentName, 0, nullptr);
  if (open->job == 0) return false;
  if (cupsStartDocument(http, name, open->job, documentName, CUPS_FORMAT_RAW, 1) ==
      HTTP_STATUS_CONTINUE) {
    open->inDocument = true;
    return true;
  }
  cupsCancelJob2(http, name, open->job, 1);
  return false;
}

std::uint32_t SpoolerWrite(SpoolerHandle printer, const void* data, std::uint32_t length) {
  Printer* open = OpenPrinters().Find(printer);
  if (open == nullptr || !open->inDocument) return 0;
  // An empty block would end the document.
  if (length == 0) return 0;
  const http_status_t status =
      cupsWriteRequestData(open->http.get(), static_cast<const char*>(data), length);
  return status == HTTP_STATUS_CONTINUE ? length : 0;
}

void SpoolerEndDocument(SpoolerHandle printer) {
  Printer* open = OpenPrinters().Find(printer);
  if (open == nullptr || !open->inDocument) return;
  cupsFinishDocument(open->http.get(), open->name.c_str());
  open->inDocument = false;
}

// A document that was not ended is abandoned with its job.
void SpoolerClose(SpoolerHandle printer) {
  Printer* open = OpenPrinters().Find(printer);
  if (open == nullptr) return;
  if (open->inDocument) {
    open->http.reset();
    cupsCancelJob2(CUPS_HTTP_DEFAULT, open->name.c_str(), open->job, 1);
  }
  OpenPrinters().printers.erase(printer);
}

std::uint32_t SpoolerLastError() { return static_cast<std::uint32_t>(cupsLastError()); }

}  // namespace zeapi::platform
