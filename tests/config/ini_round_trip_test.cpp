// Files as real programs write them: changed in one key, nothing else in them may change.
#include <algorithm>
#include <cstdio>
#include <sstream>

#include "support/bytes.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

using Strings = std::vector<std::string>;

constexpr char kNewValue[] = "a value that none of them has";

// What loading alone changes: trailing blanks, and blanks before the first "=".
std::string Trimmed(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  const std::size_t equals = line.find('=');
  if (line.starts_with('[') || equals == std::string::npos) return line;
  const std::size_t key = line.substr(0, equals).find_last_not_of(' ') + 1;
  return line.substr(0, key) + line.substr(equals);
}

Strings LinesOf(const std::string& text) {
  Strings lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The lines that a file has once it is loaded.
Strings LoadedLines(const std::string& text) {
  Strings lines = LinesOf(text);
  for (std::string& line : lines) {
    if (line.ends_with('\r')) line.pop_back();
    line = Trimmed(line);
  }
  return lines;
}

// A line of a section's first block whose key no line before it in the block has.
struct KeyPlace {
  std::string section;
  std::string key;
  std::size_t line = 0;
};

bool FirstKey(const Strings& lines, KeyPlace* place) {
  bool first = false;  // the line is the first one below a header
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const std::string& line = lines[at];
    const std::size_t equals = line.find('=');
    if (first && equals != std::string::npos && line[0] != '[') {
      *place = {place->section, line.substr(0, equals), at};
      return true;
    }
    const bool isNew = line.starts_with('[') && line.ends_with(']') &&
                       std::find(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(at),
                                 line) == lines.begin() + static_cast<std::ptrdiff_t>(at);
    first = isNew;
    if (isNew) place->section = line.substr(1, line.size() - 2);
  }
  return false;
}

class IniRoundTripTest : public IniTest {
 protected:
  // Changes one key of the file; false when it has none that is easy to find.
  bool ChangeOneKey() {
    Strings expected = LoadedLines(ReadFile(kFile));
    KeyPlace place;
    if (!FirstKey(expected, &place)) return false;
    handle = ZeIniOpen2(kFile, ZE_INI_UPDATE);
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(Value(place.section.c_str(), place.key.c_str()),
              expected[place.line].substr(place.key.size() + 1));
    EXPECT_EQ(ZeIniWrite(handle, place.section.c_str(), place.key.c_str(), kNewValue), 1U);
    EXPECT_EQ(Value(place.section.c_str(), place.key.c_str()), kNewValue);
    EXPECT_EQ(Close(), 1U);
    expected[place.line] = place.key + "=" + kNewValue;
    EXPECT_EQ(LinesOf(HostText()), expected);
    return true;
  }
};

TEST_F(IniRoundTripTest, ServiceUnit) {
  WriteFile(kFile,
            "# A service\n[Unit]\nDescription=Print spooler\nAfter=network.target\n\n"
            "[Service]\nExecStart=/usr/sbin/spooler -f \\\n  --quiet\nRestart=on-failure\n\n"
            "[Install]\nWantedBy = multi-user.target\n");
  EXPECT_TRUE(ChangeOneKey());
}

TEST_F(IniRoundTripTest, DesktopEntry) {
  WriteFile(kFile,
            "[Desktop Entry]\nName=Printers\nName[de]=Drucker\nExec=printers %U\n"
            "Icon=printer\n\n[Desktop Action Queue]\nName=Show the queue\n");
  EXPECT_TRUE(ChangeOneKey());
}

TEST_F(IniRoundTripTest, ServerSettingsWithComments) {
  WriteFile(kFile,
            "[server]\nmemory_limit = 128M   \n; Notes with = in them\n;extension=none\n\n"
            "date.format = \"d.m.Y\"\n\n[Path]\n; Windows: \"\\path1;\\path2\"\nopen = \n");
  EXPECT_TRUE(ChangeOneKey());
}

TEST_F(IniRoundTripTest, WindowsFile) {
  WriteFile(kFile, "[Mail]\r\nMAPI=1\r\n[MCI Extensions]\r\naif=Video\r\n\r\n");
  EXPECT_TRUE(ChangeOneKey());
}

// Whatever the host has. Lines that load in pieces or hold odd bytes are another test's business.
TEST_F(IniRoundTripTest, FilesOfTheHost) {
  const fs::path folders[] = {"/lib/systemd/system",
                              "/usr/share/applications",
                              "/etc/xdg",
                              "/etc/systemd",
                              "C:\\windows",
                              "/etc/php"};
  int seen = 0;
  int changed = 0;
  for (const fs::path& folder : folders) {
    std::error_code none;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, none)) {
      const std::string suffix = entry.path().extension().string();
      if (suffix != ".service" && suffix != ".desktop" && suffix != ".ini" && suffix != ".conf" &&
          suffix != ".timer") {
        continue;
      }
      SCOPED_TRACE(entry.path().string());
      if (!entry.is_regular_file(none)) continue;
      const std::string text = ReadFile(entry.path());
      if (text.find('\0') != text.npos || text.find('\x1A') != text.npos) continue;
      WriteFile(kFile, text);
      const Strings lines = LoadedLines(text);
      if (std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
            return line.size() > 1000 || line.find('\r') != line.npos;
          })) {
        continue;
      }
      ++seen;
      if (ChangeOneKey()) ++changed;
      if (HasFailure()) return;
    }
  }
  std::printf("  %d files of %d changed in one key\n", changed, seen);
  EXPECT_TRUE(changed > 0 || seen == 0);
}

}  // namespace
}  // namespace zeapi::testing
