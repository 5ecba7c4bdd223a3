// The question whether a member of host system 2 may be extracted, which is answered on standard input.
#pragma once

namespace zeapi {

// Whether the next line begins with "y" or "Y". Only what stands there at once is read, and no more than
// kLongestAnswer bytes; the rest of a longer line is the next one.
inline constexpr int kLongestAnswer = 4096;
bool Confirmed();

}  // namespace zeapi
