// Data jobs and storage requests: every field of the destination, every spooler, any names and
// texts.
//
// Input: a line of numbers (see ReadJob), a printer name, a job name, a file name or text, and the
// content of the file "in", each on a line of its own; the content is the rest.

#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "destination_drives.h"
#include "destination_job.h"
#include "job_reference.h"
#include "output/pjl.h"
#include "support/moody_spooler.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

std::uint32_t Run(const Job& job) {
  const HeapText printer(job.printer);
  const HeapText jobName(job.jobName);
  const HeapText text(job.text);
  const std::unique_ptr<ZeDestination> destination(new ZeDestination(job.destination));
  destination->jobName = job.Has(kNullJobName) ? nullptr : jobName.get();
  const ZeDestination before = *destination;
  const char* printerName = job.Has(kNullPrinter) ? nullptr : printer.get();
  const char* textOrName = job.Has(kNullText) ? nullptr : text.get();
  const ZeDestination* where = job.Has(kNullDestination) ? nullptr : destination.get();
  std::uint32_t code = 0;
  switch (job.call) {
    case kSendFile:
      code = ZeDatSendFile(textOrName, printerName, where, job.append);
      break;
    case kSendString:
      code = ZeDatSendString(textOrName, printerName, where, job.append);
      break;
    default:
      code = ZeGenResource(job.request, printerName, where, job.device);
      break;
  }
  Check(std::memcmp(&before, destination.get(), sizeof(before)) == 0,
        "the destination is only read");
  return code;
}

// The code of a job before the first byte is written; none when writing begins.
std::optional<std::uint32_t> CodeBeforeWriting(const Job& job, const DestinationDrives& drives) {
  if (!job.IsValid()) return ZE_INVALID_ARGUMENT;
  if (const std::optional<std::string> fileName = job.FileName()) {
    if (!drives.FileExists(*fileName)) return ZE_FILE_NOT_FOUND;
    if (drives.IsFolder(*fileName)) return ZE_OPEN_FAILED;
  }
  if (job.destination.bidiHandle != 0) return ZE_UNUSABLE;
  const bool spooled =
      spooler.mood == SpoolerMood::kAccepts || spooler.mood == SpoolerMood::kRefusesWrite;
  if (!spooled && !drives.CanOpenPrinter(job.printer)) return ZE_OPEN_FAILED;
  return std::nullopt;
}

ReferenceJob Expected(const Job& job, const DestinationDrives& drives) {
  ZeDestination destination = job.destination;
  destination.jobName = job.Has(kNullJobName) ? nullptr : job.jobName.c_str();
  if (const std::optional<std::string> fileName = job.FileName())
    return FileJob(destination, drives.IsBad(*fileName) ? "" : job.content);
  if (job.call == kSendString) return StringJob(destination, job.Decoded().value());
  return ResourceJob(destination, job.request, job.device);
}

void CheckSpooled(const Job& job, const ReferenceJob& expected, std::uint32_t code,
                  std::uint32_t good) {
  const char* document = job.Has(kNullJobName) ? "Vantrel Job" : job.jobName.c_str();
  Check(spooler.documentName == document, "the document has the job's name");
  if (!spooler.refused) {
    Check(code == good, "a job that is taken succeeds");
    Check(spooler.received == expected.bytes + expected.end, "the printer gets the job");
  } else if (!expected.end.empty() && spooler.received.size() >= expected.bytes.size()) {
    Check(code == good, "a refused end of job is not told");
  } else {
    Check(code == ZE_PRINTER_WRITE_FAILED, "a refused write is told");
  }
}

void CheckFile(const Job& job, const DestinationDrives& drives, const ReferenceJob& expected,
               std::uint32_t code, std::uint32_t good) {
  if (drives.IsFull(job.printer)) {
    const std::uint32_t full = ZE_WRITE_FAILED;
    Check(code == (expected.bytes.empty() ? good : full), "a full disk is told");
    return;
  }
  Check(code == good, "a job that is taken succeeds");
  Check(drives.PrinterFiles() == 1, "the job goes to one file");
  const bool append = job.call != kResource && job.append != 0 && job.Has(kExists);
  Check(drives.Printed(job) == (append ? kOldContent : "") + expected.bytes + expected.end,
        "the file gets the job");
}

void CheckWritten(const Job& job, const DestinationDrives& drives, std::uint32_t code,
                  std::size_t filesBefore) {
  const ReferenceJob expected = Expected(job, drives);
  const std::optional<std::string> fileName = job.FileName();
  const std::uint32_t good = fileName && drives.IsBad(*fileName) ? ZE_READ_FAILED : ZE_OK;
  if (spooler.documents > 0) {
    Check(drives.PrinterFiles() == filesBefore, "what a printer takes goes to no file");
    CheckSpooled(job, expected, code, good);
  } else {
    CheckFile(job, drives, expected, code, good);
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const DestinationDrives drives;
  zeapi::ResetLanguageSelectForTesting();
  const Job job = ReadJob(Input(data, size));
  drives.Prepare(job);
  const std::size_t filesBefore = drives.PrinterFiles();

  const int descriptors = OpenDescriptors();
  const std::uint32_t code = Run(job);
  Check(descriptors == OpenDescriptors(), "every file is closed");
  if (const std::optional<std::uint32_t> expected = CodeBeforeWriting(job, drives)) {
    Check(code == *expected, "a job that cannot begin says why");
    Check(drives.PrinterFiles() == filesBefore, "a job that cannot begin leaves no file");
    Check(spooler.received.empty(), "a job that cannot begin sends nothing");
    Check(code != ZE_INVALID_ARGUMENT || !drives.LogExists(), "an invalid argument is not logged");
  } else {
    CheckWritten(job, drives, code, filesBefore);
    Check(drives.LogExists(), "a job is logged");
  }
  Check(spooler.openPrinters == 0, "every printer is closed");
  Check(drives.NothingOutside(), "nothing is written elsewhere");
  drives.CleanUp();
  return 0;
}
