#include "choice.h"

#include "zeapi.h"

namespace tool {

const Choice kDevices[] = {
    {"ram", ZE_DEVICE_RAM},     {"flash1", ZE_DEVICE_FLASH1}, {"flash2", ZE_DEVICE_FLASH2},
    {"disk1", ZE_DEVICE_DISK1}, {"disk2", ZE_DEVICE_DISK2},
};

const Choice kRequests[] = {
    {"ram", ZE_RESOURCE_TARGET_RAM},
    {"target", ZE_RESOURCE_TARGET_DEVICE},
    {"format", ZE_RESOURCE_FORMAT_DEVICE},
    {"directory", ZE_RESOURCE_PRINT_DIRECTORY},
};

const Choice kLanguages[] = {
    {"none", ZE_LANGUAGE_NONE},   {"default", ZE_LANGUAGE_DEFAULT},
    {"ppds", ZE_LANGUAGE_PPDS},   {"postscript", ZE_LANGUAGE_POSTSCRIPT},
    {"gl", ZE_LANGUAGE_GL},       {"pcl", ZE_LANGUAGE_PCL},
    {"pclxl", ZE_LANGUAGE_PCLXL},
};

CLI::Validator OneOf(std::span<const Choice> choices) {
  const auto replace = [choices](std::string& text) {
    for (const Choice& choice : choices) {
      if (CLI::detail::to_lower(text) == choice.name) {
        text = std::to_string(choice.value);
        return std::string();
      }
    }
    return text + " is none of " + NamesOf(choices);
  };
  return CLI::Validator(replace, "");
}

std::string NamesOf(std::span<const Choice> choices) {
  std::string names;
  for (const Choice& choice : choices) {
    if (!names.empty()) names += &choice == &choices.back() ? " or " : ", ";
    names += choice.name;
  }
  return names;
}

std::string NameOf(std::span<const Choice> choices, std::int32_t value) {
  for (const Choice& choice : choices) {
    if (choice.value == value) return choice.name;
  }
  return "";
}

}  // namespace tool
