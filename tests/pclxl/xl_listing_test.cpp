#include "pclxl/xl_listing.h"

#include "pclxl/list_stream.h"
#include "pclxl/xl_value_text.h"
#include "support/byte_order.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

using namespace xl;

class XlListingTest : public XlTest {
 protected:
  // The listing of one operator with its attributes.
  std::string List(std::string_view bytes) {
    Open(bytes);
    state()->listing = &listing;
    EXPECT_EQ(XlReadToOperator(state()), kXlOk);
    XlListOperator(state(), "Operator");
    return listing.all;
  }

  // The text of the only attribute, which is of the type ID(0x7f).
  std::string Value(std::string_view value, int id = 0x7F) {
    Open(xl::Attribute(value, id) + Hex({0x41}));
    EXPECT_EQ(XlReadToOperator(state()), kXlOk);
    return XlValueText(Attribute(0));
  }

  std::string Block(std::string_view tagged) {
    Open(tagged.substr(1));
    state()->listing = &listing;
    result = XlListEmbeddedData(tagged[0] == '\xFA' ? 4 : 1, state());
    return listing.all;
  }

  std::string Header(std::string_view line) {
    Open(line);
    state()->listing = &listing;
    XlReadStreamHeader(state());
    return listing.all;
  }

  XlResult result = kXlOk;
};

TEST_F(XlListingTest, OperatorWithoutAttributesIsAnEmptyLineAndItsName) {
  EXPECT_BYTES(List(Hex({0x44})), "\n    &Operator;\n");
}

TEST_F(XlListingTest, EachAttributeHasALine) {
  EXPECT_BYTES(List(xl::Attribute(Hex({0xD1}) + Le16(600) + Le16(300), 0x89) +
                    xl::Attribute(Ubyte(9), 0x7F) + Hex({0x41})),
               "\n    &UInt16(600,300); &UnitsPerMeasure;"
               "\n    &Ubyte(9); &ID(0x7f);\n    &Operator;\n");
}

TEST_F(XlListingTest, ListingReleasesTheAttributesQuietOrNot) {
  List(xl::Attribute(Ubyte(9), 0x7F) + Hex({0x41}));
  EXPECT_EQ(state()->attributeCount, 0);
  Open(xl::Attribute(Ubyte(9), 0x7F) + Hex({0x41}));
  EXPECT_EQ(XlReadToOperator(state()), kXlOk);
  XlListOperator(state(), "Operator");
  EXPECT_EQ(state()->attributeCount, 0);
}

TEST_F(XlListingTest, SingleValues) {
  EXPECT_BYTES(Value(Ubyte(255)), "Ubyte(255)");
  EXPECT_BYTES(Value(Uint16(65535)), "UInt16(65535)");
  EXPECT_BYTES(Value(Hex({0xC2}) + Le32(4294967295U)), "UInt32(4294967295)");
  EXPECT_BYTES(Value(Hex({0xC3, 0xFE, 0xFF})), "SInt16(-2)");
  EXPECT_BYTES(Value(Hex({0xC4}) + Le32(0x80000000U)), "SInt32(-2147483648)");
  EXPECT_BYTES(Value(Hex({0xC5, 0, 0, 0x20, 0xC0})), "Real32(-2.500000)");
}

TEST_F(XlListingTest, Pairs) {
  EXPECT_BYTES(Value(Hex({0xD0, 1, 255})), "Ubyte(1,255)");
  EXPECT_BYTES(Value(Hex({0xD1}) + Le16(1) + Le16(65535)), "UInt16(1,65535)");
  EXPECT_BYTES(Value(Hex({0xD2}) + Le32(1) + Le32(4294967295U)), "UInt32(1,4294967295)");
  EXPECT_BYTES(Value(Hex({0xD3}) + Le16(1) + Le16(65535)), "SInt16(1,-1)");
  EXPECT_BYTES(Value(Hex({0xD4}) + Le32(1) + Le32(4294967295U)), "SInt32(1,-1)");
  EXPECT_BYTES(Value(Hex({0xD5, 0, 0, 0x80, 0x3F, 0, 0, 0, 0x3F})), "Real32(1.000000,0.500000)");
}

