// The program from its arguments to its exit code.
#pragma once

#include <ostream>

namespace tool {

// Runs the command that the arguments name. `arguments` has the program's name first. Returns the
// exit code; nothing is thrown.
int RunProgram(int count, const char* const* arguments, std::ostream& out, std::ostream& err);

}  // namespace tool
