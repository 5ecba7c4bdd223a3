// zeapi font: what a font file is, and fonts on their way to a printer. Lists and conversions have files
// of their own.
#include <memory>

#include "choice.h"
#include "commands.h"
#include "commands/font_family.h"
#include "font_record.h"
#include "printer_options.h"

namespace tool {
namespace {

struct FontOptions {
  std::string file;
  std::uint32_t queryOption = 0;
  bool fontsOnly = false;
  PrinterOptions to;
  std::int32_t target = ZE_DEVICE_RAM;
  std::uint16_t id = 0;
  std::uint16_t ppdsCode = 0;
  std::uint16_t ppdsSlot = 0;
};

void FreeCartridge(ZeCartridge* cartridge) {
  if (cartridge == nullptr) return;
  for (ZeCartridgeFont* font = cartridge->fonts; font != nullptr;) {
    ZeCartridgeFont* next = font->next;
    ZeMemFree(font->name);
    ZeMemFree(font);
    font = next;
  }
  ZeMemFree(cartridge->name);
  ZeMemFree(cartridge);
}

void Info(const FontOptions& options, Session& session) {
  ZeFontInfo info = {};
  Report report;
  report.command = "font info";
  report.result =
      ZeFonQueryInfo(options.file.c_str(), &info, options.queryOption, options.fontsOnly ? 0 : 1);
  const std::unique_ptr<ZeCartridge, void (*)(ZeCartridge*)> cartridge(info.cartridge,
                                                                       FreeCartridge);
  report.done = RecordText(info);
  const bool alone = report.result == ZE_UNSUPPORTED;
  report.cannot = (alone ? "find every companion of " : "use ") + options.file;
  report.fields = {{"file", options.file}};
  report.fields.update(RecordJson(info));
  // A font whose companion is missing, and an FOT file, are known well enough.
  const bool known = info.kind != 0;
  if (report.result != ZE_OK && known && !session.WantsJson()) {
    session.Out() << report.done << '\n';
  }
  session.Finish(report);
}

void Send(const FontOptions& options, Session& session) {
  ZeDestination destination = ToDestination(options.to);
  // Font jobs have no language 0; 1 switches as little.
  if (destination.language == ZE_LANGUAGE_NONE) destination.language = ZE_LANGUAGE_DEFAULT;
  destination.fontQueryOption = options.queryOption;
  destination.resourceId = options.id;
  destination.ppdsFontCode = options.ppdsCode;
  destination.ppdsFontSlot = options.ppdsSlot;
  Report report;
  report.command = "font send";
  report.result =
      ZeFonDownload(options.file.c_str(), options.to.printer.c_str(), &destination, options.target);
  report.done = "Sent " + options.file + " to " + options.to.printer + ".";
  report.cannot = "send " + options.file;
  report.fields = {{"file", options.file},
                   {"printer", options.to.printer},
                   {"target", NameOf(kDevices, options.target)}};
  session.Finish(report);
}

void AddFile(CLI::App& command, FontOptions& options) {
  command.add_option("file", options.file, "Font file")->required()->type_name("FILE");
  command
      .add_option("--query-option", options.queryOption,
                  "Companion files that must be there: 2, 4, or 5 for 4 if there are any")
      ->type_name("N");
}

void AddInfoOfFont(CLI::App& family, const std::shared_ptr<FontOptions>& options,
                   Session& session) {
  CLI::App* command =
      session.AddCommand(family, "info", "Tell what a font file is",
                         std::string("JSON: \"file\", ") + kRecordFields +
                             ".\nExit code 32: a companion file is missing. 27: not a font, or one "
                             "that cannot be used.");
  AddFile(*command, *options);
  command->add_flag("--fonts-only", options->fontsOnly, "Refuse files that only describe fonts");
  command->callback([options, &session] { Info(*options, session); });
}

void AddSendOfFont(CLI::App& family, const std::shared_ptr<FontOptions>& options,
                   Session& session) {
  CLI::App* command = session.AddCommand(
      family, "send", "Download a font to a printer",
      "PCL and DLF fonts go as they are, with the ID in front. Type 1 fonts go to PPDS printers "
      "in\n"
      "blocks, with any other language as PostScript. A file that stands for the printer is "
      "appended to.\nJSON: \"file\", \"printer\", \"target\".");
  AddFile(*command, *options);
  command->add_option("--target", options->target, "Where it is kept: " + NamesOf(kDevices))
      ->transform(OneOf(kDevices))
      ->type_name("DEVICE");
  command->add_option("--id", options->id, "ID of the font in the printer")->type_name("N");
  command->add_option("--ppds-code", options->ppdsCode, "First number of a Type 1 font for PPDS")
      ->type_name("N");
  command->add_option("--ppds-slot", options->ppdsSlot, "Second number of a Type 1 font for PPDS")
      ->type_name("N");
  AddPrinterOptions(*command, options->to);
  command->callback([options, &session] { Send(*options, session); });
}

}  // namespace

void AddFont(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("font", "Examine, download and convert fonts");
  family->require_subcommand(1);
  const auto options = std::make_shared<FontOptions>();
  AddInfoOfFont(*family, options, session);
  AddFontList(*family, session);
  AddSendOfFont(*family, options, session);
  AddFontConvert(*family, session);
}

}  // namespace tool
