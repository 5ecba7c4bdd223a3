#include "output/bidi_back_end.h"

#include <array>

#include "output/bce_doc_info.h"
#include "output/queue_log.h"
#include "output/spooler_back_end.h"
#include "platform/module.h"

namespace zeapi {
namespace {

constexpr char kLibraryName[] = "VELBCE.DLL";

using BceOpenFn = std::uint32_t(ZEAPI_CALL*)(std::uint32_t port, std::uint32_t handle,
                                             std::uint32_t);
using BceCloseFn = std::uint32_t(ZEAPI_CALL*)(std::uint32_t port, std::uint32_t handle);
using BceStartDocFn = std::uint32_t(ZEAPI_CALL*)(std::uint32_t handle, std::uint32_t,
                                                 const void* info);
using BceEndDocFn = std::uint32_t(ZEAPI_CALL*)(std::uint32_t handle, std::uint32_t);
using BceWriteFn = std::uint32_t(ZEAPI_CALL*)(std::uint32_t port, std::uint32_t handle,
                                              std::uint32_t, const void* data, std::uint32_t* count,
                                              std::uint32_t);
using BceGetPrtInfoFn = std::uint32_t(ZEAPI_CALL*)(std::uint32_t printer, void* info,
                                                   std::uint32_t);

// Shared by all jobs, as programs that have two open at once know it: the first to close takes the DLL from the
// other.
struct BidiLibrary {
  platform::Module module = nullptr;
  BceOpenFn open = nullptr;
  BceCloseFn close = nullptr;
  BceStartDocFn startDoc = nullptr;
  BceEndDocFn endDoc = nullptr;
  BceWriteFn write = nullptr;
  BceGetPrtInfoFn getPrtInfo = nullptr;
};

BidiLibrary library;

template <typename Function>
bool FindEntryPoint(const char* name, const LogEvent& missing, Function* entry) {
  *entry = reinterpret_cast<Function>(platform::ModuleFind(library.module, name));
  if (*entry != nullptr) return true;
  queue_log::Write(missing);
  return false;
}

// All six are looked up even after a miss, so that the log names each one that is missing.
bool FindEntryPoints() {
  bool found = FindEntryPoint("BceOpen", queue_log::kNoBceOpen, &library.open);
  found &= FindEntryPoint("BceClose", queue_log::kNoBceClose, &library.close);
  found &= FindEntryPoint("BceStartDoc", queue_log::kNoBceStartDoc, &library.startDoc);
  found &= FindEntryPoint("BceEndDoc", queue_log::kNoBceEndDoc, &library.endDoc);
  found &= FindEntryPoint("BceWrite", queue_log::kNoBceWrite, &library.write);
  found &= FindEntryPoint("BceGetPrtInfo", queue_log::kNoBceGetPrtInfo, &library.getPrtInfo);
  return found;
}

void FreeLibraryAndEntryPoints() {
  platform::ModuleFree(library.module);
  library = BidiLibrary{};
}

Result StartDocument(const ZeDestination& destination) {
  const CHeapPtr<std::uint8_t[]> info = MakeBceDocInfo(destination);
  if (info == nullptr) return ZE_OUT_OF_MEMORY;
  if (library.startDoc(destination.bidiHandle, 0, info.get()) == 0) return ZE_OK;
  queue_log::Write(queue_log::kStartDocFailed);
  return ZE_UNUSABLE;
}

// A port that did open is not closed again when the document does not start; the DLL is freed
// instead.
Result OpenPortAndDocument(const ZeDestination& destination) {
  if (!FindEntryPoints()) return ZE_UNUSABLE;
  if (library.open(destination.bidiPort, destination.bidiHandle, 0) != 0) {
    queue_log::Write(queue_log::kBceOpenFailed);
    return ZE_UNUSABLE;
  }
  return StartDocument(destination);
}

// The DLL's printer information, of which only the two bytes of the connection are known.
constexpr std::size_t kPrinterInfoSize = 412;
constexpr std::size_t kLowerByte = 92;
constexpr std::size_t kUpperByte = 93;
using PrinterInfo = std::array<std::uint8_t, kPrinterInfoSize>;

std::uint32_t ClassifyConnection(const PrinterInfo& info) {
  if (info[kUpperByte] & 0x08) return 2048;
  for (const std::uint32_t type : {0x20U, 0x04U, 0x02U}) {
    if (info[kLowerByte] & type) return type;
  }
  return 0;
}

}  // namespace

Result OpenBidi(GenQueContext* ctx) {
  queue_log::Write(queue_log::kUseBidi);
  const platform::Module loaded = platform::ModuleLoad(kLibraryName);
  if (loaded == nullptr) {
    queue_log::Write(queue_log::kNoLibrary);
    return ZE_UNUSABLE;
  }
  library.module = loaded;
  const Result result = OpenPortAndDocument(*ctx->destination);
  if (result != ZE_OK) {
    FreeLibraryAndEntryPoints();
    return result;
  }
  ctx->backEnd = QueueBackEnd::kBidi;
  return ZE_OK;
}

// Another job's close may have freed the DLL under this one; there is then nobody to take the data.
std::uint32_t WriteBidi(const void* data, std::uint32_t length, GenQueContext* ctx) {
  const ZeDestination& destination = *ctx->destination;
  if (library.write == nullptr) {
    ctx->error = ZE_PRINTER_WRITE_FAILED;
    return 0;
  }
  std::uint32_t count = length;
  if (library.write(destination.bidiPort, destination.bidiHandle, 0, data, &count, 1) != 0) {
    ctx->error = ZE_PRINTER_WRITE_FAILED;
  }
  return count;
}

void CloseBidi(GenQueContext* ctx) {
  // Another job's close freed it.
  if (library.module == nullptr) return CloseSpooler(ctx);
  const ZeDestination& destination = *ctx->destination;
  queue_log::Write(queue_log::kBceEndDoc);
  queue_log::Write(queue_log::kBceClose);
  library.endDoc(destination.bidiHandle, 0);
  library.close(destination.bidiPort, destination.bidiHandle);
  queue_log::Write(queue_log::kFreeBidi);
  FreeLibraryAndEntryPoints();
}

std::uint32_t BidiConnectionType(std::uint32_t printer) {
  PrinterInfo info = {};
  // An open job's library is used and left alone; otherwise one is loaded for this call.
  platform::Module loaded = nullptr;
  BceGetPrtInfoFn getPrtInfo = library.getPrtInfo;
  if (getPrtInfo == nullptr) {
    loaded = platform::ModuleLoad(kLibraryName);
    if (loaded == nullptr) return 0;
    getPrtInfo = reinterpret_cast<BceGetPrtInfoFn>(platform::ModuleFind(loaded, "BceGetPrtInfo"));
  }
  if (getPrtInfo != nullptr) getPrtInfo(printer, info.data(), 0);
  if (loaded != nullptr) platform::ModuleFree(loaded);
  return ClassifyConnection(info);
}

}  // namespace zeapi
