#include <string_view>

#include "fonts/afm_number.h"
#include "fonts/afm_reader.h"
#include "fonts/field_text.h"
#include "fonts/text_lines.h"

namespace zeapi {
namespace {

// The text between the first "(" and the next ")"; empty when either is missing.
std::string_view InParentheses(std::string_view value) {
  const std::size_t open = value.find('(');
  if (open == std::string_view::npos) return {};
  const std::size_t close = value.find(')', open);
  if (close == std::string_view::npos) return {};
  return value.substr(open + 1, close - open - 1);
}

void ReadLine(std::string_view keyword, std::string_view value, AfmMetrics* metrics) {
  if (keyword == "MSMenuName") {
    if (metrics->menuName[0] == '\0') SetField(metrics->menuName, InParentheses(value));
  } else if (keyword == "VPStyle") {
    const std::size_t open = value.find('(');
    if (metrics->style == '\0' && open != std::string_view::npos && open + 1 < value.size())
      metrics->style = value[open + 1];
  } else if (keyword == "Serif") {
    metrics->serif = value.starts_with("true");
  } else if (keyword == "Pi") {
    metrics->pi = value.starts_with("true");
  } else if (keyword == "PCLTypefaceID") {
    metrics->pclTypeface = WholeOf(value);
  } else if (keyword == "PCLStyle") {
    metrics->pclStyle = WholeOf(value);
  } else if (keyword == "PCLStrokeWeight") {
    metrics->pclStrokeWeight = WholeOf(value);
  }
}

}  // namespace

Result ReadInf(std::FILE* stream, AfmMetrics* metrics) {
  TextLines lines(stream);
  for (std::string_view line; lines.Next(&line);) {
    const std::string_view keyword = TakeWord(&line);
    ReadLine(keyword, line, metrics);
  }
  return std::ferror(stream) != 0 ? ZE_BAD_FORMAT : ZE_OK;
}

}  // namespace zeapi
