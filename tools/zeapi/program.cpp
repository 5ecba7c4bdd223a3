#include "program.h"

#include <exception>
#include <new>

#include "commands.h"
#include "result_words.h"
#include "session.h"

namespace tool {
namespace {

constexpr const char* kPurpose =
    "Sends files, strings, fonts, macros, demos and storage requests to laser printers, shows "
    "what\n"
    "was sent, works on the files around that (fonts, PCL XL, INI, panel, option and data files,\n"
    "archives), reads what printers report and builds addresses of support pages.\n"
    "A printer is the name of a print queue; any other name is a file that receives the job.";

constexpr const char* kExitCodes =
    "Exit codes: 0 success, 1 to 63 the library's result code (its words are on standard error),\n"
    "64 the command line is not understood, 70 anything else.\n"
    "With --json each command prints an object with \"command\", \"result\" and \"meaning\" and\n"
    "the fields that its own --help names; job prints an array, archive extract a line for each\n"
    "file before the object. Each command has --help.";

std::string Version() {
  return "zeapi " + std::to_string(ZE_API_VERSION / 100) + "." +
         std::to_string(ZE_API_VERSION % 100);
}

// The command that the arguments reached, as it is typed: "zeapi file copy".
std::string CommandReached(const CLI::App& program) {
  std::string reached = program.get_name();
  for (const CLI::App* app = &program; !app->get_subcommands().empty();) {
    app = app->get_subcommands().front();
    reached += " " + app->get_name();
  }
  return reached;
}

int Run(int count, const char* const* arguments, Session& session) {
  CLI::App program(kPurpose, "zeapi");
  // A path that begins with "/" is no option, on Windows neither. Families inherit this.
  program.allow_windows_style_options(false);
  program.set_version_flag("--version", Version());
  program.footer(kExitCodes);
  program.require_subcommand(1);
  AddCommands(program, session);
  try {
    program.parse(count, arguments);
  } catch (const CLI::Success& wish) {  // --help, --version
    return program.exit(wish, session.Out(), session.Err());
  } catch (const CLI::ParseError& error) {
    const std::string reached = CommandReached(program);
    session.Err() << "zeapi: " << error.what() << "\nTry \"" << reached << " --help\".\n";
    return kExitUsage;
  }
  return session.ExitCode();
}

}  // namespace

int RunProgram(int count, const char* const* arguments, std::ostream& out, std::ostream& err) {
  try {
    Session session(out, err);
    const int exitCode = Run(count, arguments, session);
    if (out.flush()) return exitCode;
    err << "zeapi: standard output cannot be written\n";
    return kExitInternal;
  } catch (const std::bad_alloc&) {
    err << "zeapi: " << ResultWords(ZE_OUT_OF_MEMORY) << '\n';
    return ExitCodeFor(ZE_OUT_OF_MEMORY);
  } catch (const std::exception& error) {
    err << "zeapi: " << error.what() << '\n';
    return kExitInternal;
  }
}

}  // namespace tool
