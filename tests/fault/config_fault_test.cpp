// Panel files, QSF files and web links under every failure.
#include <cstring>

#include "fault/each_failure.h"
#include "support/bytes.h"
#include "support/ini.h"
#include "support/qsf_image.h"

namespace zeapi::testing {
namespace {

using ConfigFaultTest = IniTest;

TEST_F(ConfigFaultTest, PanelRegistration) {
  void* panel = nullptr;
  EachFailure([&] { WriteFile("opc001.cfg", "[Format]\nStyle=2\n"); },
              [&] { panel = TRIED(ZeOpcRegisterCfg)(1, "."); },
              [&](const std::string& failed) {
                EXPECT_TRUE(panel != nullptr || !failed.empty());
                void* again = ZeOpcRegisterCfg(1, ".");
                EXPECT_NE(again, nullptr);
                EXPECT_TRUE(panel == nullptr || panel == again);
                if (panel != nullptr) {
                  EXPECT_EQ(ZeOpcUnregisterCfg(panel), 1U);
                }
                EXPECT_EQ(ZeOpcUnregisterCfg(again), 1U);
              });
}

TEST_F(ConfigFaultTest, PanelComesAndGoes) {
  void* panel = nullptr;
  std::uint32_t gone = 0;
  EachFailure([&] { WriteFile("opc001.cfg", "[Format]\nStyle=2\n"); },
              [&] {
                panel = TRIED(ZeOpcRegisterCfg)(1, ".");
                gone = TRIED(ZeOpcUnregisterCfg)(panel);
              },
              [&](const std::string&) {
                EXPECT_EQ(gone, panel == nullptr ? 0U : 1U);
                // Its slot is free again.
                void* again = ZeOpcRegisterCfg(1, ".");
                EXPECT_NE(again, nullptr);
                EXPECT_EQ(ZeOpcUnregisterCfg(again), 1U);
              });
}

TEST_F(ConfigFaultTest, PanelQueries) {
  struct {
    std::int32_t minimum, maximum, third;
    int texts, length, defaults, variables;
    std::uint16_t text;
    char records[6];
    char bytes[2];
  } got;
  EachFailure(
      [&] {
        Open(
            "[Format]\nStyle=1\n[Spin Limits]\n5=1;2;3\n[Combos]\n5-1=7\n[Edit Lengths]\n5=9\n"
            "[Dialogs]\n1=A page of variables\n[A page of "
            "variables]\nNumCtrls=1\nDefaults=5;6\nNumOMVAR=1\nOMVAR=8\n");
        std::memset(&got, 0, sizeof(got));
      },
      [&] {
        TRIED(ZeOpcGetSpinControlLimits)(handle, 5, &got.minimum, &got.maximum, &got.third);
        got.texts = TRIED(ZeOpcGetTextListing)(handle, 5, 1, &got.text, 2);
        got.length = TRIED(ZeOpcGetMaxEditLength)(handle, 5);
        got.defaults = TRIED(ZeOpcGetPageDefaults)(handle, 1, got.records, 6);
        got.variables = TRIED(ZeOpcGetPageOmVars)(handle, 1, got.bytes, 2);
      },
      [&](const std::string& failed) {
        EXPECT_TRUE(got.third == 3 || (got.minimum == 0 && got.maximum == 0));
        EXPECT_TRUE(got.texts == 1 || got.texts == -3) << got.texts;
        EXPECT_TRUE(got.length == 9 || got.length == 0);
        EXPECT_TRUE(got.defaults == 1 || got.defaults == -2);
        EXPECT_TRUE(got.variables == 1 || got.variables == -2);
        const bool whole = got.third == 3 && got.texts == 1 && got.length == 9 &&
                           got.defaults == 1 && got.variables == 1;
        EXPECT_EQ(whole, failed.empty());
        Close();
      });
}

// The first look-up of an image makes its index.
TEST_F(ConfigFaultTest, PanelTexts) {
  int texts = 0;
  EachFailure([&] { Open("[Combos]\n5-1=7\n"); },
              [&] { texts = TRIED(ZeOpcGetTextListing)(handle, 5, 1, nullptr, 0); },
              [&](const std::string& failed) {
                EXPECT_EQ(texts, failed.empty() ? 2 : -3);
                Close();
              });
}

TEST_F(ConfigFaultTest, QsfFile) {
  const std::string image = QsfImage().Byte(4, 0).Block(1, 74, 1).Append("ab").Summed();
  std::uint32_t opened = 0;
  std::uint32_t got = 0;
  void* qsf = nullptr;
  void* block = nullptr;
  std::uint16_t count = 0;
  EachFailure(
      [&] {
        WriteFile("file.qsf", image);
        block = nullptr;
      },
      [&] {
        opened = TRIED(ZeQsfOpen)("file.qsf", 0, &qsf);
        if (opened != ZE_OK) return;
        got = TRIED(ZeQsfGetVariables)(qsf, 1, &block, &count);
        TRIED(ZeQsfClose)(qsf);
      },
      [&](const std::string& failed) {
        if (opened != ZE_OK) {
          EXPECT_EQ(qsf, nullptr);
          // A file that cannot be rewound is summed from where it stands.
          EXPECT_TRUE(opened == ZE_OPEN_FAILED || opened == ZE_READ_FAILED ||
                      opened == ZE_OUT_OF_MEMORY ||
                      (opened == ZE_BAD_CHECKSUM && failed == "lseek"))
              << opened;
          return;
        }
        EXPECT_EQ(block != nullptr, got == ZE_OK);
        EXPECT_EQ(count, got == ZE_OK ? 1 : 0);
        EXPECT_TRUE(got == ZE_OK || got == ZE_READ_FAILED || got == ZE_SEEK_FAILED ||
                    got == ZE_OUT_OF_MEMORY)
            << got;
        EXPECT_TRUE(got == ZE_OK || !failed.empty());
        ZeMemFree(block);
      });
}

TEST_F(ConfigFaultTest, QsfSection) {
  std::uint32_t code = 0;
  std::uint16_t* variables = nullptr;
  std::uint16_t count = 0;
  EachFailure(
      [&] {
        Open("[DEFAULTORDER]\nNUMVARS=1\nNUMENTRIES=1\nOMVARS1=12\n");
        variables = nullptr;
      },
      [&] { code = TRIED(ZeQsfIniGetSection)(handle, 4, 1, &variables, &count); },
      [&](const std::string& failed) {
        EXPECT_EQ(code, failed.empty() ? ZE_OK : ZE_OUT_OF_MEMORY);
        EXPECT_EQ(variables != nullptr, code == ZE_OK);
        EXPECT_EQ(count, code == ZE_OK ? 1 : 0);
        ZeMemFree(variables);
        Close();
      });
}

TEST_F(ConfigFaultTest, WebUrl) {
  std::uint32_t code = 0;
  char url[100];
  EachFailure(
      [&] {
        Open("[PRINTER]\n8=laser\n");
        std::strcpy(url, "before");
      },
      [&] { code = TRIED(ZeWebGetURL)(0, 1, 2, url, sizeof(url), handle); },
      [&](const std::string& failed) {
        EXPECT_EQ(code, failed.empty() ? ZE_OK : ZE_OUT_OF_MEMORY);
        EXPECT_EQ(url[0] != '\0', failed.empty());
        Close();
      });
}

}  // namespace
}  // namespace zeapi::testing
