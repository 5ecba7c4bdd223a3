// Creating chains of directories on a drive, compared with a drive that is only thought.
//
// Input: the path. The server of a server path gets a name that no folder of this machine has.

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace fs = std::filesystem;

namespace zeapi::fuzz {
namespace {

constexpr char kNoServer[] = "\\\\zeapi-no-such-server-";
constexpr std::size_t kLongestName = 255;  // of the host's file systems
constexpr char kSeparators[] = "\\/";

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return lower;
}

std::vector<std::string> Components(std::string_view rest) {
  std::vector<std::string> components;
  while (!rest.empty()) {
    const std::string_view component = rest.substr(0, rest.find_first_of(kSeparators));
    rest.remove_prefix(std::min(component.size() + 1, rest.size()));
    if (!component.empty()) components.emplace_back(component);
  }
  return components;
}

bool HasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

bool IsServerPath(std::string_view path) { return path.substr(0, 2) == "\\\\"; }

// A path must end in a name with something before its last dot.
bool NamesADirectory(std::string_view rest) {
  const std::size_t separator = rest.find_last_of(kSeparators);
  const std::string_view name = separator == rest.npos ? rest : rest.substr(separator + 1);
  return !name.empty() && name.rfind('.') != 0;
}

// Drive C as it stands before each input: a folder with another in it, and a file.
class ThoughtDrive {
 public:
  std::uint32_t MakePath(const std::vector<std::string>& components) {
    std::vector<std::string> at;
    for (const std::string& component : components) {
      if (component == ".") continue;
      if (component == "..") {
        if (!at.empty()) at.pop_back();  // the root is its own parent
        continue;
      }
      at.push_back(Lower(component));
      std::string place;
      for (const std::string& name : at) place.append("/").append(name);
      if (place == "/file" || component.size() > kLongestName) return ZE_UNUSABLE;
      if (directories_.insert(place).second) created_.append("\\").append(component);
    }
    return ZE_OK;
  }

  const std::string& created() const { return created_; }

  bool Equals(const fs::path& root) const {
    std::set<std::string> real;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
      if (entry.is_directory())
        real.insert(Lower(entry.path().native().substr(root.native().size())));
    }
    return real == directories_;
  }

  static void Build(const fs::path& root) {
    fs::remove_all(root);
    fs::create_directories(root / "Dir" / "sub");
    WriteWhole(root / "File", "");
  }

 private:
  std::set<std::string> directories_ = {"/dir", "/dir/sub"};
  std::string created_;
};

struct Outcome {
  std::uint32_t code;
  std::string created;
};

// The list of created directories has as much room as it is promised to need.
Outcome MakePath(std::string_view path) {
  const HeapText heapPath(path);
  const std::unique_ptr<char[]> created(new char[std::max<std::size_t>(path.size(), 1)]);
  const std::uint32_t code = ZeFilMakePath(heapPath.get(), created.get());
  return {code, created.get()};
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  const fs::path root = drives.Folder("c");
  std::string path(UpToZero(Input(data, size).Rest()));
  if (!HasDrive(path) && IsServerPath(path)) path.replace(0, 2, kNoServer);
  const std::string_view rest = HasDrive(path) ? std::string_view(path).substr(2) : path;
  const std::vector<std::string> components = Components(rest);

  ThoughtDrive::Build(root);
  ThoughtDrive thought;
  std::uint32_t expected = ZE_UNUSABLE;
  const bool onDriveC = HasDrive(path) && (path[0] == 'c' || path[0] == 'C');
  if (onDriveC && path.size() <= ZE_MAX_NAME && NamesADirectory(rest))
    expected = thought.MakePath(components);

  const Outcome outcome = MakePath(path);
  Check(outcome.code == expected, "a path can be made or not");
  Check(outcome.created == thought.created(), "the list names what was made");
  Check(thought.Equals(root), "the directories are there, and no others");
  Check(drives.NothingOutside(), "nothing is made outside the drive");
  if (expected == ZE_OK) {
    const Outcome again = MakePath(path);
    Check(again.code == ZE_OK, "a path that is there can be made again");
    Check(again.created.empty(), "a path that is there is not made again");
    Check(ZeFilMakePath(HeapText(path).get(), nullptr) == ZE_OK, "the list may be left out");
  }
  return 0;
}
