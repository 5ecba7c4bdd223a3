#include "fonts/replace_extension.h"

#include <gtest/gtest.h>

#include <string>

namespace zeapi::testing {
namespace {

struct Row {
  const char* path;
  const char* extension;
  const char* replaced;
};

class ReplaceExtensionTest : public ::testing::TestWithParam<Row> {};

TEST_P(ReplaceExtensionTest, Name) {
  EXPECT_STREQ(ReplaceExtension(GetParam().path, GetParam().extension).text, GetParam().replaced);
}

INSTANTIATE_TEST_SUITE_P(
    Names, ReplaceExtensionTest,
    ::testing::Values(Row{"font.pfb", "AFM", "font.AFM"}, Row{"font.pfb", ".AFM", "font.AFM"},
                      Row{"a.b.pfb", "AFM", "a.b.AFM"}, Row{"font.", "AFM", "font.AFM"},
                      Row{"font.", ".AFM", "font.AFM"}, Row{"font", "AFM", "fontAFM"},
                      Row{"font", ".AFM", "font.AFM"}, Row{"d.x\\font", "AFM", "d.x\\fontAFM"},
                      Row{"d.x/font", "AFM", "d.x/fontAFM"}, Row{"c.x:font", "AFM", "c.x:fontAFM"},
                      Row{"c:\\d\\font.pfb", "PFM", "c:\\d\\font.PFM"}, Row{".pfb", "AFM", ".AFM"},
                      Row{"", "AFM", "AFM"}, Row{"font.pfb", "", "font."}));

TEST(ReplaceExtension, LongestPath) {
  const std::string path(ZE_MAX_NAME, 'p');
  EXPECT_EQ(ReplaceExtension(path, "AFM").text, path + "AFM");
}

}  // namespace
}  // namespace zeapi::testing
