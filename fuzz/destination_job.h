// A job as an input of fuzz_destination describes it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "support/input.h"
#include "zeapi.h"

namespace zeapi::fuzz {

enum Call { kSendFile, kSendString, kResource, kCalls };

// Bits of the first number of an input: pointers that are null, and a file that is there already.
enum Bits { kNullText = 1, kNullPrinter = 2, kNullDestination = 4, kNullJobName = 8, kExists = 16 };

struct Job {
  Call call;
  unsigned bits;
  std::uint32_t append;
  std::int32_t request;
  std::int32_t device;
  ZeDestination destination;
  std::string printer;
  std::string jobName;
  std::string text;     // or the name of the file to send
  std::string content;  // of the file "in"

  bool Has(unsigned bit) const { return (bits & bit) != 0; }

  // Whether the call takes these arguments at all.
  bool IsValid() const;

  // The name of the file that the call sends.
  std::optional<std::string> FileName() const;

  // The bytes that a string stands for; none when it is no string to send.
  std::optional<std::string> Decoded() const;
};

// Reads the job, and sets up the spooler that it meets. Printers are files of drive D, files to
// send are files of drive I: a job never sends the file that it goes to, which would grow for ever.
Job ReadJob(Input input);

}  // namespace zeapi::fuzz
