#include <cstring>

#include "pclxl/macro_filters.h"
#include "pclxl/parameter_list.h"
#include "pclxl/pcl_sequence.h"
#include "pclxl/plain_run.h"
#include "pclxl/rebuilt_sequence.h"

namespace zeapi::filter {
namespace {

std::size_t PclRun(ByteSpan ahead) {
  return PlainRun(
      ahead,
      [](std::uint8_t a, std::uint8_t b) {
        return static_cast<bool>((a == kEscape) | (a == kFormFeed) | ((a == '@') & (b == 'P')));
      },
      [](std::uint8_t a) { return a == kEscape || a == kFormFeed || a == '@'; });
}

std::size_t GraphicsRun(ByteSpan ahead) {
  const void* found = std::memchr(ahead.data(), kEscape, ahead.size());
  if (found == nullptr) return ahead.size();
  return static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - ahead.data());
}

// Length of "ESC % number letter" at the start of the bytes; 0 when that is not what stands there.
std::size_t PercentSequence(ByteSpan ahead, char letter) {
  if (!StartsWith(ahead, "\x1B%")) return 0;
  const std::size_t at = EndOfValue(ahead, 2);
  return at < ahead.size() && ahead[at] == static_cast<std::uint8_t>(letter) ? at + 1 : 0;
}

class PclMacroFilter {
 public:
  PclMacroFilter(FilterStream* stream, std::uint32_t options)
      : stream_(*stream), options_(options), lists_(options) {}

  void Run() {
    for (ByteSpan ahead = stream_.Ahead(); !ahead.empty(); ahead = stream_.Ahead()) {
      const std::size_t plain = inGraphics_ ? GraphicsRun(ahead) : PclRun(ahead);
      const ByteSpan near = ahead.first(std::min(ahead.size(), FilterStream::kLookAhead));
      if (plain != 0) {
        stream_.Keep(plain);
      } else if (inGraphics_) {
        GraphicsEscape(near);
      } else if (ahead[0] == kEscape) {
        Escape(near);
      } else if (ahead[0] == kFormFeed) {
        KeepUnless(ZE_FIXUP_FORM_FEED, 1);
      } else if (StartsWith(ahead, kPjl)) {
        stream_.DropLine();
      } else {
        stream_.Keep(1);
      }
    }
  }

 private:
  void KeepUnless(std::uint32_t option, std::size_t count) {
    if ((options_ & option) != 0) {
      stream_.Drop(count);
    } else {
      stream_.Keep(count);
    }
  }

  // In HP-GL/2 everything is kept but a reset, job control too.
  void GraphicsEscape(ByteSpan ahead) {
    if (const std::size_t length = PercentSequence(ahead, 'A')) {
      stream_.Keep(length);
      inGraphics_ = false;
    } else if (StartsWith(ahead,
                          "\x1B"
                          "E")) {
      KeepUnless(ZE_FIXUP_RESET, 2);
      inGraphics_ = false;
    } else {
      stream_.Keep(1);
    }
  }

  void Escape(ByteSpan ahead) {
    switch (ahead.size() > 1 ? ahead[1] : 0) {
      case '&':
      case '(':
      case ')':
      case '*':
        return ahead.size() > 2 ? Parameterised(ahead) : stream_.Keep(1);
      case 'E':
        return KeepUnless(ZE_FIXUP_RESET, 2);
      case '%':
        return Percent(ahead);
      case '[':
        if (DropBracketKBlock(&stream_)) return;
        [[fallthrough]];
      default:
        return stream_.Keep(1);
    }
  }

  void Percent(ByteSpan ahead) {
    if (StartsWith(ahead, kUniversalExit)) {
      stream_.Drop(sizeof(kUniversalExit) - 1);
    } else if (const std::size_t length = PercentSequence(ahead, 'B')) {
      stream_.Keep(length);
      inGraphics_ = true;
    } else {
      stream_.Keep(1);
    }
  }

  void Parameterised(ByteSpan ahead) {
    if (ahead[1] == '&' && ahead[2] == 'n') return AlphanumericId(ahead);
    const ParameterList* list = lists_.Find(ahead[1], ahead[2]);
    if (list == nullptr) return stream_.Keep(1);
    FilterSequence(ahead, *list);
  }

  // "ESC & n" with data is dropped with it; any other loses its ESC: printers have always got
  // macros that were made so.
  void AlphanumericId(ByteSpan ahead) {
    std::size_t at = kPrefixLength;
    while (at < ahead.size() && IsDigit(ahead[at])) ++at;
    if (at == ahead.size()) return stream_.Keep(1);
    const std::int64_t count = ValueOf(ahead.subspan(kPrefixLength, at - kPrefixLength));
    if (count != 0 && ahead[at] == 'W') {
      stream_.Drop(at + 1);
      stream_.DropData(static_cast<std::uint64_t>(count));
      return;
    }
    stream_.Drop(1);
    stream_.Keep(at);
  }

  // The usual sequence lies before us whole and keeps all its groups: it is passed on in one piece
  // with whatever stands round it.
  void FilterSequence(ByteSpan ahead, const ParameterList& list) {
    std::uint64_t data = 0;
    bool whole = true;
    std::size_t at = kPrefixLength;
    for (;;) {
      const std::size_t letter = EndOfValue(ahead, at);
      if (letter == ahead.size()) {
        // Cut off by the end of the file it stays as it stands.
        if (letter < FilterStream::kLookAhead) return stream_.Keep(letter);
        return Rebuild(list);
      }
      const std::int64_t value = ValueOf(ahead.subspan(at, letter - at));
      const Verdict verdict = list.Judge(ahead[letter], value);
      if (verdict == Verdict::kKeepWithData) AddCount(value, &data);
      whole &= verdict != Verdict::kDrop;
      at = letter + 1;
      if (!LetterContinues(ahead[letter])) break;
    }
    if (!whole) return Rebuild(list);
    stream_.Keep(at);
    stream_.KeepData(data);
  }

  // Group by group, in a sequence of any length.
  void Rebuild(const ParameterList& list) {
    RebuiltSequence sequence(&stream_);
    std::uint64_t data = 0;
    for (;;) {
      const ByteSpan shown = stream_.Ahead();
      const ByteSpan ahead = shown.first(std::min(shown.size(), FilterStream::kLookAhead));
      const std::size_t letter = EndOfValue(ahead, 0);
      // The file ends, or the value is longer than any: what is left is plain text.
      if (letter == ahead.size()) return sequence.BreakOff();
      const std::int64_t value = ValueOf(ahead.first(letter));
      const bool last = !LetterContinues(ahead[letter]);
      const Verdict verdict = list.Judge(ahead[letter], value);
      if (verdict == Verdict::kKeepWithData) AddCount(value, &data);
      if (verdict == Verdict::kDrop) {
        sequence.DropGroup(letter + 1, last);
      } else {
        sequence.KeepGroup(letter + 1, last);
      }
      if (last) break;
    }
    stream_.KeepData(data);
  }

  FilterStream& stream_;
  const std::uint32_t options_;
  const ParameterLists lists_;
  bool inGraphics_ = false;
};

}  // namespace

void FilterPclMacro(FilterStream* stream, std::uint32_t options) {
  PclMacroFilter(stream, options).Run();
}

}  // namespace zeapi::filter
