#include "base/text_cursor.h"

namespace zeapi {

std::string_view TextSource::Refill() {
  const std::size_t count = ended_ ? 0 : std::fread(room_.data(), 1, room_.size(), stream_);
  ended_ = count == 0;
  return {room_.data(), count};
}

void TextSource::Rewind() {
  std::rewind(stream_);
  ended_ = false;
  ahead_ = {};
}

}  // namespace zeapi
