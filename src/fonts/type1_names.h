// The font name inside a Type 1 outline.
#pragma once

#include <cstddef>
#include <cstdio>

namespace zeapi {

// A font name, cut to what a description can hold.
struct Type1Name {
  char text[80];
};

// Reads the name out of a PFA file opened as text; empty when there is none or a read fails.
Type1Name ReadPfaName(std::FILE* stream);

// Reads a PFB file opened as binary until it has seen a name and an encoding. A read that fails
// leaves no name.
struct PfbNames {
  Type1Name name;         // at most 30 characters; empty when there is none
  bool standardEncoding;  // false when an encoding other than StandardEncoding was seen
};
PfbNames ReadPfbNames(std::FILE* stream);

}  // namespace zeapi
