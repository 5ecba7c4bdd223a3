// Lines of a text file that a font brings: PFA, AFM, INF.
#pragma once

#include <array>
#include <cstdio>
#include <string_view>

namespace zeapi {

// Gives the lines of a stream one by one without their ends (LF, CR LF or CR). Of a line that is
// longer than its room only the beginning is given, or, where lines come in pieces, one piece after the
// other as lines of their own. The stream is read ahead, in blocks.
class TextLines {
 public:
  static constexpr std::size_t kRoom = 1024;

  explicit TextLines(std::FILE* stream) : stream_(stream) {}
  TextLines(std::FILE* stream, std::size_t piece) : stream_(stream), piece_(piece) {}

  // False at the end of the text. `line` is valid until the next call.
  bool Next(std::string_view* line);

 private:
  // Makes sure that there is a byte at `begin_`; false at the end.
  bool Fill();

  std::FILE* stream_;
  std::size_t piece_ = 0;  // 0: lines come whole
  std::array<char, kRoom> room_;
  std::array<char, 4096> block_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool afterReturn_ = false;  // a line feed that comes next belongs to the line before
};

// The first word of `text`, which ends before white space or with the text; what follows it and the
// white space behind it stays in `text`.
std::string_view TakeWord(std::string_view* text);

// The text up to the first white space or zero byte.
std::string_view UpToWhiteSpace(std::string_view text);

}  // namespace zeapi
