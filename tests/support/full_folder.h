// A double of the listing of folders, for a program that links it as an object. Folders are known by
// the pattern that a search of them has; any other is empty.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace zeapi::testing {

struct FullFolder {
  std::vector<std::string> folders;  // within; they are listed first
  int files = 0;                     // named "1" and so on
};

std::map<std::string, FullFolder>& FullFolders();

}  // namespace zeapi::testing
