// Members that are not what they should be, with and without a callback.

#include <gtest/gtest.h>

#include <map>

#include "archive/archive_case.h"
#include "archive/bit_writer.h"
#include "archive/implode_encoder.h"
#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

using ZipDamage = ArchiveTest;

TEST_F(ZipDamage, WrongCrcLeavesTheFileAndIsAWarning) {
  ZipMember wrong = {"wrong", "x"};
  wrong.crc = 1;
  EXPECT_EQ(Explode({{wrong, {"next", "y"}}}), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"next=y", "wrong=x"}));
}

TEST_F(ZipDamage, KeepsStoppingAtAWrongCrcWithACallback) {
  ZipMember wrong = {"wrong", "x"};
  wrong.crc = 1;
  EXPECT_EQ(ExplodeTold({{{"first", "a"}, wrong, {"next", "y"}}}), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"first=a", "wrong=x"}));
  EXPECT_EQ(progress().size(), 1U);
}

TEST_F(ZipDamage, BadDeflateDataIsBadFormatAndTheRestFollows) {
  const ZipMember bad = {"bad", "plain", 8, "\xFF\xFF\xFF"};
  EXPECT_EQ(Explode({{bad, {"next", "y"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), (Names{"bad=", "next=y"}));
}

TEST_F(ZipDamage, BadDeflateDataStopsBeforeACallback) {
  const ZipMember bad = {"bad", "plain", 8, "\xFF\xFF\xFF"};
  EXPECT_EQ(ExplodeTold({{bad, {"next", "y"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{"bad="});
}

TEST_F(ZipDamage, BadImplodeTreesAreBadFormat) {
  EXPECT_EQ(Explode({{{"bad", "plain", 6, std::string(50, '\0')}}}), ZE_BAD_FORMAT);
}

TEST_F(ZipDamage, BadShrinkAndReduceDataShowInTheCrcAlone) {
  EXPECT_EQ(Explode({{{"shrunk", "plain", 1, std::string(9, '\xFF')},
                      {"reduced", "plain", 2, std::string(9, '\xFF')}}}),
            ZE_OK);
  EXPECT_EQ(Tree(), (Names{"reduced=", "shrunk="}));
}

TEST_F(ZipDamage, MethodThatOnlyTheLocalHeaderStatesIsAWarning) {
  ZipMember member = {"file", "x"};
  for (const std::uint16_t method : std::initializer_list<std::uint16_t>{7, 9, 99}) {
    member.localMethod = method;
    EXPECT_EQ(Explode({{member, {"next", "y"}}}), ZE_OK);
  }
  EXPECT_EQ(Tree(), (Names{"file=", "next=y"}));
}

TEST_F(ZipDamage, SizesThatLie) {
  ZipMember shorter = {"shorter", "content"};
  shorter.uncompressedSize = 3;
  ZipMember longer = {"longer", "content"};
  longer.uncompressedSize = 4000000000;
  ZipMember fewer = {"fewer", "content"};
  fewer.compressedSize = 2;
  EXPECT_EQ(Explode({{shorter, longer, fewer}}), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"fewer=co", "longer=content", "shorter=content"}));
  // A copy is as long as the packed data, which may be none and may have bytes behind the plain ones.
  ZipMember none = {"none", "content"};
  none.uncompressedSize = 0;
  EXPECT_EQ(Explode({{none}}), ZE_OK);
  EXPECT_EQ(ReadFile("none"), "content");
  // Deflate ends at its own end.
  ZipMember deflated = {"deflated", "abc", 8,
                        Bytes("\x01\x03\x00\xFC\xFF"
                              "abcTRAILING")};
  deflated.uncompressedSize = 1;
  EXPECT_EQ(Explode({{deflated}}), ZE_OK);
  EXPECT_EQ(ReadFile("deflated"), "abc");
  deflated.compressedSize = 6;
  EXPECT_EQ(Explode({{deflated}}), ZE_BAD_FORMAT);
}

TEST_F(ZipDamage, LocalExtraFieldBeyondTheArchiveIsAnUnexpectedEnd) {
  WriteFile("file", "old");
  for (const ZipMember& member : {ZipMember{"file", ""}, {"file", "content"}, {"folder/", ""}}) {
    std::string bytes = ZipArchive{{member}}.Bytes();
    constexpr std::size_t kExtraLength = 28;
    bytes.replace(kExtraLength, 2, "\xFF\xFF");
    EXPECT_EQ(ExplodeBytes(bytes), ZE_UNEXPECTED_END) << member.name;
  }
  EXPECT_EQ(Tree(), Names{"file=old"});
}

// However many there are: what is read ahead, or copied to the archive's end, is far from what ends a pass.
TEST_F(ZipDamage, SizesThatAreTooLargeEndNoOtherMember) {
  for (const std::uint32_t size : {5000U, 0xFFFFFFFFU}) {
    ZipArchive archive;
    for (int i = 0; i < 200; ++i) {
      ZipMember member = {"f" + std::to_string(i), "hello world"};
      member.compressedSize = size;
      member.method = 8;
      member.packed = Bytes("\x01\x0B\x00\xF4\xFF") + "hello world";
      archive.members.push_back(member);
    }
    EXPECT_EQ(ExplodeTold(archive), ZE_OK) << size;
    EXPECT_EQ(Tree().size(), 200U);
    EXPECT_EQ(ReadFile("f199"), "hello world");
    Empty();
  }
}

TEST_F(ZipDamage, StoredSizesThatAreTooLargeEndNoOtherMember) {
  ZipArchive archive;
  for (int i = 0; i < 50; ++i) {
    ZipMember member = {"f" + std::to_string(i), "hello world"};
    member.compressedSize = 0xFFFFFFFF;
    archive.members.push_back(member);
  }
  archive.members.push_back({"sound", "content"});
  EXPECT_EQ(Explode(archive), ZE_UNEXPECTED_END);
  EXPECT_EQ(ReadFile("sound"), "content");
}

TEST_F(ZipDamage, KeepsAnImplodedSizeThatDoesNotFitAWarning) {
  Random random(42);
  const std::string plain(500, 'x');
  ZipMember longer = {"longer", plain, 6, Implode(plain, {false, false}, TreeShape::kFlat, random)};
  longer.uncompressedSize = 5000;
  EXPECT_EQ(Explode({{longer}}), ZE_OK);
}

// The archive's directory stands in front, so that the members' data is the last of it and ends with it.
std::string EndingWithItsMember(const ZipMember& member) {
  std::string bytes = ZipArchive{{member}}.Bytes();
  const std::size_t start = bytes.find("PK\1\2");
  std::string directory = bytes.substr(start);
  // The record's offset and the member's, both counted from the start of the archive as it was.
  const std::size_t record = directory.find("PK\5\6");
  const auto put = [&](std::size_t at, std::size_t value) {
    directory.replace(at, 4, Le32(static_cast<std::uint32_t>(value)));
  };
  put(42, directory.size());
  put(record + 16, 0);
  return directory + bytes.substr(0, start);
}

TEST_F(ZipDamage, MembersThatReachBeyondTheArchiveEndUnexpectedly) {
  BitWriter trees;  // of Implode: two flat ones, and then literals
  PutTree(std::vector<unsigned>(64, 6), &trees);
  PutTree(std::vector<unsigned>(64, 6), &trees);
  const std::string literals(40, '\xFF');
  const std::map<std::uint16_t, std::string> starts = {
      {0, "content"},
      {1, std::string(4, '\0')},               // the code 0, four times
      {2, std::string(32 * 3, '\0') + "abc"},  // no followers; bytes as they are
      {6, trees.bytes() + literals},
      {8, Bytes("\x01\xFF\xFF\0\0") + "abc"}};  // a stored block of 65535 bytes
  for (const auto& [method, packed] : starts) {
    ZipMember member = {"file" + std::to_string(method), "", method, packed};
    member.compressedSize = member.uncompressedSize = 4000000000;
    EXPECT_EQ(ExplodeBytes(EndingWithItsMember(member)), ZE_UNEXPECTED_END) << method;
    EXPECT_TRUE(fs::exists(member.name)) << method;
  }
}

// --- The first member that fails ends the pass where there is a callback, whatever failed

struct Failing {
  const char* what;
  std::uint32_t result;
  ZipMember member;
};

std::vector<Failing> FailingMembers() {
  std::vector<Failing> all;
  ZipMember signature = {"signature", "x"};
  signature.breakLocalSignature = true;
  all.push_back({"no local header", ZE_BAD_FORMAT, signature});
  ZipMember beyond = {"beyond", "x"};
  beyond.localOffset = 0xFFFFFF00;
  all.push_back({"a header beyond the end", ZE_UNEXPECTED_END, beyond});
  all.push_back({"no name", ZE_BAD_FORMAT, {"..", "x"}});
  all.push_back({"a file in the place of a folder", ZE_BAD_FORMAT, {"taken/x", "x"}});
  all.push_back({"a file in the place of a folder member", ZE_BAD_FORMAT, {"taken/", ""}});
  all.push_back({"a folder in the place of the file", ZE_SHARING_VIOLATION, {"folder", "x"}});
  all.push_back({"bad data", ZE_BAD_FORMAT, {"data", "plain", 8, "\xFF\xFF\xFF"}});
  ZipMember crc = {"crc", "x"};
  crc.crc = 1;
  all.push_back({"a wrong CRC", ZE_OK, crc});
  ZipMember cut = {"cut", "x"};
  cut.compressedSize = cut.uncompressedSize = 100000;
  all.push_back({"data beyond the end", ZE_UNEXPECTED_END, cut});
  ZipMember method = {"method", "x"};
  method.localMethod = 9;
  all.push_back({"an unknown method in the local header", ZE_OK, method});
  return all;
}

TEST_F(ZipDamage, FirstMemberThatFailsEndsThePassBeforeACallback) {
  WriteFile("taken", "file");
  fs::create_directory("folder");
  for (const Failing& failing : FailingMembers()) {
    fs::remove("last");
    EXPECT_EQ(ExplodeTold({{{"first", "1"}, failing.member, {"last", "2"}}}), failing.result)
        << failing.what;
    EXPECT_FALSE(fs::exists("last")) << failing.what;
    EXPECT_TRUE(fs::exists("first")) << failing.what;
    EXPECT_EQ(progress().size(), 1U) << failing.what;
    ClearProgress();
  }
}

TEST_F(ZipDamage, WithoutACallbackTheRestFollows) {
  WriteFile("taken", "file");
  fs::create_directory("folder");
  for (const Failing& failing : FailingMembers()) {
    fs::remove("last");
    EXPECT_EQ(Explode({{failing.member, {"last", "2"}}}), failing.result) << failing.what;
    EXPECT_TRUE(fs::exists("last")) << failing.what;
  }
}

// --- What stands in the place of a member's file

TEST_F(ZipDamage, ArchiveDoesNotOverwriteItself) {
  Random random(43);
  std::string plain;
  for (int i = 0; i < 9000; ++i) plain += static_cast<char>(Below(random, 256));
  const std::string bytes =
      ZipArchive{{{"first", "1"}, {"self.zip", "x"}, {"last", plain}}}.Bytes();
  WriteFile("self.zip", bytes);
  EXPECT_EQ(ZeZipExplode("self.zip", nullptr, nullptr), ZE_SHARING_VIOLATION);
  EXPECT_TRUE(ReadFile("self.zip") == bytes);
  EXPECT_EQ(ReadFile("first"), "1");
  EXPECT_TRUE(ReadFile("last") == plain);
}

TEST_F(ZipDamage, ArchiveUnderASecondNameIsStillItself) {
  const std::string bytes = ZipArchive{{{"other", "x"}, {"last", "2"}}}.Bytes();
  WriteFile("self.zip", bytes);
  fs::create_hard_link("self.zip", "other");
  EXPECT_EQ(ZeZipExplode("self.zip", nullptr, nullptr), ZE_SHARING_VIOLATION);
  EXPECT_TRUE(ReadFile("self.zip") == bytes);
}

TEST_F(ZipDamage, HardLinkIsWrittenThrough) {
  WriteFile("../other", "old");
  fs::create_hard_link("../other", "file");
  EXPECT_EQ(Explode({{{"file", "new"}}}), ZE_OK);
  EXPECT_EQ(ReadFile("../other"), "new");
}

}  // namespace
}  // namespace zeapi::testing
