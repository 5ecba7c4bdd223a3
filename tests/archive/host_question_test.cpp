// Members of host system 2, about which the library asks on standard input.

#include <gtest/gtest.h>

#include <cstdio>

#include "archive/archive_case.h"
#include "archive/confirmation.h"
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace zeapi::testing {
namespace {

#ifdef _WIN32
constexpr char kNothing[] = "NUL";
int MakePipe(int* ends) { return _pipe(ends, 8192, _O_BINARY); }
int Put(int file, const std::string& text) {
  return _write(file, text.data(), static_cast<unsigned>(text.size()));
}
int MakeInput(int file) { return _dup2(file, 0); }
int Close(int file) { return _close(file); }
#else
constexpr char kNothing[] = "/dev/null";
int MakePipe(int* ends) { return pipe(ends); }
int Put(int file, const std::string& text) {
  return static_cast<int>(write(file, text.data(), text.size()));
}
int MakeInput(int file) { return dup2(file, 0); }
int Close(int file) { return close(file); }
#endif

class HostQuestion : public ArchiveTest {
 protected:
  void TearDown() override {
    if (writer_ >= 0) Close(writer_);
    EXPECT_NE(std::freopen(kNothing, "r", stdin), nullptr);
    ArchiveTest::TearDown();
  }

  static ZipMember Asking(const std::string& name, std::uint8_t version = 42) {
    ZipMember member = {name, "1"};
    member.neededHost = 2;
    member.neededVersion = version;
    return member;
  }
  static ZipArchive TwoAsking() { return {{Asking("first"), {"plain", "0"}, Asking("second")}}; }

  static void InputFrom(const std::string& path) {
    EXPECT_NE(std::freopen(path.c_str(), "r", stdin), nullptr);
  }
  std::uint32_t ExplodeAnswered(const std::string& answers, const ZipArchive& archive,
                                const char* pattern = nullptr) {
    WriteFile("../answers", answers);
    InputFrom("../answers");
    return Explode(archive, pattern);
  }
  std::uint32_t ExplodeAnswered(const std::string& answers) {
    return ExplodeAnswered(answers, TwoAsking());
  }

  // Standard input is a pipe that holds the text and whose other end stays open.
  void InputFromPipe(const std::string& text) {
    int ends[2];
    ASSERT_EQ(MakePipe(ends), 0);
    writer_ = ends[1];
    EXPECT_EQ(Put(writer_, text), static_cast<int>(text.size()));
    EXPECT_GE(MakeInput(ends[0]), 0);
    EXPECT_EQ(Close(ends[0]), 0);
  }

 private:
  int writer_ = -1;
};

TEST_F(HostQuestion, LineThatBeginsWithYIsAYes) {
  EXPECT_EQ(ExplodeAnswered("yes\nY\n"), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"first=1", "plain=0", "second=1"}));
}

TEST_F(HostQuestion, EachMemberTakesALine) {
  EXPECT_EQ(ExplodeAnswered(std::string(300, 'n') + "\ny"), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"plain=0", "second=1"}));
}

TEST_F(HostQuestion, AnythingElseIsANo) {
  EXPECT_EQ(ExplodeAnswered("\n y\n"), ZE_OK);
  EXPECT_EQ(Tree(), Names{"plain=0"});
}

TEST_F(HostQuestion, ZeroByteEndsNoLine) {
  EXPECT_EQ(ExplodeAnswered(Bytes("n\0\ny\n")), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"plain=0", "second=1"}));
}

TEST_F(HostQuestion, WithoutAnAnswerTheMemberIsSkipped) {
  EXPECT_EQ(ExplodeAnswered(""), ZE_OK);
  EXPECT_EQ(Tree(), Names{"plain=0"});
}

TEST_F(HostQuestion, VeryLongLineIsTheNextAnswerToo) {
  EXPECT_EQ(ExplodeAnswered(std::string(kLongestAnswer, 'n') + "y\n"), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"plain=0", "second=1"}));
}

TEST_F(HostQuestion, IdlePipeIsNotWaitedFor) {
  InputFromPipe("");
  EXPECT_EQ(Explode(TwoAsking()), ZE_OK);
  EXPECT_EQ(Tree(), Names{"plain=0"});
}

TEST_F(HostQuestion, PipeAnswersWithWhatItHolds) {
  InputFromPipe("n\ny");
  EXPECT_EQ(Explode(TwoAsking()), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"plain=0", "second=1"}));
}

TEST_F(HostQuestion, NothingIsReadBeyondTheAnswer) {
  EXPECT_EQ(ExplodeAnswered("n\ny\nthe program's own\n"), ZE_OK);
  char line[40] = "";
  EXPECT_NE(std::fgets(line, sizeof(line), stdin), nullptr);
  EXPECT_STREQ(line, "the program's own\n");
}

#ifndef _WIN32
TEST_F(HostQuestion, InputWithoutEndDecidesInTime) {
  InputFrom("/dev/zero");
  EXPECT_EQ(Explode(TwoAsking()), ZE_OK);
  EXPECT_EQ(Tree(), Names{"plain=0"});
}

// The archive used to be opened in its place and to answer with its own bytes.
TEST_F(HostQuestion, ClosedInputIsNoAnswer) {
  close(STDIN_FILENO);
  std::string bytes = ZipArchive{{{"d/first", "0"}, Asking("y")}}.Bytes();
  EXPECT_EQ(ExplodeBytes(bytes), ZE_OK);
  EXPECT_EQ(Tree(), (Names{"d/", "d/first=0"}));
  EXPECT_EQ(open(kNothing, O_RDONLY), STDIN_FILENO);
}
#endif

// --- Which members take a line: the question comes behind the version and before all else

TEST_F(HostQuestion, NewerVersionsAreNotAskedAbout) {
  EXPECT_EQ(ExplodeAnswered("y\nn\n", {{Asking("newer", 43), Asking("next")}}), ZE_OK);
  EXPECT_EQ(Tree(), Names{"next=1"});
}

TEST_F(HostQuestion, MembersThatAreLeftOutAreNotAskedAbout) {
  EXPECT_EQ(ExplodeAnswered("y\nn\n", {{Asking("other"), Asking("next")}}, "n*"), ZE_OK);
  EXPECT_EQ(Tree(), Names{"next=1"});
}

TEST_F(HostQuestion, MembersThatCannotBeExtractedAreAskedAboutAllTheSame) {
  ZipMember method = Asking("method");
  method.method = 9;
  EXPECT_EQ(ExplodeAnswered("y\nn\n", {{method, Asking("next")}}), ZE_OK);
  ZipMember encrypted = Asking("encrypted");
  encrypted.flags = 1;
  EXPECT_EQ(ExplodeAnswered("y\nn\n", {{encrypted, Asking("next")}}), ZE_OK);
  EXPECT_EQ(Tree(), Names{});
}

}  // namespace
}  // namespace zeapi::testing