TEST_F(XlListingTest, Boxes) {
  EXPECT_BYTES(Value(Hex({0xE0, 1, 2, 3, 255})), "Ubyte(1,2,3,255)");
  EXPECT_BYTES(Value(Hex({0xE1}) + Le16(1) + Le16(2) + Le16(3) + Le16(65535)),
               "UInt16(1,2,3,65535)");
  EXPECT_BYTES(Value(Hex({0xE2}) + Le32(1) + Le32(2) + Le32(3) + Le32(4)), "UInt32(1,2,3,4)");
  EXPECT_BYTES(Value(Hex({0xE3}) + Le16(1) + Le16(2) + Le16(3) + Le16(65535)), "SInt16(1,2,3,-1)");
  EXPECT_BYTES(Value(Hex({0xE4}) + Le32(1) + Le32(2) + Le32(3) + Le32(4294967295U)),
               "SInt32(1,2,3,-1)");
  const std::string one = Le32(0x3F800000U);
  EXPECT_BYTES(Value(Hex({0xE5}) + one + one + one + one),
               "Real32(1.000000,1.000000,1.000000,1.000000)");
}

TEST_F(XlListingTest, EnumeratedValuesAreShownByName) {
  EXPECT_BYTES(Value(Ubyte(2), 0x25), "Ubyte(\"eA4Paper\")");
  EXPECT_BYTES(Value(Ubyte(13), 0x25), "Ubyte(13)");
  EXPECT_BYTES(Value(Ubyte(16), 0x25), "Ubyte(\"eA4paper\")");
  EXPECT_BYTES(Value(Ubyte(0), 0x47), "Ubyte(\"eButCap\")");
}

// Callers of the listing know a wide number by the name of its first byte.
TEST_F(XlListingTest, KeepsLookingAtTheFirstByteOfAnEnumeratedValueAlone) {
  EXPECT_BYTES(Value(Uint16(256), 0x86), "Ubyte(\"eInch\")");
  EXPECT_BYTES(Value(Hex({0xD1}) + Le16(257) + Le16(9), 0x86), "Ubyte(\"eMillimeter\")");
}

TEST_F(XlListingTest, ArraysAreNotEnumerated) {
  EXPECT_BYTES(Value(UbyteArray(std::string_view("\0", 1)), 0xAC),
               "Ubyte_Array (0xc8, \"Ubyte\",   0)");
}

TEST_F(XlListingTest, LastElementOfAnArrayNeverOpensARow) {
  const std::string row = "\n                  ";  // 18 blanks
  EXPECT_BYTES(Value(UbyteArray("\x01")), "Ubyte_Array (0xc8, \"Ubyte\",   1)");
  EXPECT_BYTES(Value(UbyteArray("\x01\x02")), "Ubyte_Array (0xc8, \"Ubyte\"," + row + "   1,   2)");
  EXPECT_BYTES(
      Value(UbyteArray("\x01\x02\x03\x04\x05\x06\x07\x08\x09")),
      "Ubyte_Array (0xc8, \"Ubyte\"," + row + "   1,   2,   3,   4,   5,   6,   7,   8,   9)");
  EXPECT_BYTES(Value(UbyteArray("\x01\x02\x03\x04\x05\x06\x07\x08\x09\xFF")),
               "Ubyte_Array (0xc8, \"Ubyte\"," + row + "   1,   2,   3,   4,   5,   6,   7,   8," +
                   row + "   9, 255)");
}

TEST_F(XlListingTest, ArrayOfNothingHasNoClosingParenthesis) {
  EXPECT_BYTES(Value(UbyteArray("")), "Ubyte_Array (0xc8, \"Ubyte\",");
}

TEST_F(XlListingTest, ArraysOfEachTypeHaveTheirColumns) {
  const std::string row = "\n                   ";  // 19 blanks
  EXPECT_BYTES(Value(Hex({0xC9, 0xC1, 2, 0}) + Le16(1) + Le16(65535)),
               "UInt16_Array(0xc9, \"UInt16\"," + row + "     1, 65535)");
  EXPECT_BYTES(Value(Hex({0xCA, 0xC0, 2}) + Le32(1) + Le32(4294967295U)),
               "UInt32_Array(0xca, \"Ubyte\"," + row + "         1,4294967295)");
  EXPECT_BYTES(Value(Hex({0xCB, 0xC0, 2}) + Le16(1) + Le16(65535)),
               "SInt16_Array(0xcb, \"Ubyte\"," + row + "     1,    -1)");
  EXPECT_BYTES(Value(Hex({0xCC, 0xC0, 2}) + Le32(1) + Le32(4294967295U)),
               "SInt32_Array(0xcc, \"Ubyte\"," + row + "         1,        -1)");
  EXPECT_BYTES(Value(Hex({0xCD, 0xC0, 2}) + Le32(0x3F800000U) + Le32(0xC0200000U)),
               "Real32_Array(0xcd, \"Ubyte\"," + row + "  1.000000, -2.500000)");
}

