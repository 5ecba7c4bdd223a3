// The record format that all alerts share.
#include "parse/zeparse.h"

#include <memory>

#include "parse/alert_record.h"
#include "support/byte_order.h"
#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

std::string AsText(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

class ZeParseTest : public ScratchTest {
 protected:
  // A parser at the first element; its record stands at the end of its block.
  ZeAlertParser& Parse(const std::string& record) {
    const std::vector<char> block(record.begin(), record.end());
    parser_ = std::make_unique<ZeAlertParser>(block.data());
    return *parser_;
  }

 private:
  std::unique_ptr<ZeAlertParser> parser_;
};

TEST_F(ZeParseTest, ReadsElementsByTheLengthsOfTheKeys) {
  ZeAlertParser& parser = Parse(Record(Keys("ID:2,DT:4", "NE:2,LD:4", "LD:2,DA:0"),
                                       BigEndian(300, 2) + BigEndian(1, 4) + BigEndian(4, 2) +
                                           BigEndian(-5, 4) + BigEndian(2, 2) + BigEndian(0, 4) +
                                           BigEndian(3, 2) + BigEndian(9, 4) + "abc"));
  const AlertElement integer = parser.ReadElement();
  EXPECT_EQ(integer.id, 300);
  EXPECT_EQ(integer.type, kAlertInteger);
  EXPECT_EQ(parser.ReadInteger(), -5);
  const AlertElement container = parser.ReadElement();
  EXPECT_EQ(container.type, kAlertContainer);
  EXPECT_EQ(parser.EnterContainer(), 3);
  EXPECT_EQ(parser.BytesLeft(), 3);
}

TEST_F(ZeParseTest, FieldsStandInTheOrderOfTheKey) {
  ZeAlertParser& parser = Parse(Record(Keys("DT:1,ID:1", "LD:1,NE:1", "LD:1,DA:0"),
                                       "\x02\x07\x03"
                                       "abc" +
                                           Bytes("\x00\x08\x09\x01x")));
  const AlertElement text = parser.ReadElement();
  EXPECT_EQ(text.id, 7);
  EXPECT_EQ(text.type, kAlertText);
  EXPECT_EQ(AsText(parser.ReadBytes()), "abc");
  EXPECT_EQ(parser.ReadElement().id, 8);
  EXPECT_EQ(parser.EnterContainer(), 1);
}

TEST_F(ZeParseTest, AByteIsSignedAndAWordIsNot) {
  ZeAlertParser& parser =
      Parse(Record(Integer(0xFF, 0xFF, 1) + Integer(1, 0xFFFF, 2) + Integer(1, 0xFFFFFFFF, 4)));
  EXPECT_EQ(parser.ReadElement().id, -1);
  EXPECT_EQ(parser.ReadInteger(), -1);
  parser.ReadElement();
  EXPECT_EQ(parser.ReadInteger(), 0xFFFF);
  parser.ReadElement();
  EXPECT_EQ(parser.ReadInteger(), -1);
  EXPECT_TRUE(parser.Ended());
  EXPECT_FALSE(parser.CutShort());
}

TEST_F(ZeParseTest, NumbersOfOtherLengthsAreZeroAndTakeTheirBytes) {
  ZeAlertParser& parser = Parse(Record(Integer(1, 0x010203, 3) + Integer(1, 0, 0) +
                                       Integer(1, 0x01020304, 8) + Integer(2, 6)));
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(parser.ReadElement().id, 1);
    EXPECT_EQ(parser.ReadInteger(), 0);
  }
  EXPECT_EQ(parser.ReadElement().id, 2);
  EXPECT_EQ(parser.ReadInteger(), 6);
}

TEST_F(ZeParseTest, OtherFieldsAreSkippedByTheirLength) {
  ZeAlertParser& parser =
      Parse(Record(Keys("VN:3,ID:1,SE:1,DT:1", "NE:1,BF:5,LD:1", "TD:4,LD:1,DL:2,DA:0,DD:1"),
                   "xxx"
                   "\x05y\x02"
                   "TTTT"
                   "\x03LLabcD"
                   "xxx"
                   "\x06y" +
                       Bytes("\x00\x01") +
                       "FFFFF"
                       "\x02zz"));
  EXPECT_EQ(parser.ReadElement().id, 5);
  EXPECT_EQ(AsText(parser.ReadBytes()), "abc");
  const AlertElement container = parser.ReadElement();
  EXPECT_EQ(container.id, 6);
  parser.Skip(container);
  EXPECT_TRUE(parser.Ended());
  EXPECT_FALSE(parser.CutShort());
}

TEST_F(ZeParseTest, SkipsWhatAnElementHolds) {
  const std::string elements = Container(1, {Integer(1, 2), Text(2, "in here")}) + Integer(3, 4) +
                               Text(5, "x") + ElementHead(6, 3) + ElementHead(7, 1) + "\x01\x09";
  ZeAlertParser& parser = Parse(Record(elements));
  for (const int id : {1, 3, 5, 6}) {
    const AlertElement element = parser.ReadElement();
    EXPECT_EQ(element.id, id);
    parser.Skip(element);
  }
  EXPECT_EQ(parser.ReadElement().id, 7);
  EXPECT_EQ(parser.ReadInteger(), 9);
}

