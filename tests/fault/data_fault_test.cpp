// Printer data files under every failure.
#include <cstring>
#include <set>

#include "fault/each_failure.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

constexpr char kRecord[] = "\"S\",\"\",\"\",\"\",\"\",0,0,0,\"\"\n";

bool IsClosing(const std::string& function) { return function == "fclose" || function == "close"; }

// What a file that is there and stands at its start can do without.
bool IsHarmless(const std::string& function) {
  const std::set<std::string> harmless = {"", "fstat", "lseek"};
  return harmless.count(function) != 0;
}

// Asks for the spelling of a name, which the file can do without, and whether it is there, which it cannot.
bool MayHideTheFile(const std::string& function) { return function == "lstat"; }

// What opening a data file gives when this function fails. The stream's own memory belongs to
// opening.
int OpenResult(const std::string& failed) {
  if (IsHarmless(failed)) return 0;
  if (failed == "access") return ZE_DAT_INVALID;
  return failed == "new" ? ZE_DAT_FAILED : ZE_DAT_OPEN_FAILED;
}

using DataFaultTest = ScratchTest;

TEST_F(DataFaultTest, Open) {
  int opened = 0;
  EachFailure([&] { WriteFile("data", kRecord); },
              [&] { opened = TRIED(ZeDatOpenFile)("data", 0, 2); },
              [&](const std::string& failed) {
                if (MayHideTheFile(failed)) {
                  EXPECT_TRUE(opened == 0 || opened == ZE_DAT_INVALID) << opened;
                } else {
                  EXPECT_EQ(opened, OpenResult(failed));
                }
                EXPECT_EQ(ZeDatCloseFile(0), opened == 0 ? ZE_DAT_OK : ZE_DAT_BAD_HANDLE);
              });
}

TEST_F(DataFaultTest, SearchAndClose) {
  int found = 0;
  int next = 0;
  int closed = 0;
  ZeDatRecord record;
  int handle = 0;
  EachFailure(
      [&] {
        WriteFile("data", kRecord);
        record = {};
        handle = -1;
      },
      [&] {
        handle = TRIED(ZeDatOpenFile)("data", 0, 2);
        if (handle < 0) return;
        found = TRIED(ZeDatGetFirstKey)(handle, &record);
        next = TRIED(ZeDatGetNextKey)(handle, &record);
        closed = TRIED(ZeDatCloseFile)(handle);
      },
      [&](const std::string& failed) {
        if (handle < 0) return;
        const bool unread = failed == "fread" || failed == "read";
        EXPECT_TRUE(found == ZE_DAT_OK || (unread && found == ZE_DAT_NOT_FOUND)) << found;
        EXPECT_EQ(next, found == ZE_DAT_OK ? ZE_DAT_END_OF_FILE : ZE_DAT_NOT_FOUND);
        EXPECT_EQ(closed, IsClosing(failed) ? ZE_DAT_FAILED : ZE_DAT_OK);
        EXPECT_EQ(ZeDatCloseFile(handle), ZE_DAT_BAD_HANDLE);
      });
}

// Nobody reads on behind what could not be read: in the middle of the second record.
TEST_F(DataFaultTest, EndOfWhatCanBeReadStaysTheEnd) {
  WriteFile("data", kRecord + ("\"T\",\"" + std::string(50000, 'd')) +
                        "\",\"\",\"\",\"\",0,0,0,\"\"\n" + kRecord);
  const int handle = ZeDatOpenFile("data", 0, 2);
  int unread = 0;
  int first = 0;
  int next = 0;
  int again = 0;
  ZeDatRecord record;
  EachFailure([&] { record = {}; },
              [&] {
                first = TRIED(ZeDatGetFirstKey)(handle, &record);
                next = TRIED(ZeDatGetNextKey)(handle, &record);
                again = TRIED(ZeDatGetNextKey)(handle, &record);
              },
              [&](const std::string&) {
                if (first == ZE_DAT_OK && next == ZE_DAT_END_OF_FILE) {
                  ++unread;
                  EXPECT_EQ(again, ZE_DAT_END_OF_FILE);
                  // From the start everything is tried again.
                  record = {};
                  EXPECT_EQ(ZeDatGetFirstKey(handle, &record), ZE_DAT_OK);
                  EXPECT_EQ(ZeDatGetNextKey(handle, &record), ZE_DAT_OK);
                  EXPECT_STREQ(record.szKey, "T");
                }
              });
  ZeDatCloseFile(handle);
  EXPECT_GT(unread, 0);
}

