// Archives whose records are in odd places, of odd sizes or wrong.

#include <gtest/gtest.h>

#include "archive/archive_case.h"
#include "archive/bit_writer.h"
#include "archive/random_data.h"
#include "support/byte_order.h"

namespace zeapi::testing {
namespace {

using ArchiveStructure = ArchiveTest;

ZipArchive OneFile() { return {{{"file", "content"}}}; }
const Names kOneFile = {"file=content"};

TEST_F(ArchiveStructure, NoEndRecord) {
  EXPECT_EQ(ExplodeBytes(""), ZE_BAD_FORMAT);
  EXPECT_EQ(ExplodeBytes("PK\5\6"), ZE_BAD_FORMAT);
  EXPECT_EQ(ExplodeBytes(std::string(100000, 'x')), ZE_BAD_FORMAT);
}

TEST_F(ArchiveStructure, ArchiveWithoutMembers) {
  EXPECT_EQ(Explode({}), ZE_OK);
  EXPECT_EQ(ExplodeTold({}), ZE_OK);
  EXPECT_EQ(Explode({}, "*.txt"), ZE_OK);
  ZipArchive stub;
  stub.stub = "MZ";
  EXPECT_EQ(Explode(stub), ZE_OK);
}

TEST_F(ArchiveStructure, StubInFront) {
  ZipArchive archive = OneFile();
  archive.stub = std::string(1000, 's');
  EXPECT_EQ(Explode(archive), ZE_OK);
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, StubThatTheOffsetsKnow) {
  ZipArchive archive = OneFile();
  archive.stub = std::string(1000, 's');
  archive.offsetError = 1000;
  EXPECT_EQ(Explode(archive), ZE_OK);
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, CommentsOfEveryLength) {
  for (const std::size_t size : {1U, 3U, 18U, 19U, 2025U, 2026U, 2027U, 4096U, 65534U, 65535U}) {
    ZipArchive archive = OneFile();
    archive.comment = std::string(size, 'c');
    EXPECT_EQ(Explode(archive), ZE_OK) << size;
  }
}

// The record's place within the blocks of the search takes every value.
TEST_F(ArchiveStructure, SignatureAcrossBlockBorders) {
  for (std::size_t size = 1900; size < 2300; ++size) {
    ZipArchive archive = OneFile();
    archive.comment = std::string(size, 'c');
    ASSERT_EQ(Explode(archive), ZE_OK) << size;
  }
  for (std::size_t stub = 4096 - 160; stub < 4096 + 10; ++stub) {
    ZipArchive archive = OneFile();
    archive.stub = std::string(stub, 's');
    ASSERT_EQ(Explode(archive), ZE_OK) << stub;
  }
}

TEST_F(ArchiveStructure, RecordFartherFromTheEndThanACommentReaches) {
  ZipArchive archive = OneFile();
  archive.tail = std::string(65535, 't');
  EXPECT_EQ(Explode(archive), ZE_OK);
  archive.tail += 't';
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
}

TEST_F(ArchiveStructure, LastSignatureCounts) {
  ZipArchive archive = OneFile();
  archive.comment = "PK\5\6 short";  // too near the end to be a record
  EXPECT_EQ(Explode(archive), ZE_OK);
  archive.comment = "PK\5\6" + std::string(18, '\0');
  std::filesystem::remove("file");
  EXPECT_EQ(Explode(archive), ZE_OK);  // a record of its own, of no members
  EXPECT_EQ(Tree(), Names{});
}

TEST_F(ArchiveStructure, SeveralDisks) {
  ZipArchive archive = OneFile();
  archive.disk = 1;
  EXPECT_EQ(Explode(archive), ZE_FILE_NOT_FOUND);
  archive.disk = 2;
  archive.directoryDisk = 2;
  EXPECT_EQ(Explode(archive), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Tree(), Names{});
  archive.disk = archive.directoryDisk = 1;
  EXPECT_EQ(Explode(archive), ZE_OK);
  archive.disk = 0;
  archive.directoryDisk = 7;
  EXPECT_EQ(Explode(archive), ZE_OK);
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, OffsetsTooLargeAreBadAndWorkAllTheSame) {
  ZipArchive archive = OneFile();
  archive.offsetError = 20;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, DirectoryThatOnlyTheStoredOffsetFinds) {
  // Bytes between directory and end record look like a stub in front.
  ZipArchive archive = OneFile();
  archive.gap = "gap";
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, DirectoryThatIsNowhere) {
  ZipArchive archive = OneFile();
  archive.gap = "gap";
  archive.directoryOffset = 1;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  archive.directoryOffset = 0xFFFFFFFF;
  archive.directorySize = 0xFFFFFFFF;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{});
}

// Its own offset is corrected, and so are those of the members, which then lead elsewhere.
TEST_F(ArchiveStructure, DirectoryWhoseOffsetAloneIsWrong) {
  ZipArchive archive = OneFile();
  archive.directoryOffset = 1;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  archive.directoryOffset = 0xFFFFFFFF;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{});
}

