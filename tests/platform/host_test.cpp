// The seam's promises about the host, on whatever host this runs.
#include "platform/host.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

#include "platform/console.h"
#include "platform/module.h"
#include "platform/spooler.h"

namespace zeapi::testing {
namespace {

using namespace platform;

TEST(Host, NamesAreTold) {
  char name[80];
  EXPECT_TRUE(HostComputerName(name, 16));
  EXPECT_GT(std::strlen(name), 0U);
  EXPECT_LE(std::strlen(name), 15U);
  EXPECT_TRUE(HostUserName(name, sizeof(name)));
  EXPECT_GT(std::strlen(name), 0U);
}

TEST(Host, NamesThatDoNotFitAreEmpty) {
  char name[2] = {'x', 'x'};
  EXPECT_FALSE(HostComputerName(name, 1));
  EXPECT_FALSE(HostUserName(name, 1));
  EXPECT_EQ(name[1], 'x');
}

TEST(Console, TextGoesToStandardOutput) {
  ::testing::internal::CaptureStdout();
  ConsoleWrite("shown %s");
  std::fflush(stdout);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "shown %s");
}

#ifdef _WIN32
TEST(Host, SystemAndLanguageAreThoseOfWindows) {
  EXPECT_EQ(QuerySystem().platform, kPlatformNt);
  EXPECT_GE(QuerySystem().major, 4U);
  EXPECT_NE(DefaultLanguage(), 0);
}
#endif

TEST(Module, EntryPointsAreFoundByName) {
#ifdef _WIN32
  const char* library = "kernel32.dll";
  const char* entry = "GetTickCount";
#else
  const char* library = "libm.so.6";
  const char* entry = "cos";
#endif
  const Module module = ModuleLoad(library);
  ASSERT_NE(module, nullptr);
  EXPECT_NE(ModuleFind(module, entry), nullptr);
  EXPECT_EQ(ModuleFind(module, "NoSuchEntry"), nullptr);
  ModuleFree(module);
}

TEST(Module, MissingLibraryIsNull) { EXPECT_EQ(ModuleLoad("no-such-library.dll"), nullptr); }

TEST(Spooler, UnknownPrintersDoNotOpen) {
  SpoolerHandle printer = 0;
  EXPECT_FALSE(SpoolerOpen("no such printer", &printer));
  EXPECT_FALSE(SpoolerOpen("NoSuchPrinter", &printer));
  EXPECT_FALSE(SpoolerOpen("folder\\file.prn", &printer));
}

TEST(Spooler, HandlesThatAreNotOpenAreHarmless) {
  constexpr SpoolerHandle kNone = 12345;
  EXPECT_FALSE(SpoolerStartDocument(kNone, "x"));
  EXPECT_EQ(SpoolerWrite(kNone, "x", 1), 0U);
  SpoolerEndDocument(kNone);
  SpoolerClose(kNone);
}

}  // namespace
}  // namespace zeapi::testing
