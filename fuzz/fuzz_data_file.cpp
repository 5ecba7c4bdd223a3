// A keyed data file: every record by enumeration, searches and counts, compared with one another;
// the first line as a description.
//
// Input: a line with a key, the content of the file.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "support/text_reference.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr char kPath[] = "c:\\data.cfg";

ZeDatRecord WithKey(std::string_view key) {
  ZeDatRecord record = {};
  std::copy_n(key.begin(), std::min(key.size(), sizeof(record.szKey)), record.szKey);
  return record;
}

void CheckTerminated(const ZeDatRecord& record) {
  Check(record.szKey[5] == '\0' && record.szDescr[101] == '\0' && record.szEmulation[5] == '\0' &&
            record.szCommand[101] == '\0' && record.szVarFormat[5] == '\0' &&
            record.szDuration[1] == '\0',
        "texts end within their fields");
}

// The keys of all records, and what ended them.
struct Keys {
  std::vector<std::string> keys;
  int end;
};

Keys Enumerate(int handle) {
  Keys all;
  ZeDatRecord record = {};
  all.end = ZeDatGetFirstKey(handle, &record);
  while (all.end == ZE_DAT_OK) {
    CheckTerminated(record);
    all.keys.emplace_back(record.szKey);
    all.end = ZeDatGetNextKey(handle, &record);
  }
  if (all.keys.empty()) {
    Check(all.end == ZE_DAT_NOT_FOUND || all.end == ZE_DAT_FAILED, "no record has its code");
  } else {
    Check(all.end == ZE_DAT_END_OF_FILE || all.end == ZE_DAT_FAILED,
          "the last record has its code");
    Check(ZeDatGetNextKey(handle, &record) ==
              (all.end == ZE_DAT_FAILED ? ZE_DAT_NOT_FOUND : ZE_DAT_END_OF_FILE),
          "the end stays the end");
  }
  return all;
}

void CheckSearch(int handle, const Keys& all, const std::string& key) {
  const auto matches = [&](const std::string& other) { return other.starts_with(key); };
  const auto match = std::find_if(all.keys.begin(), all.keys.end(), matches);
  ZeDatRecord record = WithKey(key);
  const int found = ZeDatGetFirstKey(handle, &record);
  if (match != all.keys.end()) {
    Check(found == ZE_DAT_OK && *match == record.szKey, "the first match is found");
  } else {
    Check(found == (all.end == ZE_DAT_FAILED ? ZE_DAT_FAILED : ZE_DAT_NOT_FOUND),
          "without a match the search ends as the file does");
  }
  if (key.size() > 5) return;
  const auto runEnd = std::find_if_not(match, all.keys.end(), matches);
  record = WithKey(key);
  Check(static_cast<std::uint16_t>(ZeDatQueryCount(kPath, reinterpret_cast<char*>(&record), 2)) ==
            static_cast<std::uint16_t>(runEnd - match),
        "the run of matches is counted");
}

void CheckCounts(const Keys& all) {
  ZeDatCounts counts;
  Check(ZeDatQueryCounts(kPath, &counts, 2) == ZE_DAT_OK, "records can be counted");
  const std::string letters = "AFGPST";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const auto is = [&](char c) { return c == letters[i] || c == letters[i] + 32; };
    const auto first = std::count_if(all.keys.begin(), all.keys.end(),
                                     [&](const std::string& key) { return is(key[0]); });
    const auto second = std::count_if(
        all.keys.begin(), all.keys.end(),
        [&](const std::string& key) { return (key[0] == 'S' || key[0] == 's') && is(key[1]); });
    Check(counts.first[i] == first && counts.second[i] == second, "letters are counted");
  }
}

void CheckListing(std::string_view bytes) {
  std::string text = TextOf(bytes);
  text = text.substr(0, text.find('\n'));
  text = text.c_str();
  const std::size_t mark = text.find("#!");
  std::uint16_t count = 0;
  ZeDatFileInfo* list = ZeDatQueryFiles("c:\\", ZE_DAT_CONFIGURATION_FILES, &count);
  const bool described = mark != text.npos && mark + 2 < text.size();
  // Of a longer line only the beginning is looked at.
  if (text.size() <= 4096) {
    Check((list != nullptr) == described && count == (described ? 1 : 0),
          "a file with a description is listed");
    if (described) {
      Check(list->description == text.substr(mark + 2, 47),
            "the description stands behind the mark");
    }
  }
  ZeDatQueryFilesFree(list);
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  const std::string key(UpToZero(input.Line()).substr(0, 6));
  WriteWhole(drives.Folder("c") / "data.cfg", input.Rest());
  const int descriptors = OpenDescriptors();
  const int handle = ZeDatOpenFile(kPath, 0, ZE_DAT_READ);
  Check(handle == 0, "any file can be opened");
  const Keys all = Enumerate(handle);
  CheckSearch(handle, all, key);
  Check(ZeDatCloseFile(handle) == ZE_DAT_OK, "a file can be closed");
  CheckCounts(all);
  CheckListing(input.Rest());
  Check(descriptors == OpenDescriptors(), "every file is closed");
  return 0;
}
