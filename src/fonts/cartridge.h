// Cartridge files: several font metrics behind one header.
#pragma once

#include <cstdio>
#include <memory>

#include "zeapi.h"

namespace zeapi {

// Releases a cartridge with its fonts and their names. Null is ignored.
void FreeCartridge(ZeCartridge* cartridge);

struct CartridgeFree {
  void operator()(ZeCartridge* cartridge) const { FreeCartridge(cartridge); }
};
using CartridgePtr = std::unique_ptr<ZeCartridge, CartridgeFree>;

// Reads the cartridge of the file at whose start `stream` stands. Null when it has no name or there
// is no memory.
CartridgePtr ReadCartridge(std::FILE* stream);

}  // namespace zeapi
