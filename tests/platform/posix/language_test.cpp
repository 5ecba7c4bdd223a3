#include "platform/posix/language.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "platform/host.h"

namespace zeapi::platform {
namespace {

TEST(LanguageOfLocale, LanguageAndTerritoryCount) {
  EXPECT_EQ(LanguageOfLocale("de_DE.UTF-8"), 0x0407);
  EXPECT_EQ(LanguageOfLocale("de_AT@euro"), 0x0C07);
  EXPECT_EQ(LanguageOfLocale("de"), 0x0407);
  EXPECT_EQ(LanguageOfLocale("zh_TW.Big5"), 0x0404);
  EXPECT_EQ(LanguageOfLocale("zh_CN"), 0x0804);
  EXPECT_EQ(LanguageOfLocale("pt_BR"), 0x0416);
}

TEST(LanguageOfLocale, WhatHasNoEntryIsTheLanguageAloneOrEnglish) {
  EXPECT_EQ(LanguageOfLocale("fr_XX"), 0x040C);
  for (const char* name : {"C", "POSIX", "", "C.UTF-8", "xx_DE", "d", "_DE", "."}) {
    EXPECT_EQ(LanguageOfLocale(name), 0x0409) << name;
  }
}

// Sets a variable for one test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* before = std::getenv(name);
    had_ = before != nullptr;
    if (had_) before_ = before;
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
  }
  ~Variable() { had_ ? setenv(name_, before_.c_str(), 1) : unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  bool had_;
  std::string before_;
};

TEST(DefaultLanguage, FirstVariableThatSaysSomethingDecides) {
  const Variable all("LC_ALL", "");
  const Variable messages("LC_MESSAGES", "it_IT");
  const Variable lang("LANG", "sv_SE");
  EXPECT_EQ(DefaultLanguage(), 0x0410);
  const Variable french("LC_ALL", "fr_FR");
  EXPECT_EQ(DefaultLanguage(), 0x040C);
}

TEST(DefaultLanguage, WithoutVariablesItIsEnglish) {
  const Variable all("LC_ALL", nullptr);
  const Variable messages("LC_MESSAGES", nullptr);
  const Variable lang("LANG", nullptr);
  EXPECT_EQ(DefaultLanguage(), 0x0409);
}

TEST(QuerySystem, IsNoWindows) { EXPECT_GT(QuerySystem().platform, kPlatformNt); }

}  // namespace
}  // namespace zeapi::platform
