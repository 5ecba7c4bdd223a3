// File descriptors as the library takes them.
#pragma once

namespace zeapi::platform {

// A program may run with its standard streams closed. No file takes their places: 0 stands for no file at
// the interface, and questions are read there. Gives the file under another number where it had one of
// theirs, and -1 for -1.
int AboveStandardStreams(int file);

}  // namespace zeapi::platform
