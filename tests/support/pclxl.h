// PCL XL streams put together byte by byte, and what tests that read them share.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "pclxl/xl_listing.h"
#include "pclxl/xl_reader.h"
#include "support/bytes.h"
#include "support/scratch.h"

namespace zeapi::testing::xl {

inline constexpr std::string_view kHeader = ") HP-PCL XL;1;1;\n";

// Bytes by their values.
std::string Hex(std::initializer_list<int> bytes);

// A value with its tag, and the identifier that makes an attribute of it.
std::string Ubyte(int value);
std::string Uint16(std::uint32_t value);
std::string Attribute(std::string_view value, int id);
// An array of bytes whose count takes one byte, or two when it must.
std::string UbyteArray(std::string_view bytes);
// Embedded data with a length of four bytes.
std::string Data(std::string_view bytes);

// A whole stream: BeginSession with its attributes, a data source, the content, the end.
std::string SessionOpening();  // the attributes and BeginSession
std::string Session(std::string_view content);
// BeginPage with attributes, the body, EndPage with an attribute.
std::string Page(std::string_view body);
// A line: two operators with attributes.
std::string Body();

// The stored stream that a page with this body becomes.
std::string Stored(const std::string& name, const std::string& body, bool execute,
                   const std::string& opening = SessionOpening());

}  // namespace zeapi::testing::xl

namespace zeapi::testing {

class TextSink final : public XlListingSink {
 public:
  void Text(std::string_view text) override { all += text; }
  std::string all;
};

// A file of given bytes under a reader.
class XlTest : public ScratchTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Makes the file the reader's input; the reader starts over.
  void Open(std::string_view bytes);
  XlReaderState* state() { return &*state_; }
  XlInput* input() { return &*input_; }
  // The attribute with this index.
  const XlAttribute& Attribute(std::size_t index) { return state_->attributes[index]; }
  // What the reader has not read.
  std::string Unread();

  TextSink listing;

 private:
  std::FILE* file_ = nullptr;
  std::optional<XlInput> input_;
  std::optional<XlReaderState> state_;
};

}  // namespace zeapi::testing
