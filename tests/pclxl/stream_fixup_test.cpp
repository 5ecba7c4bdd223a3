#include "pclxl/stream_fixup.h"

#include <cstring>

#include "base/stream.h"
#include "pclxl/stream_name.h"
#include "pclxl/xl_fixup.h"
#include "support/job.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

using namespace xl;

namespace fs = std::filesystem;

constexpr char kUel[] = "\x1B%-12345X";

// "in.str" to "out.str".
class XlFixupTest : public ScratchTest {
 protected:
  static XlResult Fixup(std::string_view stream, std::string_view name = "N",
                        bool execute = false) {
    WriteFile("in.str", stream);
    return XlFixupStream(name, execute);
  }
};

TEST_F(XlFixupTest, StoresThePage) {
  EXPECT_EQ(Fixup(Session(Page(Body()))), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored("N", Body(), false));
  EXPECT_BYTES(ReadFile("temp.str"), Body());
  EXPECT_EQ(Fixup(Session(Page(Body())), "Other", true), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored("Other", Body(), true));
}

TEST_F(XlFixupTest, KeepsWalkingAStreamWithABadHeaderFromWhereTheCheckStopped) {
  const std::string rest = Session(Page(Body())).substr(kHeader.size());
  for (const char* header : {"(", ")X", ") HP-PCL XL;2", ") HP-PCL XL;1;2", ") X"}) {
    const std::string walked = header == std::string_view(") X") ? ";1;1;\n" : "";
    EXPECT_EQ(Fixup(header + walked + rest), kXlOk) << header;
    EXPECT_BYTES(ReadFile("out.str"), Stored("N", Body(), false)) << header;
  }
  // What the check left of the header is taken for tokens: "H" is an operator, ";" is none.
  EXPECT_EQ(Fixup("( HP-PCL XL;1;1;\n" + rest), kXlNotAllowed);
  EXPECT_EQ(Fixup(") HP-PCL XL;2;0;\n" + rest), kXlIllegalByte);
}

TEST_F(XlFixupTest, EveryTruncationIsTheEnd) {
  const std::string stream = Session(Page(Body() + Data("image") + Hex({0x60})));
  for (std::size_t size = 0; size < stream.size(); ++size)
    EXPECT_EQ(Fixup(stream.substr(0, size)), kXlEnd) << size;
  EXPECT_EQ(Fixup(stream), kXlOk);
}

TEST_F(XlFixupTest, FirstOperatorMustBeBeginSession) {
  EXPECT_EQ(Fixup(std::string(kHeader) + Hex({0x43, 0x44, 0x42})), kXlNotAllowed);
  EXPECT_EQ(Fixup(std::string(kHeader) + Hex({0xFB, 0})), kXlNotAllowed);
  EXPECT_EQ(Fixup(std::string(kHeader) + Hex({0x01})), kXlIllegalByte);
}

TEST_F(XlFixupTest, PagesAndStreamsWhereTheyMayNotBe) {
  EXPECT_EQ(Fixup(Session(Page("") + Page(""))), kXlSecondPage);
  EXPECT_EQ(Fixup(Session(Page(Hex({0x5B})))), kXlStreamInPage);
  EXPECT_EQ(Fixup(Session(Hex({0x60}))), kXlNotAllowed);
}

TEST_F(XlFixupTest, SessionWithoutAPageHasAnEmptyOneWhateverAnEarlierRunLeft) {
  EXPECT_EQ(Fixup(Session("")), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored("N", "", false));
  EXPECT_EQ(Fixup(Session(Page(Body()))), kXlOk);
  EXPECT_EQ(Fixup(Session("")), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored("N", "", false));
  EXPECT_BYTES(ReadFile("temp.str"), "");
}

TEST_F(XlFixupTest, PageFileIsMadeAnewByEveryRun) {
  WriteFile("temp.str", "old");
  EXPECT_EQ(Fixup("no job"), kXlNotAllowed);
  EXPECT_BYTES(ReadFile("temp.str"), "");
}

