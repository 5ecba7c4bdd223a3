// Calls of the real DLL that do real work: files are written, callbacks are called.

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "loaded_dll.h"
#include "stack_probe.h"
#include "zeapi.h"

namespace {

// Each test works in an empty folder of its own.
class RealWork : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(LoadedDll::Instance().IsLoaded());
    before_ = std::filesystem::current_path();
    folder_ = std::filesystem::temp_directory_path() /
              ("zeapi_abi_" + std::to_string(GetCurrentProcessId()));
    std::filesystem::create_directory(folder_);
    std::filesystem::current_path(folder_);
  }

  void TearDown() override {
    if (folder_.empty()) return;
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(folder_);
  }

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

std::string Content(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Store(const char* name, const std::string& content) {
  std::ofstream(name, std::ios::binary) << content;
}

ZeDestination PjlDestination() {
  ZeDestination destination = {};
  destination.flags = ZE_FLAG_PJL;
  destination.language = ZE_LANGUAGE_PCL;
  destination.jobName = "Abi";
  return destination;
}

const std::string kJob =
    "\x1b%-12345X@PJL RDYMSG DISPLAY = \"Abi\"\n@PJL ENTER LANGUAGE = PCL\n"
    "AB\n"
    "\x1b%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1b%-12345X";

std::uint32_t ZEAPI_CALL UpperCaseFirst(char* line, std::uint32_t value) {
  if (line[0] >= 'a' && line[0] <= 'z') line[0] = static_cast<char>(line[0] - 'a' + 'A');
  if (std::strncmp(line, "Drop", 4) == 0) line[0] = '\0';
  return value == 7 ? 0 : 1;
}

TEST_F(RealWork, FillsTheWholeCapabilityRecord) {
  ZeApiInfo info;
  std::memset(&info, 0xFF, sizeof(info));
  DLL_CALL(ZeGenQueryApiInfo)(&info);
  ZeApiInfo expected = {};
  expected.words[0] = ZE_API_VERSION;
  expected.words[1] = 32;
  expected.words[2] = expected.words[3] = 2;
  for (const int present : {11, 12, 16, 17, 20, 23, 26, 28}) expected.words[present] = 1;
  EXPECT_EQ(std::memcmp(&info, &expected, sizeof(info)), 0);
}

TEST_F(RealWork, ComparesOnlyTheLow16BitsOfABufferSize) {
  char buffer[1024];
  EXPECT_EQ(DLL_CALL(ZeGenQueryAdapters)(0, 0, buffer, 1023), ZE_INVALID_ARGUMENT + 0U);
  EXPECT_EQ(DLL_CALL(ZeGenQueryAdapters)(0, 0, buffer, 0x10000 + 1023), ZE_INVALID_ARGUMENT + 0U);
  EXPECT_EQ(DLL_CALL(ZeGenQueryQueues)(0, 0, buffer, 0x10000 + 1024), ZE_OK + 0U);
}

TEST_F(RealWork, SendsAJobToAFile) {
  const ZeDestination destination = PjlDestination();
  EXPECT_EQ(DLL_CALL(ZeDatSendString)("$AB\\n", "out.prn", &destination, 0), ZE_OK + 0U);
  EXPECT_EQ(Content("out.prn"), kJob);
}

TEST_F(RealWork, RewritesAFileThroughACallback) {
  Store("text", "one\r\ndrop\r\ntwo\r\n");
  EXPECT_EQ(DLL_CALL(ZeFilModify)("text", 7, &UpperCaseFirst), ZE_OK + 0U);
  EXPECT_EQ(Content("text"), "One\r\nTwo\r\n");
}

TEST_F(RealWork, UsesTheCallersOpenFile) {
  Store("words", std::string("\1\0\2\0", 4));
  const HFILE handle = _lopen("words", OF_READ);
  std::uint16_t sum = 0;
  EXPECT_EQ(DLL_CALL(ZeFilChecksum)(nullptr, handle, 0, &sum), ZE_OK + 0U);
  EXPECT_EQ(sum, 65533);
  EXPECT_EQ(_lclose(handle), 0);
}

#if defined(__i386__)
std::uint32_t Word(const void* pointer) { return reinterpret_cast<std::uint32_t>(pointer); }

TEST_F(RealWork, SendsAJobWhateverTheStackAlignment) {
  const ZeDestination destination = PjlDestination();
  for (const std::uint32_t residue : {0U, 4U, 8U, 12U}) {
    SCOPED_TRACE(residue);
    std::filesystem::remove("out.prn");
    const StackProbeResult result =
        CallOnStack(LoadedDll::Instance().Find("ZeDatSendString"),
                    {Word("$AB\\n"), Word("out.prn"), Word(&destination), 0}, residue);
    EXPECT_EQ(result.answer, ZE_OK + 0U);
    EXPECT_EQ(result.removed, 16U);
    EXPECT_EQ(Content("out.prn"), kJob);
  }
}

TEST_F(RealWork, CallsTheCallbackWhateverTheStackAlignment) {
  for (const std::uint32_t residue : {0U, 4U, 8U, 12U}) {
    SCOPED_TRACE(residue);
    Store("text", "one\r\ndrop\r\ntwo\r\n");
    const StackProbeResult result = CallOnStack(
        LoadedDll::Instance().Find("ZeFilModify"),
        {Word("text"), 7, Word(reinterpret_cast<const void*>(&UpperCaseFirst))}, residue);
    EXPECT_EQ(result.answer, ZE_OK + 0U);
    EXPECT_EQ(result.removed, 12U);
    EXPECT_EQ(Content("text"), "One\r\nTwo\r\n");
  }
}
#endif

}  // namespace
