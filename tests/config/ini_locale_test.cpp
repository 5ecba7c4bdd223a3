#include "support/foreign_locale.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

using IniLocaleTest = IniTest;

TEST_F(IniLocaleTest, LocaleOfTheHostProgramChangesNothing) {
  const ForeignLocale turkish(folder());
  ASSERT_TRUE(turkish.InForce());
  // In the code page of the locale, \xDD and \xFD are the capital and small letters beside "i" and "I".
  Open("[FILTER]\nINDEX=1\n\xFDndex=2\n\xE4=3\n");
  EXPECT_EQ(Value("filter", "index"), "1");
  EXPECT_EQ(Value("f\xFDlter", "index"), "<45>");
  EXPECT_EQ(Value("filter", "\xFDndex"), "2");
  EXPECT_EQ(Value("filter", "\xC4"), "<41>");
  EXPECT_EQ(ZeIniWrite(handle, "Filter", "Index", "4"), 1U);
  EXPECT_EQ(ZeIniDelete(handle, "filter", "\xDDNDEX", nullptr), 1U);
  EXPECT_EQ(Written(), "[FILTER]\nIndex=4\n\xFDndex=2\n\xE4=3\n");
}

}  // namespace
}  // namespace zeapi::testing