TEST_F(XlFixupTest, SessionOpeningOf52BytesIsKeptAndALongerOneRefused) {
  for (const std::size_t size : {1U, 51U, 52U, 53U, 100U, 5000U}) {
    std::string opening(size - 1, ' ');
    opening += Hex({0x41});
    const std::string stream = std::string(kHeader) + opening + Page(Body()) + Hex({0x42});
    EXPECT_EQ(Fixup(stream), size <= 52 ? kXlOk : kXlFile) << size;
    EXPECT_BYTES(ReadFile("out.str"), size <= 52 ? Stored("N", Body(), false, opening) : "");
  }
}

TEST_F(XlFixupTest, NameOf255BytesIsUsedAndALongerOneRefused) {
  const std::string name(255, 'n');
  EXPECT_EQ(Fixup(Session(Page("")), name, true), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored(name, "", true));
  EXPECT_EQ(Fixup(Session(Page("")), name + "n"), kXlFile);
}

TEST_F(XlFixupTest, NamesOfNothingAndOfAnyBytes) {
  EXPECT_EQ(Fixup(Session(Page("")), ""), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored("", "", false));
  EXPECT_EQ(Fixup(Session(Page("")), "\xF8\x8B\x41"), kXlOk);
  EXPECT_BYTES(ReadFile("out.str"), Stored("\xF8\x8B\x41", "", false));
}

TEST_F(XlFixupTest, WorkFilesThatCannotBeUsedAreFileErrors) {
  EXPECT_EQ(XlFixupStream("N", false), kXlFile);  // no "in.str"
  for (const char* file : {"out.str", "temp.str"}) {
    fs::remove("temp.str");
    fs::remove("out.str");
    fs::create_directory(file);
    EXPECT_EQ(Fixup(Session(Page(Body()))), kXlFile) << file;
    fs::remove(file);
  }
}

TEST_F(XlFixupTest, HundredAndOneAttributesAreRefused) {
  std::string attributes;
  for (int i = 0; i < 100; ++i) attributes += Attribute(Ubyte(i), i);
  EXPECT_EQ(Fixup(Session(Page(attributes + Hex({0x85})))), kXlOk);
  EXPECT_EQ(Fixup(Session(Page(attributes + Attribute(Ubyte(1), 1) + Hex({0x85})))),
            kXlIllegalByte);
}

#ifndef _WIN32
// The block is a hole in the file, which takes no room.
TEST_F(XlFixupTest, PageOfFourGigabytesIsRefusedUnread) {
  const std::string begin = std::string(kHeader) + Hex({0x41, 0x43, 0xFA, 0xFF, 0xFF, 0xFF, 0xFF});
  WriteFile("in.str", begin);
  fs::resize_file("in.str", begin.size() + 0xFFFFFFFFULL + 10);
  EXPECT_EQ(XlFixupStream("N", false), kXlLength);
  EXPECT_BYTES(ReadFile("temp.str"), "");
}
#endif

// A source file to the queue.
class StreamFixupTest : public JobTest {
 protected:
  Result Send(std::string_view job, const char* name = "N", bool execute = false) {
    WriteFile("source", job);
    const Stream file(std::fopen("source", "rb"));
    return SendFile(file.get(), name, execute);
  }

  Result SendFile(std::FILE* file, const char* name = "N", bool execute = false) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failingWrite;
    GenQueContext ctx;
    ctx.destination = &destination;
    EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
    ctx.error = earlierError;
    const Result result = StreamFixupSend(file, &ctx, 0, name, execute);
    GenQueClose(&ctx);
    return result;
  }

  Result earlierError = ZE_OK;
  int failingWrite = 0;
};

