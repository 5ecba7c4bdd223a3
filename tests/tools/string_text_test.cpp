// Command strings as they are typed.
#include "string_text.h"

#include <gtest/gtest.h>

namespace tool {
namespace {

using namespace std::string_literals;

TEST(HexOfBytes, CarriesEveryByte) {
  EXPECT_EQ(HexOfBytes("\x00\x1B\xFF%$"s), "001BFF2524");
  EXPECT_EQ(HexOfBytes(""), "");
}

TEST(BytesOfHex, TakesPairsInEitherCaseWithBlanks) {
  EXPECT_EQ(BytesOfHex("1b45 0C 00"),
            "\x1B"
            "E\f\0"s);
}

TEST(BytesOfHex, RefusesAnythingElse) {
  for (const char* text : {"0", "0g", "1 B", "%a", "1B4"})
    EXPECT_THROW(BytesOfHex(text), BadText) << text;
}

TEST(BytesOfEscapes, KnowsItsEscapes) {
  EXPECT_EQ(BytesOfEscapes("a\\n\\r\\t\\f\\e\\\\\\x00\\xfF$b"), "a\n\r\t\f\x1B\\\0\xFF$b"s);
}

TEST(BytesOfEscapes, RefusesUnknownAndUnfinishedEscapes) {
  for (const char* text : {"\\", "\\q", "\\x", "\\x1", "\\x1g", "\\N"})
    EXPECT_THROW(BytesOfEscapes(text), BadText) << text;
}

}  // namespace
}  // namespace tool
