#include "fonts/symbol_set_names.h"

#include <iterator>

namespace zeapi {
namespace {

struct Row {
  std::string_view code;
  std::string_view name;
};

// Searched from the top. The names are shown and compared by callers as they stand, with their
// doubled blanks and spellings.
constexpr Row kNames[] = {
    {"7J", "DeskTop"},
    {"0N", "ISO 8859-1 Latin 1"},
    {"1E", "ISO  4: United Kingdom"},
    {"0U", "ISO  6: ASCII"},
    {"3S", "ISO 10: Swedish"},
    {"0S", "ISO 11: Swedish Names"},
    {"0K", "ISO 14: JIS ASCII"},
    {"0I", "ISO 15: Italian"},
    {"4S", "ISO 16: Portugese"},
    {"2S", "ISO 17: Spanish"},
    {"1G", "ISO 21: German"},
    {"0F", "ISO 25: French"},
    {"2K", "ISO 57: Chinese"},
    {"0D", "ISO 60: Norwegian v1"},
    {"1D", "ISO 61: Norwegian v2"},
    {"1F", "ISO 69: French"},
    {"5S", "ISO 84: Portugese"},
    {"6S", "ISO 85: Spanish"},
    {"1U", "Legal"},
    {"8M", "Math-8"},
    {"10U", "PC-8"},
    {"11U", "PC-8 D/N"},
    {"9T", "PC-8 Turkish"},
    {"12U", "PC-850"},
    {"17U", "PC-852"},
    {"10L", "PS ITC Zapf Dingbats"},
    {"5M", "PS Math"},
    {"10J", "PS Text"},
    {"8U", "Roman-8"},
    {"9U", "Windows 3.0 Latin 1"},
    {"19U", "Windows 3.1 Latin 1"},
    {"9E", "Windows 3.1 Latin 2"},
    {"5T", "Windows 3.1 Latin 5"},
    {"0G", "German"},
    {"1S", "Spanish"},
    {"16Q", "Ink Jet"},
    {"2U", "ISO  2: International Ref."},
    {"2N", "ISO 8859-2 Latin 2"},
    {"5N", "ISO 8859-9 Latin 5"},
    {"11L", "ITC Zapf Dingbats S100"},
    {"12L", "ITC Zapf Dingbats S200"},
    {"13L", "ITC Zapf Dingbats S300"},
    {"0B", "Line Draw-7"},
    {"0L", "Line Draw-7"},
    {"8L", "Line Draw-8"},
    {"12J", "MC Text"},
    {"6J", "Microsoft Publishing"},
    {"15U", "Pi Font"},
    {"22R", "Postscript"},
    {"0E", "Roman Extensions"},
    {"19M", "Symbol"},
    {"13J", "Ventura International"},
    {"9L", "Ventura ITC Zapf Dingbats"},
    {"6M", "Ventura Math"},
    {"14J", "Ventura US"},
    {"19L", "Windows Baltic"},
    {"9G", "Windows Greek"},
    {"9R", "Windows Cyrillic"},
    {"9H", "Windows Hebrew"},
    {"9V", "Windows Arabic"},
    {"579L", "Wingdings"},
};
static_assert(std::size(kNames) == 61);

}  // namespace

std::string_view SymbolSetName(std::string_view code) {
  for (const Row& row : kNames) {
    if (row.code == code) return row.name;
  }
  return {};
}

}  // namespace zeapi
