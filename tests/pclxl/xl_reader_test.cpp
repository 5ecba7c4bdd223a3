#include "pclxl/xl_reader.h"

#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

using namespace xl;

class XlHeaderTest : public XlTest {
 protected:
  XlResult Check(std::string_view bytes) {
    Open(bytes);
    return XlReadStreamHeader(state());
  }
};

TEST_F(XlHeaderTest, PassesAndEndsWithTheLineFeed) {
  for (const char* header :
       {") HP-PCL XL;1;1;\n", ") HP-PCL XL;1;1;any comment; with more\n", ") PCL XL;1;1;\n",
        ") HP-PCL XL;1;1\n", ") HP-PCL XL;1;1\r\n", ") HP-PCL XL;1;1\rmore\n"}) {
    EXPECT_EQ(Check(std::string(header) + "rest"), kXlOk) << header;
    EXPECT_BYTES(Unread(), "rest") << header;
  }
}

TEST_F(XlHeaderTest, EachPartThatIsWrongHasItsCodeAndTheWrongByteCountsAsRead) {
  struct Row {
    const char* header;
    XlResult result;
    const char* unread;
  };
  const Row rows[] = {
      {"( HP-PCL XL;1;1;\n", kXlBinding, " HP-PCL XL;1;1;\n"},
      {"' HP-PCL XL;1;1;\n", kXlBinding, " HP-PCL XL;1;1;\n"},
      {"\x1B%-12345X", kXlBinding, "%-12345X"},
      {")_HP-PCL XL;1;1;\n", kXlSeparator, "HP-PCL XL;1;1;\n"},
      {") HPxPCL XL;1;1;\n", kXlName, "PCL XL;1;1;\n"},
      {") HP-PCL XM;1;1;\n", kXlName, ";1;1;\n"},
      {") PCX XL;1;1;\n", kXlName, " XL;1;1;\n"},
      {") HP-PCL XL,1;1;\n", kXlSeparator, "1;1;\n"},
      {") HP-PCL XL;2;0;\n", kXlVersion, ";0;\n"},
      {") HP-PCL XL;3;0;\n", kXlVersion, ";0;\n"},
      {") HP-PCL XL;1.1;\n", kXlSeparator, "1;\n"},
      {") HP-PCL XL;1;0;\n", kXlVersion, ";\n"},
      {") HP-PCL XL;1;1.\n", kXlSeparator, "\n"},
      {") HP-PCL XL;1;11\n", kXlSeparator, "\n"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Check(row.header), row.result) << row.header;
    EXPECT_BYTES(Unread(), row.unread) << row.header;
  }
}

// A name that begins with neither H nor P goes unchecked.
TEST_F(XlHeaderTest, KeepsAcceptingAnyOtherName) {
  for (const char* name : {"X", "XY", "Word", "hp-pcl xl", " HP-PCL XL"}) {
    EXPECT_EQ(Check(std::string(") ") + name + ";1;1;\nrest"), kXlOk) << name;
    EXPECT_BYTES(Unread(), "rest");
  }
  EXPECT_EQ(Check(") Word;2;0;\n"), kXlVersion);
  EXPECT_EQ(Check(") Word\n;1;1;\n"), kXlSeparator);
  EXPECT_BYTES(Unread(), ";1;1;\n");
  EXPECT_EQ(Check(") Word"), kXlEnd);
}

TEST_F(XlHeaderTest, EndOfTheFileAnywhereIsTheEnd) {
  const std::string header = ") HP-PCL XL;1;1;comment\n";
  for (std::size_t size = 0; size < header.size(); ++size)
    EXPECT_EQ(Check(header.substr(0, size)), kXlEnd) << size;
  const std::string shortName = ") PCL XL;1;1\n";
  for (std::size_t size = 0; size < shortName.size(); ++size)
    EXPECT_EQ(Check(shortName.substr(0, size)), kXlEnd) << size;
}

class XlTokenTest : public XlTest {
 protected:
  XlResult Run(std::string_view bytes) {
    Open(bytes);
    return XlReadToOperator(state());
  }
};

TEST_F(XlTokenTest, StopsAtEachOperatorAndCountsIt) {
  EXPECT_EQ(Run(Hex({0x41, 0x42, 0xFA})), kXlOk);
  EXPECT_EQ(state()->currentTag, 0x41);
  EXPECT_EQ(state()->operatorCount, 1U);
  EXPECT_EQ(XlReadToOperator(state()), kXlOk);
  EXPECT_EQ(XlReadToOperator(state()), kXlOk);
  EXPECT_EQ(state()->currentTag, 0xFA);
  EXPECT_EQ(state()->operatorCount, 3U);
  EXPECT_EQ(XlReadToOperator(state()), kXlEnd);
}

TEST_F(XlTokenTest, StartsWithNoAttributeAndAUbyteOfZero) {
  EXPECT_EQ(state()->attributeCount, 0);
  EXPECT_EQ(state()->operatorCount, 0U);
  EXPECT_FALSE(state()->recovering);
  EXPECT_EQ(Attribute(0).type, 0xC0U);
  EXPECT_EQ(Attribute(0).value[0], 0);
}

