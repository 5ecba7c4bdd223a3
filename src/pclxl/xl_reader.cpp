#include "pclxl/xl_reader.h"

#include <string_view>

#include "base/byte_reader.h"
#include "pclxl/xl_listing.h"
#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

constexpr std::uint8_t kEscape = 0x1B;

// Reads the header and lists each byte of it.
class HeaderBytes {
 public:
  explicit HeaderBytes(XlReaderState* state) : state_(state) {}

  int Next() {
    last_ = state_->input->Read();
    const char byte = static_cast<char>(last_);
    if (last_ != XlInput::kEnd && byte != '\n') XlListText(state_->listing, {&byte, 1});
    return last_;
  }
  int Last() const { return last_; }

  // Compares the next byte with what is expected there.
  XlResult Expect(char expected, XlResult otherwise) {
    if (Next() == XlInput::kEnd) return kXlEnd;
    return last_ == static_cast<unsigned char>(expected) ? kXlOk : otherwise;
  }

  XlResult Expect(std::string_view expected, XlResult otherwise) {
    for (const char byte : expected) {
      const XlResult result = Expect(byte, otherwise);
      if (result != kXlOk) return result;
    }
    return kXlOk;
  }

 private:
  XlReaderState* state_;
  int last_ = XlInput::kEnd;
};

// Up to the ";" behind it. Kept: a name that begins otherwise is not looked at.
XlResult CheckName(HeaderBytes* header) {
  XlResult result = kXlOk;
  switch (header->Next()) {
    case XlInput::kEnd:
      return kXlEnd;
    case 'H':
      result = header->Expect("P-PCL XL", kXlName);
      break;
    case 'P':
      result = header->Expect("CL XL", kXlName);
      break;
    default:
      while (header->Next() != ';') {
        if (header->Last() == XlInput::kEnd) return kXlEnd;
        if (header->Last() == '\n') return kXlSeparator;
      }
      return kXlOk;
  }
  return result == kXlOk ? header->Expect(';', kXlSeparator) : result;
}

XlResult CheckHeader(HeaderBytes* header) {
  XlResult result = header->Expect(')', kXlBinding);
  if (result == kXlOk) result = header->Expect(' ', kXlSeparator);
  if (result == kXlOk) result = CheckName(header);
  if (result == kXlOk) result = header->Expect('1', kXlVersion);  // protocol class
  if (result == kXlOk) result = header->Expect(';', kXlSeparator);
  if (result == kXlOk) result = header->Expect('1', kXlVersion);  // revision
  if (result != kXlOk) return result;

  const int afterRevision = header->Next();
  if (afterRevision == XlInput::kEnd) return kXlEnd;
  if (afterRevision != ';' && afterRevision != '\n' && afterRevision != '\r') return kXlSeparator;
  while (header->Last() != '\n') {
    if (header->Next() == XlInput::kEnd) return kXlEnd;
  }
  return kXlOk;
}

XlAttribute* CurrentEntry(XlReaderState* state) {
  return &state->attributes[static_cast<std::size_t>(state->attributeCount)];
}

XlResult ReadValue(std::uint8_t type, XlReaderState* state) {
  XlAttribute* const entry = CurrentEntry(state);
  entry->Clear();
  const std::size_t size = kXlBytes[type].size - std::size_t{1};
  if (state->input->Read(std::span(entry->value).first(size)) < size) return kXlEnd;
  entry->type = type;
  return kXlOk;
}

// The count is a value of its own: a byte or a 16-bit number.
XlResult ReadArrayCount(XlReaderState* state, XlAttribute* entry) {
  const int countType = state->input->Read();
  if (countType == XlInput::kEnd) return kXlEnd;
  if (countType != kXlUbyte && countType != kXlUint16) return kXlLength;
  std::array<std::uint8_t, 2> bytes = {};
  const auto field = std::span(bytes).first(countType == kXlUbyte ? 1 : 2);
  if (state->input->Read(field) < field.size()) return kXlEnd;
  entry->elementCount = ByteReader(bytes).U16Le();
  entry->lengthType = countType == kXlUbyte ? "Ubyte" : "UInt16";
  return kXlOk;
}

XlResult ReadArray(std::uint8_t type, XlReaderState* state) {
  XlAttribute entry;
  entry.type = type;
  const XlResult result = ReadArrayCount(state, &entry);
  if (result != kXlOk) return result;
  const std::size_t size = std::size_t{entry.elementCount} * XlElementWidth(type);
  if (state->recovering) return state->input->Skip(size) ? kXlOk : kXlEnd;
  if (size != 0) {
    entry.elements = CHeapBytes<std::uint8_t>(size);
    if (entry.elements == nullptr) return kXlNoMemory;
    if (state->input->Read({entry.elements.get(), size}) < size) return kXlEnd;
  }
  *CurrentEntry(state) = std::move(entry);
  return kXlOk;
}

XlResult ReadAttributeId(XlReaderState* state) {
  const int id = state->input->Read();
  if (id == XlInput::kEnd) return kXlEnd;
  if (state->attributeCount == kXlMostAttributes) return kXlIllegalByte;
  CurrentEntry(state)->id = static_cast<std::uint32_t>(id);
  ++state->attributeCount;
  CurrentEntry(state)->Clear();
  return kXlOk;
}

XlResult ReadToken(XlClass kind, std::uint8_t tag, XlReaderState* state) {
  switch (kind) {
    case XlClass::kWhiteSpace:
      return kXlOk;
    case XlClass::kValue:
      return ReadValue(tag, state);
    case XlClass::kArray:
      return ReadArray(tag, state);
    case XlClass::kAttributeId:
      return ReadAttributeId(state);
    default:
      return kXlIllegalByte;
  }
}

}  // namespace

XlResult XlReadStreamHeader(XlReaderState* state) {
  XlListText(state->listing, "    &LINE('");
  HeaderBytes header(state);
  const XlResult result = CheckHeader(&header);
  if (result == kXlOk) XlListText(state->listing, "');\n");
  return result;
}

XlResult XlReadToOperator(XlReaderState* state) {
  for (;;) {
    const int next = state->input->Read();
    if (next == XlInput::kEnd) return kXlEnd;
    const auto byte = static_cast<std::uint8_t>(next);
    if (byte == kEscape) {
      state->input->PushBack();
      return kXlEnd;
    }
    const XlClass kind = XlClassOf(byte);
    if (kind == XlClass::kIllegal) {
      state->currentTag = byte;
      return kXlIllegalByte;
    }
    if (kind == XlClass::kOperator || kind == XlClass::kEmbeddedData) {
      state->currentTag = byte;
      ++state->operatorCount;
      return kXlOk;
    }
    const XlResult result = ReadToken(kind, byte, state);
    if (result != kXlOk) return result;
    if (state->recovering) state->attributeCount = 0;
  }
}

// What is left is one entry, of type ubyte with value 0: an identifier without a value names that.
void XlReleaseAttributes(XlReaderState* state) {
  for (std::int32_t i = state->attributeCount; i >= 0; --i)
    state->attributes[static_cast<std::size_t>(i)].Clear();
  state->attributeCount = 0;
}

}  // namespace zeapi
