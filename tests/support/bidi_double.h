// Stands in for the bidirectional-communication DLL inside the process: the loader finds it, its
// entry points record every call and can fail any of them.
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace zeapi::testing {

struct BidiDouble {
  // What a test sets.
  bool present = false;
  std::set<std::string> missing;    // entry points that the DLL lacks
  std::set<std::string> failing;    // entry points that report failure
  int failingWrite = 0;             // number of the write that fails, from 1; 0: none
  std::uint32_t reportedShort = 0;  // how many bytes fewer each write reports
  std::array<std::uint8_t, 412> printerInfo = {};  // answer of BceGetPrtInfo

  // What a test reads.
  std::vector<std::string> calls;  // "load NAME", "BceOpen 7 9 0", "BceWrite 7 9 0 (5) 1", "free"
  std::string data;                // what successful writes took
  std::string documentInfo;        // the block that BceStartDoc was given
  int loaded = 0;                  // loads minus frees
  int writes = 0;
  bool infoWasZero = false;  // the block given to BceGetPrtInfo held nothing but zeros
};

BidiDouble& Bidi();
void ResetBidi();

}  // namespace zeapi::testing
