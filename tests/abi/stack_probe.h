// Calls a function of the Windows standard calling convention by hand and watches the stack. 32-bit
// x86 only.
#pragma once

#include <cstdint>
#include <vector>

struct StackProbeResult {
  std::uint32_t answer;   // EAX
  std::uint32_t removed;  // bytes that the callee took off the stack beside its return address
};

// `words` are the arguments, first one first. `residue` (0, 4, 8 or 12) is ESP modulo 16 at the
// call instruction; a caller built by another compiler may stand at any of these.
StackProbeResult CallOnStack(const void* function, const std::vector<std::uint32_t>& words,
                             std::uint32_t residue);
