#include "pclxl/macro_fixup.h"

#include "pclxl/macro_filters.h"

namespace zeapi {
namespace filter {

bool DropBracketKBlock(FilterStream* stream) {
  constexpr std::size_t kHeader = 5;
  const ByteSpan ahead = stream->Ahead();
  if (ahead.size() < kHeader || !StartsWith(ahead, "\x1B[K")) return false;
  const unsigned length = ahead[3] + 256U * ahead[4];
  stream->Drop(kHeader);
  stream->DropData(length);
  return true;
}

}  // namespace filter

Result FilterMacro(std::FILE* file, std::int32_t language, std::uint32_t options,
                   const char* overlayHeader, filter::FilterSink* sink) {
  filter::FilterStream stream;
  const Result opened = stream.Open(file, sink);
  if (opened != ZE_OK) return opened;
  if (language == ZE_LANGUAGE_PCL) {
    filter::FilterPclMacro(&stream, options);
  } else if (language == ZE_LANGUAGE_POSTSCRIPT) {
    filter::FilterPostScriptMacro(&stream, overlayHeader);
  } else {
    while (const std::size_t shown = stream.Ahead().size()) stream.Keep(shown);
  }
  return stream.Close();
}

Result MacroFixupSend(std::FILE* file, GenQueContext* ctx, std::uint32_t options,
                      const char* overlayHeader) {
  filter::QueueSink sink(ctx);
  const Result result =
      FilterMacro(file, ctx->destination->language, options, overlayHeader, &sink);
  return ctx->error != ZE_OK ? ctx->error : result;
}

}  // namespace zeapi
