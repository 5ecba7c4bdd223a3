#include "destination_drives.h"

#include <strings.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kDriveLength = 3;    // of "d:\\"
constexpr std::size_t kLongestName = 255;  // of the host's file systems

bool SameName(const std::string& name, const char* other) {
  return strcasecmp(name.c_str(), other) == 0;
}

}  // namespace

DestinationDrives::DestinationDrives() : drives_("cdi") {
  fs::create_symlink("/dev/full", drives_.Folder("d") / "full");
  const fs::path bad = drives_.Folder("i") / "bad";
  fs::create_symlink("/proc/self/mem", bad);
  if (access(bad.c_str(), R_OK) != 0) fs::remove(bad);
}

void DestinationDrives::Prepare(const Job& job) const {
  WriteWhole(drives_.Folder("i") / "in", job.content);
  if (job.Has(kExists) && CanOpenPrinter(job.printer) && !IsFull(job.printer))
    WriteWhole(PrinterFile(job), kOldContent);
}

void DestinationDrives::CleanUp() const {
  for (const std::string& name : NamesIn(drives_.Folder("d"))) {
    if (name != "full") fs::remove(drives_.Folder("d") / name);
  }
  fs::remove(Log());
}

bool DestinationDrives::LogExists() const { return fs::exists(Log()); }

std::size_t DestinationDrives::PrinterFiles() const {
  return NamesIn(drives_.Folder("d")).size() - 1;
}

std::string DestinationDrives::Printed(const Job& job) const { return ReadWhole(PrinterFile(job)); }

bool DestinationDrives::IsFull(const std::string& printer) const {
  return SameName(printer, "d:\\full");
}

bool DestinationDrives::IsFolder(const std::string& name) const {
  if (name.empty()) return false;
  const std::string rest = name.substr(kDriveLength);
  return rest.empty() || rest == "." || rest == "..";
}

bool DestinationDrives::IsBad(const std::string& name) const {
  return SameName(name, "i:\\bad") && fs::is_symlink(drives_.Folder("i") / "bad");
}

bool DestinationDrives::CanOpenPrinter(const std::string& printer) const {
  return !printer.empty() && !IsFolder(printer) && printer.size() <= kDriveLength + kLongestName;
}

bool DestinationDrives::FileExists(const std::string& name) const {
  return IsFolder(name) || SameName(name, "i:\\in") || IsBad(name);
}

fs::path DestinationDrives::PrinterFile(const Job& job) const {
  return drives_.Folder("d") / job.printer.substr(kDriveLength);
}

fs::path DestinationDrives::Log() const { return drives_.Folder("c") / "zeapiw32.log"; }

}  // namespace zeapi::fuzz
