#include "pclxl/page_body.h"

#include <algorithm>

#include "files/regular_file.h"
#include "pclxl/work_files.h"

namespace zeapi {

XlPageBody::~XlPageBody() {
  if (file_ != nullptr) std::fclose(file_);
}

XlResult XlPageBody::Begin() {
  size_ = 0;
  fill_ = 0;
  file_ = OpenRegularFile(kXlPageFile, "wb");
  return file_ != nullptr ? kXlOk : kXlFile;
}

bool XlPageBody::WriteBuffer() {
  if (fill_ == 0) return true;
  const bool written = std::fwrite(buffer_.data(), 1, fill_, file_) == fill_;
  size_ += static_cast<std::uint32_t>(fill_);
  fill_ = 0;
  return written;
}

XlResult XlPageBody::CopyLarge(std::uint64_t length, XlInput* input) {
  while (length != 0) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(length, buffer_.size()));
    fill_ = input->Read(std::span(buffer_).first(count));
    if (fill_ < count || !WriteBuffer()) return kXlFile;
    length -= count;
  }
  return kXlOk;
}

XlResult XlPageBody::Append(std::uint64_t begin, XlInput* input) {
  const std::uint64_t end = input->Position();
  const std::uint64_t length = end - begin;
  if (length > kXlLongestPageBody - size_ - fill_) return kXlLength;
  if (!input->SetPosition(begin)) return kXlFile;
  if (length + fill_ >= buffer_.size() && !WriteBuffer()) return kXlFile;
  if (length > buffer_.size()) return CopyLarge(length, input);
  const auto count = static_cast<std::size_t>(length);
  if (input->Read(std::span(buffer_).subspan(fill_, count)) < count) return kXlLength;
  fill_ += count;
  return kXlOk;
}

XlResult XlPageBody::End() {
  bool ended = WriteBuffer();
  ended &= std::fclose(file_) == 0;
  file_ = nullptr;
  return ended ? kXlOk : kXlFile;
}

}  // namespace zeapi
