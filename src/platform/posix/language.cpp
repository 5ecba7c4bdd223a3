#include "platform/posix/language.h"

namespace zeapi::platform {
namespace {

struct Language {
  std::string_view locale;  // "de", or "de_AT" for what is not the language's first variant
  std::uint16_t identifier;
};

constexpr Language kLanguages[] = {
    {"ar", 0x0401},    {"bg", 0x0402},    {"ca", 0x0403},    {"zh_TW", 0x0404}, {"cs", 0x0405},
    {"da", 0x0406},    {"de", 0x0407},    {"el", 0x0408},    {"en", 0x0409},    {"fi", 0x040B},
    {"fr", 0x040C},    {"he", 0x040D},    {"hu", 0x040E},    {"is", 0x040F},    {"it", 0x0410},
    {"ja", 0x0411},    {"ko", 0x0412},    {"nl", 0x0413},    {"nb", 0x0414},    {"no", 0x0414},
    {"pl", 0x0415},    {"pt_BR", 0x0416}, {"ro", 0x0418},    {"ru", 0x0419},    {"hr", 0x041A},
    {"sk", 0x041B},    {"sv", 0x041D},    {"th", 0x041E},    {"tr", 0x041F},    {"uk", 0x0422},
    {"sl", 0x0424},    {"et", 0x0425},    {"lv", 0x0426},    {"lt", 0x0427},    {"vi", 0x042A},
    {"zh", 0x0804},    {"de_CH", 0x0807}, {"en_GB", 0x0809}, {"es_MX", 0x080A}, {"fr_BE", 0x080C},
    {"it_CH", 0x0810}, {"nl_BE", 0x0813}, {"nn", 0x0814},    {"pt", 0x0816},    {"zh_HK", 0x0C04},
    {"de_AT", 0x0C07}, {"en_AU", 0x0C09}, {"es", 0x0C0A},    {"fr_CA", 0x0C0C}, {"en_CA", 0x1009},
    {"fr_CH", 0x100C},
};

constexpr std::uint16_t kEnglish = 0x0409;

std::uint16_t Find(std::string_view locale) {
  for (const Language& language : kLanguages) {
    if (language.locale == locale) return language.identifier;
  }
  return 0;
}

}  // namespace

std::uint16_t LanguageOfLocale(std::string_view locale) {
  locale = locale.substr(0, locale.find_first_of(".@"));
  if (const std::uint16_t whole = Find(locale)) return whole;
  const std::uint16_t language = Find(locale.substr(0, locale.find('_')));
  return language != 0 ? language : kEnglish;
}

}  // namespace zeapi::platform
