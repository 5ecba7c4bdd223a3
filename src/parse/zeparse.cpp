#include "parse/zeparse.h"

#include <charconv>

#include "parse/parse_log.h"

namespace zeapi {
namespace {

struct Definition {
  std::string_view name;
  int id;
};

constexpr int kId = 0;
constexpr int kType = 1;
constexpr int kChildCount = 2;
constexpr int kContentLength = 4;
constexpr int kData = 5;

constexpr Definition kDefinitions[] = {
    {"ID", kId},   {"DT", kType}, {"NE", kChildCount}, {"SE", 3}, {"LD", kContentLength},
    {"DA", kData}, {"TD", 6},     {"DL", 7},           {"TL", 8}, {"VN", 9},
    {"BF", 10},    {"DD", 11}};

constexpr int kElementKey = 0;
constexpr int kContainerKey = 1;
constexpr int kDataKey = 2;
constexpr const char* kKeyNames[] = {"P", "C", "D"};

std::vector<std::uint8_t> CopyRecord(const void* buffer) {
  const auto* bytes = static_cast<const std::uint8_t*>(buffer);
  const std::size_t size = std::size_t{2} + ByteReader(std::span(bytes, 2)).U16Be();
  return {bytes, bytes + size};
}

const Definition* FindDefinition(std::string_view text) {
  for (const Definition& definition : kDefinitions) {
    if (text.starts_with(definition.name)) return &definition;
  }
  return nullptr;
}

// The number that `text` starts with, 0 for none; below zero, a length that no record holds, for one that
// says so and for one beyond 32 bits.
std::int32_t LengthAt(std::string_view text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc::result_out_of_range ? -1 : value;
}

}  // namespace

ZeAlertParser::ZeAlertParser(const void* buffer) : copy_(CopyRecord(buffer)), reader_(copy_) {
  parse_log::DataBufferLength(reader_.U16Be());
  parse_log::Version(reader_.U16Be());
  ReadKeys();
  parse_log::BytesLeft(parse_log::kRecord, BytesLeft());
}

int ZeAlertParser::BytesLeft() const {
  return CutShort() ? 0 : static_cast<int>(reader_.remaining());
}

void ZeAlertParser::ReadKeys() {
  for (int key = kElementKey; key <= kDataKey; ++key) {
    reader_.Skip(2);
    const auto rest = std::span(copy_).subspan(reader_.position(), reader_.remaining());
    const std::string_view text(reinterpret_cast<const char*>(rest.data()), rest.size());
    const std::size_t end = text.find('}');
    if (CutShort() || end == std::string_view::npos) return CutShortHere();
    ReadKey(key, text.substr(0, end));
    reader_.Skip(end + 1);
  }
}

// Pairs of a definition name and a length, up to one with a name that is not known.
void ZeAlertParser::ReadKey(int key, std::string_view text) {
  auto& fields = keys_[static_cast<std::size_t>(key)];
  std::array<std::int32_t, std::size(kDefinitions)> lengths = {};
  bool dataSeen = false;
  for (;;) {
    const Definition* definition = FindDefinition(text);
    if (definition == nullptr) return;
    text.remove_prefix(definition->name.size());
    const Field field{definition->id, LengthAt(text.substr(text.empty() ? 0 : 1))};
    parse_log::KeyField(kKeyNames[key], field.definition, field.length);
    // Fields are walked again for every element. Those without bytes are kept where they change something:
    // the place of the data, and the value that a field of the same name took before.
    std::int32_t& before = lengths[static_cast<std::size_t>(field.definition)];
    const bool isData = key == kDataKey && field.definition == kData;
    if (isData ? !dataSeen : field.length != 0 || before != 0) fields.push_back(field);
    dataSeen |= isData;
    before = field.length;
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return;
    text.remove_prefix(comma + 1);
  }
}

std::span<const std::uint8_t> ZeAlertParser::Take(std::int32_t length) {
  if (length < 0) CutShortHere();
  if (CutShort()) return {};
  return reader_.Bytes(static_cast<std::size_t>(length));
}

std::int32_t ZeAlertParser::ReadField(std::int32_t length) {
  ByteReader field(Take(length));
  switch (length) {
    case 1:
      return field.S8();
    case 2:
      return field.U16Be();
    case 4:
      return static_cast<std::int32_t>(field.U32Be());
    default:
      return 0;
  }
}

AlertElement ZeAlertParser::ReadElement() {
  AlertElement element;
  for (const Field& field : keys_[kElementKey]) {
    const std::int32_t value = ReadField(field.length);
    if (field.definition == kId) element.id = value;
    if (field.definition == kType) element.type = value;
  }
  return element;
}

ZeAlertParser::ContainerHeader ZeAlertParser::ReadContainerHeader() {
  ContainerHeader header;
  for (const Field& field : keys_[kContainerKey]) {
    const std::int32_t value = ReadField(field.length);
    if (field.definition == kChildCount) header.childCount = value;
    if (field.definition == kContentLength) header.length = value;
  }
  return header;
}

// Hands the data's length to `takeData` where the data stands: at the end when the key does not name it.
template <typename TakeData>
void ZeAlertParser::ReadDataHeader(TakeData takeData) {
  std::int32_t length = 0;
  bool taken = false;
  for (const Field& field : keys_[kDataKey]) {
    if (field.definition == kData) {
      takeData(length);
      taken = true;
    } else if (field.definition == kContentLength) {
      length = ReadField(field.length);
    } else {
      Take(field.length);
    }
  }
  if (!taken) takeData(length);
}

std::int32_t ZeAlertParser::EnterContainer() {
  const ContainerHeader header = ReadContainerHeader();
  // A child takes a byte at least: what is asked for below never costs more than the record did.
  if (header.childCount < 0 || header.childCount > BytesLeft()) CutShortHere();
  return CutShort() ? 0 : header.childCount;
}

std::int32_t ZeAlertParser::ReadInteger() {
  std::int32_t value = 0;
  ReadDataHeader([&](std::int32_t length) { value = ReadField(length); });
  return value;
}

std::span<const std::uint8_t> ZeAlertParser::ReadBytes() {
  std::span<const std::uint8_t> bytes;
  ReadDataHeader([&](std::int32_t length) { bytes = Take(length); });
  return bytes;
}

void ZeAlertParser::Skip(const AlertElement& element) {
  if (element.type == kAlertContainer) {
    Take(ReadContainerHeader().length);
  } else if (element.type == kAlertInteger || element.type == kAlertText) {
    ReadBytes();
  }
}

}  // namespace zeapi
