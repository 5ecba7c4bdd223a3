// The process's standard input, for the one question that the library asks.
#pragma once

namespace zeapi::platform {

// The first character of the next line; 0 when the line is empty or there is none. Nobody is waited
// for who does not know that he is asked: a terminal has no lines.
char StandardInputAnswer();

}  // namespace zeapi::platform
