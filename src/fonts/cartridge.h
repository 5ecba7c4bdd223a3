// Cartridge files: several font metrics behind one header.
#pragma once

#include <cstdio>
#include <memory>

#include "files/found_files.h"

namespace zeapi {

struct CartridgeFree {
  void operator()(ZeCartridge* cartridge) const { FreeCartridge(cartridge); }
};
using CartridgePtr = std::unique_ptr<ZeCartridge, CartridgeFree>;

// Reads the cartridge of the file at whose start `stream` stands. Null when it has no name or there
// is no memory.
CartridgePtr ReadCartridge(std::FILE* stream);

}  // namespace zeapi
