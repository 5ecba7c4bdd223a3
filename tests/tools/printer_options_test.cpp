// From the options of a command to the record that the library reads.
#include "printer_options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tool {
namespace {

class PrinterOptionsTest : public testing::Test {
 protected:
  PrinterOptionsTest() { AddPrinterOptions(command_, options_); }

  // The record for these options beside the printer. Throws what the parser throws.
  ZeDestination Parse(const std::string& arguments) {
    command_.parse("--printer lp0 " + arguments);
    return ToDestination(options_);
  }

  CLI::App command_;
  PrinterOptions options_;
};

TEST_F(PrinterOptionsTest, AreAllOffByThemselves) {
  const ZeDestination destination = Parse("");
  EXPECT_EQ(options_.printer, "lp0");
  EXPECT_EQ(uint32_t{destination.flags}, 0U);
  EXPECT_EQ(uint32_t{destination.deviceClass}, 0U);
  EXPECT_EQ(int32_t{destination.language}, ZE_LANGUAGE_NONE);
  EXPECT_EQ(uint16_t{destination.copies}, 0U);
  EXPECT_EQ(uint16_t{destination.bidiPort}, 0U);
  EXPECT_EQ(uint16_t{destination.bidiHandle}, 0U);
  EXPECT_EQ(static_cast<const char*>(destination.jobName), nullptr);
  EXPECT_EQ(uint8_t{destination.channel}, 0U);
}

TEST_F(PrinterOptionsTest, FillTheirFields) {
  const ZeDestination destination = Parse(
      "--pjl --bracket-k --language gl --copies 3 --job \"My page\" --channel 2 --device-class 2 "
      "--bidi-port 65535 --bidi-handle 7");
  EXPECT_EQ(uint32_t{destination.flags}, uint32_t{ZE_FLAG_PJL | ZE_FLAG_BRACKET_K});
  EXPECT_EQ(uint32_t{destination.deviceClass}, 2U);
  EXPECT_EQ(int32_t{destination.language}, ZE_LANGUAGE_GL);
  EXPECT_EQ(uint16_t{destination.copies}, 3U);
  EXPECT_EQ(uint16_t{destination.bidiPort}, 65535U);
  EXPECT_EQ(uint16_t{destination.bidiHandle}, 7U);
  EXPECT_STREQ(destination.jobName, "My page");
  EXPECT_EQ(uint8_t{destination.channel}, '2');
}

TEST_F(PrinterOptionsTest, SetOneFlagEach) {
  EXPECT_EQ(uint32_t{Parse("--pjl").flags}, uint32_t{ZE_FLAG_PJL});
}

TEST_F(PrinterOptionsTest, KeepAnEmptyJobName) {
  command_.parse(std::vector<std::string>{"", "--job", "lp0", "--printer"});  // last one first
  EXPECT_STREQ(ToDestination(options_).jobName, "");
}

TEST_F(PrinterOptionsTest, RefuseWhatTheFieldsCannotHold) {
  EXPECT_THROW(Parse("--copies 65536"), CLI::ParseError);
  EXPECT_THROW(Parse("--copies=-1"), CLI::ParseError);
  EXPECT_THROW(Parse("--channel 12"), CLI::ParseError);
  EXPECT_THROW(Parse("--language 5"), CLI::ParseError);
}

TEST_F(PrinterOptionsTest, NeedAPrinter) {
  EXPECT_THROW(command_.parse("--pjl"), CLI::RequiredError);
}

struct LanguageRow {
  const char* name;
  std::int32_t language;
};

class LanguageOptionTest : public PrinterOptionsTest,
                           public testing::WithParamInterface<LanguageRow> {};

TEST_P(LanguageOptionTest, StandsForItsNumber) {
  EXPECT_EQ(int32_t{Parse(std::string("--language ") + GetParam().name).language},
            GetParam().language);
}

INSTANTIATE_TEST_SUITE_P(Names, LanguageOptionTest,
                         testing::Values(LanguageRow{"none", 0}, LanguageRow{"default", 1},
                                         LanguageRow{"ppds", 2}, LanguageRow{"postscript", 3},
                                         LanguageRow{"gl", 4}, LanguageRow{"pcl", 5},
                                         LanguageRow{"pclxl", 6}, LanguageRow{"PCL", 5}));

}  // namespace
}  // namespace tool
