#include "pclxl/xl_operators.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string_view>
#include <utility>

#include "pclxl/xl_names.h"

namespace zeapi::testing {
namespace {

// All from `first` to `last` of each pair.
std::set<unsigned> Codes(std::initializer_list<std::pair<unsigned, unsigned>> ranges) {
  std::set<unsigned> codes;
  for (const auto& [first, last] : ranges) {
    for (unsigned code = first; code <= last; ++code) codes.insert(code);
  }
  return codes;
}

std::set<unsigned> Where(bool (*holds)(std::uint8_t)) {
  std::set<unsigned> codes;
  for (unsigned code = 0; code < 256; ++code) {
    if (holds(static_cast<std::uint8_t>(code))) codes.insert(code);
  }
  return codes;
}

// Of the codes below `end` those in `named` have a name, each its own.
template <typename NameOf>
void ExpectNamed(unsigned end, NameOf nameOf, const std::set<unsigned>& named) {
  std::set<std::string_view> names;
  for (unsigned code = 0; code < end; ++code) {
    const char* name = nameOf(code);
    EXPECT_EQ(name != nullptr, named.count(code) != 0) << code;
    if (name != nullptr) {
      EXPECT_TRUE(names.insert(name).second) << name;
    }
  }
}

const std::set<unsigned> kOperatorCodes = Codes({{0x41, 0x44},
                                                 {0x47, 0x4B},
                                                 {0x4F, 0x55},
                                                 {0x5B, 0x5E},
                                                 {0x60, 0x7D},
                                                 {0x7F, 0x81},
                                                 {0x84, 0x86},
                                                 {0x91, 0x91},
                                                 {0x93, 0x93},
                                                 {0x95, 0x99},
                                                 {0x9B, 0x9B},
                                                 {0x9D, 0xA3},
                                                 {0xA8, 0xAA},
                                                 {0xB0, 0xB6},
                                                 {0xB8, 0xB9}});

TEST(XlClassOf, GivesEachByteItsClass) {
  const std::set<unsigned> white = Codes({{0x00, 0x00}, {0x09, 0x0D}, {0x20, 0x20}});
  const std::set<unsigned> rejected =
      Codes({{0x27, 0x29}, {0xD8, 0xDD}, {0xE8, 0xED}, {0xF9, 0xF9}});
  const std::set<unsigned> values = Codes({{0xC0, 0xC5}, {0xD0, 0xD5}, {0xE0, 0xE5}});
  const std::set<unsigned> arrays = Codes({{0xC8, 0xCD}});
  EXPECT_EQ(kOperatorCodes.size(), 83U);
  for (unsigned code = 0; code < 256; ++code) {
    XlClass expected = XlClass::kIllegal;
    if (white.count(code) != 0) expected = XlClass::kWhiteSpace;
    if (rejected.count(code) != 0) expected = XlClass::kRejected;
    if (values.count(code) != 0) expected = XlClass::kValue;
    if (arrays.count(code) != 0) expected = XlClass::kArray;
    if (kOperatorCodes.count(code) != 0) expected = XlClass::kOperator;
    if (code == 0xF8) expected = XlClass::kAttributeId;
    if (code == 0xFA || code == 0xFB) expected = XlClass::kEmbeddedData;
    EXPECT_EQ(XlClassOf(static_cast<std::uint8_t>(code)), expected) << code;
  }
}

TEST(XlOperatorName, IsThereForEachOperatorAndNothingElse) {
  ExpectNamed(
      256, [](unsigned code) { return XlOperatorName(static_cast<std::uint8_t>(code)); },
      kOperatorCodes);
  EXPECT_STREQ(XlOperatorName(0x41), "BeginSession");
  EXPECT_STREQ(XlOperatorName(0x78), "SetPaintTxMode");
  EXPECT_STREQ(XlOperatorName(0x7D), "SetCharBoldValue");
  EXPECT_STREQ(XlOperatorName(0x84), "CloseSubPath");
  EXPECT_STREQ(XlOperatorName(0x9D), "LineRelPath");
  EXPECT_STREQ(XlOperatorName(0xA3), "RoundRectanglePath");
  EXPECT_STREQ(XlOperatorName(0xAA), "SystemText");
  EXPECT_STREQ(XlOperatorName(0xB9), "ScanLineRel");
}

TEST(XlAllowedInSession, IsThisSet) {
  EXPECT_EQ(Where(XlAllowedInSession),
            Codes({{0x42, 0x43}, {0x47, 0x4B}, {0x4F, 0x55}, {0x5B, 0x5E}, {0xFA, 0xFB}}));
}

// 0x46 would be allowed too, but it is an illegal byte and never gets there.
TEST(XlAllowedInPage, IsThisSet) {
  EXPECT_EQ(Where(XlAllowedInPage), Codes({{0x44, 0x44},
                                           {0x47, 0x4B},
                                           {0x4F, 0x55},
                                           {0x5B, 0x5E},
                                           {0x60, 0x7D},
                                           {0x7F, 0x81},
                                           {0x84, 0x86},
                                           {0x91, 0x91},
                                           {0x93, 0x93},
                                           {0x95, 0x99},
                                           {0x9B, 0x9B},
                                           {0x9D, 0xA3},
                                           {0xA8, 0xAA},
                                           {0xB0, 0xB6},
                                           {0xB8, 0xB9},
                                           {0xFA, 0xFB}}));
}

TEST(XlElementWidth, FollowsTheLowBitsOfTheTag) {
  constexpr unsigned kWidths[] = {1, 2, 4, 2, 4, 4};
  for (const unsigned shape : {0xC0U, 0xC8U, 0xD0U, 0xE0U}) {
    for (unsigned type = 0; type < 6; ++type)
      EXPECT_EQ(XlElementWidth(static_cast<std::uint8_t>(shape + type)), kWidths[type]);
  }
}

TEST(XlElementCount, FollowsTheShape) {
  EXPECT_EQ(XlElementCount(0xC5), 1U);
  EXPECT_EQ(XlElementCount(0xD0), 2U);
  EXPECT_EQ(XlElementCount(0xE3), 4U);
}

TEST(XlAttributeName, KnowsTheNamedOnesAlone) {
  const std::set<unsigned> named = Codes({{0x01, 0x09},
                                          {0x0B, 0x0D},
                                          {0x21, 0x2D},
                                          {0x2F, 0x36},
                                          {0x41, 0x54},
                                          {0x61, 0x69},
                                          {0x6B, 0x73},
                                          {0x81, 0x82},
                                          {0x86, 0x86},
                                          {0x88, 0x8C},
                                          {0x8F, 0x8F},
                                          {0x9E, 0xAC},
                                          {0xAF, 0xB1}});
  ExpectNamed(300, XlAttributeName, named);
  EXPECT_STREQ(XlAttributeName(0x01), "CMYColor");
  EXPECT_STREQ(XlAttributeName(0x2C), "ROP3");
  EXPECT_STREQ(XlAttributeName(0x4A), "PenDashStyle");
  EXPECT_STREQ(XlAttributeName(0x8C), "StreamDataLength");
  EXPECT_STREQ(XlAttributeName(0xB1), "CharBoldValue");
}

TEST(XlEnumerationName, KeepsTheSpellings) {
  EXPECT_STREQ(XlEnumerationName(0x47, 0), "eButCap");
  EXPECT_STREQ(XlEnumerationName(0x25, 16), "eA4paper");
  EXPECT_STREQ(XlEnumerationName(0x25, 2), "eA4Paper");
}

TEST(XlEnumerationName, IsThereForTheListedValues) {
  struct Row {
    unsigned id;
    std::set<unsigned> values;
  };
  const Row rows[] = {
      {0x02, Codes({{0, 2}})}, {0x62, Codes({{0, 2}})}, {0x03, Codes({{0, 3}})},
      {0x21, Codes({{0, 0}})}, {0x24, Codes({{0, 2}})}, {0x25, Codes({{0, 12}, {14, 16}})},
      {0x26, Codes({{0, 6}})}, {0x28, Codes({{0, 3}})}, {0x2D, Codes({{0, 1}})},
      {0x34, Codes({{0, 0}})}, {0x35, Codes({{0, 1}})}, {0x36, Codes({{0, 1}})},
      {0x41, Codes({{0, 1}})}, {0x46, Codes({{0, 1}})}, {0x54, Codes({{0, 1}})},
      {0x47, Codes({{0, 3}})}, {0x48, Codes({{0, 3}})}, {0x50, Codes({{0, 3}})},
      {0x53, Codes({{0, 1}})}, {0x64, Codes({{0, 1}})}, {0x65, Codes({{0, 1}})},
      {0x68, Codes({{0, 2}})}, {0x82, Codes({{0, 1}})}, {0x86, Codes({{0, 2}})},
      {0x88, Codes({{0, 0}})}, {0x8F, Codes({{0, 3}})}, {0xA0, Codes({{1, 4}})},
      {0xAC, Codes({{0, 1}})},
  };
  std::size_t expected = 0;
  for (const Row& row : rows) {
    expected += row.values.size();
    for (const unsigned value : row.values)
      EXPECT_NE(XlEnumerationName(row.id, static_cast<std::uint8_t>(value)), nullptr)
          << row.id << " " << value;
  }
  std::size_t found = 0;
  for (unsigned id = 0; id < 256; ++id) {
    for (unsigned value = 0; value < 256; ++value)
      found += XlEnumerationName(id, static_cast<std::uint8_t>(value)) != nullptr ? 1U : 0U;
  }
  EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace zeapi::testing
