// The drives of fuzz_destination: C for the log, D for printers that are files, I for files to
// send.
#pragma once

#include <string>

#include "destination_job.h"
#include "support/private_drives.h"

namespace zeapi::fuzz {

// What a printer's file holds before the job, where it is there.
inline constexpr char kOldContent[] = "old";

// Drive D holds "full", where nothing can be written; drive I holds "in" and, where the system
// offers one, "bad", which opens and cannot be read.
class DestinationDrives {
 public:
  DestinationDrives();

  void Prepare(const Job& job) const;
  void CleanUp() const;

  bool NothingOutside() const { return drives_.NothingOutside(); }
  bool LogExists() const;
  std::size_t PrinterFiles() const;
  std::string Printed(const Job& job) const;

  // The kinds of names.
  bool IsFull(const std::string& printer) const;
  bool IsFolder(const std::string& name) const;
  bool IsBad(const std::string& name) const;
  bool CanOpenPrinter(const std::string& printer) const;
  bool FileExists(const std::string& name) const;

 private:
  std::filesystem::path PrinterFile(const Job& job) const;
  std::filesystem::path Log() const;

  PrivateDrives drives_;
};

}  // namespace zeapi::fuzz
