// One thing that a captured job says to a printer. The events of a job tile it: each begins where
// the one before it ends, none is empty, and together they are the whole job.
#pragma once

#include <cstddef>
#include <string>

namespace tool {

enum class JobEventKind {
  kUniversalExit,  // ESC % -12345X: back to the job language
  kPjl,            // one line of PJL, its line end included
  kPcl,            // one parameterised command, or one part of a combined one
  kEscape,         // ESC and one or two characters
  kBracketK,       // ESC [ K, a count and that many bytes
  kPayload,        // bytes that the event before announced
  kLanguageData,   // data in a language that is not read here, up to the next universal exit
  kFormFeed,
  kText,     // printable characters and line ends
  kData,     // any other bytes
  kDamaged,  // the beginning of a command that does not go on as one
};

struct JobEvent {
  JobEventKind kind = JobEventKind::kData;
  std::size_t offset = 0;
  std::size_t length = 0;

  // kPjl: the line without its end. kPcl: the command without its value, "&lX". kEscape: what
  // follows ESC. kLanguageData: the language. kPayload: what it is, in words.
  std::string text;

  std::string value;        // kPcl: the number as written, "" for none
  bool continued = false;   // kPcl: a part of a combined command, without an ESC of its own
  std::size_t missing = 0;  // kBracketK, kPayload: bytes announced that the file does not have
};

}  // namespace tool