TEST_F(XlListingTest, RowsOfWideElementsHaveFour) {
  std::string six;
  for (unsigned i = 1; i <= 6; ++i) six += Le32(i);
  const std::string row = "\n                   ";
  EXPECT_BYTES(Value(Hex({0xCA, 0xC0, 6}) + six),
               "UInt32_Array(0xca, \"Ubyte\"," + row +
                   "         1,         2,         3,         4," + row + "         5,         6)");
}

TEST_F(XlListingTest, TextIsShownAsText) {
  for (const int id : {0x81, 0x8A, 0x8B, 0xA8, 0xAB})
    EXPECT_BYTES(Value(UbyteArray("Name"), id), "ASCII_Array (0xc8, \"Ubyte\", 'Name')") << id;
  EXPECT_BYTES(Value(UbyteArray("")), "Ubyte_Array (0xc8, \"Ubyte\",");
  EXPECT_BYTES(Value(UbyteArray(""), 0x81), "ASCII_Array (0xc8, \"Ubyte\", '')");
  EXPECT_BYTES(Value(Hex({0xC8, 0xC1, 1, 0, 'x'}), 0x81), "ASCII_Array (0xc8, \"UInt16\", 'x')");
}

TEST_F(XlListingTest, TextOfWiderCharactersIsNumbers) {
  EXPECT_BYTES(Value(Hex({0xC9, 0xC0, 1, 'x', 0}), 0xAB), "UInt16_Array(0xc9, \"Ubyte\",   120)");
}

TEST_F(XlListingTest, TextIsEscaped) {
  EXPECT_BYTES(Value(UbyteArray(Bytes("\0\x1F\x7F\n\r'\\ ~\x80\xFF")), 0x81),
               "ASCII_Array (0xc8, \"Ubyte\", '\\000\\037\\177\\n\\r\\'\\\\ ~\x80\xFF')");
}

TEST_F(XlListingTest, TypesThatAreNotReadHaveTheirTexts) {
  XlAttribute attribute;
  attribute.id = 0x7F;
  attribute.type = 0xD9;
  EXPECT_BYTES(XlValueText(attribute), "xy arrays--not documented, but seem to exist\n");
  attribute.type = 0xE9;
  EXPECT_BYTES(XlValueText(attribute), "Invalid type ");
}

TEST_F(XlListingTest, EmbeddedDataIsSixteenBytesALine) {
  std::string twenty;
  for (int i = 0; i < 20; ++i) twenty += static_cast<char>(0xF0 + i);
  EXPECT_BYTES(Block(Data(twenty)),
               "    &EMB_DATA_HDR(20);\n"
               "    &HEX(\"f0f1f2f3f4f5f6f7f8f9fafbfcfdfeff\");\n"
               "    &HEX(\"00010203\");\n");
  EXPECT_EQ(result, kXlOk);
  EXPECT_BYTES(Block(Hex({0xFB, 16}) + std::string(16, 'A')),
               "    &EMB_DATA_BYTE_HDR(16);\n"
               "    &HEX(\"41414141414141414141414141414141\");\n");
  EXPECT_BYTES(Block(Data("")), "    &EMB_DATA_HDR(0);\n");
}

TEST_F(XlListingTest, EmbeddedDataCutShortIsListedAsFarAsItGoes) {
  EXPECT_BYTES(Block(Hex({0xFA, 0xFF, 0xFF, 0xFF, 0xFF}) + "AB"),
               "    &EMB_DATA_HDR(-1);\n    &HEX(\"4142");
  EXPECT_EQ(result, kXlEnd);
  EXPECT_BYTES(Block(Hex({0xFA, 1, 2})), "");
  EXPECT_EQ(result, kXlEnd);
}

