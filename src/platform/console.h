// The process's standard output and input, for the one text that the library shows there and the one
// question that it asks.
#pragma once

#include <string_view>

namespace zeapi::platform {

void ConsoleWrite(std::string_view text);

// The first character of the next line of standard input; 0 when the line is empty or there is none.
// Nobody is waited for who does not know that he is asked: a terminal has no lines.
char ConsoleAnswer();

}  // namespace zeapi::platform
