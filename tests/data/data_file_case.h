// A printer data file that is written, opened and searched.
#pragma once

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {

inline constexpr char kDataFile[] = "data.txt";

class DataFilesTest : public ScratchTest {
 protected:
  // A line of a data file for a key; the command tells lines of one key apart.
  static std::string Line(const std::string& key, const std::string& command = "") {
    return "\"" + key + "\",\"descr\",\"PCL\",\"" + command + "\",\"%d\",1,2.5,0.5,\"P\"\n";
  }

  void TearDown() override {
    for (int slot = 0; slot < 4; ++slot) ZeDatCloseFile(slot);
    ScratchTest::TearDown();
  }

  void Open(std::string_view text) {
    if (handle >= 0) ZeDatCloseFile(handle);
    WriteFile(kDataFile, text);
    handle = ZeDatOpenFile(kDataFile, 0, ZE_DAT_READ);
    ASSERT_GE(handle, 0);
  }

  int First(std::string_view key) {
    std::memset(&record, 0, sizeof(record));
    std::memcpy(record.szKey, key.data(), key.size());
    return ZeDatGetFirstKey(handle, &record);
  }
  int Next() { return ZeDatGetNextKey(handle, &record); }

  // First record of a file of this text alone.
  int Read(std::string_view text) {
    Open(text);
    return First("");
  }

  // Fields of the record between bars.
  std::string Fields() const {
    double numbers[3];
    std::memcpy(numbers, reinterpret_cast<const char*>(&record) + 222, sizeof(numbers));
    char text[400];
    std::snprintf(text, sizeof(text), "%s|%s|%s|%s|%s|%g|%g|%g|%s", record.szKey, record.szDescr,
                  record.szEmulation, record.szCommand, record.szVarFormat, numbers[0], numbers[1],
                  numbers[2], record.szDuration);
    return text;
  }

  // Slides the line, byte by byte, over the end of the first block that is read of a file, with a
  // line for the key T behind it.
  template <typename Check>
  void Slide(const std::string& line, const Check& check) {
    constexpr std::size_t kBlock = 16384;
    for (std::size_t before = kBlock - line.size(); before <= kBlock; ++before) {
      Open("#" + std::string(before - 2, '#') + "\n" + line + Line("T"));
      check();
      ASSERT_FALSE(HasFailure()) << before << ' ' << line;
    }
  }

  int handle = -1;
  ZeDatRecord record = {};
};

}  // namespace zeapi::testing
