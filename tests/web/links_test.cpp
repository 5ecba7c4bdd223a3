#include <algorithm>
#include <memory>

#include "support/bytes.h"
#include "support/host_double.h"
#include "support/ini.h"

namespace zeapi::testing {
namespace {

#ifndef ZEAPI_SUPPORT_SITE
#error "the build names the support site"
#endif
const std::string kSite = ZEAPI_SUPPORT_SITE;

class WebUrlTest : public IniTest {
 protected:
  // Calls with a block of exactly `size` bytes.
  std::uint32_t Get(std::int32_t printer, std::int32_t topic, std::int32_t language,
                    std::uint32_t size = 300) {
    const auto buffer = std::make_unique<char[]>(size);
    std::fill_n(buffer.get(), size, '#');
    const std::uint32_t code = ZeWebGetURL(printer, topic, language, buffer.get(), size, handle);
    url = size > 0 ? buffer.get() : "";
    return code;
  }

  std::string url;
};

TEST_F(WebUrlTest, PartsStandInTheirOrder) {
  EXPECT_EQ(Get(0, 1, 3), ZE_OK);
  EXPECT_EQ(url, kSite + "/NA/drivers/3/8");
}

TEST_F(WebUrlTest, EveryTopicHasItsWord) {
  const char* words[] = {"drivers",      "firmware", "homepage",    "quorview",
                         "registration", "supplies", "techsupport", "publications"};
  for (int topic = 1; topic <= 8; ++topic) {
    EXPECT_EQ(Get(-1, topic, 0), ZE_OK);
    EXPECT_EQ(url, kSite + "/NA/" + words[topic - 1] + "/0");
  }
}

TEST_F(WebUrlTest, EveryPrinterCodeHasItsNumberOrNone) {
  const int numbers[] = {8, 7, 0, 4, 9,  6,  3,  5,  4,  0,  1,  0, 0,  0,
                         0, 0, 0, 2, 11, 11, 20, 21, 22, 23, 24, 1, 26, 27};
  for (int printer = 0; printer < static_cast<int>(std::size(numbers)); ++printer) {
    SCOPED_TRACE(printer);
    const int number = numbers[printer];
    EXPECT_EQ(Get(printer, 1, 0), number == 0 ? ZE_UNKNOWN_TYPE : ZE_OK);
    EXPECT_EQ(url, number == 0 ? "" : kSite + "/NA/drivers/0/" + std::to_string(number));
  }
  EXPECT_EQ(Get(INT32_MAX, 1, INT32_MIN), ZE_OK);
  EXPECT_EQ(url, kSite + "/NA/drivers/-2147483648/2147483647");
  EXPECT_EQ(Get(-2, 1, 0), ZE_UNKNOWN_TYPE);
  EXPECT_EQ(Get(INT32_MIN, 1, 0), ZE_UNKNOWN_TYPE);
}

TEST_F(WebUrlTest, InvalidArgumentsEmptyTheBuffer) {
  for (const int topic : {0, 9, -1, INT32_MIN}) {
    EXPECT_EQ(Get(0, topic, 0), ZE_INVALID_ARGUMENT);
    EXPECT_EQ(url, "");
  }
  EXPECT_EQ(ZeWebGetURL(0, 1, 0, nullptr, 100, nullptr), ZE_INVALID_ARGUMENT);
  // The topic and the buffer are looked at before the printer.
  EXPECT_EQ(Get(2, 0, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeWebGetURL(2, 1, 0, nullptr, 100, nullptr), ZE_INVALID_ARGUMENT);
}

TEST_F(WebUrlTest, BufferWithoutRoomIsLeftAlone) {
  char untouched = '#';
  EXPECT_EQ(ZeWebGetURL(0, 0, 0, &untouched, 0, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeWebGetURL(2, 1, 0, &untouched, 0, nullptr), ZE_UNKNOWN_TYPE);
  EXPECT_EQ(ZeWebGetURL(0, 1, 0, &untouched, 0, nullptr), ZE_BUFFER_TOO_SMALL);
  Open("[PRINTER]\n8=laser\n");
  EXPECT_EQ(ZeWebGetURL(0, 1, 0, &untouched, 0, handle), ZE_INVALID_ARGUMENT) << "of the look-up";
  EXPECT_EQ(untouched, '#');
}

TEST_F(WebUrlTest, BufferOfTheAddressAndItsTerminatorIsEnough) {
  const std::string whole = kSite + "/NA/drivers/3/8";
  const auto length = static_cast<std::uint32_t>(whole.size());
  EXPECT_EQ(Get(0, 1, 3, length + 1), ZE_OK);
  EXPECT_EQ(url, whole);
  for (std::uint32_t size = 1; size <= length; ++size) {
    EXPECT_EQ(Get(0, 1, 3, size), ZE_BUFFER_TOO_SMALL) << size;
    EXPECT_EQ(url, "");
  }
}

TEST_F(WebUrlTest, FileOverridesEachPart) {
  Open(
      "[AREA_PREFIX]\nDRIVERS=http://other\n[area]\nDrivers=down/load\n[LANGUAGE]\n3=de\n"
      "[PRINTER]\n8=laser\n");
  EXPECT_EQ(Get(0, 1, 3), ZE_OK);
  EXPECT_EQ(url, "http://other/down/load/de/laser");
  EXPECT_EQ(Get(0, 2, 3), ZE_OK);  // the last look-up alone makes the code
  EXPECT_EQ(url, kSite + "/NA/firmware/de/laser");
}

TEST_F(WebUrlTest, EveryTopicHasItsKeys) {
  const char* keys[] = {"DRIVERS",      "FIRMWARE", "HOMEPAGE",    "QUORVIEW",
                        "REGISTRATION", "SUPPLIES", "TECHSUPPORT", "PUBLICATIONS"};
  std::string bases = "[AREA_PREFIX]\n";
  std::string words = "[AREA]\n";
  for (const std::string key : keys) {
    bases += key + "=base of " + key + "\n";
    words += key + "=word of " + key + "\n";
  }
  Open(bases + words);
  for (int topic = 1; topic <= 8; ++topic) {
    const std::string key = keys[topic - 1];
    EXPECT_EQ(Get(-1, topic, 0), ZE_DEFAULT_USED);
    EXPECT_EQ(url, "base of " + key + "/word of " + key + "/0");
  }
}

TEST_F(WebUrlTest, LanguageBelowZeroHasItsKey) {
  Open("[LANGUAGE]\n-1=none\n");
  EXPECT_EQ(Get(-1, 1, -1), ZE_OK);
  EXPECT_EQ(url, kSite + "/NA/drivers/none");
}

TEST_F(WebUrlTest, CodeIsThatOfTheLastLookUp) {
  Open("[LANGUAGE]\n3=de\n");
  EXPECT_EQ(Get(-1, 1, 3), ZE_OK);
  EXPECT_EQ(Get(0, 1, 3), ZE_DEFAULT_USED);
  EXPECT_EQ(url, kSite + "/NA/drivers/de/8");
  EXPECT_EQ(Get(-1, 1, 4), ZE_DEFAULT_USED);
  EXPECT_EQ(url, kSite + "/NA/drivers/4");
}

TEST_F(WebUrlTest, MissingLanguageSectionGives48WithoutAPrinter) {
  Open("[PRINTER]\n8=laser\n");
  EXPECT_EQ(Get(-1, 1, 3), ZE_DEFAULT_USED);
  EXPECT_EQ(url, kSite + "/NA/drivers/3");
}

TEST_F(WebUrlTest, EmptyPartsLeaveNoSlash) {
  Open("[AREA_PREFIX]\nSUPPLIES=\n[AREA]\nDRIVERS=\n[LANGUAGE]\n3=\n[PRINTER]\n8=\n");
  EXPECT_EQ(Get(0, 1, 3), ZE_OK);
  EXPECT_EQ(url, kSite + "/NA");
  EXPECT_EQ(Get(0, 6, 4), ZE_OK);
  EXPECT_EQ(url, "/supplies/4");
}

TEST_F(WebUrlTest, PartThatFillsTheBufferAloneGives42) {
  Open("[AREA_PREFIX]\nDRIVERS=0123456789\n");
  EXPECT_EQ(Get(-1, 1, 3, 10), ZE_BUFFER_TOO_SMALL);
  EXPECT_EQ(url, "");
  Open("[AREA_PREFIX]\nDRIVERS=\n[AREA]\nDRIVERS=0123456789\n[LANGUAGE]\n3=\n");
  EXPECT_EQ(Get(-1, 1, 3, 11), ZE_BUFFER_TOO_SMALL);  // the slash
  EXPECT_EQ(Get(-1, 1, 3, 12), ZE_OK);
  EXPECT_EQ(url, "/0123456789");
}

class WebCgiUrlTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetHost(); }

  std::uint32_t Get(std::uint32_t family, std::uint32_t model, std::uint32_t topic,
                    std::uint32_t language, std::uint32_t size = 300) {
    const auto buffer = std::make_unique<char[]>(size);
    std::fill_n(buffer.get(), size, '#');
    const std::uint32_t code = ZeWebGetCGIURL(family, model, topic, language, buffer.get(), size);
    url = size > 0 ? buffer.get() : "";
    return code;
  }

  std::string url;
};

TEST_F(WebCgiUrlTest, PartsStandInTheirOrder) {
  EXPECT_EQ(Get(1, 23, 1, 0x0407), ZE_OK);
  EXPECT_EQ(url, kSite + "/MD/?func=drivers&lang=2&prtr=B001023&ctry=00000409&os=5");
}

TEST_F(WebCgiUrlTest, KeepsTechSupportUnderTheNameSupport) {
  const char* words[] = {"drivers",      "firmware", "homepage", "quorview",
                         "registration", "supplies", "support",  "publications"};
  for (std::uint32_t topic = 1; topic <= 8; ++topic) {
    EXPECT_EQ(Get(0, 0, topic, 0), ZE_OK);
    EXPECT_NE(url.find("?func=" + std::string(words[topic - 1]) + "&"), url.npos) << url;
  }
}

TEST_F(WebCgiUrlTest, NumbersBeyondThreeDigitsAreWrittenWhole) {
  EXPECT_EQ(Get(4294967295U, 1000, 1, 0), ZE_OK);
  EXPECT_NE(url.find("&prtr=B42949672951000&"), url.npos);
}

TEST_F(WebCgiUrlTest, LanguageGivesItsCode) {
  const std::pair<std::uint32_t, const char*> codes[] = {
      {0x0804, "13"}, {0x0404, "14"},   {0x0C04, "14"}, {0x0004, "14"}, {0x0406, "5"},
      {0x0407, "2"},  {0x0C07, "2"},    {0x0409, "0"},  {0x040A, "4"},  {0x040B, "9"},
      {0x040C, "1"},  {0x0410, "3"},    {0x0411, "12"}, {0x0413, "7"},  {0x0414, "6"},
      {0x0415, "20"}, {0x0416, "21"},   {0x0419, "22"}, {0x041D, "8"},  {0x0408, "0"},
      {0, "0"},       {0xFFFF0407, "2"}};
  for (const auto& [language, code] : codes) {
    EXPECT_EQ(Get(0, 0, 1, language), ZE_OK);
    EXPECT_NE(url.find("&lang=" + std::string(code) + "&"), url.npos) << std::hex << language;
  }
}

TEST_F(WebCgiUrlTest, UserLanguageIsWrittenInEightDigits) {
  Host().language = 0xC0C;
  EXPECT_EQ(Get(0, 0, 1, 0), ZE_OK);
  EXPECT_NE(url.find("&ctry=00000C0C&"), url.npos);
}

TEST_F(WebCgiUrlTest, SystemGivesItsCode) {
  const std::pair<platform::SystemVersion, const char*> codes[] = {
      {{0, 3, 10}, "1"}, {{1, 4, 90}, "1"}, {{2, 4, 0}, "2"}, {{2, 3, 51}, "2"}, {{2, 5, 0}, "3"},
      {{2, 5, 1}, "5"},  {{2, 6, 0}, "3"},  {{2, 6, 3}, "5"}, {{2, 10, 0}, "3"}, {{3, 6, 1}, "2"}};
  for (const auto& [system, code] : codes) {
    Host().system = system;
    EXPECT_EQ(Get(0, 0, 1, 0), ZE_OK);
    EXPECT_TRUE(url.ends_with("&os=" + std::string(code))) << url;
  }
}

TEST_F(WebCgiUrlTest, KeepsAskingForOneByteMoreThanTheAddressTakes) {
  EXPECT_EQ(Get(1, 2, 1, 0x0409), ZE_OK);
  const std::string whole = url;
  const auto length = static_cast<std::uint32_t>(whole.size());
  EXPECT_EQ(Get(1, 2, 1, 0x0409, length + 2), ZE_OK);
  EXPECT_EQ(url, whole);
  for (std::uint32_t size = 1; size <= length + 1; ++size) {
    EXPECT_EQ(Get(1, 2, 1, 0x0409, size), ZE_BUFFER_TOO_SMALL) << size;
    EXPECT_EQ(url, "");
  }
}

TEST_F(WebCgiUrlTest, InvalidArgumentsEmptyTheBuffer) {
  for (const std::uint32_t topic : {0U, 9U, 0xFFFFFFFFU}) {
    EXPECT_EQ(Get(0, 0, topic, 0), ZE_INVALID_ARGUMENT);
    EXPECT_EQ(url, "");
  }
  EXPECT_EQ(ZeWebGetCGIURL(0, 0, 1, 0, nullptr, 100), ZE_INVALID_ARGUMENT);
  char untouched = '#';
  EXPECT_EQ(ZeWebGetCGIURL(0, 0, 1, 0, &untouched, 0), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(untouched, '#');
}

}  // namespace
}  // namespace zeapi::testing
