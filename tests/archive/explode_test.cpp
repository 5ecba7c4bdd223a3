// What ZeZipExplode() makes of sound archives, and ZeZipImplode().

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

#include "archive/archive_case.h"
#include "archive/archive_pass.h"
#include "archive/bit_writer.h"
#include "archive/implode_encoder.h"
#include "archive/reduce_encoder.h"
#include "archive/shrink_encoder.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

using ZipExplode = ArchiveTest;

// --- Arguments and the archive's name

TEST_F(ZipExplode, ChecksItsArguments) {
  const std::string longest(260, 'a');
  EXPECT_EQ(ZeZipExplode(nullptr, nullptr, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeZipExplode((longest + "a").c_str(), nullptr, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeZipExplode(longest.c_str(), nullptr, nullptr), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeZipExplode("none", (longest + "a").c_str(), nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeZipExplode("none", longest.c_str(), nullptr), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(ZeZipExplode("", nullptr, nullptr), ZE_FILE_NOT_FOUND);
}

TEST_F(ZipExplode, AppendsZipToANameThatIsNotThereOrAFolder) {
  WriteFile("../one.zip", ZipArchive{{{"file", "one"}}}.Bytes());
  EXPECT_EQ(ZeZipExplode("../one", nullptr, nullptr), ZE_OK);
  EXPECT_EQ(Tree(), Names{"file=one"});
  fs::create_directory("../two");
  EXPECT_EQ(ZeZipExplode("../two", nullptr, nullptr), ZE_FILE_NOT_FOUND);
  WriteFile("../two.zip", ZipArchive{{{"file", "two"}}}.Bytes());
  EXPECT_EQ(ZeZipExplode("../two", nullptr, nullptr), ZE_OK);
  EXPECT_EQ(Tree(), Names{"file=two"});
  fs::create_directory("../three.zip");
  EXPECT_EQ(ZeZipExplode("../three", nullptr, nullptr), ZE_OPEN_FAILED);
}

TEST_F(ZipExplode, FindsTheNameAsItIsFirst) {
  WriteFile("../name", ZipArchive{{{"file", "plain"}}}.Bytes());
  WriteFile("../name.zip", "no archive");
  EXPECT_EQ(ZeZipExplode("../name", nullptr, nullptr), ZE_OK);
  EXPECT_EQ(Tree(), Names{"file=plain"});
}

TEST_F(ZipExplode, ImplodeIsNotSupported) {
  const std::string longest(260, 'a');
  EXPECT_EQ(ZeZipImplode(nullptr, nullptr, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeZipImplode((longest + "a").c_str(), nullptr, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeZipImplode("x", (longest + "a").c_str(), nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeZipImplode(longest.c_str(), longest.c_str(), nullptr), ZE_UNSUPPORTED);
  EXPECT_EQ(ZeZipImplode("x", nullptr, nullptr), ZE_UNSUPPORTED);
  EXPECT_EQ(ZeZipImplode("", "", nullptr), ZE_UNSUPPORTED);
  WriteFile("archive.zip", "content");
  EXPECT_EQ(ZeZipImplode("archive.zip", nullptr, nullptr), ZE_UNSUPPORTED);
  EXPECT_EQ(Tree(), Names{"archive.zip=content"});
}

// --- Members

TEST_F(ZipExplode, MakesFoldersAndFiles) {
  EXPECT_EQ(Explode({{{"top.txt", "1"}, {"a/", ""}, {"a/b/inner", "2"}, {"c\\d", "3"}, {"e", ""}}}),
            ZE_OK);
  EXPECT_EQ(Tree(), (Names{"a/", "a/b/", "a/b/inner=2", "c/", "c/d=3", "e=", "top.txt=1"}));
}

TEST_F(ZipExplode, WritesOverWhatIsThere) {
  WriteFile("file", "something longer");
  EXPECT_EQ(Explode({{{"file", "new"}}}), ZE_OK);
  EXPECT_EQ(Tree(), Names{"file=new"});
}

TEST_F(ZipExplode, LocalNameMakesTheFileAndTheDirectorysNameIsMatched) {
  ZipMember member = {"match.txt", "x"};
  member.localName = "other.dat";
  EXPECT_EQ(Explode({{member}}, "*.txt"), ZE_OK);
  EXPECT_EQ(Tree(), Names{"other.dat=x"});
  EXPECT_EQ(Explode({{member}}, "*.dat"), ZE_FILE_NOT_FOUND);
}

TEST_F(ZipExplode, TakesOnlyWhatMatches) {
  const ZipArchive archive = {
      {{"one.txt", "1"}, {"two.dat", "2"}, {"d/three.TXT", "3"}, {"e/", ""}}};
  EXPECT_EQ(Explode(archive, "*.TXT"), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"d/", "d/three.TXT=3", "one.txt=1"}));
}

TEST_F(ZipExplode, SetsInPatternsKeepTheCase) {
  EXPECT_EQ(Explode({{{"ant", "1"}, {"Bee", "2"}, {"cat", "3"}, {"dog", "4"}}}, "[a-c]*"), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"ant=1", "cat=3"}));
}

TEST_F(ZipExplode, EmptyPatternTakesAll) {
  EXPECT_EQ(Explode({{{"one", "1"}}}, ""), ZE_OK);
  EXPECT_EQ(Tree(), Names{"one=1"});
}

TEST_F(ZipExplode, PatternSeesTheMappedNameBeforeAnythingIsDropped) {
  EXPECT_EQ(Explode({{{"a\\b:c", "1"}, {"../d", "2"}, {"x", "3"}}}, "*[/]*"), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"a/", "a/b_c=1", "d=2"}));
}

TEST_F(ZipExplode, PatternThatMatchesNothingFindsNoMember) {
  EXPECT_EQ(Explode({{{"one", "1"}}}, "two"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Explode({{{"one", "1"}}}, "[one"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Explode({{{"one", "1", 7}}}, "one"), ZE_OK);  // there is one, though it is passed over
  EXPECT_EQ(Tree(), Names{});
}

// --- Time

TEST_F(ZipExplode, StampsFilesWithTheMembersTimeAsUtc) {
  using namespace std::chrono;
  EXPECT_EQ(Explode({{{"file", "x"}}}), ZE_OK);
  const auto expected = sys_days(2001y / February / 27d) + 13h + 17min + 58s;
  const auto stamp = file_clock::to_sys(fs::last_write_time("file"));
  EXPECT_EQ(duration_cast<seconds>(stamp - expected).count(), 0);
}

TEST_F(ZipExplode, DateThatIsNoneIsLeftOut) {
  ZipMember member = {"file", "x"};
  member.date = 0;
  EXPECT_EQ(Explode({{member}}), ZE_OK);
  const auto age = fs::file_time_type::clock::now() - fs::last_write_time("file");
  EXPECT_LT(std::chrono::abs(age), std::chrono::hours(1));
}

// --- Packing methods

TEST_F(ZipExplode, EveryMethod) {
  Random random(41);
  std::string plain;
  while (plain.size() < 70000) plain += RandomData(random, 3000);
  ZipArchive archive;
  archive.members.push_back({"stored", plain});
  archive.members.push_back({"shrunk", plain, 1, Shrink(plain, {500}, random)});
  for (std::uint16_t factor = 1; factor <= 4; ++factor) {
    const auto method = static_cast<std::uint16_t>(1 + factor);
    archive.members.push_back(
        {"reduced" + std::to_string(factor), plain, method, Reduce(plain, factor, {}, random)});
  }
  for (const std::uint16_t flags : std::initializer_list<std::uint16_t>{0, 2, 4, 6}) {
    const ImplodeForm form = {(flags & 4) != 0, (flags & 2) != 0};
    archive.members.push_back({"imploded" + std::to_string(flags), plain, 6,
                               Implode(plain, form, TreeShape::kRandom, random), flags});
  }
  BitWriter deflated;
  for (std::size_t at = 0; at < plain.size(); at += 60000) {
    const std::string part = plain.substr(at, 60000);
    deflated.Put(at + 60000 >= plain.size() ? 1 : 0, 3);
    deflated.Align();
    deflated.Put(static_cast<unsigned>(part.size()), 16);
    deflated.Put(static_cast<unsigned>(part.size()) ^ 0xFFFF, 16);
    for (const char c : part) deflated.Put(static_cast<unsigned char>(c), 8);
  }
  archive.members.push_back({"deflated", plain, 8, deflated.bytes()});
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(progress().size(), archive.members.size());
  for (const ZipMember& member : archive.members)
    EXPECT_TRUE(ReadFile(member.name) == plain) << member.name;
}

// The size of 200000 packed bytes changes the decoder's tables. Bytes behind the data change nothing.
TEST_F(ZipExplode, ImplodedMembersOfExactly200000BytesAndOneMore) {
  Random random(44);
  std::string plain;
  for (unsigned i = 0; i < 100000; ++i) plain += static_cast<char>(Below(random, 256));
  plain += plain.substr(97000, 3000);
  std::string packed = Implode(plain, {true, false}, TreeShape::kRandom, random);
  ASSERT_LT(packed.size(), 200000U);
  ZipArchive archive;
  for (const std::size_t size : {200000U, 200001U}) {
    packed.resize(size, '\0');
    for (const std::uint16_t descriptor : std::initializer_list<std::uint16_t>{0, 8}) {
      const std::string name = std::to_string(size) + "_" + std::to_string(descriptor);
      archive.members.push_back(
          {name, plain, 6, packed, static_cast<std::uint16_t>(4 | descriptor)});
    }
  }
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  ASSERT_EQ(progress().size(), 4U);
  EXPECT_EQ(progress()[2].compressedSize, 200001U);
  for (const ZipMember& member : archive.members)
    EXPECT_TRUE(ReadFile(member.name) == plain) << member.name;
}

TEST_F(ZipExplode, EmptyMembersOfEveryMethod) {
  ZipArchive archive;
  for (const std::uint16_t method : std::initializer_list<std::uint16_t>{0, 1, 2, 3, 4, 5, 6, 8})
    archive.members.push_back({std::to_string(method), "", method});
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(Tree().size(), 8U);
}

TEST_F(ZipExplode, PassesOverWhatItCannotExtract) {
  ZipArchive archive = {{{"7", "x", 7}, {"9", "x", 9}, {"12", "x", 12}, {"99", "x", 99}}};
  ZipMember encrypted = {"encrypted", "x"};
  encrypted.flags = 1;
  ZipMember newer = {"newer", "x"};
  newer.neededVersion = 45;
  ZipMember next = {"21", "x"};
  next.neededVersion = 21;
  ZipMember otherHost = {"host", "x"};
  otherHost.neededHost = 3;
  archive.members.insert(archive.members.end(), {encrypted, newer, next, otherHost, {"good", "x"}});
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"good=x", "host=x"}));
  EXPECT_EQ(progress().size(), 2U);
}

