// The debug log: one file at a fixed place, one line an event.
#pragma once

namespace zeapi {

// Where the log is. Applications and their support people look there; it cannot be moved or
// switched off.
inline constexpr char kLogPath[] = "c:\\zeapiw32.log";

// Appends "module (line): message". The file is opened and closed for each line, so that the log
// survives a crash of the calling process at any point. A log that cannot be written is ignored.
void ZeLog(const char* module, unsigned line, const char* message);

// One event of a module's log. The line numbers are part of what readers of the log know; they are
// fixed data and do not follow the source.
struct LogEvent {
  unsigned line;
  const char* message;
};

}  // namespace zeapi
