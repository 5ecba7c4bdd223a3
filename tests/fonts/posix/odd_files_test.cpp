// Font files that are no regular files, disks that are full, and paths that only this host has.
#include "download/font_senders.h"
#include "files/regular_file.h"
#include "fonts/convert.h"
#include "output/ZeQue.h"
#include "support/job.h"
#include "support/metrics.h"
#include "support/posix/named_pipe.h"
#include "support/soft_fonts.h"
#include "support/tfm_file.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

// Nothing waits for a writer.
using NamedPipeTest = PipeTest<FontTest>;

TEST_F(NamedPipeTest, OnlyRegularFilesAreFontFiles) {
  MakePipe("pipe.x");
  fs::create_directory("folder.x");
  WriteFile("file.x", "x");
  fs::create_symlink("file.x", "link.x");
  for (const char* name : {"pipe.x", "folder.x", "missing.x", "/dev/null", ""}) {
    EXPECT_EQ(OpenRegularFile(name, "rb"), nullptr) << name;
  }
  for (const char* name : {"file.x", "link.x"}) {
    std::FILE* file = OpenRegularFile(name, "rb");
    ASSERT_NE(file, nullptr) << name;
    std::fclose(file);
  }
}

TEST_F(NamedPipeTest, QueryTakesItForAFileThatDoesNotOpen) {
  const std::pair<const char*, std::uint32_t> rows[] = {
      {"pipe.afm", ZE_OPEN_FAILED}, {"pipe.pfa", ZE_OPEN_FAILED}, {"pipe.pfb", ZE_OPEN_FAILED},
      {"pipe.dlf", ZE_OPEN_FAILED}, {"pipe.fmf", ZE_OPEN_FAILED}, {"pipe.pfm", ZE_BAD_FORMAT},
      {"pipe.psm", ZE_BAD_FORMAT},  {"pipe.pbm", ZE_BAD_FORMAT},  {"pipe.pcm", ZE_BAD_FORMAT},
      {"pipe.sfp", ZE_BAD_FORMAT}};
  for (const auto& [name, result] : rows) {
    MakePipe(name);
    EXPECT_EQ(Query(name), result) << name;
  }
}

TEST_F(NamedPipeTest, InfThatIsAPipeDoesNotOpen) {
  WriteFile("font.afm", "FontName Courier\nEndFontMetrics\n");
  MakePipe("font.INF");
  EXPECT_EQ(Query("font.afm", 4), ZE_OPEN_FAILED);
  EXPECT_EQ(Query("font.afm", 5), ZE_OK);
  EXPECT_STREQ(info.description, "");
  EXPECT_EQ(Query("font.afm", 0), ZE_UNSUPPORTED);
  EXPECT_STREQ(info.description, "Courier");
}

TEST_F(NamedPipeTest, ConversionsRefuseIt) {
  MakePipe("pipe.x");
  WriteFile("pipe.INF", "MSMenuName (Test)\n");
  const std::pair<std::uint32_t, std::uint32_t> rows[] = {
      {1, ZE_OPEN_FAILED}, {2, ZE_OPEN_FAILED}, {3, ZE_BAD_FORMAT},
      {4, ZE_OPEN_FAILED}, {5, ZE_OPEN_FAILED}, {17, ZE_OPEN_FAILED}};
  for (const auto& [conversion, result] : rows) {
    EXPECT_EQ(ZeFonConvert("pipe.x", "out.x", nullptr, 0, conversion), result) << conversion;
  }
  SetMetricsFile("font.tfm");
  WriteFile("font.tfm", TfmFile{}.File());
  EXPECT_EQ(ZeFonConvert("pipe.x", "out.x", &info, 4, 16), ZE_OPEN_FAILED);
  MakePipe("font.tfm");
  EXPECT_EQ(ZeFonConvert("pipe.x", "out.x", &info, 4, 6), ZE_BAD_FORMAT);
  WriteFile("font.afm", "FontName Courier\nEndFontMetrics\n");
  MakePipe("font.INF");
  EXPECT_EQ(ZeFonConvert("font.afm", "out.x", nullptr, 0, 1), ZE_OPEN_FAILED);
  EXPECT_FALSE(fs::exists("out.x"));
}

