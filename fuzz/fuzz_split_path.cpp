// Taking paths apart, and their upper-case copies.
//
// Input: the path.

#include <algorithm>
#include <string>

#include "files/split_path.h"
#include "support/input.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

std::string Upper(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  }
  return upper;
}

void CheckParts(std::string_view path) {
  const PathParts parts = SplitPath(path);
  std::string whole(parts.drive);
  whole.append(parts.directory).append(parts.baseName).append(parts.extension);
  Check(whole == path, "the parts are the path");
  const bool hasDrive = path.size() >= 2 && path[1] == ':';
  Check(parts.drive.size() == (hasDrive ? 2 : 0), "a drive is a character and a colon");
  Check(parts.directory.empty() || IsSeparator(parts.directory.back()),
        "a directory ends in its separator");
  const std::string name = std::string(parts.baseName).append(parts.extension);
  Check(std::none_of(name.begin(), name.end(), IsSeparator), "a file name has no separator");
  const bool hasExtension = name.find('.') != name.npos;
  Check(parts.extension.empty() != hasExtension, "an extension begins at a dot");
  Check(!hasExtension || parts.extension.rfind('.') == 0, "an extension begins at the last dot");
}

// Both copies go to blocks of exactly their size.
void CheckCopies(std::string_view path) {
  const HeapText heapPath(path);
  const std::size_t last = path.find_last_of("\\/:");
  const std::size_t nameAt = last == path.npos ? 0 : last + 1;
  const std::unique_ptr<char[]> directory(new char[nameAt + 1]);
  const std::unique_ptr<char[]> name(new char[path.size() - nameAt + 1]);
  Check(ZeStrCpyPath(directory.get(), heapPath.get()) == directory.get(),
        "a copy returns its destination");
  Check(ZeStrCpyFile(name.get(), heapPath.get()) == name.get(), "a copy returns its destination");
  Check(directory.get() == Upper(path.substr(0, nameAt)), "the directory is copied in upper case");
  Check(name.get() == Upper(path.substr(nameAt)), "the name is copied in upper case");
  Check(*ZeStrCpyFile(nullptr, heapPath.get()) == '\0', "no destination gives an empty text");
  Check(*ZeStrCpyPath(nullptr, heapPath.get()) == '\0', "no destination gives an empty text");
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view path = UpToZero(Input(data, size).Rest());
  CheckParts(path);
  CheckCopies(path);
  return 0;
}
