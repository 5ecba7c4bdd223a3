// Folders full of fonts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zeapi::bench {

// Writes `count` font files of ten kinds into a folder: PFB with AFM and PFM beside it, PFA,
// DLF, FMF, PCM, PCL bitmaps, scalable PCL fonts, and TrueType by name. No two describe themselves
// alike. Returns the files' paths.
std::vector<std::string> WriteMixedFonts(const std::string& folder, int count);

// Copies every PFB file of the host's packages into a folder, each under a name of its own. Returns
// how many there are.
int CopyHostType1(const std::string& folder);

}  // namespace zeapi::bench
