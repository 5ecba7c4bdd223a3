// The options that say where a job goes and how it is framed, shared by all commands that send.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>

#include "zeapi.h"

namespace tool {

struct PrinterOptions {
  std::string printer;
  bool pjl = false;
  bool bracketK = false;
  std::int32_t language = ZE_LANGUAGE_NONE;
  std::uint16_t copies = 0;
  std::optional<std::string> job;
  std::string channel;  // one character, or empty
  std::uint32_t deviceClass = 0;
  std::uint16_t bidiPort = 0;
  std::uint16_t bidiHandle = 0;
};

// Adds --printer and the framing options. `options` must outlive `command`.
void AddPrinterOptions(CLI::App& command, PrinterOptions& options);

// The library's record of the options. It points to the job name in `options`.
ZeDestination ToDestination(const PrinterOptions& options);

}  // namespace tool
