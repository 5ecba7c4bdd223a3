#include "fonts/type1_names.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "fonts/field_text.h"
#include "fonts/text_lines.h"

namespace zeapi {
namespace {

constexpr std::size_t kWindow = 40;

std::string_view UpToSpace(std::string_view text) { return text.substr(0, text.find(' ')); }

// Every "/" of a stream with the characters after it, as many as a window holds. They are only
// looked at: the next "/" may be among them.
class SlashWindows {
 public:
  explicit SlashWindows(std::FILE* stream) : stream_(stream) {}

  // False at the end of the stream. `window` is valid until the next call.
  bool Next(std::string_view* window) {
    for (;;) {
      if (end_ - begin_ <= kWindow) Fill();
      const void* slash = std::memchr(room_.data() + begin_, '/', end_ - begin_);
      if (slash == nullptr) {
        begin_ = end_;
        if (atEnd_) return false;
        continue;
      }
      begin_ = static_cast<std::size_t>(static_cast<const char*>(slash) - room_.data());
      if (end_ - begin_ <= kWindow) Fill();
      ++begin_;
      *window = {room_.data() + begin_, std::min(kWindow, end_ - begin_)};
      return true;
    }
  }

 private:
  void Fill() {
    if (atEnd_) return;
    std::memmove(room_.data(), room_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    const std::size_t wanted = room_.size() - end_;
    const std::size_t read = std::fread(room_.data() + end_, 1, wanted, stream_);
    end_ += read;
    atEnd_ = read < wanted;
  }

  std::FILE* stream_;
  std::array<char, 8192> room_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool atEnd_ = false;
};

}  // namespace

Type1Name ReadPfaName(std::FILE* stream) {
  constexpr std::string_view kStart = "/FontName /";
  Type1Name name = {};
  constexpr std::size_t kLongestLine = 255;  // the rest of a longer one is a line of its own
  TextLines lines(stream, kLongestLine);
  for (std::string_view line; lines.Next(&line);) {
    if (line.starts_with(kStart)) {
      SetField(name.text, UpToSpace(line.substr(kStart.size())));
      break;
    }
  }
  return std::ferror(stream) == 0 ? name : Type1Name{};
}

PfbNames ReadPfbNames(std::FILE* stream) {
  constexpr std::string_view kName = "FontName /";
  constexpr std::string_view kEncoding = "Encoding ";
  PfbNames names = {{}, true};
  bool encodingSeen = false;
  SlashWindows windows(stream);
  for (std::string_view window; windows.Next(&window);) {
    if (window.starts_with(kName) && names.name.text[0] == '\0') {
      SetField(names.name.text, UpToSpace(window.substr(kName.size())));
    } else if (window.starts_with(kEncoding)) {
      encodingSeen = true;
      if (window.find("StandardEncoding") == std::string_view::npos) names.standardEncoding = false;
    }
    if (encodingSeen && names.name.text[0] != '\0') break;
  }
  if (std::ferror(stream) != 0) names.name = {};
  return names;
}

}  // namespace zeapi
