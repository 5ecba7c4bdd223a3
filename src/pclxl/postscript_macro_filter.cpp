#include "pclxl/macro_filters.h"
#include "pclxl/pcl_sequence.h"
#include "pclxl/plain_run.h"

namespace zeapi::filter {
namespace {

constexpr std::uint8_t kEndOfJob = 0x04;
constexpr char kPostScript[] = "%!PS";

std::size_t PostScriptRun(ByteSpan ahead) {
  return PlainRun(
      ahead,
      [](std::uint8_t a, std::uint8_t b) {
        return static_cast<bool>((a == kEndOfJob) | (a == kEscape) | ((a == '%') & (b == '!')) |
                                 ((a == '@') & (b == 'P')));
      },
      [](std::uint8_t a) { return a == kEndOfJob || a == kEscape || a == '%' || a == '@'; });
}

// What the stream shows begins with a byte that may begin something.
void FilterOne(FilterStream* stream, ByteSpan ahead, const char* overlayHeader) {
  if (ahead[0] == kEndOfJob) {
    stream->Drop(1);
  } else if (StartsWith(ahead, kUniversalExit)) {
    stream->Drop(sizeof(kUniversalExit) - 1);
  } else if (StartsWith(ahead, kPostScript)) {
    stream->KeepLine();
    if (overlayHeader != nullptr) stream->Insert(BytesOf(overlayHeader));
  } else if (StartsWith(ahead, kPjl)) {
    stream->DropLine();
  } else if (!DropBracketKBlock(stream)) {
    stream->Keep(1);
  }
}

}  // namespace

void FilterPostScriptMacro(FilterStream* stream, const char* overlayHeader) {
  for (ByteSpan ahead = stream->Ahead(); !ahead.empty(); ahead = stream->Ahead()) {
    if (const std::size_t plain = PostScriptRun(ahead)) {
      stream->Keep(plain);
    } else {
      FilterOne(stream, ahead, overlayHeader);
    }
  }
}

}  // namespace zeapi::filter