TEST_F(StreamFixupTest, SendsTheStoredStreamOfAJob) {
  const std::string job = std::string(kUel) + "@PJL JOB\n@PJL ENTER LANGUAGE=PCLXL\n" +
                          Session(Page(Body())) + kUel + "@PJL EOJ\n" + kUel;
  EXPECT_EQ(Send(job), ZE_OK);
  EXPECT_BYTES(Spooler().data, Stored("N", Body(), false));
  EXPECT_EQ(Send(job, "Form", true), ZE_OK);
  EXPECT_BYTES(Spooler().data, Stored("Form", Body(), true));
}

TEST_F(StreamFixupTest, WorkFilesStayWithTheirContent) {
  const std::string session = Session(Page(Body()));
  EXPECT_EQ(Send(kUel + session + kUel), ZE_OK);
  EXPECT_BYTES(ReadFile("in.str"), session);
  EXPECT_BYTES(ReadFile("temp.str"), Body());
  EXPECT_BYTES(ReadFile("out.str"), Stored("N", Body(), false));
  EXPECT_FALSE(fs::exists("fixup.str"));
}

TEST_F(StreamFixupTest, ReadsTheSourceFromItsStart) {
  WriteFile("source", Session(Page(Body())));
  const Stream file(std::fopen("source", "rb"));
  std::fseek(file.get(), 0, SEEK_END);
  EXPECT_EQ(SendFile(file.get()), ZE_OK);
  EXPECT_BYTES(Spooler().data, Stored("N", Body(), false));
}

TEST_F(StreamFixupTest, JobThatBeginsWithAZeroByteLosesFourBytes) {
  EXPECT_EQ(Send(Bytes("\0xyz") + Session(Page(Body()))), ZE_OK);
  EXPECT_BYTES(Spooler().data, Stored("N", Body(), false));
}

TEST_F(StreamFixupTest, LogsItsEntryAndTheWritesOfItsInput) {
  WriteFile("source", Session(Page(Body())));
  const Stream file(std::fopen("source", "rb"));
  GenQueContext ctx;
  ctx.destination = &destination;
  UsePrinter();
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  fs::remove(LogFile());
  EXPECT_EQ(StreamFixupSend(file.get(), &ctx, 0, "N", false), ZE_OK);
  const std::vector<std::string> printerWrite = {".\\ZeQue (1569): +GenQueWrite",
                                                 ".\\ZeQue (1584): WritePrinter",
                                                 ".\\ZeQue (1761): -GenQueWrite"};
  EXPECT_EQ(LogLines(), (std::vector<std::string>{".\\ZeMac (1): Entered StreamFixupSend"} +
                         FileWriteLines() + printerWrite));
  GenQueClose(&ctx);
}

