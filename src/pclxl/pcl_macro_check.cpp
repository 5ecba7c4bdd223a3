#include "pclxl/pcl_macro_check.h"

#include "pclxl/filter_io.h"
#include "pclxl/parameter_list.h"
#include "pclxl/pcl_sequence.h"

namespace zeapi {
namespace filter {
namespace {

constexpr std::int64_t kUniversalExitNumber = -12345;

// A step that returns false has found something that a definition may not hold.
class PclMacroCheck {
 public:
  Result Run(std::FILE* file) {
    const Result opened = reader_.Open(file);
    if (opened != ZE_OK) return opened;
    bool fits = true;
    std::uint8_t c = 0;
    while (fits && Next(&c)) {
      if (c == kEscape) fits = inGraphics_ ? GraphicsEscape() : Escape();
    }
    if (reader_.Failed()) return ZE_READ_FAILED;
    return fits && !inGraphics_ ? ZE_OK : ZE_BAD_FORMAT;
  }

 private:
  // False at the end of the file.
  bool Next(std::uint8_t* c) {
    *c = reader_.Read();
    return !reader_.AtEnd();
  }

  bool Escape() {
    std::uint8_t c = 0;
    if (!Next(&c)) return false;
    if (c == '%') return Percent('B', true);
    if (c == '[') return BracketK();
    if (c >= '!' && c <= '/') return Parameterised(c);
    if (c == kEscape) reader_.PushBack(c);
    return true;
  }

  bool GraphicsEscape() {
    std::uint8_t c = 0;
    if (!Next(&c)) return false;
    if (c == '%') return Percent('A', false);
    if (c == 'E') inGraphics_ = false;
    if (c == kEscape) reader_.PushBack(c);
    return true;
  }

  // Behind "ESC %". The letter that switches between PCL and HP-GL/2 does so.
  bool Percent(std::uint8_t switchLetter, bool graphics) {
    std::int64_t value = 0;
    std::uint8_t letter = 0;
    if (!NextGroup(&value, &letter)) return false;
    if (value == kUniversalExitNumber && letter == 'X') return false;
    if (letter == switchLetter) inGraphics_ = graphics;
    return true;
  }

  // The filter leaves no block but one whose header is cut off.
  bool BracketK() {
    std::uint8_t c = 0;
    if (!Next(&c) || c == 'K') return false;
    reader_.PushBack(c);
    return true;
  }

  bool Parameterised(std::uint8_t first) {
    std::uint8_t second = 0;
    if (!Next(&second)) return false;
    if (!LetterContinues(second)) {
      reader_.PushBack(second);
      second = 0;
    }
    const ParameterList* list = lists_.Find(first, second);
    const bool isMacroControl = first == '&' && second == 'f';
    std::uint64_t data = 0;
    std::uint8_t letter = 0;
    do {
      std::int64_t value = 0;
      if (!NextGroup(&value, &letter)) return false;
      if (isMacroControl && (letter | 0x20) == 'x' && (value == 0 || value == 1)) return false;
      const bool countsData =
          list != nullptr && list->Judge(letter, value) == Verdict::kKeepWithData;
      if (countsData) AddCount(value, &data);
    } while (LetterContinues(letter));
    return SkipData(data);
  }

  // A value and its letter; an escape, which is no letter, stays to be read. False when the file
  // ends before.
  bool NextGroup(std::int64_t* value, std::uint8_t* letter) {
    ValueReader reader;
    while (Next(letter) && IsValueCharacter(*letter)) reader.Read(*letter);
    *value = reader.value();
    if (reader_.AtEnd()) return false;
    if (*letter == kEscape) reader_.PushBack(*letter);
    return true;
  }

  bool SkipData(std::uint64_t count) {
    std::uint8_t c = 0;
    for (; count > 0; --count) {
      if (!Next(&c)) return false;
    }
    return true;
  }

  PushBackReader reader_;
  const ParameterLists lists_{0};
  bool inGraphics_ = false;
};

}  // namespace
}  // namespace filter

Result CheckPclMacroContent(std::FILE* file) { return filter::PclMacroCheck().Run(file); }

}  // namespace zeapi