TEST_F(ZipExplode, DescriptorMeansTheDirectorysSizes) {
  ZipMember member = {"file", "content"};
  member.flags = 8;
  EXPECT_EQ(ExplodeTold({{member, {"next", "more"}}}), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"file=content", "next=more"}));
}

TEST_F(ZipExplode, ExtraFieldsAndCommentsAreSkipped) {
  ZipMember member = {"file", "content"};
  member.localExtra = std::string(65535, 'L');
  member.centralExtra = std::string(5000, 'C');
  member.comment = std::string(65535, 'c');
  EXPECT_EQ(Explode({{member, member, {"next", "more"}}}), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"file=content", "next=more"}));
}

// --- Names

TEST_F(ZipExplode, StaysBelowTheCurrentDirectory) {
  EXPECT_EQ(Explode({{{"../evil", "1"},
                      {"/abs", "2"},
                      {"a/../../b", "3"},
                      {"..\\..\\c", "4"},
                      {"d\x16/..\x16/e", "5"}}}),
            ZE_OK);
  EXPECT_EQ(Tree(), (Names{"a/", "a/b=3", "abs=2", "c=4", "d/", "d/e=5", "evil=1"}));
  EXPECT_FALSE(fs::exists("../evil"));
}

TEST_F(ZipExplode, DroppedComponentsAreNoReasonToStopBeforeACallback) {
  EXPECT_EQ(ExplodeTold({{{"../one", "1"}, {"two", "2"}}}), ZE_OK);
  ASSERT_EQ(progress().size(), 2U);
  EXPECT_EQ(progress()[0].name, "one");
}