TEST_F(ZeParseTest, ANameMayBeFollowedByAnySeparator) {
  ZeAlertParser& parser = Parse(Record(Keys("ID=1,DT.1", "NE 1,LD-2", "LD:1,DA:0"), Integer(4, 5)));
  EXPECT_EQ(parser.ReadElement().id, 4);
  EXPECT_EQ(parser.ReadInteger(), 5);
}

TEST_F(ZeParseTest, ALengthEndsAtTheFirstOtherCharacter) {
  ZeAlertParser& parser = Parse(Record(Keys("ID:1 byte,DT:1x", "NE:1", "LD:1,DA"), Integer(4, 5)));
  EXPECT_EQ(parser.ReadElement().id, 4);
  EXPECT_EQ(parser.ReadInteger(), 5);
}

TEST_F(ZeParseTest, APairWithoutALengthTakesNoBytes) {
  ZeAlertParser& parser = Parse(Record(Keys("VN,BF:,ID:1,DT:1", "NE:1", "LD:1,DA"), Integer(4, 5)));
  EXPECT_EQ(parser.ReadElement().id, 4);
}

TEST_F(ZeParseTest, AnUnknownNameEndsItsKeyAlone) {
  ZeAlertParser& parser = Parse(Record(Keys("ID:1,DT:1,XX:2,VN:1", "NE:1,,LD:1", "LD:1,DA:0,xx:1"),
                                       Integer(4, 5) + ElementHead(5, 0) + "\1" + Integer(6, 7)));
  EXPECT_EQ(parser.ReadElement().id, 4);
  EXPECT_EQ(parser.ReadInteger(), 5);
  EXPECT_EQ(parser.ReadElement().id, 5);
  EXPECT_EQ(parser.EnterContainer(), 1);
  EXPECT_EQ(parser.ReadElement().id, 6);
  EXPECT_EQ(parser.ReadInteger(), 7);
}

TEST_F(ZeParseTest, KeysWithoutAKnownNameDeclareNothing) {
  for (const char* key : {"", "XX:2", ",ID:1", "id:1"}) {
    SCOPED_TRACE(key);
    ZeAlertParser& parser = Parse(Record(Keys(key, "NE:1", "LD:1,DA:0"), "abc"));
    EXPECT_EQ(parser.BytesLeft(), 3);
    EXPECT_EQ(parser.ReadElement().id, 0);
    EXPECT_EQ(parser.BytesLeft(), 3);
  }
}

TEST_F(ZeParseTest, AKeyWithoutItsEndEndsTheRecord) {
  for (const char* keys : {"", "P", "P{ID:1,DT:1", "P{ID:1}C{NE:1}D{LD:1"}) {
    SCOPED_TRACE(keys);
    EXPECT_TRUE(Parse(Record(keys, "")).CutShort());
  }
}

TEST_F(ZeParseTest, DataThatTheKeyDoesNotNameFollowsItsFields) {
  ZeAlertParser& parser =
      Parse(Record(Keys("ID:1,DT:1", "NE:1,LD:1", "LD:1,TD:2"),
                   ElementHead(1, 2) + "\3TTabc" + ElementHead(2, 1) + "\1TT\7"));
  parser.ReadElement();
  EXPECT_EQ(AsText(parser.ReadBytes()), "abc");
  EXPECT_EQ(parser.ReadElement().id, 2);
  EXPECT_EQ(parser.ReadInteger(), 7);
}

TEST_F(ZeParseTest, DataInFrontOfItsLengthIsEmpty) {
  ZeAlertParser& parser =
      Parse(Record(Keys("ID:1,DT:1", "NE:1,LD:1", "DA:0,LD:1"), ElementHead(1, 2) + "\3abc"));
  parser.ReadElement();
  EXPECT_EQ(AsText(parser.ReadBytes()), "");
  EXPECT_EQ(parser.BytesLeft(), 3);
}

TEST_F(ZeParseTest, TheLastFieldOfANameCounts) {
  const auto element = [&](const char* key) {
    return Parse(Record(Keys(key, "NE:1", "LD:1,DA:0"), "\x07\x01\x09")).ReadElement();
  };
  EXPECT_EQ(element("ID:1,DT:1,ID:1").id, 9);
  EXPECT_EQ(element("ID:1,ID:0,DT:1").id, 0) << "a field without bytes is 0 too";
  EXPECT_EQ(element("ID:1,ID:0,DT:1").type, 1);
  EXPECT_EQ(element("ID:0,ID:1,DT:1").id, 7);
  EXPECT_EQ(element("ID:1,ID:3").id, 0);
  ZeAlertParser& children = Parse(
      Record(Keys("ID:1,DT:1", "NE:1,NE:0", "LD:1,DA:0"), ElementHead(1, 0) + "\x05 and more"));
  children.ReadElement();
  EXPECT_EQ(children.EnterContainer(), 0);
  ZeAlertParser& data =
      Parse(Record(Keys("ID:1,DT:1", "NE:1", "LD:1,LD:0,DA:0"), ElementHead(1, 2) + "\3abc"));
  data.ReadElement();
  EXPECT_EQ(AsText(data.ReadBytes()), "");
}

