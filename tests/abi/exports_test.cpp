// Every export of the real DLL: its prototype, a call of it, and the stack bytes that it removes.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "export_call.h"
#include "loaded_dll.h"
#include "stack_probe.h"

namespace {

// Names with their stack bytes, as the module definition file has them.
const std::vector<std::string> kDefinitionFile = {
#include "definition_file.inc"
};

class Exports : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(LoadedDll::Instance().IsLoaded()); }
};

TEST_F(Exports, AreThoseOfTheDefinitionFileAndHaveARowEach) {
  std::vector<std::string> rows;
  for (const ExportCall& row : ExportCalls())
    rows.push_back(std::string(row.name) + "@" + std::to_string(row.stackBytes));
  std::vector<std::string> definitions = kDefinitionFile;
  std::sort(rows.begin(), rows.end());
  std::sort(definitions.begin(), definitions.end());
  EXPECT_EQ(rows, definitions);
}

TEST_F(Exports, AnswerThroughThePrototypesOfTheHeader) {
  for (const ExportCall& row : ExportCalls()) {
    SCOPED_TRACE(row.name);
    const void* entry = LoadedDll::Instance().Find(row.name);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(row.call(entry), row.answer);
  }
}

#if defined(__i386__)
TEST_F(Exports, HavePrototypesOfTheStatedStackBytes) {
  for (const ExportCall& row : ExportCalls())
    EXPECT_EQ(row.prototypeBytes, row.stackBytes) << row.name;
}

TEST_F(Exports, RemoveTheirStackBytesWhateverTheStackAlignment) {
  for (const ExportCall& row : ExportCalls()) {
    const void* entry = LoadedDll::Instance().Find(row.name);
    ASSERT_NE(entry, nullptr) << row.name;
    for (const std::uint32_t residue : {0U, 4U, 8U, 12U}) {
      SCOPED_TRACE(std::string(row.name) + " with ESP % 16 = " + std::to_string(residue));
      const StackProbeResult result = CallOnStack(entry, row.words, residue);
      EXPECT_EQ(result.removed, row.stackBytes);
      EXPECT_EQ(result.answer & row.answerMask, row.answer);
    }
  }
}

std::uint32_t ZEAPI_CALL TakesEightBytes(std::uint32_t first, std::uint32_t second) {
  return 10 * first + second;
}

std::uint32_t __cdecl TakesNone(std::uint32_t first, std::uint32_t second) {
  return 10 * first + second;
}

TEST(StackProbe, CountsWhatTheCalleeRemoved) {
  const StackProbeResult standard =
      CallOnStack(reinterpret_cast<const void*>(&TakesEightBytes), {4, 2}, 0);
  EXPECT_EQ(standard.answer, 42U);
  EXPECT_EQ(standard.removed, 8U);
  const StackProbeResult none = CallOnStack(reinterpret_cast<const void*>(&TakesNone), {4, 2}, 0);
  EXPECT_EQ(none.answer, 42U);
  EXPECT_EQ(none.removed, 0U);
}

__attribute__((naked)) void TellsItsStack() { asm("leal 4(%esp), %eax\n\tandl $15, %eax\n\tret"); }

TEST(StackProbe, CallsAtTheAskedAlignment) {
  for (const std::uint32_t residue : {0U, 4U, 8U, 12U}) {
    for (const std::vector<std::uint32_t>& words :
         {std::vector<std::uint32_t>{}, {1}, {1, 2}, {1, 2, 3}}) {
      const auto* entry = reinterpret_cast<const void*>(&TellsItsStack);
      EXPECT_EQ(CallOnStack(entry, words, residue).answer, residue);
    }
  }
}
#endif

}  // namespace
