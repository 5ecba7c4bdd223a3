// Exports that ask neither the system nor memory for anything: nothing can fail in them.
#include <cstdlib>
#include <functional>

#include "fault/injector.h"
#include "parse/alert_record.h"
#include "support/job.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

// The first call that could fail would.
void ExpectNoPointOfFailure(const std::function<void()>& work) {
  ArmFault(1);
  work();
  DisarmFault();
  EXPECT_EQ(CountedCalls(), 0) << FailedFunction();
}

using NothingFailsTest = JobTest;

TEST_F(NothingFailsTest, Answers) {
  ZeApiInfo info;
  char buffer[1024];
  char file[ZE_MAX_NAME + 1];
  char path[ZE_MAX_NAME + 1];
  char panel[ZE_MAX_NAME + 1];
  char url[200];
  std::uint32_t results[5];
  ExpectNoPointOfFailure([&] {
    TRIED(ZeGenQueryApiInfo)(&info);
    results[0] = TRIED(ZeGenQueryAdapters)(0, 0, buffer, sizeof(buffer));
    results[1] = TRIED(ZeGenQueryQueues)(0, 0, buffer, sizeof(buffer));
    results[2] = TRIED(ZeZipImplode)("archive", nullptr, nullptr);
    results[3] = TRIED(ZeOpcGetFileName)(7, panel);
    results[4] = TRIED(ZeWebGetCGIURL)(1, 2, 1, 1031, url, sizeof(url));
    TRIED(ZeStrCpyFile)(file, "c:\\folder\\name");
    TRIED(ZeStrCpyPath)(path, "c:\\folder\\name");
  });
  EXPECT_EQ(info.words[0], ZE_API_VERSION);
  EXPECT_EQ(results[0], ZE_OK);
  EXPECT_EQ(results[1], ZE_OK);
  EXPECT_EQ(results[2], ZE_UNSUPPORTED);
  EXPECT_EQ(results[3], 1U);
  EXPECT_EQ(results[4], ZE_OK);
  EXPECT_NE(std::string_view(url).find("&lang=2"), std::string_view::npos);
  EXPECT_STREQ(panel, "opc007.cfg");
  EXPECT_STREQ(file, "NAME");
  EXPECT_STREQ(path, "C:\\FOLDER\\");
}

// The DLL is its own; with it or without, nothing else is asked for.
TEST_F(NothingFailsTest, ConnectionType) {
  for (const bool present : {true, false}) {
    Bidi().present = present;
    Bidi().printerInfo[92] = 4;
    std::uint32_t type = 0;
    ExpectNoPointOfFailure([&] { type = TRIED(ZeNetGetType)(3); });
    EXPECT_EQ(type, present ? 4U : 0U);
    EXPECT_EQ(Bidi().loaded, 0);
  }
}

// Without memory everything can still be given back.
TEST_F(NothingFailsTest, Releases) {
  WriteFile("data.cfg", "#!Data\n");
  WriteFile("font.ttf", "x");
  std::uint16_t count = 0;
  ZeFoundFile* fonts = ZeFonFind(".", &count, 26, 5, 0, 0);
  ASSERT_NE(fonts, nullptr);
  ZeDatFileInfo* files = ZeDatQueryFiles(".", 1, &count);
  ASSERT_NE(files, nullptr);
  const std::string record =
      Record(Container(1, {Container(1, {Container(7, {Integer(1, 11), Text(6, "tray")})}),
                           Container(2, {Container(1, {Integer(1, 101)})})}));
  ZeOptionInfo* options = ZeParseOptionInfo(record.data());
  ASSERT_NE(options, nullptr);
  ZeJobAccount* account = ZeParseJobAccountingAlert(record.data());
  ASSERT_NE(account, nullptr);
  void* block = std::malloc(1);
  ExpectNoPointOfFailure([&] {
    TRIED(ZeFonFindFree)(fonts);
    TRIED(ZeDatQueryFilesFree)(files);
    TRIED(ZeFreeOptionInfo)(options);
    TRIED(ZeFreeJobAccount)(account);
    TRIED(ZeMemFree)(block);
  });
}

}  // namespace
}  // namespace zeapi::testing
