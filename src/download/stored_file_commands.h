// PostScript round the files that macros and demos are stored in.
#pragma once

namespace zeapi::stored_file {

// Keeps the printer from putting an extension to a file's name, and puts back what it did before.
inline constexpr char kExtensionOff[] =
    "statusdict begin currentfilenameextend false setfilenameextend end\n";
inline constexpr char kExtensionBack[] = "statusdict begin setfilenameextend end";

}  // namespace zeapi::stored_file
