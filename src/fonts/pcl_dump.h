// The diagnostic listing of a PCL font descriptor.
#pragma once

#include "fonts/pcl_descriptor.h"

namespace zeapi {

// Rewrites the file "c:\apifonts.txt" with one line a field. Nothing happens where that file cannot
// be created.
void DumpPclDescriptor(const PclRawDescriptor& raw);

}  // namespace zeapi
