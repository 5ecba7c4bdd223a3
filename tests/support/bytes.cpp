#include "support/bytes.h"

#include <algorithm>
#include <cstdio>

namespace zeapi::testing {

std::string Printable(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    if (c == '\x1B') {
      text += "<ESC>";
    } else if (c == '\n') {
      text += "<LF>\n";
    } else if (c >= ' ' && c <= '~') {
      text += c;
    } else {
      char code[8];
      std::snprintf(code, sizeof(code), "<%02X>", static_cast<unsigned char>(c));
      text += code;
    }
  }
  return text;
}

::testing::AssertionResult SameBytes(const char* actualText, const char* expectedText,
                                     std::string_view actual, std::string_view expected) {
  if (actual == expected) return ::testing::AssertionSuccess();
  const auto difference =
      std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const auto at = static_cast<std::size_t>(difference.first - actual.begin());
  return ::testing::AssertionFailure()
         << actualText << " (" << actual.size() << " bytes) differs from " << expectedText << " ("
         << expected.size() << " bytes) at byte " << at << "\n--- is\n"
         << Printable(actual.substr(0, at + 80)) << "\n--- should be\n"
         << Printable(expected.substr(0, at + 80));
}

}  // namespace zeapi::testing