TEST_F(ArchiveStructure, MembersBeforeTheStartAreBad) {
  ZipArchive archive = {{{"first", "x"}, {"second", "y"}}};
  archive.offsetError = 20;
  archive.members[0].localOffset = 19;  // corrected by -20
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{"second=y"});
  EXPECT_EQ(ExplodeTold(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(progress().size(), 0U);
}

TEST_F(ArchiveStructure, OffsetOfZeroIsReplacedByTheAdjustment) {
  ZipArchive archive = OneFile();
  archive.directoryOffset = 0;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, OffsetOfZeroIsTriedAsItIsStored) {
  // The directory stands at the very start, and bytes before the record make a wrong adjustment.
  const std::string bytes = ZipArchive{{{"folder/", ""}}}.Bytes();
  const std::size_t start = bytes.find("PK\1\2");
  const std::size_t record = bytes.find("PK\5\6");
  const std::string directory = bytes.substr(start, record - start);
  std::string end = bytes.substr(record);
  end.replace(16, 4, 4, '\0');
  const std::string local = bytes.substr(0, start);
  std::string moved = directory;
  moved[42] = static_cast<char>(directory.size());
  EXPECT_EQ(ExplodeBytes(moved + local + end), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{"folder/"});
}

TEST_F(ArchiveStructure, DirectorySizeOfZeroWithAnOffset) {
  ZipArchive archive = OneFile();
  archive.directorySize = 0;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);  // found at the stored offset
  EXPECT_EQ(Tree(), kOneFile);
}

TEST_F(ArchiveStructure, FewerEntriesThanTheDirectoryHasIsAWarning) {
  ZipArchive archive = {{{"one", "1"}, {"two", "2"}}};
  archive.entries = 1;
  EXPECT_EQ(Explode(archive), ZE_OK);
  EXPECT_EQ(Tree(), Names{"one=1"});
}

TEST_F(ArchiveStructure, MoreEntriesThanTheDirectoryHasIsBad) {
  ZipArchive archive = OneFile();
  archive.entries = 2;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), kOneFile);  // what the batch had until then
}

