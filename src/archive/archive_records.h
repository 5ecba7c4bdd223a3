// Reads the records of an archive with what belongs to them.
#pragma once

#include <string>

#include "archive/archive_file.h"
#include "archive/archive_status.h"
#include "archive/zip_records.h"

namespace zeapi {

// Each gives kArchiveUnexpectedEnd when the file ends before the record does, and kArchiveBad when another
// signature stands there.
ArchiveStatus ReadSignature(ArchiveFile& file, ZipRecord record);

// A member's entry in the directory; the position moves to the next one.
ArchiveStatus ReadCentralEntry(ArchiveFile& file, CentralHeader* header, std::string* name);

// A member's own header; the position moves to its data.
ArchiveStatus ReadLocalEntry(ArchiveFile& file, MemberFacts* facts, std::string* name);

}  // namespace zeapi
