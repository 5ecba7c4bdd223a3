// Making files and folders below the current directory under names that somebody else chose.
#pragma once

#include <cstdint>
#include <string>

#include "platform/handle_files.h"

namespace zeapi::platform {

// Nothing outside the current directory is reached: symbolic links and other entries that stand for a
// place elsewhere are neither followed nor written through. Names are taken as they are written, also
// where a host tells cases apart. They have no "..", and no separators but "/".
class LocalTree {
 public:
  LocalTree() = default;
  ~LocalTree();
  LocalTree(const LocalTree&) = delete;
  LocalTree& operator=(const LocalTree&) = delete;

  // Goes to a folder ("a/b/"; empty: the current directory) and makes what is missing of it. False when
  // a part of it is no folder or cannot be made.
  bool Enter(const std::string& folder);

  // Creates a file in the folder entered last, or empties it. kNoFileHandle when that fails, and for
  // anything but a plain file.
  FileHandle Create(const std::string& name) const;

  // Sets the last-write time of a file there to a date and time as DOS stores them, taken as UTC.
  // False when they are none.
  bool SetLastWrite(const std::string& name, std::uint16_t date, std::uint16_t time) const;

 private:
  void Leave();

  std::string entered_;
  FileHandle folder_ = kNoFileHandle;  // on hosts where a folder can be held open
};

}  // namespace zeapi::platform