TEST_F(ArchiveStructure, LocalHeaderThatIsNotThere) {
  ZipMember broken = {"broken", "x"};
  broken.breakLocalSignature = true;
  EXPECT_EQ(Explode({{broken, {"next", "y"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), Names{"next=y"});
  ZipMember beyond = {"beyond", "x"};
  beyond.localOffset = 0xFFFFFF00;
  EXPECT_EQ(Explode({{beyond, {"more", "z"}}}), ZE_UNEXPECTED_END);
  EXPECT_EQ(Tree(), (Names{"more=z", "next=y"}));
}

TEST_F(ArchiveStructure, LesserWarningsDoNotHideWhatIsWorse) {
  ZipArchive archive = {{{"one", "1"}, {"skipped", "2", 9}}};
  archive.offsetError = 20;
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(ExplodeTold(archive), ZE_BAD_FORMAT);
}

// A pass that a member ends tells that member's status alone.
TEST_F(ArchiveStructure, MemberThatEndsThePassHidesBadOffsets) {
  ZipMember wrong = {"wrong", "x"};
  wrong.crc = 1;
  ZipArchive archive = {{{"one", "1"}, wrong, {"late", "3"}}};
  archive.offsetError = 20;
  EXPECT_EQ(ExplodeTold(archive), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"one=1", "wrong=x"}));
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_EQ(Tree(), (Names{"late=3", "one=1", "wrong=x"}));
}

// Deflate at its best: each byte behind the head is 1032 bytes of the letter m.
std::string DeflatedTightly(std::size_t bytes) {
  BitWriter head;
  head.Put(1, 1);   // the last block
  head.Put(2, 2);   // with codes of its own
  head.Put(29, 5);  // 286 literals and lengths
  head.Put(0, 5);   // a distance
  head.Put(14, 4);  // lengths of 18 codes for lengths
  for (const int length : {0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 2})
    head.Put(static_cast<std::uint32_t>(length), 3);  // of the symbols 18, 2 and 1
  const auto zeros = [&head](std::uint32_t count) {
    head.PutCode(0, 1);
    head.Put(count - 11, 7);
  };
  const auto length = [&head](unsigned value) { head.PutCode(value == 1 ? 2 : 3, 2); };
  zeros(109);
  length(2);  // m
  zeros(135);
  zeros(11);
  length(2);  // the end
  zeros(28);
  length(1);           // 258 bytes
  length(1);           // from 1 back
  head.PutCode(2, 2);  // m; 7 bits are left in its byte, and each match is two that are 0
  return head.bytes() + std::string(bytes, '\0') + '\6';
}

// Entries of one and the same member could make a small archive work for hours.
TEST_F(ArchiveStructure, MembersThatMakeMoreThanAnyArchiveCouldEndThePass) {
  ZipArchive archive;
  for (int i = 0; i < 20; ++i) {
    ZipMember member = {"m", "", 8, i == 0 ? DeflatedTightly(1250) : ""};
    member.localOffset = 0;
    archive.members.push_back(member);
  }
  EXPECT_EQ(Explode(archive), ZE_BAD_FORMAT);
  EXPECT_GT(ReadFile("m").size(), 1032U * 1250) << "damaged, or not as tight as it can be";
  archive.members.resize(17);
  EXPECT_EQ(Explode(archive), ZE_OK) << "less is not noticed";
}

// What lies before the start of the file takes nothing of it.
TEST_F(ArchiveStructure, ArchiveWithoutItsBeginningGivesTheMembersBehindIt) {
  const ZipArchive archive = {{{"one", std::string(200, '1')}, {"two", "2"}, {"three", "3"}}};
  for (const std::size_t cut : {20U, 30U, 100U}) {
    EXPECT_EQ(ExplodeBytes(archive.Bytes().substr(cut)), ZE_BAD_FORMAT);
    EXPECT_EQ(Tree(), (Names{"three=3", "two=2"})) << cut;
    Empty();
  }
}

TEST_F(ArchiveStructure, PatternWithoutAMatchIsWorseThanBadOffsets) {
  ZipArchive archive = OneFile();
  EXPECT_EQ(Explode(archive, "no*"), ZE_FILE_NOT_FOUND);
  archive.offsetError = 20;
  EXPECT_EQ(Explode(archive, "no*"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Explode(archive, "f*"), ZE_BAD_FORMAT);
}

TEST_F(ArchiveStructure, DirectoryThatBreaksOffMayHaveHadAMatch) {
  ZipArchive archive = OneFile();
  archive.entries = 2;
  EXPECT_EQ(Explode(archive, "no*"), ZE_BAD_FORMAT);
}

TEST_F(ArchiveStructure, DirectoryOfNoEntriesHasNoMatch) {
  ZipArchive archive = OneFile();
  archive.entries = 0;
  EXPECT_EQ(Explode(archive, "f*"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Explode(archive), ZE_OK);
  EXPECT_EQ(Tree(), Names{});
}

TEST_F(ArchiveStructure, BatchesOf64) {
  for (const int count : {63, 64, 65, 128, 129, 300}) {
    ZipArchive archive;
    for (int i = 0; i < count; ++i)
      archive.members.push_back({std::to_string(i), std::to_string(i)});
    EXPECT_EQ(ExplodeTold(archive), ZE_OK);
    EXPECT_EQ(Tree().size(), static_cast<std::size_t>(count));
    EXPECT_EQ(ReadFile(std::to_string(count - 1)), std::to_string(count - 1));
  }
}

TEST_F(ArchiveStructure, MembersLeftOutTakeNoPlaceInABatch) {
  ZipArchive archive;
  for (int i = 0; i < 200; ++i)
    archive.members.push_back({(i % 3 == 0 ? "a" : "b") + std::to_string(i), "x"});
  EXPECT_EQ(Explode(archive, "a*"), ZE_OK);
  EXPECT_EQ(Tree().size(), 67U);
}

// One folder, 65535 times: what counts is the directory.
TEST_F(ArchiveStructure, MostEntriesThatThereCanBe) {
  const std::string bytes = ZipArchive{{{"folder/", ""}}}.Bytes();
  const std::size_t start = bytes.find("PK\1\2");
  const std::size_t end = bytes.find("PK\5\6");
  std::string archive = bytes.substr(0, start);
  for (int i = 0; i < 65535; ++i) archive += bytes.substr(start, end - start);
  const std::size_t size = archive.size() - start;
  std::string record = bytes.substr(end);
  record.replace(8, 4, "\xFF\xFF\xFF\xFF");
  record.replace(12, 4, Le32(static_cast<std::uint32_t>(size)));
  archive += record;
  EXPECT_EQ(ExplodeBytes(archive, "no*"), ZE_FILE_NOT_FOUND);
  EXPECT_EQ(Tree(), Names{});
  EXPECT_EQ(ExplodeBytes(archive), ZE_OK);
  EXPECT_EQ(Tree(), Names{"folder/"});
}

// --- Damage

bool IsStated(std::uint32_t result) {
  for (const std::uint32_t stated : {0U, 2U, 9U, 27U, 31U}) {
    if (result == stated) return true;
  }
  return false;
}

ZipArchive SmallArchive() {
  ZipArchive archive = {
      {{"a/one", "first content"}, {"two", "abc", 8, Bytes("\x4B\x4C\x4A\x06\0")}}};
  archive.comment = "comment";
  return archive;
}

TEST_F(ArchiveStructure, CutShortAnywhere) {
  const std::string bytes = SmallArchive().Bytes();
  ASSERT_EQ(ExplodeBytes(bytes), ZE_OK);
  ASSERT_EQ(Tree(), (Names{"a/", "a/one=first content", "two=abc"}));
  const std::size_t record = bytes.find("PK\5\6");
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_EQ(ExplodeBytes(bytes.substr(0, size)), size < record + 22 ? ZE_BAD_FORMAT : ZE_OK)
        << size;
}

TEST_F(ArchiveStructure, EveryBitTurnedRound) {
  const std::string bytes = SmallArchive().Bytes();
  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    Empty();
    std::string damaged = bytes;
    damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ 1 << bit % 8);
    const std::uint32_t result = ExplodeBytes(damaged);
    EXPECT_TRUE(IsStated(result)) << "bit " << bit << ": " << result;
  }
}

TEST_F(ArchiveStructure, NoiseBehindEveryMethod) {
  Random random(51);
  for (int i = 0; i < 400; ++i) {
    Empty();
    ZipArchive archive;
    for (const std::uint16_t method : std::initializer_list<std::uint16_t>{1, 2, 3, 4, 5, 6, 8}) {
      std::string noise;
      for (unsigned n = Below(random, 300); n > 0; --n)
        noise += static_cast<char>(Below(random, 256));
      ZipMember member = {std::to_string(method), "", method, noise};
      member.flags = static_cast<std::uint16_t>(2 * Below(random, 4));
      member.uncompressedSize = Below(random, 5000);
      archive.members.push_back(member);
    }
    const std::uint32_t result = Explode(archive);
    ASSERT_TRUE(IsStated(result)) << result;
  }
}

}  // namespace
}  // namespace zeapi::testing
