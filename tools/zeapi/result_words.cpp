#include "result_words.h"

#include "zeapi.h"

namespace tool {
namespace {

struct Words {
  std::uint32_t result;
  const char* text;
};

constexpr Words kWords[] = {
    {ZE_OK, "success"},
    {ZE_INVALID_ARGUMENT, "an argument is not valid"},
    {ZE_FILE_NOT_FOUND, "the file does not exist"},
    {ZE_OPEN_FAILED, "the file or the printer cannot be opened"},
    {ZE_CLOSE_FAILED, "the file cannot be closed"},
    {ZE_ACCESS_DENIED, "access to the file is denied"},
    {ZE_READ_FAILED, "the file cannot be read"},
    {ZE_WRITE_FAILED, "the file cannot be written"},
    {ZE_UNEXPECTED_END, "the archive ends unexpectedly"},
    {ZE_OUT_OF_MEMORY, "memory is short"},
    {ZE_PRINTER_WRITE_FAILED, "the printer refused the data"},
    {ZE_NOT_DOS_DISK, "the format of the disk is not known"},
    {ZE_DISK_FULL, "the disk is full"},
    {ZE_UNUSABLE, "the path, a work file or VELBCE.DLL cannot be used"},
    {ZE_BAD_FORMAT, "this cannot be done with such a file or name"},
    {ZE_DRIVE_LOCKED, "the drive is locked"},
    {ZE_SHARING_VIOLATION, "somebody else has the file open"},
    {ZE_UNSUPPORTED, "this is not supported"},
    {ZE_COPY_FAILED, "copying failed"},
    {ZE_SEEK_FAILED, "the file cannot be positioned"},
    {ZE_BAD_HEADER, "the head of the file is not one of its kind"},
    {ZE_KEY_NOT_FOUND, "there is no such key"},
    {ZE_BUFFER_TOO_SMALL, "the answer is too long"},
    {ZE_BAD_CHECKSUM, "the file is damaged: its checksum differs"},
    {ZE_UNKNOWN_TYPE, "the file or printer is of another type"},
    {ZE_SECTION_NOT_FOUND, "there is no such section"},
    {ZE_DEFAULT_USED, "nothing was found and the default was used"},
    {ZE_NO_BACKUP_NAME, "all 998 backup names are taken, or a PPDS macro is too large"},
    {ZE_FIXUP_FAILED, "the file is no PCL XL job that can be stored"},
};

}  // namespace

std::string ResultWords(std::uint32_t result) {
  for (const Words& words : kWords) {
    if (words.result == result) return words.text;
  }
  return "an unknown result";
}

int ExitCodeFor(std::uint32_t result) {
  return result < kExitUsage ? static_cast<int>(result) : kExitInternal;
}

}  // namespace tool
