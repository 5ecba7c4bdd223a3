// Type 1 fonts for PostScript printers.
#include <algorithm>
#include <array>

#include "base/byte_reader.h"
#include "base/stream.h"
#include "download/font_senders.h"
#include "files/regular_file.h"
#include "fonts/font_stream.h"
#include "output/hex_text.h"
#include "output/pjl.h"
#include "output/send_stream.h"

namespace zeapi {
namespace {

// Sent with its terminating zero byte, which printers take.
constexpr char kExitServer[] =
    "%% BeginExitServer 0\n"
    "% Adobe Type 1 download\r\n\r\n"
    " serverdict begin   0   exitserver  \n"
    "%% EndExitServer\n";
static_assert(sizeof(kExitServer) == 103);

constexpr std::array<std::uint8_t, 3> kEnd = {'%', '!', 0x04};  // end of transmission

// A segment of a PFB: 128, its type, and unless it is the end a 32-bit length with the low byte
// first, then so many bytes.
constexpr std::uint8_t kSegmentStart = 128;
enum SegmentType : std::uint8_t { kText = 1, kBinary = 2, kEndOfFile = 3 };

constexpr std::size_t kPiece = 1024;

struct Segment {
  std::uint8_t type;
  std::uint32_t length;
};

// False at the end of the file, at a segment that says so, and where no segment begins.
bool NextSegment(std::FILE* file, Segment* segment) {
  std::array<std::uint8_t, 6> room;
  ByteReader reader(ReadUpTo(file, room));
  const bool starts = reader.U8() == kSegmentStart;
  segment->type = reader.U8();
  segment->length = reader.U32Le();
  return reader.ok() && starts && (segment->type == kText || segment->type == kBinary);
}

// Sends the body of a segment. False when the file cuts it short, a piece that is not whole is not
// sent, or when a write failed or fell short.
bool SendSegment(std::FILE* file, Segment segment, GenQueContext* ctx) {
  std::array<std::uint8_t, 2 * kPiece> room;
  while (segment.length != 0) {
    const std::size_t piece = std::min<std::size_t>(segment.length, kPiece);
    if (ReadUpTo(file, std::span(room).first(piece)).size() != piece) return false;
    segment.length -= static_cast<std::uint32_t>(piece);
    const bool expand = segment.type == kBinary;
    if (expand) ExpandToHex(room.data(), piece);
    const auto size = static_cast<std::uint32_t>(expand ? 2 * piece : piece);
    if (GenQueWrite(room.data(), size, ctx) != size || ctx->error != ZE_OK) return false;
  }
  return true;
}

Result SendSegments(std::FILE* file, GenQueContext* ctx) {
  Segment segment;
  while (NextSegment(file, &segment) && SendSegment(file, segment, ctx)) {
  }
  // A damaged font is the printer's to judge; one that could not be read is not sent as if whole.
  return std::ferror(file) != 0 ? Result{ZE_READ_FAILED} : ctx->error;
}

}  // namespace

Result SendType1Font(const char* path, bool segmented, GenQueContext* ctx) {
  const Stream file(OpenRegularFile(path, "rb"));
  if (file == nullptr) return ZE_OPEN_FAILED;
  GenQueWrite(kExitServer, sizeof(kExitServer), ctx);
  if (ctx->error != ZE_OK) return ctx->error;
  const Result sent =
      segmented ? SendSegments(file.get(), ctx) : SendStream(file.get(), ctx, kRawBytes);
  if (sent != ZE_OK) return sent;
  WriteSequence(ctx, kEnd);
  return ctx->error;
}

}  // namespace zeapi