TEST_F(XlListingTest, HeaderIsALineWithoutItsLineFeed) {
  EXPECT_BYTES(Header(") HP-PCL XL;1;1;note\nrest"), "    &LINE(') HP-PCL XL;1;1;note');\n");
  EXPECT_BYTES(Header(") PCL XL;1;1\r\nrest"), "    &LINE(') PCL XL;1;1\r');\n");
}

TEST_F(XlListingTest, HeaderThatFailsLeavesItsLineUnfinished) {
  EXPECT_BYTES(Header("( HP"), "    &LINE('(");
  EXPECT_BYTES(Header(") HP-PCL XL;2;0;\n"), "    &LINE(') HP-PCL XL;2");
  EXPECT_BYTES(Header(") HP"), "    &LINE(') HP");
}

class XlListStreamTest : public ScratchTest {
 protected:
  XlListed List(std::string_view bytes) {
    WriteFile("job", bytes);
    std::FILE* file = std::fopen("job", "rb");
    sink.all.clear();
    const XlListed listed = XlListStream(file, &sink);
    std::fclose(file);
    return listed;
  }

  TextSink sink;
};

constexpr char kWholeListing[] =
    "    &LINE(') HP-PCL XL;1;1;');\n"
    "\n    &UInt16(300,300); &UnitsPerMeasure;\n    &Ubyte(\"eInch\"); &Measure;"
    "\n    &BeginSession;\n"
    "\n    &Ubyte(\"eDefaultDataSource\"); &SourceType;"
    "\n    &Ubyte(\"eBinaryLowByteFirst\"); &DataOrg;"
    "\n    &OpenDataSource;\n"
    "\n    &Ubyte(\"ePortraitOrientation\"); &Orientation;"
    "\n    &Ubyte(\"eA4Paper\"); &MediaSize;"
    "\n    &BeginPage;\n"
    "\n    &NewPath;\n"
    "    &EMB_DATA_HDR(2);\n    &HEX(\"4142\");\n"
    "\n    &UInt16(1); &PageCopies;\n    &EndPage;\n"
    "\n    &CloseDataSource;\n"
    "\n    &EndSession;\n";

TEST_F(XlListStreamTest, ListsAWholeJob) {
  const std::string stream = Session(Page(Hex({0x85}) + Data("AB")));
  const XlListed listed =
      List("\x1B%-12345X@PJL JOB\n@PJL ENTER LANGUAGE=PCLXL\n" + stream + "\x1B%-12345X");
  EXPECT_EQ(listed.header, kXlOk);
  EXPECT_EQ(listed.walk, kXlOk);
  EXPECT_EQ(listed.operatorCount, 8);
  EXPECT_BYTES(sink.all, kWholeListing);
  List(Bytes("\0abc") + stream);
  EXPECT_BYTES(sink.all, kWholeListing);
}

TEST_F(XlListStreamTest, MakesNoFile) {
  List(Session(Page(Body())));
  EXPECT_FALSE(std::filesystem::exists("temp.str"));
}

TEST_F(XlListStreamTest, ErrorIsReportedWhereItStands) {
  const XlListed listed = List(Session(Page("") + Page("")));
  EXPECT_EQ(listed.walk, kXlSecondPage);
  EXPECT_EQ(listed.operatorCount, 5);
  EXPECT_TRUE(sink.all.ends_with("    &EndPage;\n\nERROR. (code = 51, op = 0x43, pos = 5)\n\n"))
      << sink.all;
}

TEST_F(XlListStreamTest, WalksOnAfterABadHeader) {
  const XlListed listed = List("(" + xl::Hex({0x41, 0x42}));
  EXPECT_EQ(listed.header, kXlBinding);
  EXPECT_EQ(listed.walk, kXlOk);
  EXPECT_BYTES(sink.all, "    &LINE('(\n    &BeginSession;\n\n    &EndSession;\n");
}

TEST_F(XlListStreamTest, FilesThatAreNoStreamEnd) {
  for (const char* text : {"", "\x1B", "\x1B%-12345X", "@PJL", "@PJL no line feed", "@", "plain"}) {
    const XlListed listed = List(text);
    EXPECT_NE(listed.walk, kXlOk) << text;
  }
}

}  // namespace
}  // namespace zeapi::testing
