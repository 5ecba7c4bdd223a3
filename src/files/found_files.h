// Lists of found files, as the font, macro and demo searches hand them out.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "zeapi.h"

namespace zeapi {

// Releases a cartridge with its fonts and their names. Null is ignored.
void FreeCartridge(ZeCartridge* cartridge);

// Releases a list with the record of each node and what a font's record owns. Null is ignored.
void FreeFoundFiles(ZeFoundFile* first);

struct FoundFilesFree {
  void operator()(ZeFoundFile* first) const { FreeFoundFiles(first); }
};

// A list that grows at its head.
using FoundFiles = std::unique_ptr<ZeFoundFile, FoundFilesFree>;

// True for a path that a node can hold.
bool FitsFoundFile(std::string_view path);

// Puts a node at the head, with a path that fits and a copy of `record` (none when it is empty);
// the other fields are cleared. Null when there is no memory: the list is then as it was.
ZeFoundFile* AddFoundFile(std::string_view path, std::uint32_t kind,
                          std::span<const std::byte> record, FoundFiles* list);

}  // namespace zeapi
