#include "pclxl/xl_listing.h"

#include <array>
#include <cstdio>
#include <string>

#include "base/byte_reader.h"
#include "pclxl/xl_names.h"
#include "pclxl/xl_value_text.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kBytesALine = 16;

std::string AttributeName(std::uint32_t id) {
  const char* name = XlAttributeName(id);
  if (name != nullptr) return name;
  std::array<char, 16> text = {};
  std::snprintf(text.data(), text.size(), "ID(0x%02x)", id);
  return text.data();
}

void ListAttributes(const XlReaderState& state) {
  for (std::int32_t i = 0; i < state.attributeCount; ++i) {
    const XlAttribute& attribute = state.attributes[static_cast<std::size_t>(i)];
    state.listing->Text("\n    &" + XlValueText(attribute) + "; &" + AttributeName(attribute.id) +
                        ";");
  }
}

// The length of a block stands in the listing as a signed number.
std::string EmbeddedDataHead(unsigned lengthBytes, std::uint32_t length) {
  std::array<char, 48> text = {};
  std::snprintf(text.data(), text.size(), "    &EMB_DATA_%sHDR(%d);\n",
                lengthBytes == 1 ? "BYTE_" : "", static_cast<std::int32_t>(length));
  return text.data();
}

XlResult ListData(std::uint32_t length, XlReaderState* state) {
  for (std::uint32_t i = 0; i < length; ++i) {
    const int byte = state->input->Read();
    if (byte == XlInput::kEnd) return kXlEnd;
    if (i % kBytesALine == 0) state->listing->Text("    &HEX(\"");
    std::array<char, 4> digits = {};
    std::snprintf(digits.data(), digits.size(), "%02x", static_cast<std::uint8_t>(byte));
    state->listing->Text(digits.data());
    if (i % kBytesALine == kBytesALine - 1 || i == length - 1) state->listing->Text("\");\n");
  }
  return kXlOk;
}

}  // namespace

void XlListOperator(XlReaderState* state, const char* name) {
  if (state->listing != nullptr) {
    ListAttributes(*state);
    state->listing->Text("\n    &" + std::string(name) + ";\n");
  }
  XlReleaseAttributes(state);
}

XlResult XlListEmbeddedData(unsigned lengthBytes, XlReaderState* state) {
  std::array<std::uint8_t, 4> bytes = {};
  if (state->input->Read(std::span(bytes).first(lengthBytes)) < lengthBytes) return kXlEnd;
  const std::uint32_t length = ByteReader(bytes).U32Le();
  if (state->listing == nullptr) return state->input->Skip(length) ? kXlOk : kXlEnd;
  state->listing->Text(EmbeddedDataHead(lengthBytes, length));
  return ListData(length, state);
}

}  // namespace zeapi
