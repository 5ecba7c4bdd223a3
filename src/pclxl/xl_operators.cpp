#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

// Where an operator may stand.
enum Place : std::uint8_t { kNowhere = 0, kSession = 1, kPage = 2 };

struct Operator {
  std::uint8_t code;
  const char* name;
  int places;
};

// Codes that are not here are illegal bytes. BeginSession stands before everything else, once.
constexpr Operator kOperators[] = {
    {0x41, "BeginSession", kNowhere},
    {0x42, "EndSession", kSession},
    {0x43, "BeginPage", kSession},
    {0x44, "EndPage", kPage},
    {0x47, "Comment", kSession | kPage},
    {0x48, "OpenDataSource", kSession | kPage},
    {0x49, "CloseDataSource", kSession | kPage},
    {0x4A, "EchoComment", kSession | kPage},
    {0x4B, "Query", kSession | kPage},
    {0x4F, "BeginFontHeader", kSession | kPage},
    {0x50, "ReadFontHeader", kSession | kPage},
    {0x51, "EndFontHeader", kSession | kPage},
    {0x52, "BeginChar", kSession | kPage},
    {0x53, "ReadChar", kSession | kPage},
    {0x54, "EndChar", kSession | kPage},
    {0x55, "RemoveFont", kSession | kPage},
    {0x5B, "BeginStream", kSession | kPage},
    {0x5C, "ReadStream", kSession | kPage},
    {0x5D, "EndStream", kSession | kPage},
    {0x5E, "ExecStream", kSession | kPage},
    {0x60, "PopGS", kPage},
    {0x61, "PushGS", kPage},
    {0x62, "SetClipReplace", kPage},
    {0x63, "SetBrushSource", kPage},
    {0x64, "SetCharAngle", kPage},
    {0x65, "SetCharScale", kPage},
    {0x66, "SetCharShear", kPage},
    {0x67, "SetClipIntersect", kPage},
    {0x68, "SetClipRectangle", kPage},
    {0x69, "SetClipToPage", kPage},
    {0x6A, "SetColorSpace", kPage},
    {0x6B, "SetCursor", kPage},
    {0x6C, "SetCursorRel", kPage},
    {0x6D, "SetHalftoneMethod", kPage},
    {0x6E, "SetFillMode", kPage},
    {0x6F, "SetFont", kPage},
    {0x70, "SetLineDash", kPage},
    {0x71, "SetLineCap", kPage},
    {0x72, "SetLineJoin", kPage},
    {0x73, "SetMiterLimit", kPage},
    {0x74, "SetPageDefaultCTM", kPage},
    {0x75, "SetPageOrigin", kPage},
    {0x76, "SetPageRotation", kPage},
    {0x77, "SetPageScale", kPage},
    {0x78, "SetPaintTxMode", kPage},
    {0x79, "SetPenSource", kPage},
    {0x7A, "SetPenWidth", kPage},
    {0x7B, "SetROP", kPage},
    {0x7C, "SetSourceTxMode", kPage},
    {0x7D, "SetCharBoldValue", kPage},
    {0x7F, "SetClipMode", kPage},
    {0x80, "SetPathToClip", kPage},
    {0x81, "SetCharSubMode", kPage},
    {0x84, "CloseSubPath", kPage},
    {0x85, "NewPath", kPage},
    {0x86, "PaintPath", kPage},
    {0x91, "ArcPath", kPage},
    {0x93, "BezierPath", kPage},
    {0x95, "BezierRelPath", kPage},
    {0x96, "Chord", kPage},
    {0x97, "ChordPath", kPage},
    {0x98, "Ellipse", kPage},
    {0x99, "EllipsePath", kPage},
    {0x9B, "LinePath", kPage},
    {0x9D, "LineRelPath", kPage},
    {0x9E, "Pie", kPage},
    {0x9F, "PiePath", kPage},
    {0xA0, "Rectangle", kPage},
    {0xA1, "RectanglePath", kPage},
    {0xA2, "RoundRectangle", kPage},
    {0xA3, "RoundRectanglePath", kPage},
    {0xA8, "Text", kPage},
    {0xA9, "TextPath", kPage},
    {0xAA, "SystemText", kPage},
    {0xB0, "BeginImage", kPage},
    {0xB1, "ReadImage", kPage},
    {0xB2, "EndImage", kPage},
    {0xB3, "BeginRastPattern", kPage},
    {0xB4, "ReadRastPattern", kPage},
    {0xB5, "EndRastPattern", kPage},
    {0xB6, "BeginScan", kPage},
    {0xB8, "EndScan", kPage},
    {0xB9, "ScanLineRel", kPage},
};

struct Tag {
  XlClass kind = XlClass::kIllegal;
  const char* name = nullptr;
  int places = kNowhere;
};

constexpr void Fill(std::array<Tag, 256>& tags, unsigned first, unsigned last, XlClass kind) {
  for (unsigned code = first; code <= last; ++code) tags[code].kind = kind;
}

constexpr std::array<Tag, 256> MakeTags() {
  std::array<Tag, 256> tags{};
  Fill(tags, 0x00, 0x00, XlClass::kWhiteSpace);
  Fill(tags, 0x09, 0x0D, XlClass::kWhiteSpace);
  Fill(tags, 0x20, 0x20, XlClass::kWhiteSpace);
  Fill(tags, 0x27, 0x29, XlClass::kRejected);  // header characters
  for (const Operator& entry : kOperators)
    tags[entry.code] = {XlClass::kOperator, entry.name, entry.places};
  for (const unsigned shape : {0xC0U, 0xD0U, 0xE0U}) Fill(tags, shape, shape + 5, XlClass::kValue);
  Fill(tags, 0xC8, 0xCD, XlClass::kArray);
  Fill(tags, 0xD8, 0xDD, XlClass::kRejected);  // xy arrays
  Fill(tags, 0xE8, 0xED, XlClass::kRejected);  // box arrays
  Fill(tags, 0xF8, 0xF8, XlClass::kAttributeId);
  Fill(tags, 0xF9, 0xF9, XlClass::kRejected);  // two-byte identifier
  for (const unsigned data : {0xFAU, 0xFBU})
    tags[data] = {XlClass::kEmbeddedData, nullptr, kSession | kPage};
  return tags;
}

constexpr std::array<Tag, 256> kTags = MakeTags();

constexpr std::array<XlClass, 256> MakeClasses() {
  std::array<XlClass, 256> classes{};
  for (std::size_t code = 0; code < classes.size(); ++code) classes[code] = kTags[code].kind;
  return classes;
}

}  // namespace

constexpr std::array<XlClass, 256> kXlClasses = MakeClasses();

const char* XlOperatorName(std::uint8_t code) { return kTags[code].name; }
bool XlAllowedInSession(std::uint8_t tag) { return (kTags[tag].places & kSession) != 0; }
bool XlAllowedInPage(std::uint8_t tag) { return (kTags[tag].places & kPage) != 0; }

}  // namespace zeapi
