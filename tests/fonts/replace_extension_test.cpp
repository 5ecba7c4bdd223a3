#include "fonts/replace_extension.h"

#include <gtest/gtest.h>

#include <string>

namespace zeapi::testing {
namespace {

struct ReplacementRow {
  const char* path;
  const char* extension;
  const char* replaced;
};

class ReplaceExtensionTest : public ::testing::TestWithParam<ReplacementRow> {};

TEST_P(ReplaceExtensionTest, Name) {
  EXPECT_STREQ(ReplaceExtension(GetParam().path, GetParam().extension).text, GetParam().replaced);
}

INSTANTIATE_TEST_SUITE_P(
    Names, ReplaceExtensionTest,
    ::testing::Values(
        ReplacementRow{"font.pfb", "AFM", "font.AFM"},
        ReplacementRow{"font.pfb", ".AFM", "font.AFM"}, ReplacementRow{"a.b.pfb", "AFM", "a.b.AFM"},
        ReplacementRow{"font.", "AFM", "font.AFM"}, ReplacementRow{"font.", ".AFM", "font.AFM"},
        ReplacementRow{"font", "AFM", "fontAFM"}, ReplacementRow{"font", ".AFM", "font.AFM"},
        ReplacementRow{"d.x\\font", "AFM", "d.x\\fontAFM"},
        ReplacementRow{"d.x/font", "AFM", "d.x/fontAFM"},
        ReplacementRow{"c.x:font", "AFM", "c.x:fontAFM"},
        ReplacementRow{"c:\\d\\font.pfb", "PFM", "c:\\d\\font.PFM"},
        ReplacementRow{".pfb", "AFM", ".AFM"}, ReplacementRow{"", "AFM", "AFM"},
        ReplacementRow{"font.pfb", "", "font."}));

TEST(ReplaceExtension, LongestPath) {
  const std::string path(ZE_MAX_NAME, 'p');
  EXPECT_EQ(ReplaceExtension(path, "AFM").text, path + "AFM");
}

}  // namespace
}  // namespace zeapi::testing
