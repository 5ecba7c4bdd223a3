// Where an archive's directory is: its end record, and what the offsets in it must be corrected by.
#pragma once

#include "archive/archive_file.h"
#include "archive/archive_status.h"

namespace zeapi {

// Position of the last end record's signature, -1 when there is none. A record can stand up to the
// longest comment before the end of the file.
std::int64_t FindEndRecord(ArchiveFile& file);

struct Directory {
  ArchiveStatus status = kArchiveOk;
  bool readable = false;  // there are headers to walk; false: `status` is the whole answer
  unsigned entries = 0;
  std::int64_t position = 0;    // of the first header
  std::int64_t adjustment = 0;  // what stored offsets are short of
};

Directory FindDirectory(ArchiveFile& file);

}  // namespace zeapi
