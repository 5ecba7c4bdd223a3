// Making files and folders below the current directory under names that somebody else chose.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/handle_files.h"

namespace zeapi::platform {

// Nothing outside the current directory is reached: symbolic links and other entries that stand for a
// place elsewhere are neither followed nor written through. On Windows, where names are looked up by path,
// folders are held meanwhile, so that nobody can put another in their place; that somebody turns an empty
// one into a link is not prevented. Names are taken as they are written, also where a host tells cases
// apart. They have no "..", and no separators but "/".
class LocalTree {
 public:
  // `spared` is a file that is open meanwhile and not to be overwritten, or none.
  explicit LocalTree(FileHandle spared = kNoFileHandle) : spared_(spared) {}
  ~LocalTree();
  LocalTree(const LocalTree&) = delete;
  LocalTree& operator=(const LocalTree&) = delete;

  // Goes to a folder ("a/b/"; empty: the current directory) and makes what is missing of it. False when
  // a part of it is no folder or cannot be made.
  bool Enter(const std::string& folder);

  // Creates a file in the folder entered last, or empties it. kNoFileHandle when that fails, for anything
  // but a plain file, and for the spared one.
  FileHandle Create(const std::string& name) const;

  // Sets the last-write time of a file there to a date and time as DOS stores them, taken as UTC.
  // False when they are none.
  bool SetLastWrite(const std::string& name, std::uint16_t date, std::uint16_t time) const;

 private:
  void Leave();

  FileHandle spared_;
  std::string entered_;
  FileHandle folder_ = kNoFileHandle;  // where names are looked up in an open folder
  std::vector<FileHandle> held_;       // elsewhere: all folders on the way
};

}  // namespace zeapi::platform