TEST_F(XlTokenTest, EscapeEndsTheStreamAndIsLeftUnread) {
  EXPECT_EQ(Run("\x1B%-12345X"), kXlEnd);
  EXPECT_BYTES(Unread(), "\x1B%-12345X");
  EXPECT_EQ(Run(xl::Attribute(Ubyte(1), 2) + "\x1B"), kXlEnd);
  EXPECT_BYTES(Unread(), "\x1B");
}

TEST_F(XlTokenTest, EscapeAtABorderOfTheBufferIsLeftUnread) {
  const std::string bytes = std::string(4096, ' ') + "\x1Brest";
  EXPECT_EQ(Run(bytes), kXlEnd);
  EXPECT_BYTES(Unread(), "\x1Brest");
}

TEST_F(XlTokenTest, WhiteSpaceIsSkipped) {
  EXPECT_EQ(Run(Bytes("\0\t\n\v\f\r ") + Hex({0x41})), kXlOk);
  EXPECT_EQ(state()->operatorCount, 1U);
  EXPECT_EQ(state()->attributeCount, 0);
}

TEST_F(XlTokenTest, IllegalByteBecomesTheTag) {
  for (const int byte : {0x01, 0x40, 0x46, 0x4C, 0x56, 0x5F, 0x7E, 0x82, 0x83, 0xC6, 0xFC, 0xFF}) {
    EXPECT_EQ(Run(Hex({byte})), kXlIllegalByte) << byte;
    EXPECT_EQ(state()->currentTag, byte);
    EXPECT_EQ(state()->operatorCount, 0U);
  }
}

TEST_F(XlTokenTest, RejectedBytesAreNotTheTag) {
  for (const int byte : {0x27, 0x28, 0x29, 0xD8, 0xDD, 0xE8, 0xED, 0xF9}) {
    EXPECT_EQ(Run(Hex({byte, 0, 0})), kXlIllegalByte) << byte;
    EXPECT_EQ(state()->currentTag, 0);
  }
}

TEST_F(XlTokenTest, ValuesOfEachShapeAndTypeTakeTheirBytes) {
  constexpr std::size_t kWidths[] = {1, 2, 4, 2, 4, 4};
  for (const int shape : {0xC0, 0xD0, 0xE0}) {
    const std::size_t elements = shape == 0xC0 ? 1 : shape == 0xD0 ? 2 : 4;
    for (int type = 0; type < 6; ++type) {
      const std::size_t size = elements * kWidths[type];
      std::string value;
      for (std::size_t i = 0; i < size; ++i) value += static_cast<char>(0xA0 + i);
      const std::string bytes = xl::Attribute(Hex({shape + type}) + value, 0x4C) + Hex({0x41});
      ASSERT_EQ(Run(bytes), kXlOk) << shape + type;
      ASSERT_EQ(state()->attributeCount, 1);
      EXPECT_EQ(Attribute(0).type, static_cast<std::uint32_t>(shape + type));
      EXPECT_EQ(Attribute(0).id, 0x4CU);
      EXPECT_BYTES(std::string(Attribute(0).value.begin(), Attribute(0).value.begin() + size),
                   value);
      for (std::size_t cut = 1; cut <= size; ++cut)
        EXPECT_EQ(Run(bytes.substr(0, cut)), kXlEnd) << cut;
    }
  }
}

TEST_F(XlTokenTest, ArraysKeepTheirElementsAndHowTheirCountWasWritten) {
  EXPECT_EQ(Run(xl::Attribute(Hex({0xC9, 0xC0, 2, 1, 2, 3, 4}), 0xAF) + Hex({0x41})), kXlOk);
  EXPECT_EQ(Attribute(0).type, 0xC9U);
  EXPECT_EQ(Attribute(0).elementCount, 2U);
  EXPECT_STREQ(Attribute(0).lengthType, "Ubyte");
  EXPECT_EQ(Attribute(0).elements[3], 4);
  EXPECT_EQ(Run(xl::Attribute(Hex({0xCA, 0xC1, 1, 0, 9, 8, 7, 6}), 0xAF) + Hex({0x41})), kXlOk);
  EXPECT_EQ(Attribute(0).elementCount, 1U);
  EXPECT_STREQ(Attribute(0).lengthType, "UInt16");
  EXPECT_EQ(Attribute(0).elements[0], 9);
}

TEST_F(XlTokenTest, ArrayOfNothingNeedsNoMemory) {
  EXPECT_EQ(Run(xl::Attribute(Hex({0xC8, 0xC0, 0}), 0x8B) + Hex({0x41})), kXlOk);
  EXPECT_EQ(Attribute(0).elementCount, 0U);
  EXPECT_EQ(Attribute(0).elements, nullptr);
}

TEST_F(XlTokenTest, LongestArrayIsRead) {
  EXPECT_EQ(Run(Hex({0xCC, 0xC1, 0xFF, 0xFF}) + std::string(65535 * 4, 'e') + Hex({0x41})), kXlOk);
  EXPECT_EQ(Attribute(0).elementCount, 65535U);
}

