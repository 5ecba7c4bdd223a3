#include "support/pclxl.h"

#include "support/byte_order.h"

namespace zeapi::testing::xl {

std::string Hex(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

std::string Ubyte(int value) { return Hex({0xC0, value}); }
std::string Uint16(std::uint32_t value) { return Hex({0xC1}) + Le16(value); }

std::string Attribute(std::string_view value, int id) {
  return std::string(value) + Hex({0xF8, id});
}

std::string UbyteArray(std::string_view bytes) {
  const auto size = static_cast<std::uint32_t>(bytes.size());
  return Hex({0xC8}) + (size < 256 ? Ubyte(static_cast<int>(size)) : Uint16(size)) +
         std::string(bytes);
}

std::string Data(std::string_view bytes) {
  return Hex({0xFA}) + Le32(static_cast<std::uint32_t>(bytes.size())) + std::string(bytes);
}

std::string SessionOpening() {
  return Attribute(Hex({0xD1}) + Le16(300) + Le16(300), 0x89) + Attribute(Ubyte(0), 0x86) +
         Hex({0x41});
}

std::string Session(std::string_view content) {
  return std::string(kHeader) + SessionOpening() + Attribute(Ubyte(0), 0x88) +
         Attribute(Ubyte(1), 0x82) + Hex({0x48}) + std::string(content) + Hex({0x49, 0x42});
}

std::string Page(std::string_view body) {
  return Attribute(Ubyte(0), 0x28) + Attribute(Ubyte(2), 0x25) + Hex({0x43}) + std::string(body) +
         Attribute(Uint16(1), 0x31) + Hex({0x44});
}

std::string Body() {
  return Hex({0x85}) + Attribute(Hex({0xD1}) + Le16(10) + Le16(20), 0x4C) + Hex({0x6B}) +
         Attribute(Hex({0xD1}) + Le16(30) + Le16(40), 0x45) + Hex({0x9B}) + Hex({0x86});
}

std::string Stored(const std::string& name, const std::string& body, bool execute,
                   const std::string& opening) {
  const std::string data = std::string(kHeader) + body;
  const auto size = static_cast<std::uint32_t>(data.size());
  std::string stored = std::string(kHeader) + Attribute(Hex({0xD1, 0x58, 2, 0x58, 2}), 0x89) +
                       Attribute(Ubyte(0), 0x86) + Attribute(Ubyte(3), 0x8F) + Hex({0x41}) +
                       Attribute(Ubyte(0), 0x88) + Attribute(Ubyte(1), 0x82) + Hex({0x48}) +
                       Attribute(UbyteArray(opening), 0x81) + Hex({0x47}) +
                       Attribute(UbyteArray(name), 0x8B) + Hex({0x5B}) +
                       Attribute(Hex({0xC2}) + Le32(size), 0x8C) + Hex({0x5C}) + Data(data) +
                       Hex({0x5D});
  if (execute) {
    stored += Attribute(Ubyte(0), 0x28) + Attribute(Ubyte(0), 0x25) + Attribute(Ubyte(1), 0x26) +
              Hex({0x43}) + Attribute(UbyteArray(name), 0x8B) + Hex({0x5E}) +
              Attribute(Uint16(1), 0x31) + Hex({0x44});
  }
  return stored + Hex({0x49, 0x42});
}

}  // namespace zeapi::testing::xl

namespace zeapi::testing {

void XlTest::SetUp() {
  ScratchTest::SetUp();
  Open("");
}

void XlTest::TearDown() {
  std::fclose(file_);
  ScratchTest::TearDown();
}

void XlTest::Open(std::string_view bytes) {
  if (file_ != nullptr) std::fclose(file_);
  WriteFile("stream", bytes);
  file_ = std::fopen("stream", "rb");
  ASSERT_NE(file_, nullptr);
  input_.emplace(file_);
  state_.emplace(&*input_);
  listing.all.clear();
}

std::string XlTest::Unread() {
  std::string rest;
  for (int byte = input_->Read(); byte != XlInput::kEnd; byte = input_->Read())
    rest += static_cast<char>(byte);
  return rest;
}

}  // namespace zeapi::testing
