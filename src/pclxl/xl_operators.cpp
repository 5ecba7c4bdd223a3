#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

// Where an operator may stand.
enum Place : std::uint8_t { kNowhere = 0, kSession = 1, kPage = 2 };

struct Operator {
  std::uint8_t code;
  std::uint8_t places;
  const char* name;
};

// Codes that are not here are illegal bytes. BeginSession stands before everything else, once.
constexpr Operator kOperators[] = {
    {0x41, kNowhere, "BeginSession"},
    {0x42, kSession, "EndSession"},
    {0x43, kSession, "BeginPage"},
    {0x44, kPage, "EndPage"},
    {0x47, kSession | kPage, "Comment"},
    {0x48, kSession | kPage, "OpenDataSource"},
    {0x49, kSession | kPage, "CloseDataSource"},
    {0x4A, kSession | kPage, "EchoComment"},
    {0x4B, kSession | kPage, "Query"},
    {0x4F, kSession | kPage, "BeginFontHeader"},
    {0x50, kSession | kPage, "ReadFontHeader"},
    {0x51, kSession | kPage, "EndFontHeader"},
    {0x52, kSession | kPage, "BeginChar"},
    {0x53, kSession | kPage, "ReadChar"},
    {0x54, kSession | kPage, "EndChar"},
    {0x55, kSession | kPage, "RemoveFont"},
    {0x5B, kSession | kPage, "BeginStream"},
    {0x5C, kSession | kPage, "ReadStream"},
    {0x5D, kSession | kPage, "EndStream"},
    {0x5E, kSession | kPage, "ExecStream"},
    {0x60, kPage, "PopGS"},
    {0x61, kPage, "PushGS"},
    {0x62, kPage, "SetClipReplace"},
    {0x63, kPage, "SetBrushSource"},
    {0x64, kPage, "SetCharAngle"},
    {0x65, kPage, "SetCharScale"},
    {0x66, kPage, "SetCharShear"},
    {0x67, kPage, "SetClipIntersect"},
    {0x68, kPage, "SetClipRectangle"},
    {0x69, kPage, "SetClipToPage"},
    {0x6A, kPage, "SetColorSpace"},
    {0x6B, kPage, "SetCursor"},
    {0x6C, kPage, "SetCursorRel"},
    {0x6D, kPage, "SetHalftoneMethod"},
    {0x6E, kPage, "SetFillMode"},
    {0x6F, kPage, "SetFont"},
    {0x70, kPage, "SetLineDash"},
    {0x71, kPage, "SetLineCap"},
    {0x72, kPage, "SetLineJoin"},
    {0x73, kPage, "SetMiterLimit"},
    {0x74, kPage, "SetPageDefaultCTM"},
    {0x75, kPage, "SetPageOrigin"},
    {0x76, kPage, "SetPageRotation"},
    {0x77, kPage, "SetPageScale"},
    {0x78, kPage, "SetPaintTxMode"},
    {0x79, kPage, "SetPenSource"},
    {0x7A, kPage, "SetPenWidth"},
    {0x7B, kPage, "SetROP"},
    {0x7C, kPage, "SetSourceTxMode"},
    {0x7D, kPage, "SetCharBoldValue"},
    {0x7F, kPage, "SetClipMode"},
    {0x80, kPage, "SetPathToClip"},
    {0x81, kPage, "SetCharSubMode"},
    {0x84, kPage, "CloseSubPath"},
    {0x85, kPage, "NewPath"},
    {0x86, kPage, "PaintPath"},
    {0x91, kPage, "ArcPath"},
    {0x93, kPage, "BezierPath"},
    {0x95, kPage, "BezierRelPath"},
    {0x96, kPage, "Chord"},
    {0x97, kPage, "ChordPath"},
    {0x98, kPage, "Ellipse"},
    {0x99, kPage, "EllipsePath"},
    {0x9B, kPage, "LinePath"},
    {0x9D, kPage, "LineRelPath"},
    {0x9E, kPage, "Pie"},
    {0x9F, kPage, "PiePath"},
    {0xA0, kPage, "Rectangle"},
    {0xA1, kPage, "RectanglePath"},
    {0xA2, kPage, "RoundRectangle"},
    {0xA3, kPage, "RoundRectanglePath"},
    {0xA8, kPage, "Text"},
    {0xA9, kPage, "TextPath"},
    {0xAA, kPage, "SystemText"},
    {0xB0, kPage, "BeginImage"},
    {0xB1, kPage, "ReadImage"},
    {0xB2, kPage, "EndImage"},
    {0xB3, kPage, "BeginRastPattern"},
    {0xB4, kPage, "ReadRastPattern"},
    {0xB5, kPage, "EndRastPattern"},
    {0xB6, kPage, "BeginScan"},
    {0xB8, kPage, "EndScan"},
    {0xB9, kPage, "ScanLineRel"},
};

constexpr void Fill(std::array<XlByteFacts, 256>& bytes, unsigned first, unsigned last,
                    XlClass kind) {
  for (unsigned code = first; code <= last; ++code) bytes[code].kind = kind;
}

constexpr void FillValues(std::array<XlByteFacts, 256>& bytes, unsigned first) {
  for (unsigned code = first; code <= first + 5; ++code) {
    const auto type = static_cast<std::uint8_t>(code);
    bytes[code].kind = XlClass::kValue;
    bytes[code].size = static_cast<std::uint8_t>(1 + XlElementCount(type) * XlElementWidth(type));
  }
}

constexpr std::array<XlByteFacts, 256> MakeBytes() {
  std::array<XlByteFacts, 256> bytes{};
  Fill(bytes, 0x00, 0x00, XlClass::kWhiteSpace);
  Fill(bytes, 0x09, 0x0D, XlClass::kWhiteSpace);
  Fill(bytes, 0x20, 0x20, XlClass::kWhiteSpace);
  Fill(bytes, 0x27, 0x29, XlClass::kRejected);  // header characters
  for (const Operator& entry : kOperators) {
    bytes[entry.code] = {XlClass::kOperator, 1, (entry.places & kSession) != 0,
                         (entry.places & kPage) != 0};
  }
  for (const unsigned shape : {0xC0U, 0xD0U, 0xE0U}) FillValues(bytes, shape);
  Fill(bytes, 0xC8, 0xCD, XlClass::kArray);
  Fill(bytes, 0xD8, 0xDD, XlClass::kRejected);  // xy arrays
  Fill(bytes, 0xE8, 0xED, XlClass::kRejected);  // box arrays
  bytes[0xF8] = {XlClass::kAttributeId, 2, false, false};
  Fill(bytes, 0xF9, 0xF9, XlClass::kRejected);  // two-byte identifier
  for (const unsigned data : {0xFAU, 0xFBU}) bytes[data] = {XlClass::kEmbeddedData, 1, true, true};
  return bytes;
}

constexpr std::array<const char*, 256> MakeNames() {
  std::array<const char*, 256> names{};
  for (const Operator& entry : kOperators) names[entry.code] = entry.name;
  return names;
}

constexpr std::array<const char*, 256> kNames = MakeNames();

}  // namespace

constexpr std::array<XlByteFacts, 256> kXlBytes = MakeBytes();

const char* XlOperatorName(std::uint8_t code) { return kNames[code]; }

}  // namespace zeapi