TEST_F(StreamFixupTest, NoSourceIsAnInvalidArgument) {
  EXPECT_EQ(SendFile(nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(LogLines().front(), ".\\ZeQue (946): +GenQueOpen");
  EXPECT_FALSE(fs::exists("in.str"));
}

TEST_F(StreamFixupTest, InputFileThatDoesNotOpenGivesOpenFailed) {
  fs::create_directory("in.str");
  EXPECT_EQ(Send(Session(Page(Body()))), ZE_OPEN_FAILED);
  EXPECT_BYTES(Spooler().data, "");
}

TEST_F(StreamFixupTest, EveryCodeOfTheReaderBecomesFixupFailed) {
  const std::string jobs[] = {
      "",                                  // the end
      std::string(kHeader) + Hex({0x42}),  // not allowed
      Session(Hex({0x01})),                // illegal
      Session(Hex({0xC8, 0xC2, 0xFF, 0xFF, 0xFF, 0xFF})),
      Session(Page("") + Page("")),
      Session(Page(Hex({0x5B}))),
      "plain text\n",
  };
  for (const std::string& job : jobs) {
    EXPECT_EQ(Send(Session(Page(Body()))), ZE_OK);  // leaves work files
    EXPECT_EQ(Send(job), ZE_FIXUP_FAILED) << Printable(job);
    EXPECT_BYTES(Spooler().data, "");
  }
}

TEST_F(StreamFixupTest, TruncatedJobsSendNothing) {
  const std::string job = kUel + Session(Page(Body() + Data("image")));
  for (std::size_t size = 0; size < job.size(); ++size) {
    EXPECT_EQ(Send(job.substr(0, size)), ZE_FIXUP_FAILED) << size;
    EXPECT_BYTES(Spooler().data, "");
  }
  EXPECT_EQ(Send(job), ZE_OK);
}

TEST_F(StreamFixupTest, LongNamesAndLongOpeningsSendNothing) {
  const std::string name(256, 'n');
  EXPECT_EQ(Send(Session(Page(Body())), name.c_str()), ZE_FIXUP_FAILED);
  EXPECT_BYTES(Spooler().data, "");
  const std::string opening = std::string(52, ' ') + Hex({0x41});
  EXPECT_EQ(Send(std::string(kHeader) + opening + Page("") + Hex({0x42})), ZE_FIXUP_FAILED);
  EXPECT_BYTES(Spooler().data, "");
}

TEST_F(StreamFixupTest, ErrorThatTheQueueHadIsTheResultBeforeTheFixup) {
  earlierError = ZE_PRINTER_WRITE_FAILED;
  EXPECT_EQ(Send("no stream"), ZE_PRINTER_WRITE_FAILED);
  EXPECT_EQ(Send(Session(Page(Body()))), ZE_PRINTER_WRITE_FAILED);
  EXPECT_BYTES(Spooler().data, "");
  EXPECT_BYTES(ReadFile("in.str"), Session(Page(Body())));
  EXPECT_FALSE(fs::exists("out.str"));
}

TEST_F(StreamFixupTest, RefusedWriteIsTheResult) {
  failingWrite = 1;
  EXPECT_EQ(Send(Session(Page(Body()))), ZE_PRINTER_WRITE_FAILED);
}

TEST_F(StreamFixupTest, SourceThatCannotBeReadSendsNothing) {
  const Stream file(std::fopen("written", "wb"));
  EXPECT_EQ(SendFile(file.get()), ZE_FIXUP_FAILED);
  EXPECT_BYTES(Spooler().data, "");
}

TEST_F(StreamFixupTest, LargeJobGoesInBlocksOfTheSender) {
  const std::string body = Data(std::string(5000, 'i')) + Body();
  EXPECT_EQ(Send(Session(Page(body))), ZE_OK);
  EXPECT_BYTES(Spooler().data, Stored("N", body, false));
  EXPECT_EQ(Spooler().calls[2], "write 2048");
}

// Macro validation.
class ValidateStreamTest : public JobTest {
 protected:
  Result Validate(std::string_view bytes, std::uint32_t flags, const char* name = "") {
    WriteFile("file", bytes);
    const Stream file(std::fopen("file", "rb"));
    macro = {};
    macro.macroFlags = flags;
    std::memcpy(macro.macroName, name, std::min<std::size_t>(std::strlen(name), 24));
    destination.language = ZE_LANGUAGE_PCLXL;
    return XlValidateStreamFile(file.get(), &destination, &macro);
  }

  ZeMacroInfo macro = {};
};

TEST_F(ValidateStreamTest, FileShorterThanAHeaderGivesReadFailed) {
  for (std::size_t size = 0; size < kHeader.size(); ++size)
    EXPECT_EQ(Validate(kHeader.substr(0, size), 0), ZE_READ_FAILED) << size;
}

TEST_F(ValidateStreamTest, OtherHeadersGiveFixupFailed) {
  EXPECT_EQ(Validate(") HP-PCL XL;2;0;\nmore", 0), ZE_FIXUP_FAILED);
  EXPECT_EQ(Validate(") HP-PCL XL;1;1;x", 0), ZE_FIXUP_FAILED);
}

// The search for the name compares bytes with a negative number. Callers know that only files to
// be fixed up validate.
TEST_F(ValidateStreamTest, KeepsRefusingEveryStoredStreamWithoutFixup) {
  EXPECT_EQ(Validate(Stored("Form", Body(), false), 0, "mine"), ZE_FIXUP_FAILED);
  EXPECT_STREQ(macro.macroName, "mine");
  EXPECT_EQ(Validate(Stored("Form", Body(), false), ~2U), ZE_FIXUP_FAILED);
  EXPECT_EQ(Validate(kHeader, 0), ZE_FIXUP_FAILED);
  EXPECT_FALSE(fs::exists("fixup.str"));
}

TEST_F(ValidateStreamTest, FixupIsWrittenToAFile) {
  EXPECT_EQ(Validate(kUel + Session(Page(Body())), 2, "Form"), ZE_OK);
  EXPECT_BYTES(ReadFile("fixup.str"), Stored("Form", Body(), false));
  EXPECT_STREQ(macro.macroName, "Form");
}

TEST_F(ValidateStreamTest, EmptyNameStaysEmptyAndALongOneIsCut) {
  EXPECT_EQ(Validate(Session(Page("")), 2), ZE_OK);
  EXPECT_BYTES(ReadFile("fixup.str"), Stored("", "", false));
  EXPECT_EQ(Validate(Session(Page("")), 2, "123456789012345678901234"), ZE_OK);
  EXPECT_BYTES(ReadFile("fixup.str"), Stored("12345678901234567890123", "", false));
}

TEST_F(ValidateStreamTest, FixupThatFailsLeavesAnEmptyFile) {
  WriteFile("fixup.str", "of an earlier run");
  EXPECT_EQ(Validate("no stream", 2), ZE_FIXUP_FAILED);
  EXPECT_BYTES(ReadFile("fixup.str"), "");
}

TEST_F(ValidateStreamTest, FileThatCannotBeMadeGivesOpenFailed) {
  fs::create_directory("fixup.str");
  EXPECT_EQ(Validate(Session(Page("")), 2), ZE_OPEN_FAILED);
  EXPECT_FALSE(fs::exists("in.str"));
}

TEST_F(ValidateStreamTest, PrinterOfThatNameIsNotAsked) {
  Spooler().printer = "fixup.str";
  EXPECT_EQ(Validate(Session(Page("")), 2), ZE_OK);
  EXPECT_TRUE(Spooler().calls.empty());
}

// The search itself, with the tag as it stands in files.
class StreamNameTest : public ::testing::Test {
 protected:
  bool Find(std::string_view bytes) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return XlNameBeforeBeginStream({data, bytes.size()}, 0xC8, &name);
  }
  XlStreamName name = {};
};

TEST_F(StreamNameTest, IsTheArrayThatEndsTwoBytesBeforeBeginStream) {
  EXPECT_TRUE(Find("before" + Attribute(UbyteArray("Form"), 0x8B) + Hex({0x5B})));
  EXPECT_STREQ(name.data(), "Form");
  EXPECT_TRUE(Find(Attribute(UbyteArray(""), 0x8B) + Hex({0x5B})));
  EXPECT_STREQ(name.data(), "");
}

TEST_F(StreamNameTest, AnythingElseIsNone) {
  EXPECT_FALSE(Find(Hex({0x5B})));
  EXPECT_FALSE(Find(Hex({0xC8, 0x5B})));
  EXPECT_FALSE(Find(Hex({0xC8, 0xC0, 0x5B})));
  EXPECT_FALSE(Find(Hex({0xC8, 0xC1, 0, 0, 0xF8, 0x8B, 0x5B})));
  EXPECT_FALSE(Find(Attribute(UbyteArray("Form"), 0x8B) + " " + Hex({0x5B})));
  EXPECT_FALSE(Find(Hex({0xC8, 0xC0, 255, 'x', 0xF8, 0x8B, 0x5B})));
}

TEST_F(StreamNameTest, LongNameIsCutTo23Characters) {
  EXPECT_TRUE(Find(Attribute(UbyteArray("123456789012345678901234567890"), 0x8B) + Hex({0x5B})));
  EXPECT_STREQ(name.data(), "12345678901234567890123");
}

}  // namespace
}  // namespace zeapi::testing
