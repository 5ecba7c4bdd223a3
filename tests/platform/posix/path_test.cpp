#include "platform/posix/path.h"

#include <cstdlib>

#include "platform/files.h"
#include "platform/find.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;
using platform::HostPath;

class PathTest : public ScratchTest {
 protected:
  static std::string Mapped(const std::string& path) {
    HostPath host;
    return platform::ToHostPath(path.c_str(), &host) ? host.text : "(none)";
  }
  std::string Drive(const std::string& rest) const {
    return (folder() / "drives").string() + "/" + rest;
  }
};

TEST_F(PathTest, BackslashesBecomeSlashes) {
  EXPECT_EQ(Mapped("a\\b/c"), "a/b/c");
  EXPECT_EQ(Mapped("\\a\\b"), "/a/b");
  EXPECT_EQ(Mapped("\\\\server\\share"), "//server/share");
}

TEST_F(PathTest, DrivesAreFoldersOfTheVariable) {
  EXPECT_EQ(Mapped("c:\\x.log"), Drive("c/x.log"));
  EXPECT_EQ(Mapped("C:\\x.log"), Drive("c/x.log"));
  EXPECT_EQ(Mapped("q:x"), Drive("q/x"));
  EXPECT_EQ(Mapped("c:"), Drive("c/"));
}

TEST_F(PathTest, RootOfADriveIsItsOwnParent) {
  EXPECT_EQ(Mapped("c:\\..\\x.log"), Drive("c/x.log"));
  EXPECT_EQ(Mapped("c:..\\..\\x"), Drive("c/x"));
  EXPECT_EQ(Mapped("c:\\a\\..\\..\\..\\b\\..\\x"), Drive("c/x"));
  EXPECT_EQ(Mapped("c:\\.."), Drive("c/"));
}

TEST_F(PathTest, DotsOnADriveAreResolvedByTheTextAlone) {
  EXPECT_EQ(Mapped("c:\\a\\..\\.\\\\..\\x"), Drive("c/x"));
  EXPECT_EQ(Mapped("c:\\none\\..\\a\\.\\\\b\\"), Drive("c/a/b/"));
  EXPECT_EQ(Mapped("c:\\a\\b\\.."), Drive("c/a"));
  EXPECT_EQ(Mapped("c:\\a\\b\\..\\"), Drive("c/a/"));
  EXPECT_EQ(Mapped("c:\\a\\."), Drive("c/a"));
  EXPECT_EQ(Mapped("c:\\..."), Drive("c/..."));
  EXPECT_EQ(Mapped("c:\\a."), Drive("c/a."));
  EXPECT_EQ(Mapped("c:\\.\\b.."), Drive("c/b.."));
  EXPECT_EQ(Mapped("c:\\a..\\..b\\"), Drive("c/a../..b/"));
  EXPECT_EQ(Mapped("..\\x"), "../x") << "no drive: the host resolves it";
}

TEST_F(PathTest, DriveThatIsNotThereIsNotMade) {
  fs::create_directory(Drive(""));
  for (const char* path : {"y:", "y:\\", "y:\\.", "y:.\\", "y:\\a\\.."}) {
    EXPECT_FALSE(platform::MakeDirectory(path)) << path;
    EXPECT_FALSE(fs::exists(Drive("y"))) << path;
  }
}

TEST_F(PathTest, WithoutTheVariableNoDriveExists) {
  unsetenv("ZEAPI_DRIVES");
  EXPECT_EQ(Mapped("c:\\x.log"), "(none)");
  setenv("ZEAPI_DRIVES", "", 1);
  EXPECT_EQ(Mapped("c:\\x.log"), "(none)");
  EXPECT_EQ(Mapped("x.log"), "x.log");
  setenv("ZEAPI_DRIVES", (folder() / "drives").c_str(), 1);
}

TEST_F(PathTest, ColonElsewhereIsNoDrive) {
  EXPECT_EQ(Mapped("1:\\x"), "1:/x");
  EXPECT_EQ(Mapped("ab:x"), "ab:x");
}

TEST_F(PathTest, EmptyAndOverlongPathsHaveNoPlace) {
  EXPECT_EQ(Mapped(""), "(none)");
  EXPECT_EQ(Mapped(std::string(5000, 'x')), "(none)");
  EXPECT_EQ(Mapped("c:" + std::string(4090, 'x')), "(none)");
  HostPath host;
  EXPECT_FALSE(platform::ToHostPath(nullptr, &host));
}

TEST_F(PathTest, OverlongVariableHasNoDrive) {
  setenv("ZEAPI_DRIVES", std::string(5000, 'd').c_str(), 1);
  EXPECT_EQ(Mapped("c:x"), "(none)");
  setenv("ZEAPI_DRIVES", (folder() / "drives").c_str(), 1);
}

TEST_F(PathTest, ExactNameGoesBeforeAnyOtherCase) {
  WriteFile("name", "");
  WriteFile("NAME", "");
  EXPECT_EQ(Mapped("name"), "name");
  EXPECT_EQ(Mapped("NAME"), "NAME");
}

TEST_F(PathTest, MissingComponentsStayAsWritten) {
  fs::create_directory("Folder");
  EXPECT_EQ(Mapped("FOLDER\\New\\Name"), "Folder/New/Name");
  EXPECT_EQ(Mapped("FOLDER\\\\New"), "Folder//New");
  EXPECT_EQ(Mapped("FOLDER\\"), "Folder/");
}

TEST_F(PathTest, FolderWhoseNamesAreKeptMayBeSpelledInAnotherCase) {
  fs::create_directories("Fonts/Within");
  WriteFile("Fonts/A.txt", "");
  WriteFile("Fonts/Within/B.txt", "");
  const platform::FolderNames names("FONTS");
  EXPECT_EQ(Mapped("FONTS\\a.TXT"), "Fonts/A.txt");
  EXPECT_EQ(Mapped("fonts\\A.txt"), "Fonts/A.txt");
  EXPECT_EQ(Mapped("FONTS\\WITHIN\\b.txt"), "Fonts/Within/B.txt");
  EXPECT_EQ(Mapped("FONTS\\new.txt"), "Fonts/new.txt");
  EXPECT_EQ(Mapped("FONTS"), "Fonts");
  EXPECT_EQ(Mapped("FONTSX\\a.TXT"), "FONTSX/a.TXT");
  const platform::FolderNames none("");
  EXPECT_EQ(Mapped("FONTS\\a.TXT"), "Fonts/A.txt");
}

// A caller's path with a backslash means something else.
TEST_F(PathTest, NamesThatNoPathMeansAreNotFound) {
  for (const char* name : {"a\\b.cfg", "a*.cfg"}) WriteFile(name, "");
  platform::DirectorySearch search("*.cfg");
  platform::FoundEntry entry;
  ASSERT_TRUE(search.Next(&entry));
  EXPECT_EQ(entry.name, "a*.cfg");
  EXPECT_FALSE(search.Next(&entry));
}

TEST_F(PathTest, CaseIsMatchedBelowADriveAndBelowTheRoot) {
  fs::create_directory(UnderDriveC("Sub"));
  EXPECT_EQ(Mapped(OnDriveC("SUB")), Drive("c/") + folder().filename().string() + "/Sub");
  WriteFile("File", "");
  const std::string absolute = fs::absolute("FILE").string();
  EXPECT_EQ(Mapped(absolute), fs::absolute("File").string());
}

}  // namespace
}  // namespace zeapi::testing