TEST_F(DataFaultTest, Count) {
  int count = 0;
  ZeDatRecord record;
  EachFailure(
      [&] {
        WriteFile("data", kRecord);
        record = {};
      },
      [&] { count = TRIED(ZeDatQueryCount)("data", reinterpret_cast<char*>(&record), 2); },
      [&](const std::string& failed) {
        // A file that cannot be read ends there.
        if (failed == "fread" || failed == "read") {
          EXPECT_TRUE(count == 0 || count == 1) << count;
        } else if (IsClosing(failed)) {
          EXPECT_EQ(count, ZE_DAT_FAILED);  // in place of the count
        } else if (MayHideTheFile(failed)) {
          EXPECT_TRUE(count == 1 || count == ZE_DAT_OPEN_FAILED) << count;
        } else if (IsHarmless(failed)) {
          EXPECT_EQ(count, 1);
        } else {
          EXPECT_EQ(count, ZE_DAT_OPEN_FAILED);
        }
        EXPECT_EQ(ZeDatCloseFile(0), ZE_DAT_BAD_HANDLE);
      });
}

TEST_F(DataFaultTest, Counts) {
  int result = 0;
  ZeDatCounts counts;
  EachFailure(
      [&] {
        WriteFile("data", kRecord);
        std::memset(&counts, 0xEE, sizeof(counts));
      },
      [&] { result = TRIED(ZeDatQueryCounts)("data", &counts, 2); },
      [&](const std::string& failed) {
        const std::uint16_t counted = counts.first[4];
        if (failed == "fread" || failed == "read") {
          EXPECT_EQ(result, ZE_DAT_OK);
          EXPECT_TRUE(counted == 0 || counted == 1) << counted;
        } else if (IsHarmless(failed) || IsClosing(failed)) {
          EXPECT_EQ(result, IsClosing(failed) ? ZE_DAT_FAILED : ZE_DAT_OK);
          EXPECT_EQ(counted, 1);
        } else if (MayHideTheFile(failed)) {
          EXPECT_EQ(result, counted == 1 ? ZE_DAT_OK : ZE_DAT_OPEN_FAILED);
        } else {
          EXPECT_EQ(result, ZE_DAT_OPEN_FAILED);
          EXPECT_EQ(counted, 0xEEEE);
        }
        EXPECT_EQ(ZeDatCloseFile(0), ZE_DAT_BAD_HANDLE);
      });
}

// Whatever there was no memory for: an entry itself or what is needed to find one.
TEST_F(DataFaultTest, ListingWithoutMemoryIsWhatWasFoundSoFar) {
  const std::string folder = "folder_whose_name_takes_memory";
  std::filesystem::create_directory(folder);
  WriteFile(folder + "/a.cfg", "#!A\n");
  WriteFile(folder + "/b.cfg", "#!B\n");
  ZeDatFileInfo* list = nullptr;
  std::uint16_t count = 0;
  std::set<std::string> failedBehindTheFirst;
  EachFailure([&] { count = 999; },
              [&] { list = TRIED(ZeDatQueryFiles)(folder.c_str(), 1, &count); },
              [&](const std::string& failed) {
                std::vector<std::string> names;
                for (const ZeDatFileInfo* entry = list; entry != nullptr; entry = entry->next) {
                  names.emplace_back(entry->description);
                }
                ZeDatQueryFilesFree(list);
                EXPECT_EQ(count, names.size());
                EXPECT_TRUE(count == 2 || !failed.empty());
                const bool memory = failed == "new" || failed == "calloc";
                if (memory && !failedBehindTheFirst.empty()) {
                  EXPECT_EQ(names, std::vector<std::string>{"A"});
                }
                if (memory && count > 0) failedBehindTheFirst.insert(failed);
              });
  EXPECT_EQ(failedBehindTheFirst, (std::set<std::string>{"calloc", "new"}));
}

}  // namespace
}  // namespace zeapi::testing
