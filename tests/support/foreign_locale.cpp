#include "support/foreign_locale.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>

namespace zeapi::testing {

#ifdef _WIN32
ForeignLocale::ForeignLocale(const std::filesystem::path&) {
  std::setlocale(LC_ALL, "Turkish_Turkey.1254");
}
#else
ForeignLocale::ForeignLocale(const std::filesystem::path& folder) {
  const std::string make = "localedef -i tr_TR -f ISO-8859-9 '" + (folder / "tr").string() + "'";
  if (std::system(make.c_str()) != 0) return;
  setenv("LOCPATH", folder.c_str(), 1);
  std::setlocale(LC_ALL, "tr");
  unsetenv("LOCPATH");
}
#endif

ForeignLocale::~ForeignLocale() { std::setlocale(LC_ALL, "C"); }

bool ForeignLocale::InForce() const {
  return std::strcmp(std::localeconv()->decimal_point, ",") == 0;
}

}  // namespace zeapi::testing
