// Configuration files that are no regular files, and what only this host shows of them.
#include <fcntl.h>

#include "files/regular_file.h"
#include "support/bytes.h"
#include "support/ini.h"
#include "support/posix/named_pipe.h"
#include "support/qsf_image.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kModes[] = {ZE_INI_READ, ZE_INI_UPDATE, ZE_INI_CREATE, ZE_INI_APPEND};

using ConfigPipeTest = PipeTest<IniTest>;

TEST_F(ConfigPipeTest, WritingOpensOnlyRegularFilesAndNewOnes) {
  MakePipe("pipe");
  fs::create_directory("folder");
  fs::create_symlink("pipe", "link");
  for (const char* mode : {"r+", "w", "w+", "a", "a+"}) {
    for (const char* name : {"pipe", "link", "folder", "/dev/null"}) {
      EXPECT_EQ(OpenRegularFile(name, mode), nullptr) << name << " " << mode;
    }
    fs::remove("new");
    std::FILE* made = OpenRegularFile("new", mode);
    EXPECT_EQ(made != nullptr, mode[0] != 'r') << mode;
    if (made != nullptr) std::fclose(made);
    WriteFile("file", "x");
    std::FILE* file = OpenRegularFile("file", mode);
    ASSERT_NE(file, nullptr) << mode;
    std::fclose(file);
  }
}

TEST_F(ConfigPipeTest, IniFileThatIsNoneDoesNotOpen) {
  MakePipe("pipe");
  for (const char* name : {"pipe", "/dev/null", "/dev/zero"}) {
    EXPECT_EQ(ZeIniOpen(name), nullptr) << name;
    for (const std::uint32_t mode : kModes) EXPECT_EQ(ZeIniOpen2(name, mode), nullptr) << name;
  }
  EXPECT_TRUE(fs::is_fifo("pipe"));
}

TEST_F(ConfigPipeTest, IniFileThatBecameOneIsNotWritten) {
  Open("[s]\na=1\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  MakePipe(kFile);
  EXPECT_EQ(Close(), 0U);
  EXPECT_TRUE(fs::is_fifo(kFile));
}

TEST_F(ConfigPipeTest, PanelThatIsOneIsNotRegistered) {
  MakePipe("opc004.cfg");
  EXPECT_EQ(ZeOpcRegisterCfg(4, nullptr), nullptr);
  fs::remove("opc004.cfg");
  WriteFile("opc004.cfg", "a=1\n");
  EXPECT_EQ(ZeOpcUnregisterCfg(ZeOpcRegisterCfg(4, nullptr)), 1U);
}

TEST_F(ConfigPipeTest, QsfFileThatIsOneDoesNotOpen) {
  MakePipe("pipe");
  void* qsf = this;
  for (const char* name : {"pipe", "/dev/zero", "."}) {
    EXPECT_EQ(ZeQsfOpen(name, 7, &qsf), ZE_OPEN_FAILED) << name;
    EXPECT_EQ(qsf, nullptr);
  }
}

class ConfigHostTest : public IniTest {};

TEST_F(ConfigHostTest, KeepsWritingLineFeedsToAFileOfWindows) {
  Open("[s]\r\na=1\r\n\r\n");
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  EXPECT_EQ(Close(), 1U);
  EXPECT_BYTES(ReadFile(kFile), "[s]\na=2\n\n");
}

TEST_F(ConfigHostTest, LinkToNothingIsAFileToMake) {
  fs::create_symlink("target.ini", kFile);
  handle = ZeIniOpen2(kFile, ZE_INI_CREATE);
  ASSERT_NE(handle, nullptr);
  EXPECT_TRUE(fs::exists("target.ini"));
}

// Programs without a terminal may have closed their standard input: its number is then that of the next file.
TEST_F(ConfigHostTest, QsfFileOpensWhereStandardInputIsClosed) {
  WriteFile("file.qsf", QsfImage().Block(1, 74, 1).Append("ab").Summed());
  const int input = dup(STDIN_FILENO);
  ASSERT_GE(input, 0);
  close(STDIN_FILENO);
  void* qsf = nullptr;
  void* block = nullptr;
  std::uint16_t count = 0;
  const std::uint32_t opened = ZeQsfOpen("file.qsf", 7, &qsf);
  const std::uint32_t got = ZeQsfGetVariables(qsf, 1, &block, &count);
  ZeQsfClose(qsf);
  dup2(input, STDIN_FILENO);
  close(input);
  EXPECT_EQ(opened, ZE_OK);
  EXPECT_EQ(got, ZE_OK);
  ASSERT_NE(block, nullptr);
  EXPECT_BYTES(std::string(static_cast<const char*>(block), 2), "ab");
  ZeMemFree(block);
}

// Windows itself opens no paths of 260 characters.
class LongestPathTest : public IniTest {
 protected:
  // A name in the current folder, spelled with so many characters.
  static std::string Padded(const std::string& name, std::size_t size) {
    return "." + std::string(size - 1 - name.size(), '/') + name;
  }
};

TEST_F(LongestPathTest, OfAnIniFileIsOpenedAndWrittenBack) {
  WriteFile(kFile, "[s]\na=1\n");
  handle = ZeIniOpen2(Padded(kFile, 260).c_str(), ZE_INI_UPDATE);
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(ZeIniWrite(handle, "s", "a", "2"), 1U);
  EXPECT_EQ(Close(), 1U);
  EXPECT_EQ(ReadFile(kFile), "[s]\na=2\n");
  EXPECT_EQ(ZeIniOpen2(Padded(kFile, 261).c_str(), ZE_INI_UPDATE), nullptr);
}

TEST_F(LongestPathTest, OfAQsfFileIsOpened) {
  WriteFile("file.qsf", QsfImage().Summed());
  void* file = nullptr;
  EXPECT_EQ(ZeQsfOpen(Padded("file.qsf", 260).c_str(), 7, &file), ZE_OK);
  ZeQsfClose(file);
  EXPECT_EQ(ZeQsfOpen(Padded("file.qsf", 261).c_str(), 7, &file), ZE_OPEN_FAILED);
}

TEST_F(LongestPathTest, OfAPanelIsThatOfDirectoryAndName) {
  fs::create_directory("panels");
  WriteFile("panels/opc001.cfg", "a=1\n");
  const std::size_t most = 260 - std::string_view("\\opc001.cfg").size();
  void* panel = ZeOpcRegisterCfg(1, Padded("panels", most).c_str());
  EXPECT_NE(panel, nullptr);
  EXPECT_EQ(ZeOpcUnregisterCfg(panel), 1U);
  EXPECT_EQ(ZeOpcRegisterCfg(1, Padded("panels", most + 1).c_str()), nullptr);
}

}  // namespace
}  // namespace zeapi::testing
