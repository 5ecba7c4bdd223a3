// From the name that an archive states to a path below the current directory.
#pragma once

#include <string>
#include <string_view>

namespace zeapi {

// The name as the library writes it: "/" and "\" become "/"; ":" becomes "_"; ";" ends the name; what
// stands from "<" to ">" or from "[" to "]" is left out; the character 22 takes the next one as it is;
// of the others those stay that can be printed (32 to 126) or are 128 to 254.
std::string MapMemberName(std::string_view stored);

struct LocalName {
  std::string folder;    // "a/b/", or empty: the current directory
  std::string file;      // empty for a folder
  bool dropped = false;  // components that lead out of the tree were left out
  bool usable = true;    // false: nothing is left that could be a file
};

// Makes a mapped name one that stays below the current directory and means a plain file or folder on
// every host. zeapi.h states the rule at ZeZipExplode().
LocalName MakeLocal(std::string_view mapped);

}  // namespace zeapi