TEST_F(XlTokenTest, CountOfAnyOtherTypeIsALengthError) {
  for (const int type : {0xC2, 0xC3, 0xC4, 0xC5, 0xC8, 0xD0, 0x00, 0x1B, 0xFF}) {
    EXPECT_EQ(Run(Hex({0xC8, type, 0xFF, 0xFF, 0xFF, 0xFF})), kXlLength) << type;
    EXPECT_EQ(Attribute(0).elements, nullptr);
  }
}

TEST_F(XlTokenTest, ArrayCutShortAnywhereIsTheEnd) {
  const std::string bytes = Hex({0xCB, 0xC1, 3, 0, 1, 2, 3, 4, 5, 6});
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_EQ(Run(bytes.substr(0, size)), kXlEnd) << size;
}

TEST_F(XlTokenTest, ValueWithoutAnIdentifierIsDropped) {
  EXPECT_EQ(Run(Ubyte(7) + Hex({0x41})), kXlOk);
  EXPECT_EQ(state()->attributeCount, 0);
  EXPECT_EQ(Run(UbyteArray("lost") + xl::Attribute(Uint16(5), 0x31) + Hex({0x41})), kXlOk);
  EXPECT_EQ(state()->attributeCount, 1);
  EXPECT_EQ(Attribute(0).type, 0xC1U);
  EXPECT_EQ(Attribute(0).elements, nullptr);
}

TEST_F(XlTokenTest, IdentifierWithoutAValueNamesAUbyteOfZero) {
  EXPECT_EQ(Run(xl::Attribute(Uint16(5), 0x31) + Hex({0xF8, 0x26, 0x41})), kXlOk);
  EXPECT_EQ(state()->attributeCount, 2);
  EXPECT_EQ(Attribute(1).type, 0xC0U);
  EXPECT_EQ(Attribute(1).value[0], 0);
  EXPECT_EQ(Attribute(1).id, 0x26U);
}

TEST_F(XlTokenTest, IdentifierWithoutAValueDoesNotNameWhatAnEarlierOperatorHad) {
  EXPECT_EQ(Run(xl::Attribute(UbyteArray("old"), 0x81) + Hex({0x47, 0xF8, 0x81, 0x47})), kXlOk);
  XlReleaseAttributes(state());
  EXPECT_EQ(XlReadToOperator(state()), kXlOk);
  EXPECT_EQ(state()->attributeCount, 1);
  EXPECT_EQ(Attribute(0).type, 0xC0U);
  EXPECT_EQ(Attribute(0).elements, nullptr);
}

TEST_F(XlTokenTest, NextEntryIsAUbyteOfZero) {
  EXPECT_EQ(Run(xl::Attribute(UbyteArray("a"), 0x81) + Hex({0x47})), kXlOk);
  EXPECT_EQ(Attribute(1).type, 0xC0U);
  EXPECT_EQ(Attribute(1).id, 0U);
}

TEST_F(XlTokenTest, AnyIdentifierIsAccepted) {
  for (int id = 0; id < 256; ++id) {
    EXPECT_EQ(Run(xl::Attribute(Ubyte(1), id) + Hex({0x41})), kXlOk);
    EXPECT_EQ(Attribute(0).id, static_cast<std::uint32_t>(id));
  }
  EXPECT_EQ(Run(Ubyte(1) + Hex({0xF8})), kXlEnd);
}

TEST_F(XlTokenTest, HundredAttributesAreAcceptedAndOneMoreIsAnError) {
  std::string attributes;
  for (int i = 0; i < 100; ++i) attributes += xl::Attribute(UbyteArray("element"), i);
  EXPECT_EQ(Run(attributes + Hex({0x41})), kXlOk);
  EXPECT_EQ(state()->attributeCount, 100);
  EXPECT_EQ(Attribute(99).id, 99U);
  EXPECT_EQ(Run(attributes + Ubyte(1) + Uint16(2) + UbyteArray("dropped") + Hex({0x41})), kXlOk);
  EXPECT_EQ(state()->attributeCount, 100);
  EXPECT_EQ(Run(attributes + xl::Attribute(Ubyte(1), 1) + Hex({0x41})), kXlIllegalByte);
  EXPECT_EQ(state()->attributeCount, 100);
}

TEST_F(XlTokenTest, ReleasingFreesEveryEntry) {
  EXPECT_EQ(Run(xl::Attribute(UbyteArray("a"), 1) + xl::Attribute(UbyteArray("b"), 2) +
                UbyteArray("c") + Hex({0x41})),
            kXlOk);
  XlReleaseAttributes(state());
  EXPECT_EQ(state()->attributeCount, 0);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(Attribute(i).elements, nullptr);
}

TEST_F(XlTokenTest, RecoveryKeepsNothing) {
  std::string attributes;
  for (int i = 0; i < 150; ++i) attributes += xl::Attribute(UbyteArray("element"), i);
  Open(attributes + Hex({0x41}));
  state()->recovering = true;
  EXPECT_EQ(XlReadToOperator(state()), kXlOk);
  EXPECT_EQ(state()->attributeCount, 0);
  EXPECT_EQ(Attribute(0).elements, nullptr);
}

}  // namespace
}  // namespace zeapi::testing
