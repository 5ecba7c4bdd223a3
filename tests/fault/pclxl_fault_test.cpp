// The stream fixup under every failure of the system and of memory, one at a time. Nothing is sent
// once a failure is known, and what an earlier call left is never sent, but for the one case that
// is kept.
#include <functional>
#include <map>

#include "base/stream.h"
#include "fault/injector.h"
#include "pclxl/stream_fixup.h"
#include "support/job.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

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

  // Runs the call once for each failure and says of which function.
  static void FailEach(const std::function<void()>& call,
                       const std::function<void(const std::string& function)>& check) {
    std::map<std::string, int> functions;
    for (int failing = 1;; ++failing) {
      for (const char* file : {"in.str", "temp.str", "out.str", "fixup.str"})
        WriteFile(file, kEarlier);
      const std::size_t before = OpenDescriptors();
      armed = failing;
      call();
      const std::string function = FailedFunction();
      SCOPED_TRACE("failure " + std::to_string(failing) + ", of " + function);
      check(function);
      EXPECT_EQ(OpenDescriptors(), before);
      if (function.empty() || HasFailure()) break;
      ++functions[function];
    }
    for (const auto& [function, times] : functions)
      std::printf("  %s: %d\n", function.c_str(), times);
    for (const char* function : {"open", "fread", "fwrite", "fflush", "fclose", "fseek", "calloc"})
      EXPECT_GT(functions[function], 0) << function;
    EXPECT_EQ(functions["new"], 1);
  }

  // Number of the failure for the next call.
  static int armed;
  std::string body;
  Result result = ZE_OK;
};

int PclXlFaultTest::armed = 0;

TEST_F(PclXlFaultTest, FixupSendsAllOrNothing) {
  FailEach(
      [this] {
        ResetSpooler();
        UsePrinter();
        GenQueContext ctx;
        ctx.destination = &destination;
        const Stream file(std::fopen("source", "rb"));
        ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
        ArmFault(armed);
        result = StreamFixupSend(file.get(), &ctx, 0, "Form", true);
        DisarmFault();
        GenQueClose(&ctx);
      },
      [this](const std::string& function) {
        const std::string whole = xl::Stored("Form", body, true);
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
  FailEach(
      [this] {
        const Stream file(std::fopen("source", "rb"));
        ZeMacroInfo macro = {2, "Form", 0, 1, {}, 0};
        ArmFault(armed);
        result = XlValidateStreamFile(file.get(), &destination, &macro);
        DisarmFault();
      },
      [this](const std::string& function) {
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
  std::map<std::string, int> failures;
  FailEach(
      [this] {
        ResetSpooler();
        UsePrinter();
        GenQueContext ctx;
        ctx.destination = &destination;
        const Stream file(std::fopen("source", "rb"));
        ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
        ArmFault(armed);
        result = StreamFixupSend(file.get(), &ctx, 0, "Form", false);
        DisarmFault();
        GenQueClose(&ctx);
      },
      [&](const std::string& function) {
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

}  // namespace
}  // namespace zeapi::testing
