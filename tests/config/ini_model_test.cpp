// Random calls on random files, beside a model that knows nothing but the lines: every answer and the written
// file must be the same.
#include <random>

#include "support/bytes.h"
#include "support/ini.h"
#include "support/ini_model.h"

namespace zeapi::testing {
namespace {

class IniModelTest : public IniTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  void SetUp() override {
    IniTest::SetUp();
    random_.seed(GetParam());
  }

  std::size_t Below(std::size_t limit) { return random_() % limit; }

  // Few names, so that calls meet; some that make odd lines.
  std::string Section() { return Pick({"a", "A", "b", "c", "x=1", "", "k]", "none"}); }
  std::string Key() { return Pick({"k", "K", "l", "m", "[x", "[b", "", "k=2", "[x]"}); }
  std::string ValueText() { return Pick({"1", "2", "v", "V", "1]", "", "x=y", "a longer value"}); }

  std::string Line() {
    switch (Below(9)) {
      case 0:
      case 1:
        return "[" + Section() + "]";
      case 2:
        return "";
      case 3:
        return Key();
      case 4:
        return "==" + Key() + "==" + ValueText();
      case 5:
        return ";" + Key();
      default:
        return Key() + "=" + ValueText();
    }
  }

  void CheckValue(const std::string& section, const std::string& key) {
    const auto [code, value] = model_.Read2(section, key);
    const bool missing = code != ZE_OK;
    EXPECT_EQ(Value(section.c_str(), key.c_str()),
              missing ? "<" + std::to_string(code) + ">" : value);
    const std::string fallback = ValueText();
    EXPECT_EQ(Value(section.c_str(), key.c_str(), fallback.c_str()), missing ? fallback : value);
  }

  void CheckOneCall() {
    const std::string section = Section();
    const std::string key = Key();
    const std::string value = ValueText();
    const bool noSection = Below(2) == 0;
    const bool noKey = Below(4) == 0;
    switch (Below(8)) {
      case 0:
        EXPECT_EQ(ZeIniWrite(handle, section.c_str(), key.c_str(), value.c_str()), 1U);
        model_.Write(section, key, value, false);
        break;
      case 1:
        EXPECT_EQ(ZeIniWriteAll(handle, section.c_str(), key.c_str(), value.c_str()), 1U);
        model_.Write(section, key, value, true);
        break;
      case 2:
        EXPECT_EQ(ZeIniDelete(handle, section.c_str(), noKey ? nullptr : key.c_str(),
                              noSection ? nullptr : value.c_str()),
                  1U);
        model_.Delete(section, noKey ? nullptr : &key, noSection ? nullptr : &value);
        break;
      case 3:
      case 4:
        EXPECT_EQ(
            ZeIniRead(handle, noSection ? nullptr : section.c_str(), noKey ? nullptr : key.c_str()),
            model_.Read(noSection ? nullptr : &section, noKey ? nullptr : &key));
        break;
      default:
        CheckValue(section, key);
    }
  }

  IniModel model_;

 private:
  std::string Pick(std::initializer_list<const char*> choices) {
    return *(choices.begin() + Below(choices.size()));
  }

  std::mt19937 random_;
};

TEST_P(IniModelTest, AnswersAndFileAreThoseOfTheModel) {
  std::string text;
  for (std::size_t count = Below(40); count > 0; --count) text += Line() + "\n";
  const bool filtered = Below(2) == 0;
  model_.Load(text, filtered);
  Open(text, filtered ? ZE_INI_READ : ZE_INI_UPDATE);
  for (int call = 0; call < 300 && !HasFailure(); ++call) CheckOneCall();
  ZeIniDelete(handle, "there is no such section", nullptr, nullptr);
  EXPECT_BYTES(Written(), model_.Text());
}

INSTANTIATE_TEST_SUITE_P(Seeds, IniModelTest, ::testing::Range(0U, 50U));

}  // namespace
}  // namespace zeapi::testing
