#include "job/describe.h"

#include <algorithm>
#include <vector>

#include "job/excerpt.h"
#include "job/pcl_commands.h"

namespace tool {
namespace {

struct BracketK {
  std::vector<std::uint8_t> parameters;
  const char* meaning;
};

const std::vector<BracketK>& BracketKCommands() {
  static const std::vector<BracketK> commands = {
      {{0x01}, "initial conditions"},
      {{0x06}, "end of the job"},
      {{0x06, 0xC0, 0x31}, "downloads go to the device"},
      {{0x06, 0xC0, 0x32}, "downloads go to working memory"},
      {{0x06, 0xC0, 0x46}, "format the device"},
      {{0x06, 0xC0, 0x50}, "print the directory"},
  };
  return commands;
}

struct SelectedLanguage {
  std::uint8_t code;
  const char* name;
};

constexpr SelectedLanguage kSelectedLanguages[] = {
    {0x00, "default"}, {0x01, "PPDS"}, {0x02, "PCL"}, {0x03, "GL"}, {0x08, "POSTSCRIPT"}};

constexpr const char* kUnknownBracketK = "bracket-K block";

// `bytes` are the whole block.
std::string BracketKMeaning(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kHeader = 5;
  const auto parameters = bytes.subspan(std::min(kHeader, bytes.size()));
  for (const BracketK& command : BracketKCommands()) {
    if (std::ranges::equal(command.parameters, parameters)) return command.meaning;
  }
  if (parameters.size() == 3 && parameters[0] == 0x06) {
    for (const SelectedLanguage& language : kSelectedLanguages) {
      if (language.code == parameters[2])
        return std::string("select language ") + language.name + ", channel " +
               Excerpt(parameters.subspan(1, 1), 4);
    }
  }
  return kUnknownBracketK;
}

}  // namespace

std::string_view KindName(JobEventKind kind) {
  switch (kind) {
    case JobEventKind::kUniversalExit:
      return "universal-exit";
    case JobEventKind::kPjl:
      return "pjl";
    case JobEventKind::kPcl:
      return "pcl";
    case JobEventKind::kEscape:
      return "escape";
    case JobEventKind::kBracketK:
      return "bracket-k";
    case JobEventKind::kPayload:
      return "payload";
    case JobEventKind::kLanguageData:
      return "language-data";
    case JobEventKind::kFormFeed:
      return "form-feed";
    case JobEventKind::kText:
      return "text";
    case JobEventKind::kDamaged:
      return "damaged";
    case JobEventKind::kData:
      break;
  }
  return "data";
}

std::string CommandText(const JobEvent& event) {
  switch (event.kind) {
    case JobEventKind::kUniversalExit:
      return "ESC %-12345X";
    case JobEventKind::kPjl:
      return Printable(event.text);
    case JobEventKind::kPcl: {
      std::string command = event.text;
      command.insert(command.size() - 1, event.value);
      return "ESC " + command;
    }
    case JobEventKind::kEscape:
      return "ESC " + event.text;
    case JobEventKind::kBracketK:
      return "ESC [K";
    case JobEventKind::kFormFeed:
      return "FF";
    default:
      return "";
  }
}

std::string Meaning(const JobEvent& event, std::span<const std::uint8_t> bytes) {
  switch (event.kind) {
    case JobEventKind::kUniversalExit:
      return "universal exit";
    case JobEventKind::kPcl: {
      const PclCommand* command = FindPclCommand(event.text);
      return command == nullptr ? "" : std::string(command->meaning);
    }
    case JobEventKind::kEscape:
      return std::string(EscapeMeaning(event.text));
    case JobEventKind::kBracketK:
      return event.missing == 0 ? BracketKMeaning(bytes) : kUnknownBracketK;
    case JobEventKind::kFormFeed:
      return "end of the page";
    default:
      return event.text;
  }
}

}  // namespace tool
