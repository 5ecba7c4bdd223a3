// Stands in for the host's print spooler: records every call and can fail any of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zeapi::testing {

struct SpoolerDouble {
  // What a test sets.
  std::string printer;  // the only printer there is; empty: none
  bool startsDocument = true;
  int failingWrite = 0;       // number of the write that fails, from 1; 0: none
  std::uint32_t shortBy = 1;  // by how many bytes the failing write falls short
  std::uint32_t lastError = 1234;

  // What a test reads.
  std::vector<std::string> calls;  // "open NAME", "start DOCUMENT", "write N", "end", "close"
  std::string data;                // what was taken by successful writes
  int writes = 0;
};

// The one that the library under test talks to. ResetSpooler makes it new.
SpoolerDouble& Spooler();
void ResetSpooler();

// The handle that the double gives out.
inline constexpr std::uintptr_t kSpoolerDoubleHandle = 77;

}  // namespace zeapi::testing