TEST_F(NamedPipeTest, SearchPassesItOver) {
  fs::create_directory("fonts");
  WriteFile("fonts/a.ttf", "x");
  MakePipe("fonts/GLUE.TXT");
  MakePipe("fonts/b.pfb");
  MakePipe("fonts/c.sfp");
  std::uint16_t count = 10;
  ZeFoundFile* list = ZeFonFind("fonts", &count, 26, 5, 0, 0);
  EXPECT_EQ(count, 1);
  ZeFonFindFree(list);
}

class PipeDownloadTest : public PipeTest<JobTest> {
 protected:
  void SetUp() override {
    PipeTest::SetUp();
    destination.language = ZE_LANGUAGE_PCL;
  }
};

TEST_F(PipeDownloadTest, PipeIsNoFont) {
  for (const char* name : {"pipe.pfb", "pipe.dlf"}) {
    MakePipe(name);
    EXPECT_EQ(ZeFonDownload(name, kOutput, &destination, 1), ZE_OPEN_FAILED) << name;
  }
  MakePipe("pipe.sfp");
  EXPECT_EQ(ZeFonDownload("pipe.sfp", kOutput, &destination, 1), ZE_BAD_FORMAT);
  EXPECT_TRUE(NothingSent());
}

// A font may become one between query and download.
TEST_F(PipeDownloadTest, SendersTakeItForAFileThatDoesNotOpen) {
  MakePipe("pipe.x");
  GenQueContext ctx;
  ctx.destination = &destination;
  EXPECT_EQ(SendPclFont("pipe.x", FontIdForm::kPcl, &ctx), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(SendScalableFont("pipe.x", &ctx), ZE_OPEN_FAILED);
  EXPECT_EQ(SendPpdsBlocks("pipe.x", 1, &ctx), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(SendType1Font("pipe.x", false, &ctx), ZE_OPEN_FAILED);
}

class OutputTest : public FontTest {
 protected:
  void SetUp() override {
    FontTest::SetUp();
    WriteAfmWithInf();
  }
};

TEST_F(OutputTest, FullDiskGives36ForWindowsMetricsAnd7ForAnAfmFile) {
  WriteFile("font.pfm", PostScriptPfm{}.File());
  WriteFile("font.dlf", DlfFile{}.File());
  SoftFont soft(0);
  soft.AddBitmap('A', 120, 30, 24, 30);
  WriteFile("font.sfp", soft.File());
  WriteFile("font.tfm", TfmFile{}.File());
  SetMetricsFile("font.tfm");
  fs::create_symlink("/dev/full", "full.PFM");
  const std::pair<std::uint32_t, const char*> rows[] = {
      {1, "font.afm"}, {2, "font.afm"},  {4, "font.dlf"}, {5, "font.sfp"},
      {6, "font.sfp"}, {16, "font.sfp"}, {17, "font.sfp"}};
  for (const auto& [conversion, font] : rows) {
    EXPECT_EQ(ZeFonConvert(font, "full.PFM", &info, 4, conversion), 36U) << conversion;
  }
  EXPECT_FALSE(fs::exists("full.PSM"));
  EXPECT_EQ(ZeFonConvert("font.pfm", "full.PFM", nullptr, 0, 3), 7U);
}

TEST_F(OutputTest, FullDiskOfTheSecondFileGives36) {
  fs::create_symlink("/dev/full", "out.PSM");
  EXPECT_EQ(ZeFonConvert("font.afm", "out.PFM", nullptr, 0, 2), 36U);
  EXPECT_TRUE(fs::exists("out.PFM"));
}

// The folder and the font's name together have more characters than a name may have.
TEST_F(OutputTest, FolderAndNameMayTogetherBeLongerThanAName) {
  const std::string folder = std::string(120, 'a') + "/" + std::string(120, 'b');
  fs::create_directories(folder);
  const std::string font = std::string(30, 'f');
  fs::rename("font.afm", font + ".afm");
  fs::rename("font.INF", font + ".INF");
  EXPECT_EQ(ZeFonConvert((font + ".afm").c_str(), folder.c_str(), nullptr, 0, 1), ZE_OK);
  EXPECT_TRUE(fs::exists(folder + "/" + font + ".PFM"));
  fs::remove(folder + "/" + font + ".PFM");
  EXPECT_EQ(ZeFonConvert((font + ".afm").c_str(), folder.c_str(), nullptr, 0, 2), ZE_OK);
  EXPECT_TRUE(fs::exists(folder + "/" + font + ".PFM"));
  EXPECT_TRUE(fs::exists(folder + "/" + font + ".PSM"));
}

}  // namespace
}  // namespace zeapi::testing