TEST_F(ZipExplode, DeviceNamesAndTrailingDotsAreMadeHarmless) {
  EXPECT_EQ(ExplodeTold({{{"NUL", "1"}, {"dir./lpt1.txt", "2"}, {"name. ", "3"}, {"a:b", "4"}}}),
            ZE_OK);
  EXPECT_EQ(Tree(), (Names{"_NUL=1", "a_b=4", "dir_/", "dir_/_lpt1.txt=2", "name__=3"}));
  EXPECT_EQ(progress()[1].name, "dir_/_lpt1.txt");
}

TEST_F(ZipExplode, NameOfNothingIsBad) {
  EXPECT_EQ(Explode({{{"", "1"}, {"\x01", "2"}, {"..", "3"}, {"good", "4"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{"good=4"});
}

TEST_F(ZipExplode, FileInThePlaceOfAFolderIsBad) {
  WriteFile("a", "file");
  EXPECT_EQ(Explode({{{"a/b/c", "1"}, {"good", "2"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), (Names{"a=file", "good=2"}));
}

TEST_F(ZipExplode, FileThatCannotBeCreated) {
  fs::create_directory("a");
  EXPECT_EQ(Explode({{{"a", "1"}, {"good", "2"}}}), ZE_SHARING_VIOLATION);
  EXPECT_EQ(Tree(), (Names{"a/", "good=2"}));
  EXPECT_EQ(ExplodeTold({{{"a", "1"}, {"better", "2"}}}), ZE_SHARING_VIOLATION);
  EXPECT_EQ(Tree(), (Names{"a/", "good=2"}));
}

TEST_F(ZipExplode, NamesTooLongForTheHost) {
  EXPECT_EQ(Explode({{{std::string(5000, 'n'), "1"}, {"good", "2"}}}), ZE_SHARING_VIOLATION);
  EXPECT_EQ(Explode({{{std::string(60000, 'd') + "/x", "1"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{"good=2"});
}

#ifndef _WIN32
TEST_F(ZipExplode, SymbolicLinksAreNotFollowed) {
  fs::create_directory("../outside");
  WriteFile("../victim", "safe");
  fs::create_directory_symlink("../outside", "link");
  fs::create_symlink("../victim", "file");
  fs::create_symlink("../fresh", "dangling");
  EXPECT_EQ(Explode({{{"link/x", "1"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Explode({{{"link/deep/x", "1"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Explode({{{"file", "1"}}}), ZE_SHARING_VIOLATION);
  EXPECT_EQ(Explode({{{"dangling", "1"}}}), ZE_SHARING_VIOLATION);
  EXPECT_TRUE(fs::is_empty("../outside"));
  EXPECT_EQ(ReadFile("../victim"), "safe");
  EXPECT_FALSE(fs::exists("../fresh"));
}
#endif

// --- The callback and the running total

TEST_F(ZipExplode, TellsNameSizeAndShareOfEachFile) {
  ArchiveRunningTotal() = 0;
  EXPECT_EQ(ExplodeTold({{{"d/", ""}, {"d/a", "123"}, {"b", "1"}, {"c", "1234"}}}), ZE_OK);
  ASSERT_EQ(progress().size(), 3U);
  EXPECT_EQ(progress()[0].name, "d/a");
  EXPECT_EQ(progress()[0].compressedSize, 3U);
  EXPECT_EQ(progress()[0].percentage, 38U);  // 37.5
  EXPECT_EQ(progress()[1].percentage, 13U);  // 12.5
  EXPECT_EQ(progress()[2].percentage, 50U);
}

TEST_F(ZipExplode, KeepsTheRunningTotalForTheLifeOfTheProcess) {
  ArchiveRunningTotal() = 0;
  const ZipArchive archive = {{{"a", "12345"}}};
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(progress()[0].percentage, 100U);
  EXPECT_EQ(progress()[1].percentage, 50U);
  EXPECT_EQ(progress()[2].percentage, 33U);
}

TEST_F(ZipExplode, LeftOutAndSkippedMembersCountInTheRunningTotal) {
  ArchiveRunningTotal() = 0;
  EXPECT_EQ(ExplodeTold({{{"a", "1"}, {"other", "12"}, {"ab", "1", 7}}}, "a*"), ZE_OK);
  ASSERT_EQ(progress().size(), 1U);
  EXPECT_EQ(progress()[0].percentage, 25U);
}

TEST_F(ZipExplode, RunningTotalGrowsABatchAhead) {
  ArchiveRunningTotal() = 0;
  ZipArchive archive;
  for (int i = 0; i < 65; ++i) archive.members.push_back({std::to_string(i), "x"});
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  ASSERT_EQ(progress().size(), 65U);
  EXPECT_EQ(progress()[0].percentage, 2U);   // one of 64
  EXPECT_EQ(progress()[64].percentage, 2U);  // one of 65
}

TEST(ArchivePercentage, RoundsHalfUpAndKnowsNoOverflow) {
  EXPECT_EQ(ArchivePercentage(0, 0), 0U);
  EXPECT_EQ(ArchivePercentage(7, 0), 0U);
  EXPECT_EQ(ArchivePercentage(1, 200), 1U);
  EXPECT_EQ(ArchivePercentage(1, 201), 0U);
  EXPECT_EQ(ArchivePercentage(0xFFFFFFFF, 0xFFFFFFFF), 100U);
  EXPECT_EQ(ArchivePercentage(0xFFFFFFFF, std::uint64_t{0xFFFFFFFF} * 65535), 0U);
  EXPECT_EQ(ArchivePercentage(0x80000000, 0xFFFFFFFF), 50U);
}

}  // namespace
}  // namespace zeapi::testing