TEST_F(ZeParseTest, TheFirstOfSeveralDataFieldsCounts) {
  ZeAlertParser& parser = Parse(
      Record(Keys("ID:1,DT:1", "NE:1,LD:1", "LD:1,DA:0,TD:1,DA:0"), ElementHead(1, 2) + "\3abcT"));
  parser.ReadElement();
  EXPECT_EQ(AsText(parser.ReadBytes()), "abc");
  EXPECT_EQ(parser.BytesLeft(), 0);
}

// Keys of a record as large as they come; each would be walked for each of its elements.
TEST_F(ZeParseTest, RecordOfManyFieldsWithoutBytesAndManyElements) {
  std::string nothing;
  for (int i = 0; i < 5000; ++i) nothing += ",DA,ID";
  const std::string elements(32000, '\3');
  ZeAlertParser& parser = Parse(Record(Keys("DT:1" + nothing, "NE:1", "LD:1,DA:0"), elements));
  int count = 0;
  for (; !parser.Ended(); ++count) parser.Skip(parser.ReadElement());
  EXPECT_EQ(count, 32000);
}

TEST_F(ZeParseTest, LengthsThatNoRecordHoldsEndTheRecord) {
  for (const char* length : {"-1", "65536", "2147483647", "2147483648", "99999999999999999999"}) {
    SCOPED_TRACE(length);
    ZeAlertParser& parser = Parse(
        Record(Keys("ID:1,DT:1,VN:" + std::string(length), "NE:1", "LD:1,DA:0"), Integer(4, 5)));
    EXPECT_FALSE(parser.Ended());
    parser.ReadElement();
    EXPECT_TRUE(parser.CutShort());
    EXPECT_EQ(parser.BytesLeft(), 0);
  }
}

TEST_F(ZeParseTest, ADataLengthBeyondTheRecordEndsIt) {
  ZeAlertParser& parser = Parse(Record(ElementHead(1, 2) + "\x05"
                                                           "abcd"));
  parser.ReadElement();
  EXPECT_EQ(AsText(parser.ReadBytes()), "");
  EXPECT_TRUE(parser.CutShort());
}

TEST_F(ZeParseTest, ANegativeDataLengthEndsTheRecord) {
  ZeAlertParser& parser = Parse(Record(ElementHead(1, 1) + "\xFF"
                                                           "abcd"));
  parser.ReadElement();
  EXPECT_EQ(parser.ReadInteger(), 0);
  EXPECT_TRUE(parser.CutShort());
}

TEST_F(ZeParseTest, ChildCountsThatNoRecordHoldsEndTheRecord) {
  for (const std::string& count : {BigEndian(0x80000000, 4), BigEndian(-1, 4), BigEndian(3, 4)}) {
    ZeAlertParser& parser =
        Parse(Record(Keys("ID:1,DT:1", "NE:4", "LD:1,DA:0"), ElementHead(1, 0) + count + "ab"));
    parser.ReadElement();
    EXPECT_EQ(parser.EnterContainer(), 0);
    EXPECT_TRUE(parser.CutShort());
  }
}

TEST_F(ZeParseTest, ChildrenWithoutBytesEndTheRecord) {
  ZeAlertParser& parser =
      Parse(Record(Keys("VN:0", "NE:4", "LD:1,DA:0"), BigEndian(9, 4) + "123456789"));
  parser.ReadElement();
  const std::int32_t count = parser.EnterContainer();
  EXPECT_EQ(count, 9);
  int visits = 0;
  ForEachAlertChild(
      parser, count,
      [&](std::int32_t, const AlertElement&) {
        ++visits;
        return true;
      },
      [] {});
  EXPECT_EQ(visits, 1);
  EXPECT_TRUE(parser.CutShort());
}

TEST_F(ZeParseTest, ARecordCutAnywhereEndsThere) {
  const std::string whole = Record(Container(1, {Integer(1, 2), Text(2, "abc")}));
  for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
    SCOPED_TRACE(length);
    ZeAlertParser& parser =
        Parse(BigEndian(static_cast<long long>(length), 2) + whole.substr(2, length));
    int children = 0;
    if (!parser.Ended()) {
      parser.ReadElement();
      ForEachAlertChild(
          parser, parser.EnterContainer(),
          [&](std::int32_t, const AlertElement& element) {
            parser.Skip(element);
            children += parser.CutShort() ? 0 : 1;
            return true;
          },
          [] {});
    }
    EXPECT_LT(children, 2);
  }
}

}  // namespace
}  // namespace zeapi::testing
