// zeapi archive: extracting ZIP archives.
#include <algorithm>
#include <memory>

#include "archive_members.h"
#include "commands.h"
#include "file_progress.h"

namespace tool {
namespace {

struct ExtractOptions {
  std::string archive;
  std::string pattern;
  bool quiet = false;
};

// The library's callback has no place for a pointer of the caller's.
struct Extraction {
  Session& session;
  bool showsBar;
  std::uint64_t archiveSize;
  std::uint64_t done = 0;
  std::uint32_t files = 0;
};
Extraction* extractionInForce = nullptr;

std::uint32_t ZEAPI_CALL OnFile(const char* name, std::uint32_t compressedSize,
                                std::uint32_t percentage) {
  Extraction& extraction = *extractionInForce;
  ++extraction.files;
  extraction.done += compressedSize;
  if (extraction.session.WantsJson()) {
    const Json event = {{"event", "file"},
                        {"name", name},
                        {"compressedSize", compressedSize},
                        {"percentage", percentage}};
    extraction.session.Out() << ToLine(event) << '\n';
  } else if (extraction.showsBar) {
    extraction.session.Err() << '\r'
                             << FileProgressLine(extraction.done, extraction.archiveSize, name)
                             << std::flush;
  }
  return 0;
}

std::string Files(std::uint32_t count) {
  return std::to_string(count) + (count == 1 ? " file" : " files");
}

Report Extract(const ExtractOptions& options, Session& session) {
  // A member may come to be a file of the name that was given.
  const std::string path = ArchivePath(options.archive);
  Extraction extraction = {session, !options.quiet, ZeFilQuerySize(path.c_str())};
  extractionInForce = &extraction;
  Report report;
  report.command = "archive extract";
  report.result = ZeZipExplode(options.archive.c_str(), options.pattern.c_str(), OnFile);
  extractionInForce = nullptr;
  const std::uint32_t expected = report.result == ZE_OK ? CountFiles(path, options.pattern) : 0;
  // The library calls that a warning and so a success: a CRC or a method that only the member tells.
  const bool endedEarly = extraction.files < expected;
  if (endedEarly) report.result = ZE_BAD_CHECKSUM;
  if (extraction.showsBar && !session.WantsJson() && extraction.files > 0) {
    if (report.result == ZE_OK)
      session.Err() << '\r' << FileProgressLine(1, 1, Files(extraction.files));
    session.Err() << '\n';
  }
  report.done = "Extracted " + Files(extraction.files) + " from " + options.archive + ".";
  report.cannot =
      "extract " + (options.pattern.empty() ? "" : options.pattern + " from ") + options.archive;
  if (endedEarly)
    report.cannot += " behind " + Files(extraction.files) + " of " + std::to_string(expected);
  report.fields = {{"event", "end"},
                   {"archive", options.archive},
                   {"pattern", options.pattern},
                   {"files", extraction.files}};
  return report;
}

}  // namespace

void AddArchive(CLI::App& program, Session& session) {
  CLI::App* family = program.add_subcommand("archive", "Extract ZIP archives");
  family->require_subcommand(1);
  auto options = std::make_shared<ExtractOptions>();
  CLI::App* command = session.AddCommand(
      *family, "extract", "Extract the members of an archive below the current directory",
      "PATTERN takes the members whose names match: * any run of characters, ? one, [a-c] one of "
      "a\n"
      "set, [!a-c] one outside it; letters outside sets match in either case. The first member "
      "that\n"
      "is not perfect ends the extraction and makes it a failure; what was extracted stays.\n"
      "JSON: a line for each file with \"event\" (\"file\"), \"name\", \"compressedSize\" and\n"
      "\"percentage\" of what was read from archives so far; then the answer with \"event\"\n"
      "(\"end\"), \"archive\", \"pattern\", \"files\".");
  command->add_option("archive", options->archive, "The archive; .zip may be left out")
      ->required()
      ->type_name("ARCHIVE");
  command->add_option("pattern", options->pattern, "Which members; all by default")
      ->type_name("PATTERN");
  command->add_flag("--quiet", options->quiet, "Show no progress on standard error");
  command->callback([options, &session] { session.Finish(Extract(*options, session)); });
}

}  // namespace tool
