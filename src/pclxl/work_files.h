// The files that the PCL XL fixup writes in the current directory.
#pragma once

namespace zeapi {

inline constexpr char kXlInputFile[] = "in.str";       // the job without job control
inline constexpr char kXlPageFile[] = "temp.str";      // the content of its page
inline constexpr char kXlOutputFile[] = "out.str";     // the stored stream
inline constexpr char kXlFixedUpFile[] = "fixup.str";  // what validation leaves

// True when a path leads to one of them: to write it would empty what is to be read.
bool IsStreamWorkFile(const char* path);

}  // namespace zeapi
