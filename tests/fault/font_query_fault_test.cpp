// Font queries under every failure of the system and of memory, one at a time. A record that reports
// success is whole; 27 also stands for a file that cannot be read, and a companion that cannot be
// seen counts as missing.
#include <functional>
#include <set>
#include <string>

#include "fault/fault_case.h"
#include "fonts/cartridge.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

const std::set<std::uint32_t> kFontCodes = {ZE_FILE_NOT_FOUND, ZE_OPEN_FAILED, ZE_OUT_OF_MEMORY,
                                            ZE_BAD_FORMAT, ZE_UNSUPPORTED};

class FontQueryFaultTest : public FaultTest {
 protected:
  void TearDown() override {
    Release();
    FaultTest::TearDown();
  }
  void FailEachQuery(
      const std::string& path, std::uint32_t option, const char* description,
      const std::function<void()>& more = [] {}) {
    FailEachInTurn(
        {[this] { Release(); },
         [this, path, option] { return TRIED(ZeFonQueryInfo)(path.c_str(), &info, option, 1); },
         kFontCodes,
         [this, description, more] {
           EXPECT_STREQ(info.description, description);
           more();
         }});
  }
  void Release() {
    FreeCartridge(info.cartridge);
    info = {};
  }

  ZeFontInfo info = {};
};

TEST_F(FontQueryFaultTest, PclFont) {
  WriteFile("font.sfp", PclFontFile{}.File());
  FailEachQuery("font.sfp", 0, "Courier  Bd [12.0 Pt.] (Roman-8)");
}

TEST_F(FontQueryFaultTest, Pfb) {
  WriteFile("font.pfb", "/FontName /Courier def\n/Encoding 256 array\n" + std::string(20000, 'x'));
  WriteFile("font.AFM", "x");
  FailEachQuery("font.pfb", 2, "Courier", [this] {
    EXPECT_EQ(info.flags & ZE_FONT_STANDARD, 0U);
    EXPECT_STREQ(info.companionFile, "font.AFM");
  });
}

TEST_F(FontQueryFaultTest, Pfa) {
  WriteFile("font.pfa", "%!PS\n/FontName /Courier\n");
  FailEachQuery("font.pfa", 0, "Courier");
}

TEST_F(FontQueryFaultTest, Afm) {
  WriteFile("font.afm",
            "FontName Courier\nStartKernData\nStartKernPairs 1\nKPX A B 1\nEndFontMetrics\n");
  WriteFile("font.INF", "MSMenuName (Courier)\n");
  WriteFile("font.PFB", "x");
  FailEachQuery("font.afm", 4, "Courier", [this] {
    EXPECT_STREQ(info.detail, "Courier");
    EXPECT_STREQ(info.companionFile, "font.PFB");
  });
}

TEST_F(FontQueryFaultTest, Dlf) {
  WriteFile("font.dlf", DlfFile{}.File());
  WriteFile("font.FMF", "x");
  FailEachQuery("font.dlf", 2, "Courier                      10.0 pitch  cp: 850 ");
}

TEST_F(FontQueryFaultTest, Fmf) {
  WriteFile("font.fmf", FmfFile("Courier"));
  FailEachQuery("font.fmf", 0, "Courier");
}

TEST_F(FontQueryFaultTest, Pfm) {
  WriteFile("font.pfm", PfmFile{}.File());
  FailEachQuery("font.pfm", 0, "Courier");
}

TEST_F(FontQueryFaultTest, Pcm) {
  PcmFile cartridge;
  cartridge.entries = {PfmFile{}.File(), PfmFile{}.File()};
  WriteFile("cart.pcm", cartridge.File());
  FailEachQuery("cart.pcm", 0, "Forms Cartridge", [this] {
    ASSERT_TRUE(info.cartridge != nullptr);
    ASSERT_TRUE(info.cartridge->fonts != nullptr);
    EXPECT_TRUE(info.cartridge->fonts->next != nullptr);
  });
}

}  // namespace
}  // namespace zeapi::testing
