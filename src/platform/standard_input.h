// The process's standard input, for the one question that the library asks.
#pragma once

namespace zeapi::platform {

// The next byte, if there is one at once: nobody is waited for, and nothing is read ahead. A terminal has
// none, since nobody there knows that he is asked.
bool StandardInputByte(char* byte);

}  // namespace zeapi::platform
