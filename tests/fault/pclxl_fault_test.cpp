// The stream fixup under every failure of the system and of memory, one at a time. Nothing is sent
// once a failure is known, and what an earlier call left is never sent, but for the one case that
// is kept.
#include <functional>

#include "base/stream.h"
#include "fault/each_failure.h"
#include "pclxl/stream_fixup.h"
#include "pclxl/xl_fixup.h"
#include "support/job.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

constexpr char kEarlier[] = "what an earlier call left";

class PclXlFaultTest : public JobTest {
 protected:
  void SetUp() override {
    JobTest::SetUp();
    // Larger than every buffer on the way, so that all of them are filled and come back to.
    body = xl::Body() + xl::Attribute(xl::UbyteArray("text"), 0xAB) + "\xA8" +
           xl::Data(std::string(9000, 'i')) + xl::Body();
    WriteFile("source", "\x1B%-12345X" + xl::Session(xl::Page(body)));
  }

  // Tries `call` under each failure, with the source open and earlier work files about.
  void FailEach(const std::function<void()>& open, const std::function<void()>& call,
                const std::function<void()>& close,
                const std::function<void(const std::string& failed)>& check) {
    FailurePoints points = EachFailure(
        [&] {
          for (const char* name : {"in.str", "temp.str", "out.str", "fixup.str"})
            WriteFile(name, kEarlier);
          source = Stream(std::fopen("source", "rb"));
          open();
        },
        call,
        [&](const std::string& failed) {
          close();
          source.reset();
          check(failed);
        });
    for (const char* function : {"open", "fread", "fwrite", "fflush", "fclose", "fseek", "calloc"})
      EXPECT_GT(points[function], 0) << function;
    EXPECT_EQ(points["new"], 1);
  }

  // The same of sending to a printer, whose job ends before the check.
  void FailEachSend(bool macro, const std::function<void(const std::string& failed)>& check) {
    GenQueContext ctx;
    FailEach(
        [&] {
          ResetSpooler();
          UsePrinter();
          ctx = {};
          ctx.destination = &destination;
          ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
        },
        [&] { result = StreamFixupSend(source.get(), &ctx, 0, "Form", macro); },
        [&] { GenQueClose(&ctx); }, check);
  }

  Stream source;
  std::string body;
  Result result = ZE_OK;
};

TEST_F(PclXlFaultTest, FixupSendsAllOrNothing) {
  const std::string whole = xl::Stored("Form", body, true);
  FailEachSend(true, [&](const std::string& function) {
    if (function == "new") {
      // Kept: without the reader's memory the call succeeds with the earlier content.
      EXPECT_EQ(result, ZE_OK);
      EXPECT_BYTES(Spooler().data, kEarlier);
    } else if (result == ZE_OK) {
      EXPECT_BYTES(Spooler().data, whole);
    } else if (result == ZE_READ_FAILED) {
      EXPECT_EQ(function, "fread");
      EXPECT_TRUE(whole.starts_with(Spooler().data));
    } else {
      EXPECT_TRUE(result == ZE_OPEN_FAILED || result == ZE_OUT_OF_MEMORY ||
                  result == ZE_FIXUP_FAILED)
          << result;
      EXPECT_BYTES(Spooler().data, "");
    }
  });
}

TEST_F(PclXlFaultTest, ValidationThatSucceedsHasWrittenAll) {
  ZeMacroInfo macro = {2, "Form", 0, 1, {}, 0};
  FailEach([] {}, [&] { result = XlValidateStreamFile(source.get(), &destination, &macro); }, [] {},
           [&](const std::string& function) {
             if (function == "new") {
               EXPECT_EQ(result, ZE_OK);
               EXPECT_BYTES(ReadFile("fixup.str"), kEarlier);
             } else if (result == ZE_OK) {
               EXPECT_BYTES(ReadFile("fixup.str"), xl::Stored("Form", body, false));
             } else {
               EXPECT_TRUE(result == ZE_OPEN_FAILED || result == ZE_OUT_OF_MEMORY ||
                           result == ZE_FIXUP_FAILED || result == ZE_READ_FAILED ||
                           result == ZE_WRITE_FAILED || result == ZE_CLOSE_FAILED)
                   << result;
             }
           });
}

// Each work file is full, or cannot be read or closed, at each of its calls.
TEST_F(PclXlFaultTest, FailuresOfWorkFilesGiveFixupFailed) {
  FailurePoints failures;
  FailEachSend(false, [&](const std::string& function) {
    if (result == ZE_FIXUP_FAILED) ++failures[function];
  });
  // 10 blocks of "in.str"; in "temp.str" 9 blocks and a rest; the rows of "out.str" without its
  // body, and the body.
  EXPECT_GE(failures["fwrite"], 10 + 10 + 18 + 9);
  EXPECT_EQ(failures["fflush"], 10 - 1);
  EXPECT_GE(failures["fclose"], 4);
  EXPECT_GE(failures["fread"], 10);
  EXPECT_GE(failures["fseek"], 1);
  EXPECT_GE(failures["open"], 1);  // of "temp.str"
}

// What came before the failure may be a whole session.
TEST_F(PclXlFaultTest, ReadOfAWorkFileThatGivesSomethingAndFailsIsAFailure) {
  FailingReadsGiveHalf(true);
  XlResult fixed = kXlOk;
  const FailurePoints points =
      EachFailure([&] { WriteFile("in.str", xl::Session(xl::Page(body))); },
                  [&] { fixed = XlFixupStream("Form", false); },
                  [&](const std::string& failed) {
                    EXPECT_TRUE(failed != "fread" || fixed == kXlFile) << fixed;
                  });
  EXPECT_GE(points.at("fread"), 10);
  FailingReadsGiveHalf(false);
}

// The page is written before the walk meets what it refuses.
TEST_F(PclXlFaultTest, PageThatCannotBeWrittenComesBeforeAnErrorBehindIt) {
  XlResult fixed = kXlOk;
  const FailurePoints points =
      EachFailure([&] { WriteFile("in.str", xl::Session(xl::Page(body + "\x01"))); },
                  [&] { fixed = XlFixupStream("Form", false); },
                  [&](const std::string& failed) {
                    if (failed.empty()) {
                      EXPECT_EQ(fixed, kXlIllegalByte);
                    } else if (failed == "fwrite") {
                      EXPECT_EQ(fixed, kXlFile);
                    }
                  });
  EXPECT_GE(points.at("fwrite"), 3);
}

}  // namespace
}  // namespace zeapi::testing
