// Conversions of font metrics under each failure. Metrics that report success are whole.
#include <algorithm>

#include "fault/fault_case.h"
#include "support/metrics.h"
#include "support/soft_fonts.h"
#include "support/tfm_file.h"

namespace zeapi::testing {
namespace {

const std::set<std::uint32_t> kConvertCodes = {ZE_FILE_NOT_FOUND, ZE_OPEN_FAILED, ZE_WRITE_FAILED,
                                               ZE_OUT_OF_MEMORY,  ZE_BAD_FORMAT,  ZE_COPY_FAILED};

class ConvertFaultTest : public FaultTest {
 protected:
  // The output is that of a conversion in peace, or the result tells that it is not.
  void FailEachConversion(std::uint32_t conversion, const char* font,
                          const std::vector<std::string>& outputs) {
    const auto call = [this, conversion, font] {
      return TRIED(ZeFonConvert)(font, "out.PFM", &info, 4, conversion);
    };
    ASSERT_EQ(call(), ZE_OK);
    std::vector<std::string> expected;
    for (const std::string& output : outputs) expected.push_back(ReadFile(output));
    FailEachInTurn({[&] {
                      for (const std::string& output : outputs) fs::remove(output);
                    },
                    call, kConvertCodes,
                    [&] {
                      for (std::size_t i = 0; i < outputs.size(); ++i)
                        EXPECT_BYTES(ReadFile(outputs[i]), expected[i]);
                    }});
  }

  ZeFontInfo info = {};
};

TEST_F(ConvertFaultTest, Type1) {
  WriteFile("font.afm",
            "FontName Test\nStartCharMetrics 2\nC 65 ; WX 700 ; N A ;\nC 66 ; WX 600 ; N B ;\n"
            "EndCharMetrics\nStartKernData\nStartKernPairs 1\nKPX A B 1\nEndFontMetrics\n");
  WriteFile("font.INF", "MSMenuName (Test)\n");
  FailEachConversion(1, "font.afm", {"out.PFM"});
  FailEachConversion(2, "font.afm", {"out.PFM", "out.PSM"});
}

TEST_F(ConvertFaultTest, Pfm) {
  PostScriptPfm font;
  font.name = "Name-That-Takes-Memory-Of-Its-Own";
  font.hasKerning = true;
  font.pairs = {{65, 66, 1}};
  WriteFile("font.pfm", font.File());
  FailEachConversion(3, "font.pfm", {"out.PFM"});
}

TEST_F(ConvertFaultTest, Dlf) {
  WriteFile("font.dlf", DlfFile{}.File());
  FailEachConversion(4, "font.dlf", {"out.PFM"});
}

TEST_F(ConvertFaultTest, Pcl) {
  SoftFont bitmap(0);
  bitmap.AddBitmap('A', 100, 30, 24, 30);
  WriteFile("font.sfp", bitmap.File());
  FailEachConversion(5, "font.sfp", {"out.PFM"});
  SoftFont scalable(15);
  scalable.AddGlyph('A', 1);
  WriteFile("font.sfp", scalable.File());
  FailEachConversion(17, "font.sfp", {"out.PFM"});
}

TEST_F(ConvertFaultTest, Intellifont) {
  WriteFile("font.sfp", SoftFont(10).File());
  WriteFile("font.tfm", TfmFile{}.File());
  constexpr std::string_view kPath = "font.tfm";
  std::copy(kPath.begin(), kPath.end(), info.metricsFile);
  FailEachConversion(6, "font.sfp", {"out.PFM"});
  FailEachConversion(16, "font.sfp", {"out.PFM"});
}

// What a failure of writing is called, by what was written.
TEST_F(ConvertFaultTest, OutputThatIsNotWhole) {
  WriteFile("font.dlf", DlfFile{}.File());
  FailEach(
      "fwrite", [] {}, [] { return TRIED(ZeFonConvert)("font.dlf", "out", nullptr, 0, 4); },
      [](std::uint32_t result) { EXPECT_EQ(result, ZE_COPY_FAILED); });
  WriteFile("font.pfm", PostScriptPfm{}.File());
  std::set<std::uint32_t> results;
  FailEach(
      "fclose", [] {}, [] { return TRIED(ZeFonConvert)("font.pfm", "out", nullptr, 0, 3); },
      [&](std::uint32_t result) { results.insert(result); });
  EXPECT_EQ(results, (std::set<std::uint32_t>{ZE_OK, ZE_WRITE_FAILED}));
}

}  // namespace
}  // namespace zeapi::testing
