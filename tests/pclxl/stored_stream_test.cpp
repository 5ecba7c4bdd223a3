#include "pclxl/stored_stream.h"

#include <vector>

#include "base/stream.h"
#include "support/byte_order.h"
#include "support/pclxl.h"

namespace zeapi::testing {
namespace {

using namespace xl;

// The layout, row by row.
std::vector<std::string> Rows(const std::string& name, const std::string& opening,
                              const std::string& body, bool execute) {
  const std::string header = ") HP-PCL XL;1;1;\n";
  const std::string size = Le32(static_cast<std::uint32_t>(body.size()) + 17);
  const auto length = [](const std::string& text) { return static_cast<int>(text.size()); };
  std::vector<std::string> rows = {
      header,
      Hex({0xD1, 0x58, 0x02, 0x58, 0x02, 0xF8, 0x89}),
      Hex({0xC0, 0x00, 0xF8, 0x86}),
      Hex({0xC0, 0x03, 0xF8, 0x8F}),
      Hex({0x41}),
      Hex({0xC0, 0x00, 0xF8, 0x88}),
      Hex({0xC0, 0x01, 0xF8, 0x82}),
      Hex({0x48}),
      Hex({0xC8, 0xC0, length(opening)}) + opening + Hex({0xF8, 0x81}),
      Hex({0x47}),
      Hex({0xC8, 0xC0, length(name)}) + name + Hex({0xF8, 0x8B}),
      Hex({0x5B}),
      Hex({0xC2}) + size + Hex({0xF8, 0x8C}),
      Hex({0x5C}),
      Hex({0xFA}) + size,
      header + body,
      Hex({0x5D}),
  };
  if (execute) {
    rows.push_back(Hex({0xC0, 0, 0xF8, 0x28, 0xC0, 0, 0xF8, 0x25, 0xC0, 1, 0xF8, 0x26, 0x43}));
    rows.push_back(Hex({0xC8, 0xC0, length(name)}) + name + Hex({0xF8, 0x8B, 0x5E}));
    rows.push_back(Hex({0xC1, 0x01, 0x00, 0xF8, 0x31, 0x44}));
  }
  rows.push_back(Hex({0x49}));
  rows.push_back(Hex({0x42}));
  return rows;
}

class StoredStreamTest : public ScratchTest {
 protected:
  XlResult Write(const std::string& name, const std::string& opening, const std::string& body,
                 bool execute) {
    WriteFile("temp.str", body);
    return WriteSize(name, opening, static_cast<std::uint32_t>(body.size()), execute);
  }

  XlResult WriteSize(const std::string& name, const std::string& opening, std::uint32_t size,
                     bool execute, const char* mode = "wb") {
    const Stream out(std::fopen("out.str", mode));
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(opening.data());
    return XlWriteStoredStream(name, {bytes, opening.size()}, size, execute, out.get());
  }

  static void ExpectRows(const std::vector<std::string>& rows) {
    std::string rest = ReadFile("out.str");
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_BYTES(rest.substr(0, rows[i].size()), rows[i]) << "row " << i + 1;
      rest.erase(0, rows[i].size());
    }
    EXPECT_BYTES(rest, "");
  }
};

TEST_F(StoredStreamTest, HasItsRows) {
  const std::string body = Body() + Data("image");
  ASSERT_EQ(Write("Letterhead", SessionOpening(), body, false), kXlOk);
  ExpectRows(Rows("Letterhead", SessionOpening(), body, false));
}

TEST_F(StoredStreamTest, ExecutingPageStandsBeforeTheEnd) {
  ASSERT_EQ(Write("Letterhead", SessionOpening(), Body(), true), kXlOk);
  ExpectRows(Rows("Letterhead", SessionOpening(), Body(), true));
}

TEST_F(StoredStreamTest, LengthsOfZeroAndTheLongest) {
  ASSERT_EQ(Write("", "", "", true), kXlOk);
  ExpectRows(Rows("", "", "", true));
  const std::string name(255, 'n');
  const std::string opening(52, 'o');
  ASSERT_EQ(Write(name, opening, "", true), kXlOk);
  ExpectRows(Rows(name, opening, "", true));
}

TEST_F(StoredStreamTest, BodiesAroundTheBlocksAreWhole) {
  for (const std::size_t size : {1U, 1023U, 1024U, 1025U, 2048U, 70000U}) {
    std::string body;
    for (std::size_t i = 0; i < size; ++i) body += static_cast<char>(i % 251);
    ASSERT_EQ(Write("N", "s", body, false), kXlOk);
    ExpectRows(Rows("N", "s", body, false));
  }
}

TEST_F(StoredStreamTest, BodyThatIsMissingOrTooShortIsAFileError) {
  EXPECT_EQ(WriteSize("N", "s", 1, false), kXlFile);
  WriteFile("temp.str", std::string(1500, 'b'));
  EXPECT_EQ(WriteSize("N", "s", 1501, false), kXlFile);
  EXPECT_EQ(WriteSize("N", "s", 1500, false), kXlOk);
}

TEST_F(StoredStreamTest, FailedWriteIsTold) {
  WriteFile("temp.str", "body");
  WriteFile("out.str", "");
  EXPECT_EQ(WriteSize("N", "s", 4, false, "rb"), kXlEnd);
}

}  // namespace
}  // namespace zeapi::testing
