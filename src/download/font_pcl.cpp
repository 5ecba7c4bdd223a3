// PCL and DLF soft fonts.
#include <span>

#include "base/stream.h"
#include "download/font_senders.h"
#include "files/regular_file.h"
#include "fonts/font_stream.h"
#include "fonts/pcl_font.h"
#include "output/pjl.h"
#include "output/send_stream.h"

namespace zeapi {
namespace {

// The beginning of a font file that was read to check it, before any of it is sent.
class CheckedBeginning {
 public:
  // Returns 0, 3 (the file does not begin with a font header command) or 6. A descriptor that the
  // file cuts short is sent as it is.
  Result Read(std::FILE* file) {
    if (!ReadFontHeaderCommand(file, &command_)) return ZE_OPEN_FAILED;
    descriptorLength_ = ReadUpTo(file, descriptor_).size();
    return std::ferror(file) != 0 ? ZE_READ_FAILED : ZE_OK;
  }

  // False when a write failed.
  bool Send(GenQueContext* ctx) const {
    return Write(command_.Bytes(), ctx) &&
           Write(std::span(descriptor_).first(descriptorLength_), ctx);
  }

 private:
  static bool Write(std::span<const std::uint8_t> bytes, GenQueContext* ctx) {
    GenQueWrite(bytes.data(), static_cast<std::uint32_t>(bytes.size()), ctx);
    return ctx->error == ZE_OK;
  }

  FontHeaderCommand command_;
  PclRawDescriptor descriptor_ = {};
  std::size_t descriptorLength_ = 0;
};

// The ID command of scalable fonts is three writes.
bool WriteIdInPieces(GenQueContext* ctx) {
  WriteCommand(ctx, "\x1B*c");
  if (ctx->error == ZE_OK) WriteCommand(ctx, "%u", unsigned{ctx->destination->resourceId});
  if (ctx->error == ZE_OK) WriteCommand(ctx, "D");
  return ctx->error == ZE_OK;
}

// The checked road differs from the other in its writes, not in the bytes that the printer gets.
template <typename WriteId>
Result Send(std::FILE* file, GenQueContext* ctx, WriteId writeId) {
  const bool checked = ctx->destination->language == ZE_LANGUAGE_PCLXL;
  CheckedBeginning beginning;
  const Result read = checked ? beginning.Read(file) : Result{ZE_OK};
  if (read != ZE_OK) return read;
  if (!writeId(ctx)) return ctx->error;
  if (checked && !beginning.Send(ctx)) return ctx->error;
  return SendStream(file, ctx, kRawBytes);
}

}  // namespace

Result SendPclFont(const char* path, FontIdForm form, GenQueContext* ctx) {
  const Stream file(OpenRegularFile(path, "rb"));
  if (file == nullptr) return ZE_FILE_NOT_FOUND;
  const Result sent =
      Send(file.get(), ctx, [form](GenQueContext* queue) { return FontIdCommand(form, queue); });
  if (sent != ZE_OK) return sent;
  if (form == FontIdForm::kPcl) MakeFontPermanent(ctx);
  return ctx->error;
}

Result SendScalableFont(const char* path, GenQueContext* ctx) {
  const Stream file(OpenRegularFile(path, "rb"));
  if (file == nullptr) return ZE_OPEN_FAILED;
  const Result sent = Send(file.get(), ctx, WriteIdInPieces);
  if (sent != ZE_OK) return sent;
  MakeFontPermanent(ctx);
  return ctx->error;
}

}  // namespace zeapi
